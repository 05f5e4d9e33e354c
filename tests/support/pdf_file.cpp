// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "support/pdf_file.h"

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <sstream>
#include <stdexcept>

namespace tonalith::tests {
namespace {

QByteArray Run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    throw std::runtime_error(program.toStdString() + ": " + process.errorString().toStdString() +
                             process.readAllStandardError().toStdString());
  }
  return process.readAllStandardOutput();
}

}  // namespace

std::string PdfFile::Text() const {
  const QByteArray text = Run(QStringLiteral("pdftotext"), {QString::fromStdString(path_), QStringLiteral("-")});
  return QString::fromUtf8(text).simplified().toStdString();
}

std::vector<PdfFont> PdfFile::Fonts() const {
  std::vector<PdfFont> fonts;
  std::istringstream lines(Run(QStringLiteral("pdffonts"), {QString::fromStdString(path_)}).toStdString());
  std::string line;
  for (int number = 0; std::getline(lines, line); ++number) {
    if (number < 2) continue;
    // The last columns: emb, sub, uni and the two object numbers.
    const QStringList words = QString::fromStdString(line).simplified().split(QLatin1Char(' '));
    const auto yes = [&words](qsizetype fromEnd) { return words.at(words.size() - fromEnd) == QLatin1String("yes"); };
    fonts.push_back({words.at(0).toStdString(), yes(5), yes(3)});
  }
  return fonts;
}

std::string PdfFile::Info(const std::string& field) const {
  std::istringstream lines(Run(QStringLiteral("pdfinfo"), {QString::fromStdString(path_)}).toStdString());
  std::string line;
  while (std::getline(lines, line)) {
    if (line.rfind(field + ":", 0) == 0) {
      return QString::fromStdString(line.substr(field.size() + 1)).trimmed().toStdString();
    }
  }
  return {};
}

QImage PdfFile::Page(int dotsPerInch) const {
  const QByteArray picture =
      Run(QStringLiteral("pdftoppm"),
          {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(dotsPerInch), QString::fromStdString(path_)});
  QImage page = QImage::fromData(picture, "PNG");
  if (page.isNull()) throw std::runtime_error("pdftoppm gave no page");
  return page.convertToFormat(QImage::Format_RGB32);
}

}  // namespace tonalith::tests

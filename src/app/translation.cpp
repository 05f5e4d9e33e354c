// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>
#include <system_error>

namespace tonalith::app {
namespace {

bool Install(const QString& file, QCoreApplication& application) {
  auto translator = std::make_unique<QTranslator>(&application);
  if (!translator->load(file) || !QCoreApplication::installTranslator(translator.get())) return false;
  // The application is its parent and owns it.
  static_cast<void>(translator.release());
  return true;
}

}  // namespace

QStringList WantedTranslations(const QStringList& languages) {
  QStringList wanted;
  for (const QString& language : languages) {
    QStringList parts = language.split(QLatin1Char('-'));
    if (parts.first() == QLatin1String("en") || parts.first() == QLatin1String("C")) break;
    for (; !parts.isEmpty(); parts.removeLast()) wanted << parts.join(QLatin1Char('_'));
  }
  wanted.removeDuplicates();
  return wanted;
}

void InstallTranslation(const std::filesystem::path& contentFolder, const QLocale& locale,
                        QCoreApplication& application) {
  const std::filesystem::path folder = contentFolder / "translations";
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) return;
  const QString ours = QString::fromStdString(folder.string()) + QLatin1String("/tonalith_%1.qm");
  const QString qts = QLibraryInfo::path(QLibraryInfo::TranslationsPath) + QLatin1String("/qtbase_%1.qm");
  for (const QString& name : WantedTranslations(locale.uiLanguages())) {
    if (!Install(ours.arg(name), application)) continue;
    if (!Install(qts.arg(name), application)) Install(qts.arg(name.section(QLatin1Char('_'), 0, 0)), application);
    return;
  }
}

}  // namespace tonalith::app

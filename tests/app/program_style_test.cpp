// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Compares the style of the program, started in a child process, with the style of an application that only starts.

#include "app/program_style.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStyleOption>
#include <QTemporaryDir>
#include <map>

#include "paint/theme.h"

namespace tonalith::app {
namespace {

using Output = std::map<QString, QString>;
using Setting = std::pair<QString, QString>;

struct ProcessSettings {
  QStringList arguments;
  std::vector<Setting> environment;
};

void PrintTo(const ProcessSettings& settings, std::ostream* out) {
  *out << settings.arguments.join(QLatin1Char(' ')).toStdString();
  for (const Setting& setting : settings.environment) {
    *out << ' ' << setting.first.toStdString() << '=' << setting.second.toStdString();
  }
}

/// Returns the output of style_probe, by the first word of each line.
Output Probe(const QString& what, const ProcessSettings& settings) {
  QProcess probe;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const Setting& setting : settings.environment) environment.insert(setting.first, setting.second);
  probe.setProcessEnvironment(environment);
  probe.start(QStringLiteral(TONALITH_STYLE_PROBE), QStringList{what} + settings.arguments);
  constexpr int kTimeoutMilliseconds = 60000;
  EXPECT_TRUE(probe.waitForFinished(kTimeoutMilliseconds));
  EXPECT_EQ(probe.exitStatus(), QProcess::NormalExit) << probe.readAllStandardError().toStdString();
  Output output;
  for (const QString& line : QString::fromUtf8(probe.readAllStandardOutput()).split(QLatin1Char('\n'))) {
    const qsizetype blank = line.indexOf(QLatin1Char(' '));
    if (blank > 0) output[line.left(blank)] = line.mid(blank + 1);
  }
  return output;
}

class ProgramStyleIn : public testing::TestWithParam<ProcessSettings> {};

TEST_P(ProgramStyleIn, ProgramHasTheStyleOfAPlainApplication) {
  const Output plain = Probe(QStringLiteral("plain"), GetParam());
  const Output program = Probe(QStringLiteral("program"), GetParam());
  for (const char* const what : {"style", "class", "metrics", "hints", "button", "scroll-bar", "menu-bar"}) {
    const QString key = QLatin1String(what);
    ASSERT_FALSE(plain.find(key) == plain.end()) << what;
    ASSERT_FALSE(program.find(key) == program.end()) << what;
    EXPECT_EQ(program.at(key), plain.at(key)) << what;
  }
}

TEST_P(ProgramStyleIn, MenusAndMessageBoxesHaveThePaletteOfTheWindow) {
  Output program = Probe(QStringLiteral("program"), GetParam());
  ASSERT_FALSE(program[QStringLiteral("window")].isEmpty());
  EXPECT_EQ(program[QStringLiteral("message-box")], program[QStringLiteral("window")]);
  EXPECT_EQ(program[QStringLiteral("menu")], program[QStringLiteral("window")]);
  EXPECT_EQ(program[QStringLiteral("application")], program[QStringLiteral("window")]);
}

INSTANTIATE_TEST_SUITE_P(
    EverySetting, ProgramStyleIn,
    testing::Values(ProcessSettings{}, ProcessSettings{{QStringLiteral("-style"), QStringLiteral("Windows")}, {}},
                    ProcessSettings{{}, {{QStringLiteral("QT_STYLE_OVERRIDE"), QStringLiteral("Windows")}}}));

TEST(ProgramStyle, MenuBarBorderHasNoGapsAtScalesAbove1) {
  for (const char* const scale : {"1.25", "1.5", "1.75", "2", "2.5", "3", "4"}) {
    const ProcessSettings fine{{}, {{QStringLiteral("QT_SCALE_FACTOR"), QLatin1String(scale)}}};
    EXPECT_EQ(Probe(QStringLiteral("program"), fine)[QStringLiteral("menu-border-colours")], QLatin1String("1"))
        << scale;
  }
}

TEST(ProgramStyle, EdgesOfMenusAndListsAreVisibleInADarkPalette) {
  constexpr int kBackground = 38;
  constexpr int kClearlyLighter = 30;
  Output program = Probe(QStringLiteral("program"), {});
  for (const char* const what : {"dark-menu-edge", "dark-list-edge", "dark-separator"}) {
    EXPECT_GE(program[QLatin1String(what)].toInt(), kBackground + kClearlyLighter) << what;
  }
}

TEST(ProgramStyle, AnEdgeKeepsThePainter) {
  ProgramStyle style(QStringLiteral("fusion"));
  QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.setPen(Qt::red);
  painter.setBrush(Qt::green);
  QStyleOption option;
  option.rect = image.rect();
  option.palette = paint::WarmPalette(QPalette(QColor(38, 38, 38)));
  style.drawPrimitive(QStyle::PE_FrameMenu, &option, &painter);
  EXPECT_EQ(image.pixelColor(0, 10).rgb(), paint::OutlineColour(option.palette).rgb());
  EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
  EXPECT_EQ(painter.brush().color(), QColor(Qt::green));
}

TEST(ProgramStyle, IsFusionWithoutADesktop) {
  EXPECT_EQ(Probe(QStringLiteral("program"), {})[QStringLiteral("style")], QLatin1String("fusion"));
}

TEST(ProgramStyle, IsTheOneOfTheCommandLine) {
  const ProcessSettings commandLine{{QStringLiteral("-style"), QStringLiteral("Windows")}, {}};
  EXPECT_EQ(Probe(QStringLiteral("program"), commandLine)[QStringLiteral("style")], QLatin1String("windows"));
}

TEST(ProgramStart, SucceedsWithoutAnyFontAndPaintsTheMusicGlyphs) {
  const QTemporaryDir folder;
  const QString settings = folder.filePath(QStringLiteral("fonts.conf"));
  QFile file(settings);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("<?xml version=\"1.0\"?><fontconfig></fontconfig>");
  file.close();
  Output program = Probe(QStringLiteral("program"), {{},
                                                     {{QStringLiteral("FONTCONFIG_FILE"), settings},
                                                      {QStringLiteral("XDG_DATA_DIRS"), folder.path()},
                                                      {QStringLiteral("XDG_DATA_HOME"), folder.path()},
                                                      {QStringLiteral("HOME"), folder.path()}}});
  EXPECT_EQ(program[QStringLiteral("music")], QLatin1String("painted"));
}

}  // namespace
}  // namespace tonalith::app

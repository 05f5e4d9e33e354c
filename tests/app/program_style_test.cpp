// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The style of the program as it really starts, in a process of its own, against that of an application that does
// nothing but start.

#include "app/program_style.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <map>

namespace tonalith::app {
namespace {

using Answers = std::map<QString, QString>;
using Setting = std::pair<QString, QString>;

struct Surroundings {
  QStringList arguments;
  std::vector<Setting> environment;
};

void PrintTo(const Surroundings& surroundings, std::ostream* out) {
  *out << surroundings.arguments.join(QLatin1Char(' ')).toStdString();
  for (const Setting& setting : surroundings.environment) {
    *out << ' ' << setting.first.toStdString() << '=' << setting.second.toStdString();
  }
}

/// What style_probe prints, by its first word.
Answers Probe(const QString& what, const Surroundings& surroundings) {
  QProcess probe;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const Setting& setting : surroundings.environment) environment.insert(setting.first, setting.second);
  probe.setProcessEnvironment(environment);
  probe.start(QStringLiteral(TONALITH_STYLE_PROBE), QStringList{what} + surroundings.arguments);
  constexpr int kPatienceMilliseconds = 60000;
  EXPECT_TRUE(probe.waitForFinished(kPatienceMilliseconds));
  EXPECT_EQ(probe.exitStatus(), QProcess::NormalExit) << probe.readAllStandardError().toStdString();
  Answers answers;
  for (const QString& line : QString::fromUtf8(probe.readAllStandardOutput()).split(QLatin1Char('\n'))) {
    const qsizetype blank = line.indexOf(QLatin1Char(' '));
    if (blank > 0) answers[line.left(blank)] = line.mid(blank + 1);
  }
  return answers;
}

class ProgramStyleIn : public testing::TestWithParam<Surroundings> {};

TEST_P(ProgramStyleIn, TheProgramHasTheStyleOfAPlainApplication) {
  const Answers plain = Probe(QStringLiteral("plain"), GetParam());
  const Answers program = Probe(QStringLiteral("program"), GetParam());
  for (const char* const what : {"style", "class", "metrics", "hints", "button", "scroll-bar", "menu-bar"}) {
    const QString key = QLatin1String(what);
    ASSERT_FALSE(plain.find(key) == plain.end()) << what;
    ASSERT_FALSE(program.find(key) == program.end()) << what;
    EXPECT_EQ(program.at(key), plain.at(key)) << what;
  }
}

TEST_P(ProgramStyleIn, MenusAndMessageBoxesHaveThePaletteOfTheWindow) {
  Answers program = Probe(QStringLiteral("program"), GetParam());
  ASSERT_FALSE(program[QStringLiteral("window")].isEmpty());
  EXPECT_EQ(program[QStringLiteral("message-box")], program[QStringLiteral("window")]);
  EXPECT_EQ(program[QStringLiteral("menu")], program[QStringLiteral("window")]);
  EXPECT_EQ(program[QStringLiteral("application")], program[QStringLiteral("window")]);
}

INSTANTIATE_TEST_SUITE_P(
    EverySetting, ProgramStyleIn,
    testing::Values(Surroundings{}, Surroundings{{QStringLiteral("-style"), QStringLiteral("Windows")}, {}},
                    Surroundings{{}, {{QStringLiteral("QT_STYLE_OVERRIDE"), QStringLiteral("Windows")}}}));

TEST(ProgramStyle, BorderOfAMenuBarHasNoGapsOnAScreenOfFinePixels) {
  const Surroundings fine{{}, {{QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2")}}};
  EXPECT_EQ(Probe(QStringLiteral("program"), fine)[QStringLiteral("menu-border-colours")], QLatin1String("1"));
}

TEST(ProgramStyle, EdgesOfMenusAndListsAreVisibleInADarkPalette) {
  constexpr int kGround = 38;
  constexpr int kClearlyLighter = 30;
  Answers program = Probe(QStringLiteral("program"), {});
  for (const char* const what : {"dark-menu-edge", "dark-list-edge", "dark-separator"}) {
    EXPECT_GE(program[QLatin1String(what)].toInt(), kGround + kClearlyLighter) << what;
  }
}

TEST(ProgramStyle, IsFusionWhereNoDesktopHasAStyleOfItsOwn) {
  EXPECT_EQ(Probe(QStringLiteral("program"), {})[QStringLiteral("style")], QLatin1String("fusion"));
}

TEST(ProgramStyle, IsTheOneThatIsAskedFor) {
  const Surroundings asked{{QStringLiteral("-style"), QStringLiteral("Windows")}, {}};
  EXPECT_EQ(Probe(QStringLiteral("program"), asked)[QStringLiteral("style")], QLatin1String("windows"));
}

TEST(ProgramStart, SucceedsWithoutAnyFontAndPaintsTheMusicSignsItself) {
  const QTemporaryDir folder;
  const QString settings = folder.filePath(QStringLiteral("fonts.conf"));
  QFile file(settings);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("<?xml version=\"1.0\"?><fontconfig></fontconfig>");
  file.close();
  Answers program = Probe(QStringLiteral("program"), {{},
                                                      {{QStringLiteral("FONTCONFIG_FILE"), settings},
                                                       {QStringLiteral("XDG_DATA_DIRS"), folder.path()},
                                                       {QStringLiteral("XDG_DATA_HOME"), folder.path()},
                                                       {QStringLiteral("HOME"), folder.path()}}});
  EXPECT_EQ(program[QStringLiteral("music")], QLatin1String("painted"));
}

}  // namespace
}  // namespace tonalith::app

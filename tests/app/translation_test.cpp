// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/translation.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTranslator>
#include <fstream>

#include "app/frm_tonalith.h"
#include "support/temp_folder.h"

namespace tonalith::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Wanted(const QStringList& languages) {
  std::vector<std::string> names;
  for (const QString& name : WantedTranslations(languages)) names.push_back(name.toStdString());
  return names;
}

TEST(WantedTranslations, GoFromTheCountryToTheLanguage) {
  EXPECT_THAT(Wanted({QStringLiteral("pt-BR"), QStringLiteral("pt")}), ElementsAre("pt_BR", "pt"));
  EXPECT_THAT(Wanted({QStringLiteral("zh-Hant-TW")}), ElementsAre("zh_Hant_TW", "zh_Hant", "zh"));
}

TEST(WantedTranslations, EndAtEnglish) {
  EXPECT_THAT(Wanted({QStringLiteral("da"), QStringLiteral("en-GB"), QStringLiteral("de")}), ElementsAre("da"));
  EXPECT_THAT(Wanted({QStringLiteral("en-US"), QStringLiteral("de")}), IsEmpty());
  EXPECT_THAT(Wanted({QStringLiteral("C")}), IsEmpty());
  EXPECT_THAT(Wanted({}), IsEmpty());
}

class Translation : public testing::Test {
 protected:
  ~Translation() override {
    for (auto* const translator : QCoreApplication::instance()->findChildren<QTranslator*>()) delete translator;
  }

  void Install(QLocale::Language language) {
    InstallTranslation(temp_.Path(), QLocale(language), *QCoreApplication::instance());
  }
  static std::string Editor() { return frmTonalith::tr("&Editor").toStdString(); }
  static auto Installed() { return QCoreApplication::instance()->findChildren<QTranslator*>(); }
  std::filesystem::path MakeFolder() {
    const auto folder = temp_.Path() / "translations";
    std::filesystem::create_directory(folder);
    return folder;
  }

  tests::TempFolder temp_;
};

TEST_F(Translation, WithoutTheFolderIsEnglish) {
  Install(QLocale::German);
  EXPECT_THAT(Installed(), IsEmpty());
  EXPECT_EQ(Editor(), "&Editor");
}

TEST_F(Translation, OfDamagedFilesIsEnglish) {
  const auto folder = MakeFolder();
  std::ofstream(folder / "tonalith_de.qm") << "no translation at all";
  std::filesystem::create_directory(folder / "tonalith_de_DE.qm");
  Install(QLocale::German);
  EXPECT_THAT(Installed(), IsEmpty());
  EXPECT_EQ(Editor(), "&Editor");
}

TEST_F(Translation, IsReadFromTheFileOfTheUsersLanguage) {
  const QString tools = QLibraryInfo::path(QLibraryInfo::BinariesPath);
  const QString lrelease = QStandardPaths::findExecutable(QStringLiteral("lrelease"), {tools});
  if (lrelease.isEmpty()) GTEST_SKIP() << "lrelease, of qt6-l10n-tools, is not installed";
  const auto folder = MakeFolder();
  const auto source = temp_.Path() / "tonalith_de.ts";
  std::ofstream(source) << "<!DOCTYPE TS><TS version=\"2.1\" language=\"de\"><context>"
                           "<name>tonalith::app::frmTonalith</name><message><source>&amp;Editor</source>"
                           "<translation>&amp;Bearbeiten</translation></message></context></TS>";
  const auto compiled = folder / "tonalith_de.qm";
  ASSERT_EQ(QProcess::execute(lrelease, {QStringLiteral("-silent"), QString::fromStdString(source.string()),
                                         QStringLiteral("-qm"), QString::fromStdString(compiled.string())}),
            0);
  Install(QLocale::French);
  EXPECT_EQ(Editor(), "&Editor");
  Install(QLocale::German);
  EXPECT_EQ(Editor(), "&Bearbeiten");
  EXPECT_EQ(frmTonalith::tr("&Print").toStdString(), "&Print") << "what is not translated stays";
}

}  // namespace
}  // namespace tonalith::app

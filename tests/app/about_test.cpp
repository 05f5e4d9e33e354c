// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The About window, opened from the menu.

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QTest>
#include <QTextEdit>
#include <fstream>
#include <regex>
#include <sstream>

#include "app/frm_about.h"
#include "app/main_window_fixture.h"
#include "app/third_party_licences.h"
#include "paint/theme.h"

namespace tonalith::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

std::string TextOfFile(const std::string& path) {
  std::ifstream file(std::string(TONALITH_SOURCE_DIR) + "/" + path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// Major and minor number of the project.
std::string ProjectVersion() {
  const std::string project = TextOfFile("CMakeLists.txt");
  std::smatch found;
  std::regex_search(project, found, std::regex(R"(project\(Tonalith VERSION (\d+\.\d+))"));
  return found[1];
}

class About : public MainWindowTest {
 protected:
  About() {
    MakeDatabase({{"Major", "2212221"}});
    Start();
  }
  ~About() override { QApplication::setPalette(QPalette()); }

  [[nodiscard]] QList<frmAbout*> Windows() const { return window_->findChildren<frmAbout*>(); }
  frmAbout& Open() {
    Window().Menu().Entry("mAbout")->trigger();
    return *Windows().first();
  }
  std::string TextOf(const char* label) { return Text(Windows().first()->findChild<QLabel*>(QLatin1String(label))); }
  QTextEdit& Notices() { return *Windows().first()->findChild<QTextEdit*>(QStringLiteral("txtNotices")); }
};

TEST_F(About, IsCreatedByItsCommand) {
  EXPECT_THAT(Windows(), SizeIs(0));
  EXPECT_TRUE(Open().isVisible());
  EXPECT_EQ(Windows().first()->windowTitle().toStdString(), "About Tonalith");
}

TEST_F(About, ShowsNameVersionPurposeAndLicence) {
  Open();
  EXPECT_EQ(TextOf("lblName"), "Tonalith");
  ASSERT_NE(ProjectVersion(), "");
  EXPECT_EQ(TextOf("lblVersion"), "Version " + ProjectVersion());
  EXPECT_THAT(TextOf("lblPurpose"), HasSubstr("guitar neck"));
  EXPECT_THAT(TextOf("lblLicence"), testing::AllOf(HasSubstr("MIT"), HasSubstr("CC0 1.0")));
}

TEST_F(About, HasTheFolderOfTheDataAsTextToCopy) {
  auto* const folder = Open().findChild<QLineEdit*>(QStringLiteral("txtFolder"));
  EXPECT_EQ(folder->text().toStdString(), temp_.Path().string());
  EXPECT_TRUE(folder->isReadOnly());
  folder->setFocus();
  folder->selectAll();
  EXPECT_EQ(folder->selectedText().toStdString(), temp_.Path().string());
}

TEST_F(About, ShowsThirdPartyLicences) {
  Open();
  const std::string notices = Notices().toPlainText().toStdString();
  for (const char* const name :
       {"Qt 6", "SQLite:", "SQLiteCpp", "libmdb", "GLib", "OpenAL Soft", "CHMLib", "FreeType", "Euterpe"}) {
    EXPECT_THAT(notices, HasSubstr(name));
  }
  EXPECT_THAT(notices, HasSubstr("Sebastien Rombauts"));
  EXPECT_THAT(notices, HasSubstr("The above copyright notice and this permission notice shall be included in all"));
  EXPECT_THAT(notices, testing::Not(HasSubstr("SPDX")));
  EXPECT_TRUE(Notices().textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
  EXPECT_TRUE(Notices().textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

TEST_F(About, NamesEveryLibraryAndFontThatTheProgramUses) {
  const std::string notices = NoticesText().toStdString();
  std::istringstream packages(TextOfFile("tools/packages.tsv"));
  const std::map<std::string, std::string> named = {{"qt6-base-dev", "qt6-base"},
                                                    {"libsqlitecpp-dev", "libsqlitecpp-dev"},
                                                    {"libsqlite3-dev", "libsqlite3-0"},
                                                    {"mdbtools-dev", "libmdb3"},
                                                    {"libopenal-dev", "libopenal1"},
                                                    {"libchm-dev", "libchm1"},
                                                    {"libfreetype-dev", "libfreetype6"},
                                                    {"libcli11-dev", "libcli11-dev"},
                                                    {"nlohmann-json3-dev", "nlohmann-json3-dev"},
                                                    {"fonts-dejavu-core", "fonts-dejavu-core"},
                                                    {"fonts-oflb-euterpe", "fonts-oflb-euterpe"}};
  const std::regex library("build\t((?:lib|qt6|mdb|nlohmann|fonts)[^\t|]*)\t([^\n]*)");
  int count = 0;
  for (std::string line; std::getline(packages, line);) {
    std::smatch found;
    if (!std::regex_match(line, found, library) || std::regex_search(line, std::regex("\ttests$|test doubles")))
      continue;
    ++count;
    const auto entry = named.find(found[1]);
    ASSERT_NE(entry, named.end()) << found[1] << " needs a notice in content/notices, and its name here";
    EXPECT_THAT(notices, HasSubstr(entry->second));
  }
  EXPECT_EQ(count, 11);
}

TEST_F(About, ASecondClickShowsTheSameWindow) {
  const frmAbout* const first = &Open();
  EXPECT_EQ(&Open(), first);
  EXPECT_THAT(Windows(), SizeIs(1));
}

TEST_F(About, IsModalToItsOwnerOnly) {
  EXPECT_EQ(Open().windowModality(), Qt::WindowModal);
  EXPECT_EQ(Open().parentWidget(), &Window());
}

TEST_F(About, EscapeAndTheCloseButtonDeleteIt) {
  QTest::keyClick(&Open(), Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_THAT(Windows(), SizeIs(0));
  auto* const cmdClose = Open().findChild<QAbstractButton*>(QStringLiteral("cmdClose"));
  QTest::mouseClick(cmdClose, Qt::LeftButton);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_THAT(Windows(), SizeIs(0));
}

TEST_F(About, OpensAgainRightAfterItWasClosed) {
  const QPointer<frmAbout> first(&Open());
  first->close();
  Window().Menu().Entry("mAbout")->trigger();
  int shown = 0;
  for (const frmAbout* const form : Windows()) shown += form->isVisible() ? 1 : 0;
  EXPECT_EQ(shown, 1);
}

TEST_F(About, IsDeletedWithItsOwner) {
  const QPointer<frmAbout> about(&Open());
  Window().close();
  EXPECT_TRUE(about.isNull());
}

TEST_F(About, TabOrderIsFolderLicencesButton) {
  frmAbout& about = Open();
  about.findChild<QWidget*>(QStringLiteral("txtFolder"))->setFocus();
  std::vector<std::string> stops;
  for (int i = 0; i < 3; ++i) {
    ASSERT_NE(about.focusWidget(), nullptr);
    stops.push_back(about.focusWidget()->objectName().toStdString());
    QTest::keyClick(about.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(stops, ElementsAre("txtFolder", "txtNotices", "cmdClose"));
}

TEST_F(About, EveryTextBoxHasAnAccessibleName) {
  for (const char* const name : {"txtFolder", "txtNotices"}) {
    EXPECT_FALSE(Open().findChild<QWidget*>(QLatin1String(name))->accessibleName().isEmpty()) << name;
  }
}

TEST_F(About, FollowsTheThemeWhileItIsOpen) {
  frmAbout& about = Open();
  for (const QColor& background : {QColor(0x30, 0x30, 0x30), QColor(0xe8, 0xe8, 0xe8)}) {
    const QPalette system(background);
    QApplication::setPalette(system);
    // Qt notifies windows of a new palette only while the application's own loop runs.
    QEvent change(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(&about, &change);
    const QPalette warm = paint::WarmPalette(system);
    EXPECT_EQ(about.palette().color(QPalette::Window), warm.color(QPalette::Window));
    EXPECT_EQ(Notices().palette().color(QPalette::Text), warm.color(QPalette::Text));
  }
}

}  // namespace
}  // namespace tonalith::app

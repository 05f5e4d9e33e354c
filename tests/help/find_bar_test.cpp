// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/find_bar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

#include "help/frm_help_fixture.h"

namespace tonalith::help {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FindBarTest : public FrmHelpTest {
 protected:
  [[nodiscard]] QAbstractButton* Button(const char* name) const {
    for (auto* const button : Find<QWidget>("FindBar")->findChildren<QAbstractButton*>()) {
      if (button->accessibleName() == Wide(name)) return button;
    }
    return nullptr;
  }
};

TEST_F(FindBarTest, FindHighlightsAndWrapsAround) {
  Follow("strings.html");
  Press(Qt::Key_F, Qt::ControlModifier);
  ASSERT_TRUE(Find<QWidget>("FindBar")->isVisible());
  QTest::keyClicks(Find<QLineEdit>("txtFind"), Wide("string"));
  EXPECT_EQ(FoundWords(), "4 places");
  EXPECT_THAT(Highlighted(), ElementsAre("String", "string", "string", "string"));
  const int first = Page()->textCursor().position();
  Press(Qt::Key_F3);
  EXPECT_GT(Page()->textCursor().position(), first);
  Press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Page()->textCursor().position(), first);
  Press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_GT(Page()->textCursor().position(), first);
  Press(Qt::Key_F3);
  EXPECT_EQ(Page()->textCursor().position(), first);
}

TEST_F(FindBarTest, FindReportsNoMatch) {
  Press(Qt::Key_F3);
  QTest::keyClicks(Find<QLineEdit>("txtFind"), Wide("zither"));
  EXPECT_EQ(FoundWords(), "Not on this page");
  EXPECT_THAT(Highlighted(), IsEmpty());
  QTest::keyClick(Find<QLineEdit>("txtFind"), Qt::Key_Return);
  EXPECT_EQ(Place(), "/welcome.html");
}

TEST_F(FindBarTest, FindBarSearchesTheNextShownPage) {
  Press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(Find<QLineEdit>("txtFind"), Wide("low string"));
  EXPECT_EQ(FoundWords(), "Not on this page");
  Follow("strings.html");
  EXPECT_EQ(FoundWords(), "1 place");
}

TEST_F(FindBarTest, ButtonsFindAndClose) {
  Follow("strings.html");
  Press(Qt::Key_F, Qt::ControlModifier);
  auto* const text = Find<QLineEdit>("txtFind");
  QTest::keyClicks(text, Wide("string"));
  const int first = Page()->textCursor().position();
  QTest::mouseClick(Button("Next match"), Qt::LeftButton);
  const int second = Page()->textCursor().position();
  EXPECT_GT(second, first);
  QTest::mouseClick(Button("Previous match"), Qt::LeftButton);
  EXPECT_EQ(Page()->textCursor().position(), first);
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(Page()->textCursor().position(), second);
  QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Page()->textCursor().position(), first);
  QTest::mouseClick(Button("Close the find bar"), Qt::LeftButton);
  EXPECT_FALSE(Find<QWidget>("FindBar")->isVisible());
  EXPECT_THAT(Highlighted(), IsEmpty());
}

TEST_F(FindBarTest, ButtonsAreEnabledWhileThereIsAMatch) {
  Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_FALSE(Button("Next match")->isEnabled());
  EXPECT_FALSE(Button("Previous match")->isEnabled());
  auto* const text = Find<QLineEdit>("txtFind");
  QTest::keyClicks(text, Wide("w"));
  EXPECT_TRUE(Button("Next match")->isEnabled());
  EXPECT_TRUE(Button("Previous match")->isEnabled());
  EXPECT_EQ(text->accessibleDescription().toStdString(), FoundWords());
  EXPECT_THAT(FoundWords(), testing::EndsWith("places"));
  text->clear();
  EXPECT_EQ(FoundWords(), "");
}

}  // namespace
}  // namespace tonalith::help

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <QTest>
#include <string>

#include "views/fretboard_in_text.h"

namespace tonalith::views {
namespace {

using tests::OneScale;

class SilentPlayer : public platform::NotePlayer {
 public:
  void Play(const std::string& /*path*/) override {}
};

class FretboardLight : public testing::Test {
 protected:
  FretboardLight() {
    view_.SetNotePlayer(&player_, "/tonalith");
    view_.PositionNotes();
  }
  tests::RecordingMsgBox msgBox_;
  SilentPlayer player_;
  FretboardView view_{core::Neck::Standard(), msgBox_};
};

/// The highlighted notes, such as "img3 img20 ".
std::string LitNotes(const FretboardView& view) {
  std::string lit;
  for (int index = 0; index < view.Layout().NoteCount(); ++index) {
    if (view.Image(index).IsLit()) lit += view.Image(index).objectName().toStdString() + " ";
  }
  return lit;
}

TEST_F(FretboardLight, HighlightsAPressedNoteWhileItSounds) {
  OneScale scale("2212221");
  tests::Refresh(view_, "C", scale);
  QTest::mousePress(&view_.Image(3), Qt::LeftButton);
  EXPECT_EQ(LitNotes(view_), "") << "not before the player has started the note";
  ASSERT_NE(player_.Notifier, nullptr);
  player_.Notifier->NoteStarted();
  EXPECT_EQ(LitNotes(view_), "img3 ");
  player_.Notifier->NoteEnded();
  EXPECT_EQ(LitNotes(view_), "");
  QTest::keyClick(&view_.Image(5), Qt::Key_Return);
  player_.Notifier->NoteStarted();
  EXPECT_EQ(LitNotes(view_), "img5 ");
}

TEST_F(FretboardLight, HighlightsAPlayedAndAPressedNoteIndependently) {
  view_.LightNote(LitBy::kPlayback, "img20");
  view_.Image(20).click();
  player_.Notifier->NoteStarted();
  EXPECT_EQ(LitNotes(view_), "img20 ");
  view_.LightNote(LitBy::kPlayback, "img25");
  EXPECT_EQ(LitNotes(view_), "img20 img25 ");
  view_.DarkenNote(LitBy::kPlayback);
  EXPECT_EQ(LitNotes(view_), "img20 ");
  player_.Notifier->NoteEnded();
  EXPECT_EQ(LitNotes(view_), "");
  view_.LightNote(LitBy::kPlayback, "img99");
  EXPECT_EQ(LitNotes(view_), "");
}

TEST_F(FretboardLight, DestructorRemovesTheNotifier) {
  SilentPlayer player;
  {
    FretboardView view(core::Neck::Standard(), msgBox_);
    view.SetNotePlayer(&player, "/");
    EXPECT_NE(player.Notifier, nullptr);
  }
  EXPECT_EQ(player.Notifier, nullptr);
}

}  // namespace
}  // namespace tonalith::views

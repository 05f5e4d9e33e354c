// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The neck while a scale is played on the silent device.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/main_window_fixture.h"
#include "app/main_window_playback.h"
#include "audio/wave_bytes.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;

class LitPlayback : public MainWindowTest {};

TEST_F(LitPlayback, HighlightsEachDiscWhileItsNoteSounds) {
  MakeDatabase({{"Fifth", "75"}});
  fs::create_directory(temp_.Path() / "Audio");
  const testing::Bytes wave = testing::Wave({}, testing::Number(0, 2 * 44100 / 10));
  for (const char* const name : {"0.wav", "1.wav", "2.wav"}) {
    std::ofstream(temp_.Path() / "Audio" / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(wave.data()), std::ssize(wave));
  }
  Start();
  std::vector<std::string> lit;
  QTimer polling;
  QObject::connect(&polling, &QTimer::timeout, [&] {
    for (int index = 0; index < 96; ++index) {
      const views::NoteImage& image = C().fretboard->Image(index);
      if (!image.IsLit()) continue;
      EXPECT_FALSE(Window().Playback().SoundEnded) << image.objectName().toStdString();
      const std::string name = image.objectName().toStdString();
      if (lit.empty() || lit.back() != name) lit.push_back(name);
    }
  });
  polling.start(2);
  QTest::mouseClick(C().cmdListen, Qt::LeftButton);
  EXPECT_THAT(lit, ::testing::ElementsAre("img8", "img3", "img8")) << "C, G, C on the first string; " << box_.Texts();
  for (int index = 0; index < 96; ++index) EXPECT_FALSE(C().fretboard->Image(index).IsLit()) << index;
}

TEST_F(LitPlayback, ShowsStandbyInGreyAndTheOtherStatesInBlue) {
  MakeDatabase({{"Fifth", "75"}});
  Start();
  MainWindowPlayback playback(C(), Window().objectName().toStdString());
  using audio::PlaybackState;
  for (const PlaybackState state : {PlaybackState::kLoaded, PlaybackState::kPlaying, PlaybackState::kStopped}) {
    playback.ShowStatus({state, "C"});
    EXPECT_EQ(C().lblStatus->TextColour(), QColor(0, 0, 255)) << static_cast<int>(state);
  }
  playback.ShowStatus({PlaybackState::kStandby, {}});
  EXPECT_EQ(C().lblStatus->TextColour(), QColor(127, 127, 127));
}

TEST_F(LitPlayback, MarksTheNoteOfAnIndex) {
  MakeDatabase({{"Fifth", "75"}});
  Start();
  MainWindowPlayback playback(C(), Window().objectName().toStdString());
  playback.ShowMarker(8);
  EXPECT_TRUE(C().fretboard->Picture1().isVisible());
  playback.HideMarker();
  EXPECT_FALSE(C().fretboard->Picture1().isVisible());
}

}  // namespace
}  // namespace tonalith::app

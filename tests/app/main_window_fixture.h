// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window with a test database in a temporary folder.

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/m_main.h"
#include "platform/qt/qt_event_pump.h"
#include "platform/sound/silent_mixer.h"
#include "platform/system/posix_file_input.h"
#include "platform/system/window_message_queue.h"
#include "support/recording_msg_box.h"
#include "support/scripted_help_engine.h"
#include "support/scripted_printer.h"
#include "support/temp_folder.h"
#include "support/tuning.h"

namespace tonalith::app {

struct TestScale {
  std::string name;
  std::optional<std::string> pattern;
  std::string description = "A scale for tests.";
};

class RecordingNotePlayer : public platform::NotePlayer {
 public:
  void Play(const std::string& path) override { played_.push_back(path); }
  std::vector<std::string> played_;
};

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest();
  ~MainWindowTest() override;

  /// Creates a database with these rows, ScaleID from 1, all of the type "Test scales".
  void MakeDatabase(const std::vector<TestScale>& scales);
  /// Copies the database that is shipped.
  void CopyShippedDatabase();
  /// Runs statements on the database file in a separate connection.
  void Execute(const std::string& statements);

  /// Starts the window with the database from above, or without one.
  frmTonalith& Start();
  frmTonalith& Window() { return *window_; }
  const MainControls& C() { return window_->Controls(); }

  /// Clicks the button with this accessible name.
  void Press(const char* accessibleName);
  std::string Text(const QLabel* label) const { return label->text().toStdString(); }
  /// Returns the visible notes of a string from 1 to 6, such as "E F G A B C D E F G".
  std::string StringNotes(int string);
  [[nodiscard]] std::string Path(const std::string& file) const { return (temp_.Path() / file).string(); }

  tests::TempFolder temp_;
  tests::RecordingMsgBox box_;
  RecordingNotePlayer player_;
  platform::PosixFileInput files_;
  audio::ScaleSoundFiles scaleSounds_{files_};
  platform::WindowMessageQueue messages_;
  platform::QtEventPump events_;
  tests::PrintScript printed_;
  tests::ScriptedPrintService printing_{printed_};
  tests::ScriptedHelpEngine help_;
  core::Neck neck_ = tests::StandardNeck();
  std::unique_ptr<platform::QtMessageBridge> bridge_;
  std::unique_ptr<platform::WaveOutput> output_;
  std::unique_ptr<audio::SoundManager> sounds_;
  std::unique_ptr<data::ScaleDatabase> database_;
  std::unique_ptr<frmTonalith> window_;
};

}  // namespace tonalith::app

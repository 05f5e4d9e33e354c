// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window on a database of the test's own, in a folder that goes with the test.

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

  /// A database of these rows, ScaleID counting from 1, all of the type "Test scales".
  void MakeDatabase(const std::vector<TestScale>& scales);
  /// The database that ships.
  void CopyShippedDatabase();
  /// Runs statements on the database file past the program.
  void Execute(const std::string& statements);

  /// Starts the window; the statement in `database_` was made by one of the above, or nothing is there.
  frmTonalith& Start();
  frmTonalith& Window() { return *window_; }
  const MainControls& C() { return window_->Controls(); }

  void Press(const char* accessibleName);
  std::string Text(const QLabel* label) const { return label->text().toStdString(); }
  /// The visible notes of a string row, such as "E F G A B C D E F G".
  std::string StringNotes(int row);
  [[nodiscard]] std::string Path(const std::string& file) const { return (temp_.Path() / file).string(); }

  tests::TempFolder temp_;
  tests::RecordingMsgBox box_;
  RecordingNotePlayer player_;
  platform::PosixFileInput files_;
  audio::ScaleSoundFiles scaleSounds_{files_};
  platform::WindowMessageQueue notices_;
  platform::QtEventPump events_;
  tests::PrintScript printed_;
  tests::ScriptedPrintService printing_{printed_};
  tests::ScriptedHelpEngine help_;
  std::unique_ptr<platform::QtMessageBridge> joint_;
  std::unique_ptr<platform::WaveOutput> output_;
  std::unique_ptr<audio::SoundManager> sounds_;
  std::unique_ptr<data::ScaleDatabase> database_;
  std::unique_ptr<frmTonalith> window_;
};

}  // namespace tonalith::app

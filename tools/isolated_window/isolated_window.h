// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window without external effects: real forms with a real database, but sound, printer, message boxes and help
// are fakes. For programs that draw or measure the window. Needs a QApplication.

#pragma once

#include <memory>
#include <string>

#include "app/m_main.h"
#include "platform/qt/qt_event_pump.h"
#include "platform/sound/silent_mixer.h"
#include "platform/system/posix_file_input.h"
#include "platform/system/window_message_queue.h"
#include "support/recording_msg_box.h"
#include "support/scripted_help_engine.h"
#include "support/scripted_printer.h"
#include "support/tuning.h"

namespace tonalith::isolated_window {

class NullNotePlayer : public platform::NotePlayer {
 public:
  void Play(const std::string& /*path*/) override {}
};

struct IsolatedWindow {
  /// Opens the window on the database in `folder`.
  explicit IsolatedWindow(const std::string& folder) : database(folder, box) {}

  tests::RecordingMsgBox box;
  NullNotePlayer player;
  platform::PosixFileInput files;
  platform::WindowMessageQueue notices;
  platform::QtEventPump events;
  std::unique_ptr<platform::WaveOutput> output = platform::MakeSilentWaveOutput(notices);
  audio::ScaleSoundFiles scaleSounds{files};
  audio::SoundManager sounds{scaleSounds, *output, notices, box};
  tests::PrintScript printed;
  tests::ScriptedPrintService printing{printed};
  tests::ScriptedHelpEngine help;
  core::Neck neck = tests::StandardNeck();
  data::ScaleDatabase database;
  std::unique_ptr<app::frmTonalith> window =
      app::OpenScaleDatabase({database, box, player, sounds, scaleSounds, events, printing, help, neck});
};

}  // namespace tonalith::isolated_window

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window without the outside world: real forms on a real database, but nothing that sounds, prints, asks or
// opens help. For programs that draw or measure the window. Needs a QApplication; user-interface thread.

#pragma once

#include <memory>
#include <string>

#include "app/m_main.h"
#include "core/recording_msg_box.h"
#include "platform/notices/notice_queue.h"
#include "platform/posix/posix_file_input.h"
#include "platform/qt/qt_event_pump.h"
#include "platform/scripted/scripted_help_engine.h"
#include "platform/scripted/scripted_printer.h"
#include "platform/silent/silent_mixer.h"

namespace tonalith::unplugged {

class NobodysPlayer : public platform::NotePlayer {
 public:
  void Play(const std::string& /*path*/) override {}
};

struct UnpluggedWindow {
  /// Opens the window on the database in `folder`.
  explicit UnpluggedWindow(const std::string& folder) : database(folder, box) {}

  core::RecordingMsgBox box;
  NobodysPlayer player;
  platform::PosixFileInput files;
  platform::NoticeQueue notices;
  platform::QtEventPump events;
  std::unique_ptr<platform::WaveOutput> output = platform::MakeSilentWaveOutput(notices);
  audio::ScaleSoundFiles scaleSounds{files};
  audio::SoundManager sounds{scaleSounds, *output, notices, box};
  platform::PrintScript printed;
  platform::ScriptedPrintService printing{printed};
  platform::ScriptedHelpEngine help;
  data::ScaleDatabase database;
  std::unique_ptr<app::frmTonalith> window =
      app::OpenScaleDatabase({database, box, player, sounds, scaleSounds, events, printing, help});
};

}  // namespace tonalith::unplugged

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program.h"

#include <QApplication>
#include <QFontInfo>
#include <QStandardPaths>
#include <QTimer>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "app/app_folder.h"
#include "app/m_main.h"
#include "app/open_files.h"
#include "app/program_icon.h"
#include "app/program_style.h"
#include "app/screen_fit.h"
#include "app/translation.h"
#include "audio/octave_note_player.h"
#include "core/deferred_failure.h"
#include "core/neck.h"
#include "help/window_help_engine.h"
#include "platform/qt/qt_event_pump.h"
#include "platform/qt/qt_msg_box.h"
#include "platform/qt/qt_print_service.h"
#include "platform/sound/open_al_mixer.h"
#include "platform/system/posix_file_input.h"
#include "platform/system/std_system.h"
#include "platform/system/window_message_queue.h"

namespace tonalith::app {
namespace {

/// The folder of the executable. Not a QString, which cannot represent names that are not UTF-8.
std::filesystem::path ProgramFolder() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return QCoreApplication::applicationDirPath().toStdString();
  return program.parent_path();
}

/// The base folder of the user's data, XDG_DATA_HOME. Not a QString, for the same reason.
std::filesystem::path UserDataFolder() {
  const auto absolute = [](const char* variable) -> std::filesystem::path {
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
  };
  if (std::filesystem::path data = absolute("XDG_DATA_HOME"); !data.empty()) return data;
  if (const std::filesystem::path home = absolute("HOME"); !home.empty()) return home / ".local" / "share";
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
}

/// Returns AppFolder; the folder of the executable, after a message, if the user's folder cannot be created.
std::string FindAppFolder(core::MsgBox& msgBox) {
  const std::filesystem::path programFolder = ProgramFolder();
  std::filesystem::path folder = programFolder;
  core::DeferredFailure failure;
  failure.Try([&] { folder = ResolveAppFolder({programFolder, FindContentFolder(programFolder), UserDataFolder()}); });
  failure.ReportNumberAndDescription(msgBox, core::MsgBoxStyle::kCritical);
  return folder.string();
}

/// Forwards reports of the sound thread to the user-interface thread.
class SoundDeviceReports : public QObject, public platform::SoundDeviceObserver {
 public:
  void SoundDeviceMissing() override { Forward(false); }
  void SoundDeviceFound() override { Forward(true); }
  void SetWindow(frmTonalith* window) { window_ = window; }

 private:
  void Forward(bool isThere) {
    QMetaObject::invokeMethod(
        this,
        [this, isThere] {
          if (window_ != nullptr) window_->ShowSoundDevice(isThere);
        },
        Qt::QueuedConnection);
  }

  frmTonalith* window_ = nullptr;
};

/// Without a font a message box is not readable either, so the warning goes to the standard error stream.
void WarnWithoutFonts() {
  if (!QFontInfo(QApplication::font()).family().isEmpty()) return;
  qWarning("Tonalith found no font, so no text can be read. Install a font, such as DejaVu Sans, and start again.");
}

}  // namespace

int RunProgram(int argc, char** argv, const std::function<void(QWidget&)>& shown) {
  // A write beyond the file size limit must fail with a message; the signal would end the program.
  std::signal(SIGXFSZ, SIG_IGN);
  if (!RaiseOpenFiles()) {
    ReportTooFewOpenFiles();
    return EXIT_FAILURE;
  }
  const ScreenFit fit(argc, argv);
  // The sound output changes the environment, so it must be created before other threads run.
  platform::WindowMessageQueue messages;
  SoundDeviceReports soundDeviceReports;
  const auto output = platform::MakeOpenAlWaveOutput(messages, &soundDeviceReports);

  QCoreApplication::setApplicationName(QStringLiteral("tonalith"));
  QGuiApplication::setDesktopFileName(QStringLiteral("org.tonalith.Tonalith"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TONALITH_VERSION));
  QApplication application(argc, argv);
  // The instrument of the program.
  const core::Neck neck = core::Neck::Standard();
  fit.RestartIfTooLarge(neck);
  InstallStyle(application);
  InstallTranslation(FindContentFolder(ProgramFolder()), QLocale::system(), application);
  platform::QtMsgBox msgBox("Tonalith");
  const platform::NoNetworkDrives drives;
  platform::StdWorkingDirectory directory;
  platform::PosixFileInput files;
  platform::QtEventPump events;
  const platform::QtMessageBridge bridge(messages);
  audio::ScaleSoundFiles scaleSounds(files);
  audio::SoundManager sounds(scaleSounds, *output, messages, msgBox);
  audio::OctaveNotePlayer notePlayer(files, *output, messages);

  platform::QtPrintService printing;
  help::WindowHelpEngine help(msgBox);

  data::ScaleDatabase database(FindAppFolder(msgBox), msgBox);
  const auto window =
      Main({database, msgBox, notePlayer, sounds, scaleSounds, events, printing, help, neck}, drives, directory);
  soundDeviceReports.SetWindow(window.get());
  if (shown) shown(*window);
  WarnWithoutFonts();
  fit.Report(msgBox);
  // Painting the icon must not delay the first paint of the window.
  constexpr auto kAfterFirstPaint = std::chrono::milliseconds(300);
  QTimer::singleShot(kAfterFirstPaint, window.get(), [&window] { window->setWindowIcon(ProgramIcon()); });
  const int exitCode = QApplication::exec();
  soundDeviceReports.SetWindow(nullptr);
  return exitCode;
}

}  // namespace tonalith::app

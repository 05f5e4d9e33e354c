// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window. Its data control shows one row of the stored query at a time; one refresh procedure, UpdateForm,
// updates all views from that row and the key box. Event handlers are named control, underscore, event; each continues
// after failures and reports the pending one at its end.

#pragma once

#include <optional>
#include <string>

#include "app/main_controls.h"
#include "app/main_menu.h"
#include "app/main_window_install.h"
#include "app/main_window_printing.h"
#include "app/main_window_scale.h"
#include "app/main_window_sound.h"
#include "audio/scale_playback.h"
#include "core/msg_box.h"
#include "core/note_model.h"
#include "data/scale_database.h"
#include "editor/scale_editor.h"
#include "platform/event_pump.h"
#include "platform/help_engine.h"
#include "platform/note_player.h"
#include "platform/print_service.h"
#include "search/search_controller.h"
#include "windows/open_once.h"
#include "windows/window.h"

namespace tonalith::app {

class frmAbout;

/// The services of the main window; all must outlive it.
struct FormServices {
  data::ScaleDatabase& database;
  core::MsgBox& msgBox;
  platform::NotePlayer& notePlayer;
  audio::SoundManager& sounds;
  audio::ScaleSoundFiles& scaleSounds;
  platform::EventPump& events;
  platform::PrintService& printing;
  platform::HelpEngine& help;
  const core::Neck& neck;
};

class frmTonalith : public windows::Window<QMainWindow>, private editor::ScaleEditorHost {
  Q_OBJECT

 public:
  explicit frmTonalith(const FormServices& services);
  ~frmTonalith() override;

  /// Sets the data control's connection string to the full form, then to the one that the shared connection reports,
  /// and refreshes it. Throws core::Failure if the database cannot be bound; the window then is usable and empty.
  void BindData();

  /// Updates all views. Clears failures without a message.
  void UpdateForm();
  void EditUpdates() override;
  // Kept: see docs/behaviour.md, ResizeFormControls has no effect.
  void ResizeFormControls() {}
  /// Opens the editor at the current record, or brings it to the front.
  void cmdEdit_Click();
  void mEditor_Click();
  void cmdUpdate_Click();
  void mUpdate_Click();
  /// Stops a playback and imports every data pack, with no database connection meanwhile. Closing stops the import.
  void cmdInstall_Click();
  void mInstall_Click();
  /// Plays the scale and returns at the end of the playback. Clears failures.
  void cmdListen_Click();
  void mListen_Click();
  /// Shows the preview of the page, which prints it; returns when the preview is closed.
  void cmdPrint_Click();
  void mPrint_Click();
  /// Shows the search dialog; returns when it is closed.
  void mSearch_Click();
  /// Moves to the next match of the last search; opens the dialog if there was no search.
  void FindNext();
  void mViewNotes_Click();
  /// Opens the help file, or shows why it cannot be opened.
  void mHelpFile_Click();
  void mAbout_Click();

  /// Whether the current scale, built on the start note `intTP`, contains the note `strNoteVal`.
  bool NoteExistsInScoreScale(core::NoteNumber intTP, const std::string& strNoteVal);

  [[nodiscard]] const MainControls& Controls() const { return c_; }
  [[nodiscard]] const MainMenu& Menu() const { return m_; }
  [[nodiscard]] const audio::ScalePlayback& Playback() const { return sound_.Playback(); }
  /// Sets the status line's tooltip: empty, or that there is no sound device.
  void ShowSoundDevice(bool isThere);
  /// Whether an install command of this window has finished a pack.
  [[nodiscard]] bool PacksWereImported() const { return install_.PacksWereImported(); }
  [[nodiscard]] bool NamesAreShown() const { return ShowNoteNames; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void ApplyTheme() override;
  bool Form_QueryUnload() override;
  void Form_Unload() override;

 private:
  void Form_Load();
  void Form_Paint();
  void Form_GotFocus();
  void Form_LostFocus();
  void Label1_Change();
  void cmbTranspose_Click();
  void cmbTranspose_KeyUp();

  [[nodiscard]] PackInstall::Place InstallPlace();
  void WireHandlers();

  void BringToFront() override;

  FormServices services_;
  MainControls c_;
  MainMenu m_;
  bool ShowNoteNames = true;
  std::optional<data::Bookmark> current_;
  MainWindowScale scale_;
  MainWindowSound sound_;
  MainWindowInstall install_;
  MainWindowPrinting printing_;
  windows::OpenOnce<editor::frmScales> frmScales_;
  search::SearchController searching_;
  windows::OpenOnce<frmAbout> frmAbout_;
};

}  // namespace tonalith::app

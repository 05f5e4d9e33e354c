// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale editor. It shows one scale record at a time, opens read-only, and lets its fields be changed and its
// pattern be chosen with twelve note buttons between Modify and Apply. What is typed goes into the record's pending
// edit at once; Update, Apply and moving to another record write it. A refused write is told once and leaves everything
// in the form. Changes that Apply does not keep or Refresh would drop are set aside; Modify and undoing bring them
// back. Closing with something unsaved asks whether to keep it. Deletes itself when closed; the services have to
// outlive it; user-interface thread.

#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

#include "core/deferred_failure.h"
#include "editor/edit_history.h"
#include "editor/scale_editing.h"
#include "editor/scale_editor.h"
#include "editor/scales_controls.h"
#include "editor/set_aside.h"

namespace tonalith::editor {

class frmScales : public QWidget {
  Q_OBJECT

 public:
  frmScales(const EditorServices& services, QWidget* parent);

  /// The step words of the record's pattern, and the pale green ground of the notes in it. A failure ends it quietly.
  void ShowTonesForIntervals();
  void ScaleImageSelect();
  void ScaleImageModify();
  /// Toggles the note button of that name; an unknown name toggles none.
  void ScaleLabelClick(const std::string& LabelName);
  void ScaleIntervalBuild();
  void UpdateNotes();
  [[nodiscard]] bool NoteExistsInScale(const std::string& strNoteVal);
  bool SetAllControls(bool& pIsModified);

  void cmdAdd_Click();
  void cmdApply_Click();
  void cmdDelete_Click();
  void cmdModify_Click();
  void cmdRefresh_Click();
  void cmdUpdate_Click();
  void cmdClose_Click() { close(); }
  void txtFields_Change(int index);
  void Combo1_Click(int item);
  void txtIntervals_Typed(const QString& text);

  /// Takes back, or makes again, the last change of a field or of the selected notes.
  void UndoChange();
  void RedoChange();

  [[nodiscard]] const ScalesControls& Controls() const { return c_; }
  [[nodiscard]] bool IsInModifyMode() const { return ModifyMode; }
  [[nodiscard]] NoteSelection SelectedNotes() const;
  /// The changes that undoing would bring back next; nothing where there are none.
  [[nodiscard]] const ChangesOfRecord* LatestSetAside() const { return setAside_.Latest(); }
  [[nodiscard]] bool IsUnloaded() const { return isUnloaded_; }
  /// Whether a command runs; nothing but its questions takes a user's input then.
  [[nodiscard]] bool IsRunning() const { return isRunning_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Form_Load();
  void Form_Unload();

  void OpenRecords();
  void WireHandlers();
  void WireFields();
  void WireLimits();
  void AddShortcuts();
  void ApplyTheme();
  void TakeMove();
  void TakeTyped(int index, const QString& before);
  void LoadTypes();

  [[nodiscard]] const TextField& Field(int index) const { return c_.txtFields.at(static_cast<std::size_t>(index)); }
  [[nodiscard]] std::string Pattern() const { return Field(field::kIntervals).Text().toStdString(); }
  [[nodiscard]] NoteSelection RecordNotes();
  void SetSelection(const NoteSelection& notes);
  void ShowPattern();
  void ShowRecordNotes();
  void EnableFields();
  void EnterModify();
  /// Whether notes were chosen that only Apply would write.
  [[nodiscard]] bool HasUnsavedNotes() const;
  [[nodiscard]] bool HasUnsavedChanges() const;
  [[nodiscard]] controls::DataControl::FieldValues NewRecord() const;
  /// Also moves a new record to the end of that type.
  void SetScaleType(const QString& typeNumber);
  void ApplyStep(int subject, const QString& content);
  /// Writes the built pattern; false after saying that one note is too few.
  bool KeepNotes();
  /// The answer to the question of closing: whether the form may go.
  bool SettleChanges();
  void ShowNotice();
  void ShowLimit(const QString& text);
  void SetNews(const QString& text) { news_ = text; }
  [[nodiscard]] QString NoticeText();
  [[nodiscard]] QString ChosenNotesText() const;
  [[nodiscard]] static QString ViewingHint();

  [[nodiscard]] ChangesOfRecord Changes() const;
  /// Takes what is not saved off the form; false where there is nothing. `isWanted` unless the user has decided against
  /// it: closing the form asks what is to become of it.
  bool SetChangesAside(bool isWanted);
  /// Pending again, on their record. A failure is shown and keeps them set aside.
  void BringBack(const ChangesOfRecord& changes);
  void TypeAgain(const ChangesOfRecord& changes);
  bool StandOn(data::Bookmark record);
  void ShowWhatIsWanted();
  controls::DataControl::Conflict DecideConflict();
  [[nodiscard]] bool AsksToKeep();

  /// Runs a command unless one is running, and shows the failure that it leaves. False when it did not run to its end.
  bool RunAlone(const std::function<void()>& command);

  EditorServices services_;
  ScalesControls c_;
  PatternNotes patternNotes_;
  EditHistory history_;
  bool ModifyMode = false;
  /// Notes were toggled since the buttons were last set from the record.
  bool areNotesChosen_ = false;
  bool areNotesTakenBack_ = false;
  bool showsOnlySelected_ = false;
  bool isUndoing_ = false;
  bool isRunning_ = false;
  bool isUnloaded_ = false;
  std::optional<data::Bookmark> shown_;
  QString newSort_;
  SetAside setAside_;
  /// What has just happened, and what a box has just refused; each goes with the next change.
  QString news_;
  QString limit_;
};

}  // namespace tonalith::editor

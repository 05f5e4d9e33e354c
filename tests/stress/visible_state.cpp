// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/visible_state.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>

#include "app/frm_tonalith.h"
#include "editor/frm_scales.h"

namespace tonalith::stress {
namespace {

template <class Window>
Window* VisibleWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    auto* const wanted = qobject_cast<Window*>(window);
    if (wanted != nullptr && wanted->isVisible()) return wanted;
  }
  return nullptr;
}

EditorState ReadEditorState() {
  EditorState state;
  const auto* const form = VisibleWindow<editor::frmScales>();
  if (form == nullptr || form->IsUnloaded()) return state;
  const editor::ScalesControls& c = form->Controls();
  state.isOpen = true;
  state.hasRecord = c.datPrimaryRS->HasRecord();
  state.isPending = c.datPrimaryRS->IsEditPending();
  const auto bookmark = c.datPrimaryRS->CurrentBookmark();
  state.isNew = state.hasRecord && !bookmark;
  state.number = bookmark ? bookmark->key : 0;
  state.isModifying = form->IsInModifyMode();
  for (std::size_t i = 0; i < state.fields.size(); ++i) {
    if (c.txtFields[i].binding != nullptr) state.fields[i] = c.txtFields[i].Text();
  }
  state.pattern = c.txtIntervals->text();
  state.notice = c.lblNotice->text();
  state.notes = static_cast<unsigned>(form->SelectedNotes().to_ulong());
  if (const editor::RejectedEdit* const edit = form->LatestRejected()) {
    state.rejectedFields.emplace();
    for (std::size_t i = 0; i < state.fields.size(); ++i) state.rejectedFields->at(i) = edit->fields.at(i).text;
  }
  return state;
}

}  // namespace

bool IsReturning() {
  if (QApplication::activePopupWidget() != nullptr) return false;
  int dialogs = 0;
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isModal()) ++dialogs;
  }
  return QThread::currentThread()->loopLevel() > 1 + dialogs;
}

app::frmTonalith* MainWindow() { return VisibleWindow<app::frmTonalith>(); }

VisibleState ReadVisibleState() {
  VisibleState state;
  state.editor = ReadEditorState();
  QWidget* const modal = QApplication::activeModalWidget();
  const auto* const box = qobject_cast<QMessageBox*>(modal);
  if (box != nullptr && box->objectName() == QLatin1String("MsgBox")) {
    state.message = box->text().toStdString();
    state.box = box;
  }
  const auto* const editor = VisibleWindow<editor::frmScales>();
  state.isBusy = IsReturning() || (modal == nullptr && editor != nullptr && editor->IsRunning());
  const app::frmTonalith* const form = MainWindow();
  if (form == nullptr) return state;
  state.isInstalling = !form->Controls().cmdInstall->isEnabled();
  state.isBusy = state.isBusy || !form->updatesEnabled() || (state.isInstalling && modal == nullptr);
  return state;
}

}  // namespace tonalith::stress

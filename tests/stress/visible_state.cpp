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

EditorState LookAtEditor() {
  EditorState sight;
  const auto* const form = VisibleWindow<editor::frmScales>();
  if (form == nullptr || form->IsUnloaded()) return sight;
  const editor::ScalesControls& c = form->Controls();
  sight.isThere = true;
  sight.hasRecord = c.datPrimaryRS->HasRecord();
  sight.isPending = c.datPrimaryRS->IsEditPending();
  const auto bookmark = c.datPrimaryRS->CurrentBookmark();
  sight.isNew = sight.hasRecord && !bookmark;
  sight.number = bookmark ? bookmark->key : 0;
  sight.isModifying = form->IsInModifyMode();
  for (std::size_t i = 0; i < sight.fields.size(); ++i) {
    if (c.txtFields[i].binding != nullptr) sight.fields[i] = c.txtFields[i].Text();
  }
  sight.pattern = c.txtIntervals->text();
  sight.notice = c.lblNotice->text();
  sight.notes = static_cast<unsigned>(form->SelectedNotes().to_ulong());
  if (const editor::RejectedEdit* const edit = form->LatestRejected()) {
    sight.setAside.emplace();
    for (std::size_t i = 0; i < sight.fields.size(); ++i) sight.setAside->at(i) = edit->fields.at(i).text;
  }
  return sight;
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

VisibleState Look() {
  VisibleState sight;
  sight.editor = LookAtEditor();
  QWidget* const modal = QApplication::activeModalWidget();
  const auto* const box = qobject_cast<QMessageBox*>(modal);
  if (box != nullptr && box->objectName() == QLatin1String("MsgBox")) {
    sight.message = box->text().toStdString();
    sight.box = box;
  }
  const auto* const editor = VisibleWindow<editor::frmScales>();
  sight.isBusy = IsReturning() || (modal == nullptr && editor != nullptr && editor->IsRunning());
  const app::frmTonalith* const form = MainWindow();
  if (form == nullptr) return sight;
  sight.isInstalling = !form->Controls().cmdInstall->isEnabled();
  sight.isBusy = sight.isBusy || !form->updatesEnabled() || (sight.isInstalling && modal == nullptr);
  return sight;
}

}  // namespace tonalith::stress

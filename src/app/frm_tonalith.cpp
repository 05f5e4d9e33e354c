// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/frm_tonalith.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLayout>

#include "app/damaged_scale.h"
#include "app/frm_about.h"
#include "app/main_shortcuts.h"
#include "app/record_binding.h"
#include "core/deferred_failure.h"
#include "editor/frm_scales.h"
#include "help/mod_html_help.h"
#include "windows/window_front.h"

namespace tonalith::app {

frmTonalith::frmTonalith(const FormServices& services)
    : Window(QStringLiteral("frmTonalith"), nullptr, windows::kFixedSizeWindow),
      services_(services),
      scale_(c_, services.database),
      sound_(c_, services_),
      install_(services.msgBox),
      printing_(c_, *this, {services.printing, services.msgBox, [this] { Form_Paint(); }}),
      searching_(services.msgBox) {
  setWindowTitle(QStringLiteral("Tonalith"));
  m_ = MainMenu(*this);
  auto* const client = new QWidget(this);
  c_ = MakeMainControls(client, services_.neck, services_.msgBox);
  setCentralWidget(client);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  c_.fretboard->SetNotePlayer(&services_.notePlayer, services_.database.AppFolder());
  BindRecordFields(c_);
  WireHandlers();
  AddShortcuts(*this);
  FinishConstruction();
  Form_Load();
  // The first key press then moves to the next record. A focused key box would use the processor: its cursor blinks.
  c_.Data1->findChild<QAbstractButton*>(QStringLiteral("Next record"))->setFocus();
}

frmTonalith::~frmTonalith() = default;

void frmTonalith::WireHandlers() {
  connect(c_.Data1, &controls::DataControl::Moved, this, &frmTonalith::Label1_Change);
  connect(c_.cmbTranspose, &KeyBox::Clicked, this, &frmTonalith::cmbTranspose_Click);
  connect(c_.cmbTranspose, &KeyBox::KeyReleased, this, &frmTonalith::cmbTranspose_KeyUp);
  connect(c_.cmdEdit, &QAbstractButton::clicked, this, &frmTonalith::cmdEdit_Click);
  connect(c_.cmdUpdate, &QAbstractButton::clicked, this, &frmTonalith::cmdUpdate_Click);
  connect(c_.cmdListen, &QAbstractButton::clicked, this, &frmTonalith::cmdListen_Click);
  connect(c_.cmdPrint, &QAbstractButton::clicked, this, &frmTonalith::cmdPrint_Click);
  connect(c_.cmdInstall, &QAbstractButton::clicked, this, &frmTonalith::cmdInstall_Click);
}

void frmTonalith::Form_Load() {
  core::DeferredFailure failure;
  failure.Try([this] {
    c_.Label3->setText(tr("Tonalith %1: scales and chords for guitar").arg(QCoreApplication::applicationVersion()));
  });
  failure.Try([this] { sound_.SetAudioFolder(); });
  sound_.TakeNotifications();
  sound_.SetSoundEnded();
  failure.Try([this] {
    for (const std::string_view note : core::kSharpNotes) {
      c_.cmbTranspose->addItem(QString::fromUtf8(note.data(), static_cast<qsizetype>(note.size())));
    }
  });
  failure.Try([this] { c_.cmbTranspose->Choose(0); });
  failure.ReportNumberAndDescription(services_.msgBox);
}

// Kept: see docs/behaviour.md, Data1 is bound twice
void frmTonalith::BindData() {
  c_.Data1->SetConnectionString(data::FullConnectionString(services_.database.DatabasePath()));
  c_.Data1->SetConnectionString(services_.database.ScaleConnection()->ConnectionString());
  const controls::DataControl::Quiet quiet(*c_.Data1);
  c_.Data1->Refresh();
}

void frmTonalith::UpdateForm() {
  core::DeferredFailure failure;
  failure.Try([this] { c_.lblTranspose->setText(tr("Scale Steps: ")); });
  failure.Try([this] { Form_Paint(); });
  failure.Try([this] { c_.fretboard->HideNotes(); });
  // Kept: see docs/behaviour.md, Stored start notes change no view
  failure.Try([this] { c_.fretboard->ShowNotes(c_.cmbTranspose->currentText().toStdString(), scale_); });
  if (ShowNoteNames) failure.Try([this] { c_.fretboard->ShowNotesNames(); });
  const bool isDamaged = IsDamaged(c_);
  if (isDamaged) failure.Try([this] { ShowDamageInSteps(c_); });
  // A damaged scale can be printed, but has no notes to play.
  const bool hasRecord = c_.Data1->HasRecord();
  c_.cmdPrint->setEnabled(hasRecord);
  m_.Entry("mPrint")->setEnabled(hasRecord);
  c_.cmdListen->setEnabled(hasRecord && !isDamaged);
  m_.Entry("mListen")->setEnabled(hasRecord && !isDamaged);
  // Kept: see docs/behaviour.md, UpdateForm clears its failures
  failure.Clear();
}

void frmTonalith::Form_Paint() { scale_.PaintStaff(); }

void frmTonalith::Label1_Change() {
  core::DeferredFailure failure;
  failure.Try([this] { UpdateForm(); });
  failure.ReportNumberAndDescription(services_.msgBox);
}

void frmTonalith::cmbTranspose_Click() {
  core::DeferredFailure failure;
  failure.Try([this] { UpdateForm(); });
  failure.ReportDescription(services_.msgBox);
}

void frmTonalith::cmbTranspose_KeyUp() { cmbTranspose_Click(); }

void frmTonalith::cmdUpdate_Click() {
  if (install_.IsRunning()) return;
  core::DeferredFailure failure;
  failure.Try([this] {
    // Refresh moves to the first record before the bookmark is set; suppress the signals of these moves.
    const controls::DataControl::Quiet quiet(*c_.Data1);
    // A member, because there is no current record after a refresh that failed.
    if (c_.Data1->HasRecord()) current_ = c_.Data1->Recordset()->GetBookmark();
    c_.Data1->Refresh();
    if (current_) c_.Data1->SetBookmarkIfExists(*current_);
  });
  failure.Try([this] { UpdateForm(); });
  failure.ReportDescription(services_.msgBox);
}

void frmTonalith::cmdEdit_Click() {
  editor::ShowScaleEditor(frmScales_, {services_.database, services_.msgBox, *this, c_.Data1->CurrentBookmark()}, this);
}

void frmTonalith::mEditor_Click() { cmdEdit_Click(); }

void frmTonalith::BringToFront() {
  if (isVisible()) windows::BringToFront(*this);
}

PackInstall::Place frmTonalith::InstallPlace() {
  QWidget* const editor = frmScales_.Window();
  return {{this, editor},
          {c_.cmdEdit, c_.cmdUpdate, c_.cmdListen, c_.cmdPrint, c_.cmdInstall, c_.Data1, c_.cmbTranspose, editor},
          m_.LibraryEntries(),
          c_.lblInstall};
}

void frmTonalith::cmdInstall_Click() {
  if (install_.IsRunning()) return;
  sound_.Stop();
  install_.Run(InstallPlace(), *c_.Data1, services_.database.AppFolder());
}

void frmTonalith::mInstall_Click() { cmdInstall_Click(); }

void frmTonalith::mUpdate_Click() { cmdUpdate_Click(); }

void frmTonalith::EditUpdates() { cmdUpdate_Click(); }

void frmTonalith::mViewNotes_Click() {
  core::DeferredFailure failure;
  failure.Try([this] {
    if (ShowNoteNames) {
      ShowNoteNames = false;
      c_.fretboard->ClearNoteNames();
    } else {
      ShowNoteNames = true;
      c_.fretboard->DrawNoteNames();
    }
  });
  failure.Try([this] { UpdateForm(); });
  failure.ReportNumberAndDescription(services_.msgBox);
}

// Kept: see docs/behaviour.md, Functions without callers
bool frmTonalith::NoteExistsInScoreScale(core::NoteNumber intTP, const std::string& strNoteVal) {
  return core::NoteExistsInScoreScale(intTP, strNoteVal, scale_, services_.msgBox);
}

void frmTonalith::cmdListen_Click() {
  if (!IsDamaged(c_)) sound_.Play();
}

void frmTonalith::mListen_Click() { cmdListen_Click(); }

void frmTonalith::cmdPrint_Click() { printing_.cmdPrint_Click(); }

void frmTonalith::mPrint_Click() { cmdPrint_Click(); }

void frmTonalith::mHelpFile_Click() {
  help::OpenHelpFile(services_.database.AppFolder(), services_.msgBox, services_.help, winId());
}

void frmTonalith::mAbout_Click() {
  frmAbout_.Show([this] { return new frmAbout(services_.database.AppFolder(), this); });
}

void frmTonalith::mSearch_Click() { searching_.Open(*c_.Data1); }

void frmTonalith::FindNext() { searching_.Next(*c_.Data1); }

void frmTonalith::ShowSoundDevice(bool isThere) {
  c_.lblStatus->setToolTip(isThere ? QString() : tr("There is no sound device: scales play silently."));
  c_.lblStatus->setAccessibleDescription(c_.lblStatus->toolTip());
}

void frmTonalith::Form_GotFocus() {
  core::DeferredFailure failure;
  sound_.TakeNotifications();
  failure.Try([this] { sound_.SetAudioFolder(); });
  failure.Try([this] { EditUpdates(); });
  failure.ReportNumberAndDescription(services_.msgBox);
}

void frmTonalith::Form_LostFocus() {
  core::DeferredFailure failure;
  failure.Try([this] { static_cast<void>(frmScales_.Close()); });
  sound_.Release(failure);
  failure.ReportNumberAndDescription(services_.msgBox);
}

void frmTonalith::Form_Unload() {
  core::DeferredFailure failure;
  failure.Try([this] { searching_.Unload(); });
  failure.Try([this] { printing_.Unload(); });
  frmAbout_.Delete();
  sound_.Release(failure);
  failure.ReportNumberAndDescription(services_.msgBox);
}

void frmTonalith::focusInEvent(QFocusEvent* event) {
  Window::focusInEvent(event);
  Form_GotFocus();
}

void frmTonalith::focusOutEvent(QFocusEvent* event) {
  Window::focusOutEvent(event);
  // The install command moves the focus when it disables controls.
  // Kept: see docs/behaviour.md, Focus handlers are not activation
  if (!install_.IsRunning() && event->reason() != Qt::ActiveWindowFocusReason) Form_LostFocus();
}

bool frmTonalith::Form_QueryUnload() {
  if (!frmScales_.Close()) return false;
  install_.Stop();
  return true;
}

void frmTonalith::keyPressEvent(QKeyEvent* event) {
  // Kept: see docs/behaviour.md, F1 opens nothing
  if (event->key() != Qt::Key_F1) Window::keyPressEvent(event);
}

void frmTonalith::ApplyTheme() { ApplyInk(c_, palette()); }

}  // namespace tonalith::app

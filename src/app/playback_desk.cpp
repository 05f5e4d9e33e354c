// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/playback_desk.h"

#include "app/frm_tonalith.h"

namespace tonalith::app {
namespace {

/// The states of the playback in the user's language; the name of a note stays.
QString InUsersLanguage(const std::string& caption) {
  for (const char* const state : {QT_TRANSLATE_NOOP("tonalith::app::frmTonalith", "Loaded"),
                                  QT_TRANSLATE_NOOP("tonalith::app::frmTonalith", "Stopped"),
                                  QT_TRANSLATE_NOOP("tonalith::app::frmTonalith", "Standby")}) {
    if (caption == state) return frmTonalith::tr(state);
  }
  constexpr std::string_view kPlaying = "Playing: ";
  if (!caption.starts_with(kPlaying)) return QString::fromStdString(caption);
  return frmTonalith::tr("Playing: %1").arg(QString::fromStdString(caption.substr(kPlaying.size())));
}

}  // namespace

std::optional<std::string> PlaybackDesk::CurrentField(int position) {
  const core::Value value = c_.Data1->FieldValue(position);
  if (value.IsNull()) return std::nullopt;
  return value.AsText();
}

std::string PlaybackDesk::KeyText() { return c_.cmbTranspose->currentText().toStdString(); }

std::string PlaybackDesk::ImageTag(int index) { return c_.fretboard->Image(index).Tag(); }

void PlaybackDesk::FlashNotes(const std::string& controlName) { c_.fretboard->FlashNotes(controlName); }

void PlaybackDesk::HidePicture1() { c_.fretboard->Picture1().hide(); }

void PlaybackDesk::LightNote(const std::string& controlName) {
  c_.fretboard->LightNote(views::LitBy::kPlayback, controlName);
}

void PlaybackDesk::DarkenNote() { c_.fretboard->DarkenNote(views::LitBy::kPlayback); }

void PlaybackDesk::ShowStatus(const std::string& caption, audio::StatusColour colour) {
  c_.lblStatus->SetTextColour(QColor(colour.red, colour.green, colour.blue));
  c_.lblStatus->setText(InUsersLanguage(caption));
}

}  // namespace tonalith::app

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/playback_desk.h"

namespace tonalith::app {

std::optional<std::string> PlaybackDesk::CurrentField(int position) {
  const data::Value value = c_.Data1->FieldValue(position);
  if (value.IsNull()) return std::nullopt;
  return value.AsText();
}

std::string PlaybackDesk::KeyText() { return c_.cmbTranspose->currentText().toStdString(); }

std::string PlaybackDesk::ImageTag(int index) { return c_.fretboard->Image(index).Tag(); }

void PlaybackDesk::FlashNotes(const std::string& controlName) { c_.fretboard->FlashNotes(controlName); }

void PlaybackDesk::HidePicture1() { c_.fretboard->Picture1().hide(); }

void PlaybackDesk::ShowStatus(const std::string& caption, audio::StatusColour colour) {
  c_.lblStatus->SetInk(QColor(colour.red, colour.green, colour.blue));
  c_.lblStatus->setText(QString::fromStdString(caption));
}

}  // namespace tonalith::app

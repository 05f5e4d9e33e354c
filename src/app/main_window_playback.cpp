// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_playback.h"

#include "app/messages.h"
#include "windows/translated.h"

namespace tonalith::app {
namespace {

core::Message StatusText(const audio::PlaybackStatus& status) {
  switch (status.state) {
    case audio::PlaybackState::kLoaded:
      return MessageId::kLoaded;
    case audio::PlaybackState::kPlaying:
      return {MessageId::kPlaying, status.note};
    case audio::PlaybackState::kStopped:
      return MessageId::kStopped;
    case audio::PlaybackState::kStandby:
      break;
  }
  return MessageId::kStandby;
}

QColor TextColour(audio::PlaybackState state) {
  return state == audio::PlaybackState::kStandby ? QColor(127, 127, 127) : QColor(0, 0, 255);
}

std::string ImageName(int index) { return "img" + std::to_string(index); }

}  // namespace

std::optional<std::string> MainWindowPlayback::CurrentField(int position) {
  const core::Value value = c_.Data1->FieldValue(position);
  if (value.IsNull()) return std::nullopt;
  return value.AsText();
}

std::string MainWindowPlayback::KeyText() { return c_.cmbTranspose->currentText().toStdString(); }

void MainWindowPlayback::ShowMarker(int index) { c_.fretboard->FlashNotes(ImageName(index)); }

void MainWindowPlayback::HideMarker() { c_.fretboard->Picture1().hide(); }

void MainWindowPlayback::LightNote(int index) { c_.fretboard->LightNote(views::LitBy::kPlayback, ImageName(index)); }

void MainWindowPlayback::DarkenNote() { c_.fretboard->DarkenNote(views::LitBy::kPlayback); }

void MainWindowPlayback::ShowStatus(const audio::PlaybackStatus& status) {
  c_.lblStatus->SetTextColour(TextColour(status.state));
  c_.lblStatus->setText(windows::Translated(StatusText(status)));
}

}  // namespace tonalith::app

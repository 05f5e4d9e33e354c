// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_in_text.h"

namespace tonalith::tests {
namespace {

std::string Word(const views::NoteImage& image) {
  if (image.isHidden()) return ".";
  const std::string name = image.NameDrawn() ? image.Label() : "o";
  return image.Picture() == views::NotePicture::kKeyNote ? "*" + name : name;
}

}  // namespace

std::string InText(const views::FretboardView& view) {
  std::string text;
  const views::FretboardLayout& layout = view.Layout();
  for (int row = 1; row <= layout.Rows(); ++row) {
    for (int position = 0; position < layout.Positions(); ++position) {
      text += Word(view.Image(layout.IndexAt(row, position)));
      text += position + 1 < layout.Positions() ? ' ' : '\n';
    }
  }
  return text;
}

void Refresh(views::FretboardView& view, const std::string& key, views::ScaleInView& scale) {
  view.HideNotes();
  view.ShowNotes(key, scale);
  view.ShowNotesNames();
}

}  // namespace tonalith::tests

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One of the twelve note buttons, and the keyboard on which they lie like the keys of a piano. A button's two colours
// are its state; it is painted in them, and a selected one also has a heavy frame and a tick, so that it can be told
// without colour. To assistive technology it is a check box named after its note. A click is only announced, and
// checking the box in another way announces a click: the form decides what it means. Owned by the keyboard, which is
// owned by the form; user-interface thread.

#pragma once

#include <QCheckBox>
#include <QWidget>
#include <array>
#include <string>

#include "editor/scale_editing.h"

namespace tonalith::editor {

class NoteButton : public QCheckBox {
  Q_OBJECT

 public:
  /// Named "note" and its number, captioned and tagged with the note's name.
  NoteButton(core::NoteNumber number, QWidget* parent);

  [[nodiscard]] const NoteColours& Colours() const { return colours_; }
  void SetColours(const NoteColours& colours);
  /// The note's name; a blank tag reads as "C".
  [[nodiscard]] std::string Tag() const;
  void SetTag(std::string tag) { tag_ = std::move(tag); }

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& place) const override { return rect().contains(place); }
  void nextCheckState() override {}

 private:
  NoteColours colours_ = kUnselectedColours;
  std::string tag_;
};

class NoteKeyboard : public QWidget {
  Q_OBJECT

 public:
  explicit NoteKeyboard(QWidget* parent);

  [[nodiscard]] const std::array<NoteButton*, kNoteCount>& Notes() const { return notes_; }
  [[nodiscard]] QSize sizeHint() const override;

 private:
  std::array<NoteButton*, kNoteCount> notes_{};
};

}  // namespace tonalith::editor

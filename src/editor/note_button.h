// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One of the twelve note buttons. Its two colours are its state; a selected one also has a heavy frame and a tick, so
// that it differs without colour. To assistive technology it is a check box named after its note. The button only
// emits clicked(), also when its box is checked in another way; the form decides what a click does.

#pragma once

#include <QCheckBox>
#include <string>

#include "editor/scale_editing.h"

namespace tonalith::editor {

inline constexpr QSize kNoteButtonSize(74, 58);

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

}  // namespace tonalith::editor

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The guitar neck of the main window: the procedures that place its controls, show a scale, write names and play a
// note. Controls, painting, keyboard focus and highlights are classes of their own. A procedure continues after a
// failure and shows it in a message box at its end. It only schedules a repaint, so one refresh paints once. The
// message box and the ports must outlive the view.

#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "core/latest_scale.h"
#include "core/msg_box.h"
#include "platform/note_player.h"
#include "views/fretboard_controls.h"
#include "views/fretboard_focus.h"
#include "views/fretboard_layout.h"
#include "views/fretboard_painter.h"
#include "views/lit_notes.h"

namespace tonalith::views {

/// The window as ShowNotes uses it: the current record, its notes and their labels, and the step line.
class ScaleInView {
 public:
  virtual ~ScaleInView() = default;
  /// Without a current record nothing is shown and nothing is reported.
  [[nodiscard]] virtual bool HasCurrentRecord() const = 0;
  /// `ScaleIntervals` of the current record; no value for a null field. Called once per ShowNotes.
  virtual std::optional<std::string> ScaleIntervals() = 0;
  /// The scale that the views of the window share.
  [[nodiscard]] core::LatestScale& Latest() { return latest_; }
  /// The text on the discs of a note.
  [[nodiscard]] virtual std::string LabelOf(const core::ScaleNote& note) const { return std::string(NameOf(note)); }
  /// Appends to the step line. `words` begins with two blanks.
  virtual void AppendStepWord(const std::string& words) = 0;

 private:
  core::LatestScale latest_;
};

class FretboardView : public QWidget, private platform::NotePlayerNotifier {
  Q_OBJECT

 public:
  FretboardView(const core::Neck& neck, core::MsgBox& msgBox, QWidget* parent = nullptr);
  ~FretboardView() override;

  /// The position in the form's client area, in pixels.
  [[nodiscard]] QRect DesignRect() const { return controls_.Area(); }

  /// Sets the player of clicked notes; without one they are silent. The view is the notifier of the player until it is
  /// destroyed.
  void SetNotePlayer(platform::NotePlayer* player, std::string appFolder);
  /// Replaces the event processing of FlashNotes; the default is QCoreApplication::processEvents.
  void SetEventPump(std::function<void()> pump) { eventPump_ = std::move(pump); }

  void PositionNotes();
  void HideNotes();
  /// `startNote` is the text of the key box. For an overlong pattern no notes and no step words are shown.
  void ShowNotes(const std::string& startNote, ScaleInView& scale);
  void ShowNotesNames();
  void DrawNoteName(NoteImage& image);
  void DrawNoteNames();
  void ClearNoteNames();
  void FlashNotes(const std::string& controlName);
  /// Highlights the note with that control name. An unknown name removes the highlight of this source.
  void LightNote(LitBy by, const std::string& controlName);
  void DarkenNote(LitBy by) { lit_.Light(by, -1); }
  void PlayOctaveNote(const std::string& noteName, std::int16_t octave);
  /// Kept: see docs/behaviour.md, Functions without callers
  static std::int16_t MapNoteNameToPositionIndex(std::string_view noteName);

  [[nodiscard]] const FretboardLayout& Layout() const { return layout_; }
  /// The note image of a position index from 0. Throws failure 9 for an invalid index.
  [[nodiscard]] NoteImage& Image(int index) const { return controls_.Image(index); }
  /// The play marker, hidden until FlashNotes shows it.
  [[nodiscard]] QWidget& Picture1() const { return controls_.PlayMarker(); }
  /// The index of the note that the Tab key reaches, -1 if no note is visible.
  [[nodiscard]] int TabStop() const { return focus_.TabStop(); }

  /// The neck with the open strings of the visible notes, and the box of a fret number, in pixels of the form's client
  /// area.
  [[nodiscard]] NeckGeometry Geometry() const { return controls_.Geometry(); }
  [[nodiscard]] QRectF FretNumberBox(int fret) const { return controls_.FretNumberBox(fret); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void NoteStarted() override;
  void NoteEnded() override;
  void ShowScaleNotes(const std::string& startNote, const core::IntervalPattern& pattern, ScaleInView& scale);
  [[nodiscard]] std::string StartNoteOf(const std::string& keyText) const;
  void UpdateOpenStrings();

  core::MsgBox& msgBox_;
  platform::NotePlayer* player_ = nullptr;
  std::string appFolder_;
  std::function<void()> eventPump_;
  FretboardLayout layout_;
  FretboardControls controls_;
  FretboardFocus focus_;
  LitNotes lit_;
  FretboardPainter painter_;
  int pressed_ = -1;  // The note passed to the player.
};

}  // namespace tonalith::views

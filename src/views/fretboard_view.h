// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The guitar neck of the main window: wood, nut, frets, strings, an image for each note, fret numbers and the play
// marker, with the procedures that place them, show a scale, write names and play a note. One tab stop; arrow keys move
// between the visible notes. A procedure continues after a failure and shows it in a message box at its end. It only
// schedules a repaint, so one refresh paints once. The message box and the ports must outlive the view.

#pragma once

#include <QPixmap>
#include <QWidget>
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/msg_box.h"
#include "core/scale_construction.h"
#include "platform/note_player.h"
#include "views/fretboard_layout.h"
#include "views/line_control.h"
#include "views/neck_painter.h"
#include "views/note_image.h"

class QLabel;

namespace tonalith::views {

/// The window as ShowNotes uses it: the pattern of the current record, and the step line.
class ScaleInView {
 public:
  virtual ~ScaleInView() = default;
  /// Without a current record nothing is shown and nothing is reported.
  [[nodiscard]] virtual bool HasCurrentRecord() const = 0;
  /// `ScaleIntervals` of the current record; no value for a null field. Called once per ShowNotes.
  virtual std::optional<std::string> ScaleIntervals() = 0;
  /// Appends to the step line. `words` begins with two blanks.
  virtual void AppendStepWord(const std::string& words) = 0;
};

/// The source of a highlight; each source highlights at most one note.
enum class LitBy { kPress, kPlayback };

class FretboardView : public QWidget, private platform::NotePlayerNotifier {
  Q_OBJECT

 public:
  explicit FretboardView(core::MsgBox& msgBox, QWidget* parent = nullptr);
  ~FretboardView() override;

  /// The position in the form's client area, in pixels.
  static QRect DesignRect();

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
  void DarkenNote(LitBy by) { Light(by, -1); }
  void PlayOctaveNote(const std::string& noteName, std::int16_t octave);
  /// Kept: see docs/behaviour.md, Functions without callers
  static std::int16_t MapNoteNameToPositionIndex(std::string_view noteName);

  [[nodiscard]] const FretboardLayout& Layout() const { return layout_; }
  /// The note image of a position index from 0. Throws failure 9 for an invalid index.
  [[nodiscard]] NoteImage& Image(int index) const;
  /// The play marker, hidden until FlashNotes shows it.
  [[nodiscard]] QWidget& Picture1() const { return *playMarker_; }
  /// The index of the note that the Tab key reaches, -1 if no note is visible.
  [[nodiscard]] int TabStop() const { return tabStop_; }

  /// The neck with the open strings of the visible notes, and the box of a fret number, in pixels of the form's client
  /// area.
  [[nodiscard]] NeckGeometry Geometry() const;
  [[nodiscard]] QRectF FretNumberBox(int fret) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void NoteStarted() override;
  void NoteEnded() override;
  void Light(LitBy by, int index);
  void BuildLines();
  void BuildImages();
  void BuildMarkers();
  NoteImage* MakeImage(const QString& name, const std::string& tag);
  void PositionNote(int index);
  void PlaceOnView(QWidget& widget, paint::Twips left, paint::Twips top) const;
  void ShowScaleNotes(const std::string& startNote, const core::IntervalPattern& pattern);
  [[nodiscard]] std::string StartNoteOf(const std::string& keyText) const;
  void SetTabStop(int index);
  void UpdateOpenStrings();
  void RestoreFocus();
  [[nodiscard]] int FocusedNote() const;
  [[nodiscard]] std::vector<bool> VisibleNotes() const;
  [[nodiscard]] QWidget& ControlNamed(const std::string& name) const;
  void PaintFretNumbers(QPainter& painter, const QColor& colour) const;
  void PaintFocusRing(QPainter& painter) const;
  void PaintGlow(QPainter& painter) const;

  core::MsgBox& msgBox_;
  platform::NotePlayer* player_ = nullptr;
  std::string appFolder_;
  std::function<void()> eventPump_;
  FretboardLayout layout_;
  std::vector<NoteImage*> images_;
  std::vector<NoteImage*> extraImages_;       // imgE6..imgE9, imgE13..imgE15
  std::vector<NoteImage*> labelImages_;       // imgLabel, elements 0..11
  std::vector<views::LineControl*> strings_;  // Line1.. by row; the next line is the nut.
  views::LineControl* nut_ = nullptr;
  std::vector<views::LineControl*> frets_;  // fret1.. by fret
  std::map<int, QLabel*> markers_;          // fretPosition3.. by fret
  QWidget* playMarker_ = nullptr;
  QPixmap neck_;
  int tabStop_ = -1;
  int pressed_ = -1;                // The note passed to the player.
  std::array<int, 2> lit_{-1, -1};  // By LitBy; -1 for none.
  bool ringShown_ = false;
  bool isFocusPending_ = false;
};

}  // namespace tonalith::views

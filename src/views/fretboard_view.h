// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The guitar neck of the main window: wood, nut, frets and strings, an image for each note, the fret numbers and the
// play marker, with the procedures that lay them out, light a scale on them, write names and play one note. A child of
// the form, at DesignRect of its client area. One tab stop; the arrow keys walk among the visible notes. User-interface
// thread. The procedures go on past failures and show what is pending in a message box at their end; they only ask for
// a repaint, so one refresh paints once. The message box and the ports have to outlive the view.

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

/// What ShowNotes asks of the window: the current record's pattern, and a place for the step words.
class ScaleInView {
 public:
  virtual ~ScaleInView() = default;
  /// Whether there is a current record at all. Without one nothing is shown and nothing is said.
  [[nodiscard]] virtual bool HasCurrentRecord() const = 0;
  /// `ScaleIntervals` of the current record; nothing for a null field. Asked once per ShowNotes.
  virtual std::optional<std::string> ScaleIntervals() = 0;
  /// Appends to the step line. `words` begins with its two blanks.
  virtual void AppendStepWord(const std::string& words) = 0;
};

/// What makes a note light up; each lights one note at a time.
enum class LitBy { kPress, kPlayback };

class FretboardView : public QWidget, private platform::NotePlayerNotifier {
  Q_OBJECT

 public:
  explicit FretboardView(core::MsgBox& msgBox, QWidget* parent = nullptr);
  ~FretboardView() override;

  /// Its place in the form's client area, in pixels.
  static QRect DesignRect();

  /// Where a played note goes: nothing is played before this is called. The view becomes the player's notifier and
  /// resigns when it is destroyed.
  void SetNotePlayer(platform::NotePlayer* player, std::string appFolder);
  /// How FlashNotes lets pending events run; QCoreApplication::processEvents unless something else is set.
  void SetEventPump(std::function<void()> pump) { eventPump_ = std::move(pump); }

  void PositionNotes();
  void HideNotes();
  /// `startNote` is the key box's text. Of an overlong pattern nothing is shown and no step words are made.
  void ShowNotes(const std::string& startNote, ScaleInView& scale);
  void ShowNotesNames();
  void DrawNoteName(NoteImage& image);
  void DrawNoteNames();
  void ClearNoteNames();
  void FlashNotes(const std::string& controlName);
  /// Lights the note with that control name, or none of its kind for an unknown name, for as long as it sounds.
  void LightNote(LitBy by, const std::string& controlName);
  void DarkenNote(LitBy by) { Light(by, -1); }
  void PlayOctaveNote(const std::string& noteName, std::int16_t octave);
  static std::int16_t MapNoteNameToPositionIndex(std::string_view noteName);

  [[nodiscard]] const FretboardLayout& Layout() const { return layout_; }
  /// The note image of a position index, 0 up to the neck's number of notes. Throws failure 9 for any other number.
  [[nodiscard]] NoteImage& Image(int index) const;
  /// The play marker. It is hidden until FlashNotes shows it.
  [[nodiscard]] QWidget& Picture1() const { return *playMarker_; }
  /// The note that the Tab key leads to, -1 while no note is visible.
  [[nodiscard]] int TabStop() const { return tabStop_; }

  /// The neck with the open strings of the notes that are shown, and the box that a fret's number is centred in, in
  /// pixels of the form's client area.
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
  std::vector<views::LineControl*> strings_;  // Line1.. by row; the line after the last is the nut.
  views::LineControl* nut_ = nullptr;
  std::vector<views::LineControl*> frets_;  // fret1.. by fret
  std::map<int, QLabel*> markers_;          // fretPosition3.. by fret
  QWidget* playMarker_ = nullptr;
  QPixmap neck_;
  int tabStop_ = -1;
  int pressed_ = -1;                // The note that is handed to the player.
  std::array<int, 2> lit_{-1, -1};  // By LitBy; -1 for none.
  bool ringShown_ = false;
  bool focusWaits_ = false;
};

}  // namespace tonalith::views

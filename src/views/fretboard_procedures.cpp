// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The procedures of the fretboard: layout, hiding and showing notes, names, the play marker and single notes.

#include <QLabel>
#include <algorithm>
#include <charconv>

#include "core/deferred_failure.h"
#include "core/paths.h"
#include "core/scale_construction.h"
#include "core/step_words.h"
#include "core/text.h"
#include "views/fretboard_view.h"

namespace tonalith::views {
namespace {

using paint::Twips;

constexpr Twips kMarkerAboveNote{480};

/// Parses a 16-bit whole number with optional blanks around it.
std::optional<std::int16_t> WholeNumber(std::string_view text) {
  text = core::Trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  std::int16_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

void FretboardView::PositionNotes() {
  core::DeferredFailure failure;
  failure.Try([&] { playMarker_->hide(); });
  for (int index = 0; index < layout_.NoteCount(); ++index) {
    // Kept: see docs/behaviour.md, Every string places the frets
    failure.Try([&] { PositionNote(index); });
    failure.Clear();
  }
  neck_ = {};
  RestoreFocus();
  update();
  failure.ReportDescription(msgBox_);
}

void FretboardView::PositionNote(int index) {
  NoteImage& image = Image(index);
  image.SetPicture(NotePicture::kScaleNote);
  const NotePlace& note = layout_.Note(index);
  const NoteImage& base = Image(layout_.IndexAt(note.row, 0));
  const Twips left = FretboardLayout::Left(base.Left, note.position);
  const Twips top = FretboardLayout::Top(strings_[static_cast<std::size_t>(note.row - 1)]->y1);
  image.Left = left;
  image.Top = top;
  // Kept: see docs/behaviour.md, ScaleTop equals Top
  image.ScaleTop = top;
  image.Width = FretboardLayout::kImageSize;
  image.Height = FretboardLayout::kImageSize;
  image.AutoSize = true;
  image.setToolTip(image.TagText());
  PlaceOnView(image, left, top);
  image.show();
  // Kept: see docs/behaviour.md, Every string places the frets
  if (note.position <= 1) return;
  const views::LineControl& fret1 = *frets_.front();
  views::LineControl& fret = *frets_[static_cast<std::size_t>(note.position - 1)];
  fret.x1 = fret.x2 = FretboardLayout::FretX(left);
  fret.y1 = fret1.y1;
  fret.y2 = fret1.y2;
  fret.BorderWidth = 3;
  // Most positions have no marker.
  const auto marker = markers_.find(note.position);
  if (marker == markers_.end()) return;
  PlaceOnView(*marker->second, FretboardLayout::MarkerLeft(left), FretboardLayout::MarkerTop(fret1.y2));
}

void FretboardView::HideNotes() {
  // Qt moves the focus of a hidden control to any other control. The neck takes it until notes are shown again.
  if (FocusedNote() >= 0) {
    isFocusPending_ = true;
    setFocus(Qt::OtherFocusReason);
  }
  for (NoteImage* image : images_) image->hide();
  for (NoteImage* image : extraImages_) image->hide();
  UpdateOpenStrings();
}

std::string FretboardView::StartNoteOf(const std::string& keyText) const {
  // Kept: see docs/behaviour.md, A numeric key is tried as a note number
  const std::optional<std::int16_t> number = WholeNumber(keyText);
  if (number && core::CNumberToNote(*number, msgBox_).empty()) return "C";
  return keyText;
}

void FretboardView::ShowNotes(const std::string& startNote, ScaleInView& scale) {
  core::DeferredFailure failure;
  std::optional<std::string> pattern;
  bool hasRecord = false;
  failure.Try([&] {
    hasRecord = scale.HasCurrentRecord();
    if (hasRecord) pattern = scale.ScaleIntervals();
  });
  for (NoteImage* label : labelImages_) label->SetPicture(NotePicture::kKeyNote);
  // Kept: see docs/behaviour.md, Only two label images are hidden
  for (std::size_t element = 0; element < 2; ++element) labelImages_[element]->hide();
  const bool isDamaged = pattern && core::IsOverlongPattern(*pattern);
  if (hasRecord && !isDamaged && !failure.Pending()) {
    failure.Try([&] {
      ShowScaleNotes(StartNoteOf(startNote), pattern ? core::IntervalPattern(*pattern) : core::IntervalPattern());
    });
    failure.Try([&] {
      if (pattern) scale.AppendStepWord(core::StepLine(*pattern));
    });
  }
  RestoreFocus();
  failure.ReportDescription(msgBox_);
}

void FretboardView::ShowScaleNotes(const std::string& startNote, const core::IntervalPattern& pattern) {
  // Kept: see docs/behaviour.md, A key that is no note reads as C and marks no note
  const std::vector<std::string> notes =
      core::ScaleArrayNotes(core::CNoteToNumber(startNote), {}, pattern, core::kScalePositions, msgBox_);
  for (NoteImage* image : images_) {
    if (image->Tag().empty() || std::find(notes.begin(), notes.end(), image->Tag()) == notes.end()) continue;
    image->SetPicture(image->Tag() == startNote ? NotePicture::kKeyNote : NotePicture::kScaleNote);
    image->show();
  }
  UpdateOpenStrings();
}

void FretboardView::UpdateOpenStrings() {
  // Open strings extend beyond the images that are shown and hidden.
  const int nut = paint::NearestPixel(nut_->x1) - DesignRect().left();
  update(0, 0, nut, height());
}

void FretboardView::ShowNotesNames() {
  for (NoteImage* image : images_) DrawNoteName(*image);
}

void FretboardView::DrawNoteName(NoteImage& image) { image.DrawName(); }

void FretboardView::DrawNoteNames() {
  // Kept: see docs/behaviour.md, DrawNoteNames and ClearNoteNames start at 1
  for (int index = 1; index < layout_.NoteCount(); ++index) DrawNoteName(Image(index));
}

void FretboardView::ClearNoteNames() {
  // Kept: see docs/behaviour.md, DrawNoteNames and ClearNoteNames start at 1
  for (int index = 1; index < layout_.NoteCount(); ++index) Image(index).ClearName();
}

void FretboardView::FlashNotes(const std::string& controlName) {
  core::DeferredFailure failure;
  failure.Try([&] { playMarker_->show(); });
  failure.Try([&] {
    const QWidget& control = ControlNamed(controlName);
    playMarker_->move(control.x(), control.y() - paint::TwipsToPixels(kMarkerAboveNote));
    playMarker_->raise();
  });
  failure.Try([&] {
    update();
    eventPump_();
  });
  failure.ReportDescription(msgBox_);
}

void FretboardView::PlayOctaveNote(const std::string& noteName, std::int16_t octave) {
  core::DeferredFailure failure;
  failure.Try([&] {
    const std::int16_t number = OctaveSoundNumber(core::CNoteToNumber(noteName), octave);
    const std::string path =
        appFolder_ + core::kPathSeparator + "Octaves" + core::kPathSeparator + std::to_string(number) + ".wav";
    if (player_ != nullptr) player_->Play(path);
  });
  failure.ReportDescription(msgBox_);
}

std::int16_t FretboardView::MapNoteNameToPositionIndex(std::string_view noteName) {
  // Kept: see docs/behaviour.md, MapNoteNameToPositionIndex has its own flats
  static const std::map<std::string, std::int16_t> numbers{
      {"C", 0},  {"C#", 1}, {"D", 2},  {"GB", 2}, {"D#", 3}, {"E", 4},   {"AB", 4}, {"F", 5},  {"F#", 6},
      {"BB", 6}, {"G", 7},  {"G#", 8}, {"A", 9},  {"DB", 9}, {"A#", 10}, {"B", 11}, {"EB", 11}};
  std::string upper(noteName);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  const auto found = numbers.find(upper);
  return found == numbers.end() ? std::int16_t{-1} : found->second;
}

}  // namespace tonalith::views

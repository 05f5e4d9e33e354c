// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_view.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <vector>

#include "core/deferred_failure.h"
#include "core/octave_sounds.h"
#include "core/paths.h"
#include "core/step_words.h"
#include "core/text.h"
#include "views/accessible_views.h"

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

FretboardView::FretboardView(const core::Neck& neck, core::MsgBox& msgBox, QWidget* parent)
    : QWidget(parent),
      msgBox_(msgBox),
      eventPump_([] { QCoreApplication::processEvents(); }),
      layout_(neck),
      controls_(layout_, FretboardLayout::AreaOf(neck), *this),
      focus_(controls_, *this),
      lit_(controls_, *this),
      painter_(controls_) {
  InstallAccessibleViews();
  setObjectName(QStringLiteral("fretboardView"));
  setAccessibleName(tr("Fretboard"));
  setGeometry(DesignRect());
  for (int index = 0; index < layout_.NoteCount(); ++index) {
    connect(&Image(index), &QAbstractButton::pressed, this, [this, index] {
      pressed_ = index;
      PlayOctaveNote(layout_.Note(index).tag, static_cast<std::int16_t>(layout_.Note(index).pitch.Octave()));
    });
  }
}

FretboardView::~FretboardView() {
  if (player_ != nullptr && player_->Notifier == this) player_->Notifier = nullptr;
}

void FretboardView::SetNotePlayer(platform::NotePlayer* player, std::string appFolder) {
  player_ = player;
  if (player_ != nullptr) player_->Notifier = this;
  appFolder_ = std::move(appFolder);
}

void FretboardView::PositionNotes() {
  core::DeferredFailure failure;
  failure.Try([&] { controls_.PlayMarker().hide(); });
  for (int index = 0; index < layout_.NoteCount(); ++index) {
    // Kept: see docs/behaviour.md, Every string places the frets
    failure.Try([&] {
      Image(index).SetPicture(NotePicture::kScaleNote);
      controls_.Place(index);
    });
    failure.Clear();
  }
  painter_.DropCache();
  focus_.Restore();
  update();
  failure.ReportDescription(msgBox_);
}

void FretboardView::HideNotes() {
  focus_.Keep();
  for (NoteImage* image : controls_.Images()) image->hide();
  for (NoteImage* image : controls_.ExtraImages()) image->hide();
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
  for (NoteImage* label : controls_.LabelImages()) label->SetPicture(NotePicture::kKeyNote);
  // Kept: see docs/behaviour.md, Only two label images are hidden
  for (std::size_t element = 0; element < 2; ++element) controls_.LabelImages()[element]->hide();
  const bool isDamaged = pattern && core::IsOverlongPattern(*pattern);
  if (hasRecord && !isDamaged && !failure.Pending()) {
    failure.Try([&] {
      ShowScaleNotes(StartNoteOf(startNote), pattern ? core::IntervalPattern(*pattern) : core::IntervalPattern(),
                     scale);
    });
    failure.Try([&] {
      if (pattern) scale.AppendStepWord(core::StepLine(*pattern));
    });
  }
  focus_.Restore();
  failure.ReportDescription(msgBox_);
}

void FretboardView::ShowScaleNotes(const std::string& startNote, const core::IntervalPattern& pattern,
                                   ScaleInView& scale) {
  // Kept: see docs/behaviour.md, A key that is no note reads as C and marks no note
  const core::NoteNumber start = core::CNoteToNumber(startNote);
  const bool marksKey = core::CNumberToScore(start) == startNote;
  const core::Scale& notes = scale.Latest().Of(start, pattern, msgBox_);
  std::array<std::optional<std::string>, core::kSharpNotes.size()> labels;  // By pitch class.
  for (std::size_t i = 0; i < notes.size() && i < core::kScalePositions; ++i) {
    auto& label = labels.at(static_cast<std::size_t>(notes[i].pitchClass));
    if (!label) label = scale.LabelOf(notes[i]);
  }
  for (int index = 0; index < layout_.NoteCount(); ++index) {
    const core::NoteNumber pitchClass = layout_.Note(index).pitch.PitchClass();
    const auto& label = labels.at(static_cast<std::size_t>(pitchClass));
    if (!label) continue;
    NoteImage& image = Image(index);
    image.SetLabel(*label);
    image.SetPicture(marksKey && pitchClass == start ? NotePicture::kKeyNote : NotePicture::kScaleNote);
    image.show();
  }
  UpdateOpenStrings();
}

void FretboardView::UpdateOpenStrings() {
  // Open strings extend beyond the images that are shown and hidden.
  const int nut = paint::NearestPixel(layout_.NutLine().x1) - DesignRect().left();
  update(0, 0, nut, height());
}

void FretboardView::ShowNotesNames() {
  for (NoteImage* image : controls_.Images()) DrawNoteName(*image);
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
  QWidget& marker = controls_.PlayMarker();
  failure.Try([&] { marker.show(); });
  failure.Try([&] {
    const QWidget& control = controls_.Named(controlName);
    marker.move(control.x(), control.y() - paint::TwipsToPixels(kMarkerAboveNote));
    marker.raise();
  });
  failure.Try([&] {
    update();
    eventPump_();
  });
  failure.ReportDescription(msgBox_);
}

void FretboardView::LightNote(LitBy by, const std::string& controlName) {
  lit_.Light(by, controls_.IndexNamed(controlName));
}

void FretboardView::NoteStarted() { lit_.Light(LitBy::kPress, pressed_); }

void FretboardView::NoteEnded() { DarkenNote(LitBy::kPress); }

void FretboardView::PlayOctaveNote(const std::string& noteName, std::int16_t octave) {
  core::DeferredFailure failure;
  failure.Try([&] {
    const std::int16_t number = core::OctaveFileNumber(core::Pitch::Of(core::CNoteToNumber(noteName), octave));
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

void FretboardView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter_.Paint(painter, *this);
  lit_.PaintGlow(painter);
  focus_.PaintRing(painter);
}

void FretboardView::keyPressEvent(QKeyEvent* event) {
  if (focus_.MoveBy(*event)) {
    event->accept();
  } else {
    QWidget::keyPressEvent(event);
  }
}

bool FretboardView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const QString text = controls_.ToolTipAt(help->pos()); !text.isEmpty()) {
      QToolTip::showText(help->globalPos(), text, this);
      return true;
    }
  }
  return QWidget::event(event);
}

}  // namespace tonalith::views

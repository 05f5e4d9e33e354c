// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/notice_text.h"

#include "core/field_limits.h"
#include "editor/messages.h"
#include "editor/scale_editing.h"
#include "windows/translated.h"

namespace tonalith::editor {
namespace {

core::Message ChosenNotes(const QString& pattern) {
  const std::string digits = pattern.toStdString();
  return {MessageId::kApplySaves, digits, QString::fromStdString(StepWordsText(digits)).trimmed().toStdString()};
}

core::Message FieldIsFull(const ScalesControls& controls, int index) {
  const auto field = static_cast<std::size_t>(index);
  return {MessageId::kFieldIsFull, controls.lblLabels.at(field)->text().toStdString(),
          controls.txtFields.at(field).longest};
}

core::Message MessageOf(const Notice& notice, const ScalesControls& controls) {
  switch (notice.id) {
    case MessageId::kPatternNotKept:
      return {MessageId::kPatternNotKept, notice.text.toStdString()};
    case MessageId::kApplySaves:
      return ChosenNotes(notice.text);
    case MessageId::kOneNote:
      return {MessageId::kTwoSentences, ChosenNotes(notice.text), MessageId::kOneNote};
    case MessageId::kSaved:
      return {MessageId::kTwoSentences, core::Message(MessageId::kSaved, notice.text.toStdString()),
              MessageId::kViewingHint};
    case MessageId::kFieldIsFull:
      return FieldIsFull(controls, notice.field);
    case MessageId::kPatternIsFull:
      return {MessageId::kPatternIsFull,
              controls.lblLabels.at(static_cast<std::size_t>(field::kIntervals))->text().toStdString(),
              core::kMostPatternDigits};
    default:
      return notice.id;
  }
}

}  // namespace

QString NoticeText(const Notice& notice, const ScalesControls& controls) {
  return windows::Translated(MessageOf(notice, controls));
}

}  // namespace tonalith::editor

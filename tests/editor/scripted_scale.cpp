// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scripted_scale.h"

#include <sstream>
#include <utility>

#include "core/failure.h"
#include "core/note_model.h"
#include "editor/edit_session.h"
#include "support/text_message.h"

namespace tonalith::editor {
namespace {

const std::vector<std::pair<std::string, int>> kNames = {{"ScaleTypeID", field::kScaleTypeId},
                                                         {"StartNote", field::kStartNote},
                                                         {"ScaleIntervals", field::kIntervals},
                                                         {"Sort", field::kSort}};

}  // namespace

NoteSelection Notes(const std::string& names) {
  NoteSelection notes;
  std::istringstream words(names);
  for (std::string name; words >> name;) notes.set(static_cast<std::size_t>(core::CNoteToNumber(name)));
  return notes;
}

std::string Names(const NoteSelection& notes) {
  std::string names;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    if (notes[i]) names += (names.empty() ? "" : " ") + std::string(core::kSharpNotes[i]);
  }
  return names;
}

ScriptedScale::ScriptedScale() {
  const auto record = [this](const char* id, const char* name, const char* pattern) {
    Texts texts;
    texts[field::kScaleId] = QLatin1String(id);
    texts[field::kName] = QLatin1String(name);
    texts[field::kScaleTypeId] = QStringLiteral("1");
    texts[field::kIntervals] = QLatin1String(pattern);
    texts[field::kSort] = QLatin1String(id);
    records_.emplace_back(texts);
  };
  record("0", "Major", "2212221");
  record("1", "Triad", "435");
  current_ = data::Bookmark{0};
  texts_ = Saved();
  selected_ = RecordNotes();
}

void ScriptedScale::Log(const std::string& call) {
  calls_ += call + " ";
  if (!failure_.empty()) throw core::Failure::Unspecified(tests::TextMessage(std::exchange(failure_, {})));
}

std::string ScriptedScale::Calls() { return std::exchange(calls_, {}); }

ScriptedScale::Texts ScriptedScale::Saved() const {
  if (!current_) return {};
  return records_.at(static_cast<std::size_t>(current_->key)).value_or(Texts{});
}

void ScriptedScale::Show(const Texts& texts) {
  texts_ = texts;
  session_->SelectRecordNotes();
}

void ScriptedScale::Moved() {
  const Texts saved = Saved();
  if (saved != texts_ || session_->IsOnAnotherRecord()) Show(saved);
  session_->RecordMoved();
}

void ScriptedScale::Type(int index, const std::string& text) {
  const QString before = std::exchange(texts_.at(static_cast<std::size_t>(index)), QString::fromStdString(text));
  session_->FieldTyped(index, before);
  session_->SelectRecordNotes();
}

void ScriptedScale::Toggle(const std::string& names) {
  const NoteSelection before = selected_;
  selected_ ^= Notes(names);
  session_->NotesToggled(before);
}

void ScriptedScale::MoveToRecord(std::int64_t key) {
  current_ = data::Bookmark{key};
  isNew_ = false;
  Moved();
}

void ScriptedScale::Delete(std::int64_t key) { records_.at(static_cast<std::size_t>(key)).reset(); }

FieldText ScriptedScale::Field(int index) const {
  const auto at = static_cast<std::size_t>(index);
  return {texts_.at(at), texts_.at(at) != Saved().at(at)};
}

void ScriptedScale::SetField(int index, const QString& text) {
  Log("SetField(" + std::to_string(index) + ":" + text.toStdString() + ")");
  auto texts = texts_;
  texts.at(static_cast<std::size_t>(index)) = text;
  if (texts != texts_) Show(texts);
}

core::Value ScriptedScale::Content(const std::string& field) const {
  if (field == "Chord") return chord_;
  return texts_[field::kScaleTypeId].isEmpty() ? core::Value() : core::Value(Text(field::kScaleTypeId));
}

void ScriptedScale::SetContent(const std::string& field, const core::Value& value) {
  Log("SetContent(" + field + ")");
  chord_ = value;
}

void ScriptedScale::MoveTo(data::Bookmark record) {
  Log("MoveTo(" + std::to_string(record.key) + ")");
  if (records_.at(static_cast<std::size_t>(record.key))) MoveToRecord(record.key);
}

void ScriptedScale::AddNew(const FieldValues& contents) {
  Log("AddNew");
  before_ = std::exchange(current_, std::nullopt);
  isNew_ = true;
  Texts texts;
  for (const auto& [field, value] : contents) {
    for (const auto& [name, index] : kNames) {
      if (name == field) texts.at(static_cast<std::size_t>(index)) = QString::fromStdString(value.TextOr(""));
    }
    if (field == "Chord") chord_ = value;
  }
  Show(texts);
  session_->RecordMoved();
}

void ScriptedScale::UpdateBatch() {
  Log("UpdateBatch");
  if (!IsEditPending()) return;
  if (isNew_) {
    current_ = data::Bookmark{static_cast<std::int64_t>(records_.size())};
    records_.emplace_back();
    texts_[field::kScaleId] = QString::number(current_->key);
  }
  if (current_) records_.at(static_cast<std::size_t>(current_->key)) = texts_;
  isNew_ = false;
  Moved();
}

void ScriptedScale::CancelUpdate() {
  Log("CancelUpdate");
  if (!IsEditPending()) return;
  if (std::exchange(isNew_, false)) current_ = before_;
  Moved();
}

NoteSelection ScriptedScale::RecordNotes() { return NotesOfTyped(Text(field::kIntervals)); }

void ScriptedScale::KeepPattern() {
  Log("KeepPattern");
  auto texts = texts_;
  texts[field::kIntervals] = QString::fromStdString(ScaleIntervalBuild(selected_));
  Show(texts);
}

}  // namespace tonalith::editor

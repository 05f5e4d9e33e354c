// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/shown_scale.h"

#include "core/deferred_failure.h"
#include "data/scale_database.h"
#include "editor/scale_types.h"

namespace tonalith::editor {
namespace {

// Kept: see docs/behaviour.md, ScaleStepType has no effect
std::string StepType(const QString& typeId) { return typeId.trimmed().isEmpty() ? "1" : typeId.toStdString(); }

}  // namespace

void ShownScale::Open(const std::string& databasePath, std::optional<data::Bookmark> current) {
  c_.datPrimaryRS->SetConnectionString(data::FullConnectionString(databasePath));
  c_.datPrimaryRS->SetRecordSource(std::string(data::kAllScalesStatement));
  c_.datPrimaryRS->SetLockType(data::LockType::kBatchOptimistic);
  core::DeferredFailure failure;
  const bool isOpen = failure.Try([this] { c_.datPrimaryRS->Refresh(); });
  if (isOpen) {
    if (current) failure.Try([&] { MoveTo(*current); });
    failure.Try([this] { LoadTypes(); });
  }
  failure.ReportDescription(msgBox_);
}

void ShownScale::LoadTypes() {
  c_.Combo1->SetTypes(ReadScaleTypes(c_.datPrimaryRS->ConnectionString()));
  ShowType();
}

void ShownScale::ShowTones() {
  core::DeferredFailure failure;
  failure.Try([this] {
    c_.txtScaleIntervalTones->setText(QString::fromStdString(StepWordsText(Pattern())));
    c_.txtScaleIntervalTones->setCursorPosition(0);
    // Kept: see docs/behaviour.md, Colours are the state of a note button
    c_.keyboard->ColourBackground(RecordNotes());
  });
  failure.Clear();
}

std::optional<data::Bookmark> ShownScale::Bookmark() const { return c_.datPrimaryRS->CurrentBookmark(); }

FieldText ShownScale::Field(int index) const {
  const TextField& textField = c_.txtFields.at(static_cast<std::size_t>(index));
  if (textField.binding == nullptr) return {};
  return {textField.Text(), textField.binding->IsChanged()};
}

void ShownScale::SetField(int index, const QString& text) {
  c_.txtFields.at(static_cast<std::size_t>(index)).SetText(text);
}

core::Value ShownScale::Content(const std::string& field) const {
  return c_.datPrimaryRS->HasRecord() ? c_.datPrimaryRS->Recordset()->FieldValue(field) : core::Value::Null();
}

void ShownScale::SetContent(const std::string& field, const core::Value& value) {
  c_.datPrimaryRS->SetFieldValue(field, value);
}

std::optional<std::int64_t> ShownScale::FirstTypeId() const {
  if (c_.Combo1->count() == 0) return std::nullopt;
  return c_.Combo1->NumberAt(0).toLongLong();
}

std::int64_t ShownScale::NextSortNumber(std::int64_t typeId) const {
  return editor::NextSortNumber(c_.datPrimaryRS->ConnectionString(), typeId);
}

NoteSelection ShownScale::RecordNotes() {
  if (!c_.datPrimaryRS->HasRecord()) return {};
  return c_.keyboard->ByTag(patternNotes_.Of(StepType(Field(field::kScaleTypeId).text), Pattern()));
}

void ShownScale::ShowPattern() {
  c_.txtIntervals->setText(Field(field::kIntervals).text);
  ShowTones();
}

void ShownScale::KeepPattern() {
  const TextField& intervals = c_.txtFields[field::kIntervals];
  intervals.box->setEnabled(true);
  intervals.SetText(c_.txtIntervals->text());
  intervals.box->setEnabled(false);
}

}  // namespace tonalith::editor

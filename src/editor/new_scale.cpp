// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/new_scale.h"

#include "editor/scale_fields.h"

namespace tonalith::editor {
namespace {

constexpr const char* kStartNote = "C";
constexpr const char* kIntervals = "2212221";

}  // namespace

void NewScale::Add(EditedScale& scale) {
  core::Value type = scale.Content("ScaleTypeID");
  if (const auto first = scale.FirstTypeId(); type.IsNull() && first) type = *first;
  core::Value sort;
  if (!type.IsNull()) sort = scale.NextSortNumber(type.AsInt());
  scale.AddNew({{"ScaleTypeID", type},
                {"StartNote", kStartNote},
                {"ScaleIntervals", kIntervals},
                {"Chord", core::Value::YesNo(false)},
                {"Sort", sort}});
  typeSort_ = scale.Field(field::kSort).text;
}

void NewScale::SetType(EditedScale& scale, const QString& typeId) {
  scale.SetField(field::kScaleTypeId, typeId);
  if (scale.Bookmark() || scale.Field(field::kSort).text != typeSort_) return;
  scale.SetField(field::kSort, QString::number(scale.NextSortNumber(typeId.toLongLong())));
  typeSort_ = scale.Field(field::kSort).text;
}

}  // namespace tonalith::editor

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/data_control_scales.h"

#include <utility>

#include "core/failure.h"
#include "data/data_failure.h"

namespace tonalith::search {
namespace {

constexpr const char* kScaleName = "ScaleName";

/// Runs a step. Returns false if it fails with `number`; other failures are rethrown.
template <class Step>
bool SucceedsUnless(std::int32_t number, Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const core::Failure& failure) {
    if (failure.Number() != number) throw;
    return false;
  }
}

class RecordSetCursor : public ScaleCursor {
 public:
  explicit RecordSetCursor(std::unique_ptr<data::RecordSet> rows) : rows_(std::move(rows)) {
    const std::optional<int> field = rows_->FindField(kScaleName);
    if (!field) throw data::UnknownItem();
    scaleNameField_ = *field;
  }

  void MoveFirst() override {
    // Without a record the move fails and the cursor is past the end, which IsEof reports.
    SucceedsUnless(data::failure_number::kNoCurrentRecord, [this] { rows_->MoveFirst(); });
  }
  void MoveNext() override { rows_->MoveNext(); }
  [[nodiscard]] bool IsEof() const override { return rows_->IsEof(); }
  [[nodiscard]] data::Bookmark GetBookmark() const override { return rows_->GetBookmark(); }
  bool MoveTo(data::Bookmark bookmark) override {
    return SucceedsUnless(data::failure_number::kInvalidBookmark, [&] { rows_->SetBookmark(bookmark); });
  }

  [[nodiscard]] std::optional<std::string_view> ScaleName() override {
    const core::Value& name = rows_->FieldValue(scaleNameField_);
    if (name.IsNull()) return {};
    if (const auto* const text = std::get_if<std::string>(&name.Raw())) return *text;
    converted_ = name.AsText();
    return converted_;
  }

 private:
  std::unique_ptr<data::RecordSet> rows_;
  int scaleNameField_ = 0;
  std::string converted_;
};

}  // namespace

std::unique_ptr<ScaleCursor> DataControlScales::Clone() {
  const data::RecordSet* const rows = control_.Recordset();
  if (rows == nullptr || !rows->IsOpen()) return nullptr;
  return std::make_unique<RecordSetCursor>(rows->Clone({kScaleName}));
}

std::optional<data::Bookmark> DataControlScales::Current() {
  std::optional<data::Bookmark> current;
  if (!control_.HasRecord()) return current;
  SucceedsUnless(data::failure_number::kNoCurrentRecord, [&] { current = control_.Recordset()->GetBookmark(); });
  return current;
}

bool DataControlScales::MakeCurrent(data::Bookmark bookmark) {
  return SucceedsUnless(data::failure_number::kInvalidBookmark, [&] { control_.SetBookmark(bookmark); });
}

}  // namespace tonalith::search

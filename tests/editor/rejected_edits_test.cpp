// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/rejected_edits.h"

#include <gtest/gtest.h>

namespace tonalith::editor {
namespace {

RejectedEdit Edit(std::int64_t place, RejectedEdit::Decision decision = RejectedEdit::Decision::kByUser) {
  RejectedEdit edit;
  edit.record = data::Bookmark{place};
  edit.place = edit.record;
  edit.decision = decision;
  return edit;
}

std::int64_t PlaceOf(const std::optional<RejectedEdit>& edit) { return edit ? edit->place->key : -1; }

TEST(RejectedEdits, TakesTheLatestFirst) {
  RejectedEdits edits;
  EXPECT_TRUE(edits.IsEmpty());
  EXPECT_EQ(edits.Latest(), nullptr);
  edits.Add(Edit(1));
  edits.Add(Edit(2));
  EXPECT_EQ(edits.Latest()->place->key, 2);
  EXPECT_EQ(PlaceOf(edits.TakeLatest()), 2);
  EXPECT_EQ(PlaceOf(edits.TakeLatest()), 1);
  EXPECT_EQ(PlaceOf(edits.TakeLatest()), -1);
}

TEST(RejectedEdits, TakesTheLatestOfARecord) {
  RejectedEdits edits;
  edits.Add(Edit(1));
  edits.Add(Edit(1, RejectedEdit::Decision::kOpen));
  edits.Add(Edit(2));
  const auto edit = edits.TakeAt(data::Bookmark{1});
  EXPECT_EQ(PlaceOf(edit), 1);
  EXPECT_EQ(edit->decision, RejectedEdit::Decision::kOpen);
  EXPECT_EQ(PlaceOf(edits.TakeAt(data::Bookmark{3})), -1);
  EXPECT_EQ(PlaceOf(edits.TakeAt(std::nullopt)), -1);
}

TEST(RejectedEdits, TakesOnlyUndecidedOnesWhenClosing) {
  RejectedEdits edits;
  edits.Add(Edit(1, RejectedEdit::Decision::kOpen));
  edits.Add(Edit(2));
  EXPECT_EQ(PlaceOf(edits.TakeUndecided()), 1);
  EXPECT_EQ(PlaceOf(edits.TakeUndecided()), -1);
  EXPECT_EQ(PlaceOf(edits.TakeLatest()), 2);
}

TEST(RejectedEdits, DropTheOldestOfMoreThanTen) {
  RejectedEdits edits;
  for (int i = 1; i <= 11; ++i) edits.Add(Edit(i));
  EXPECT_EQ(PlaceOf(edits.TakeAt(data::Bookmark{1})), -1);
  EXPECT_EQ(PlaceOf(edits.TakeAt(data::Bookmark{2})), 2);
}

}  // namespace
}  // namespace tonalith::editor

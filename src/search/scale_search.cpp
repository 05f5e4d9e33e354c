// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/scale_search.h"

#include "core/failure.h"
#include "core/text.h"
#include "core/upper_case.h"
#include "data/data_failure.h"
#include "search/messages.h"

namespace tonalith::search {
/// Matches names that contain a text, in any case.
class ScaleSearch::NamePattern {
 public:
  explicit NamePattern(std::string_view text) : pattern_(U"*" + core::UpperCase(text) + U"*") {}

  bool Matches(std::optional<std::string_view> name) {
    if (!name) return false;
    core::UpperCaseInto(upperName_, *name);
    return pattern_.Matches(upperName_);
  }

 private:
  LikePattern pattern_;
  std::u32string upperName_;
};

std::unique_ptr<ScaleCursor> ScaleSearch::OpenRows() {
  auto rows = source_.Clone();
  if (rows == nullptr) {
    throw core::Failure(data::failure_number::kClosed, MessageId::kNotOpen);
  }
  return rows;
}

void ScaleSearch::MoveAfterCurrent(ScaleCursor& rows) {
  const std::optional<data::Bookmark> current = source_.Current();
  if (!current || !rows.MoveTo(*current)) {
    rows.MoveFirst();
    return;
  }
  rows.MoveNext();
  if (rows.IsEof()) rows.MoveFirst();
}

SearchResult ScaleSearch::FindFrom(ScaleCursor& rows, NamePattern& pattern, OnWrap onWrap) {
  SearchResult result = TestRecords(rows, pattern, onWrap);
  watcher_.OnEnd();
  return result;
}

SearchResult ScaleSearch::TestRecords(ScaleCursor& rows, NamePattern& pattern, OnWrap onWrap) {
  // A bookmark identifies its record without a count, also after other records are deleted.
  const data::Bookmark start = rows.GetBookmark();
  bool hasWrapped = false;
  while (watcher_.ShouldContinue()) {
    const std::optional<std::string_view> name = rows.ScaleName();
    if (pattern.Matches(name)) {
      const std::string found(*name);
      if (source_.MakeCurrent(rows.GetBookmark())) return {SearchOutcome::kFound, found};
    }
    rows.MoveNext();
    if (rows.IsEof()) {
      // The end was reached twice without passing the start: the start record was deleted, and all others are tested.
      if (hasWrapped) return {SearchOutcome::kNoMatch, {}};
      hasWrapped = true;
      // Kept: see docs/behaviour.md, The wrap message also comes with a match
      if (onWrap == OnWrap::kShowMessage) watcher_.SetMessage(MessageId::kAllSearched);
      rows.MoveFirst();
      if (rows.IsEof()) return {SearchOutcome::kNoMatch, {}};
    }
    if (rows.GetBookmark() == start) return {SearchOutcome::kNoMatch, {}};
  }
  return {SearchOutcome::kStopped, {}};
}

SearchResult ScaleSearch::Search(std::string_view text) {
  const std::string_view wanted = core::Trim(text);
  if (wanted.empty()) return {};
  NamePattern pattern(wanted);
  const auto rows = OpenRows();
  SearchResult result{SearchOutcome::kNoMatch, {}};
  if (!rows->IsEof()) {
    MoveAfterCurrent(*rows);
    result = FindFrom(*rows, pattern, OnWrap::kShowMessage);
  }
  if (result.outcome == SearchOutcome::kNoMatch) {
    msgBox_.Show(MessageId::kNoMatches, core::MsgBoxStyle::kInformation);
  }
  return result;
}

SearchResult ScaleSearch::FindNext(std::string_view SearchText, std::string& tag) {
  // Kept: see docs/behaviour.md, FindNextScaleMatch differs from the button
  NamePattern pattern(SearchText);
  const auto rows = OpenRows();
  if (rows->IsEof()) return {};
  if (tag != SearchText) {
    rows->MoveFirst();
    tag = SearchText;
  } else {
    MoveAfterCurrent(*rows);
  }
  SearchResult result = FindFrom(*rows, pattern, OnWrap::kNoMessage);
  if (result.outcome == SearchOutcome::kNoMatch) {
    if (!rows->IsEof()) source_.MakeCurrent(rows->GetBookmark());
    msgBox_.Show({MessageId::kNoMatchesFor, std::string(SearchText)}, core::MsgBoxStyle::kInformation);
  }
  return result;
}

}  // namespace tonalith::search

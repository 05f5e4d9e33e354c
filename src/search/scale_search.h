// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The walk of a search through the scales, without a widget: it tests names in the record set's order, starting behind
// the current record, wraps at the end, and makes the match the current record of the main window. Each record is
// tested once. The record set is walked on a copy, so that the window moves, and redraws, once at the most. Made for
// one search by whoever holds the three things that it uses; user-interface thread. Messages that belong to a search
// are shown here; failures (93 for a malformed list, those of the record set) are thrown for the caller to report.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/msg_box.h"
#include "data/record_set.h"
#include "search/like_matcher.h"

namespace tonalith::search {

/// A cursor over the scales, as far as a search uses one. Fails as data::RecordSet does.
class ScaleCursor {
 public:
  virtual ~ScaleCursor() = default;

  /// Stands past the end when there is no record.
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;
  /// Past the last record; from the beginning when there is none.
  [[nodiscard]] virtual bool IsEof() const = 0;
  [[nodiscard]] virtual data::Bookmark GetBookmark() const = 0;
  /// Moves to that record; false, without a move, when it is gone.
  virtual bool StandOn(data::Bookmark bookmark) = 0;
  /// The field ScaleName, nothing for null. Good until the next move.
  [[nodiscard]] virtual std::optional<std::string_view> ScaleName() = 0;
};

/// The record set of the main window and its current record.
class ScaleSource {
 public:
  virtual ~ScaleSource() = default;

  /// A cursor of its own over the same records, on the first one; nullptr when no record set is open.
  [[nodiscard]] virtual std::unique_ptr<ScaleCursor> Clone() = 0;
  /// Nothing when no record is current.
  [[nodiscard]] virtual std::optional<data::Bookmark> Current() = 0;
  /// Makes that record the current one, which redraws the window; false, without a move, when it is gone.
  virtual bool MakeCurrent(data::Bookmark bookmark) = 0;
};

/// Who watches a search while it runs.
class SearchWatcher {
 public:
  virtual ~SearchWatcher() = default;

  /// Sets the status line.
  virtual void SetMessage(const std::string& text) = 0;
  /// Asked before each record is tested; false ends the search then and there, without a message.
  [[nodiscard]] virtual bool GoesOn() = 0;
  /// No record is tested any more; a message may follow.
  virtual void HasEnded() = 0;
};

enum class SearchOutcome { kNothingAsked, kFound, kNoMatch, kStopped };

struct SearchResult {
  SearchOutcome outcome = SearchOutcome::kNothingAsked;
  /// The name of the record that was found.
  std::string name;
};

class ScaleSearch {
 public:
  ScaleSearch(ScaleSource& source, SearchWatcher& watcher, core::MsgBox& msgBox)
      : source_(source), watcher_(watcher), msgBox_(msgBox) {}

  /// Searches for `text` (UTF-8, blanks at its ends dropped) from the record behind the current one. Tells the watcher
  /// when it wraps. Without a match the current record stays.
  SearchResult Search(std::string_view text);

  /// Searches for the text as it is: from the first record when `tag`, where the text is kept, differs from it,
  /// otherwise from the record behind the current one. Without a match the record at which it began becomes the current
  /// one.
  SearchResult FindNext(std::string_view SearchText, std::string& tag);

 private:
  class NamePattern;
  enum class OnWrap { kTell, kBeSilent };

  [[nodiscard]] std::unique_ptr<ScaleCursor> OpenRows();
  /// Behind the current record, wrapped; on the first when no record is current or it is gone.
  void StandAfterCurrent(ScaleCursor& rows);
  SearchResult Walk(ScaleCursor& rows, NamePattern& pattern, OnWrap onWrap);
  SearchResult TestRecords(ScaleCursor& rows, NamePattern& pattern, OnWrap onWrap);

  ScaleSource& source_;
  SearchWatcher& watcher_;
  core::MsgBox& msgBox_;
};

}  // namespace tonalith::search

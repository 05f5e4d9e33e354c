// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The search without widgets: it tests names in the order of the record set from the record after the current one,
// wraps at the end, tests each record once, and makes a match the current record of the main window. It uses a clone of
// the record set, so the window moves at most once. Shows the messages of a search; throws failures (93 for a malformed
// list, those of the record set). The three objects that it uses must outlive it.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/message.h"
#include "core/msg_box.h"
#include "data/record_set.h"
#include "search/like_matcher.h"

namespace tonalith::search {

/// A cursor over the scales. Throws the failures of data::RecordSet.
class ScaleCursor {
 public:
  virtual ~ScaleCursor() = default;

  /// Moves past the end if there is no record.
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;
  /// Whether the cursor is after the last record; true if there is none.
  [[nodiscard]] virtual bool IsEof() const = 0;
  [[nodiscard]] virtual data::Bookmark GetBookmark() const = 0;
  /// Moves to that record. Returns false and does not move if it was deleted.
  virtual bool MoveTo(data::Bookmark bookmark) = 0;
  /// The field ScaleName, no value for null. Valid until the next move.
  [[nodiscard]] virtual std::optional<std::string_view> ScaleName() = 0;
};

/// The record set of the main window and its current record.
class ScaleSource {
 public:
  virtual ~ScaleSource() = default;

  /// A new cursor at the first record; nullptr if no record set is open.
  [[nodiscard]] virtual std::unique_ptr<ScaleCursor> Clone() = 0;
  /// No value if no record is current.
  [[nodiscard]] virtual std::optional<data::Bookmark> Current() = 0;
  /// Makes that record current, which redraws the window. Returns false and changes nothing if it was deleted.
  virtual bool MakeCurrent(data::Bookmark bookmark) = 0;
};

/// Observes and stops a running search.
class SearchWatcher {
 public:
  virtual ~SearchWatcher() = default;

  /// Sets the status line.
  virtual void SetMessage(const core::Message& text) = 0;
  /// Called before each record is tested; false stops the search without a message.
  [[nodiscard]] virtual bool ShouldContinue() = 0;
  /// Called when testing has ended; a message may follow.
  virtual void OnEnd() = 0;
};

enum class SearchOutcome { kNothingAsked, kFound, kNoMatch, kStopped };

struct SearchResult {
  SearchOutcome outcome = SearchOutcome::kNothingAsked;
  /// The name of the found record.
  std::string name;
};

class ScaleSearch {
 public:
  ScaleSearch(ScaleSource& source, SearchWatcher& watcher, core::MsgBox& msgBox)
      : source_(source), watcher_(watcher), msgBox_(msgBox) {}

  /// Searches for `text` (UTF-8, trimmed) from the record after the current one. Reports a wrap to the watcher. Without
  /// a match the current record does not change.
  SearchResult Search(std::string_view text);

  /// Searches for the untrimmed text: from the first record if it differs from `tag`, which then stores it, otherwise
  /// from the record after the current one. Without a match the start record becomes the current one.
  SearchResult FindNext(std::string_view SearchText, std::string& tag);

 private:
  class NamePattern;
  enum class OnWrap { kShowMessage, kNoMessage };

  [[nodiscard]] std::unique_ptr<ScaleCursor> OpenRows();
  /// Moves to the record after the current one, wrapped; to the first if no record is current or it was deleted.
  void MoveAfterCurrent(ScaleCursor& rows);
  SearchResult FindFrom(ScaleCursor& rows, NamePattern& pattern, OnWrap onWrap);
  SearchResult TestRecords(ScaleCursor& rows, NamePattern& pattern, OnWrap onWrap);

  ScaleSource& source_;
  SearchWatcher& watcher_;
  core::MsgBox& msgBox_;
};

}  // namespace tonalith::search

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A record set in memory, numbered from 1, with a log of the tested names ("A?") and of the records made current
// ("=A"). Records may be removed during a search. It must outlive its cursors.

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include "search/scale_search.h"

namespace tonalith::search {

class FakeScales : public ScaleSource {
 public:
  FakeScales() = default;
  /// The names, separated by commas; the first record is current.
  explicit FakeScales(const std::string& names) {
    std::istringstream stream(names);
    for (std::string name; std::getline(stream, name, ',');) rows_[std::ssize(rows_) + 1] = name;
    if (!rows_.empty()) current_ = 1;
  }

  std::unique_ptr<ScaleCursor> Clone() override;
  std::optional<data::Bookmark> Current() override {
    if (!current_) return {};
    return data::Bookmark{*current_};
  }
  bool MakeCurrent(data::Bookmark bookmark) override {
    if (!rows_.contains(bookmark.key)) return false;
    current_ = bookmark.key;
    log_ += "=" + *rows_[bookmark.key] + " ";
    return true;
  }

  /// The log since the last call.
  std::string TakeLog() { return std::exchange(log_, {}); }

  std::map<std::int64_t, std::optional<std::string>> rows_;
  std::optional<std::int64_t> current_;
  bool isOpen_ = true;
  std::function<void()> onTest_ = [] {};
  std::string log_;
};

class FakeCursor : public ScaleCursor {
 public:
  explicit FakeCursor(FakeScales& scales) : scales_(scales) { FakeCursor::MoveFirst(); }

  void MoveFirst() override { Take(scales_.rows_.begin()); }
  void MoveNext() override { Take(scales_.rows_.upper_bound(key_.value())); }
  [[nodiscard]] bool IsEof() const override { return !key_; }
  [[nodiscard]] data::Bookmark GetBookmark() const override { return {key_.value()}; }
  bool MoveTo(data::Bookmark bookmark) override {
    if (!scales_.rows_.contains(bookmark.key)) return false;
    key_ = bookmark.key;
    name_ = scales_.rows_[bookmark.key];
    return true;
  }
  [[nodiscard]] std::optional<std::string_view> ScaleName() override {
    scales_.log_ += name_.value_or("(null)") + "? ";
    scales_.onTest_();
    return name_;
  }

 private:
  void Take(std::map<std::int64_t, std::optional<std::string>>::const_iterator row) {
    key_.reset();
    if (row == scales_.rows_.end()) return;
    key_ = row->first;
    name_ = row->second;
  }

  FakeScales& scales_;
  std::optional<std::int64_t> key_;
  std::optional<std::string> name_;
};

inline std::unique_ptr<ScaleCursor> FakeScales::Clone() {
  return isOpen_ ? std::make_unique<FakeCursor>(*this) : nullptr;
}

}  // namespace tonalith::search

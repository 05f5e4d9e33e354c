// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/row_source.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <utility>

#include "data/engine.h"
#include "data/schema.h"
#include "data/sql_dialect.h"

namespace tonalith::data {
namespace {

constexpr std::int64_t kFirstBlock = 32;
constexpr std::int64_t kLargestBlock = 128;
constexpr std::int64_t kLowestKey = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighestKey = std::numeric_limits<std::int64_t>::max();

RowPointer ReadRow(SQLite::Statement& statement) {
  auto row = std::make_shared<Row>();
  row->key = statement.getColumn(0).getInt64();
  const int columns = statement.getColumnCount();
  row->values.reserve(static_cast<std::size_t>(columns) - 1);
  for (int i = 1; i < columns; ++i) row->values.push_back(ReadColumn(statement, i));
  return row;
}

std::vector<RowPointer> ReadRows(Engine& engine, const std::string& sql, std::span<const Value> bindings) {
  std::vector<RowPointer> rows;
  engine.Query(sql, bindings, [&](SQLite::Statement& statement) { rows.push_back(ReadRow(statement)); });
  return rows;
}

bool IsLess(const RowPointer& row, std::int64_t key) { return row->key < key; }
bool IsGreater(std::int64_t key, const RowPointer& row) { return key < row->key; }

// Ends in the key, ready for a comparison.
std::string FromWhere(const Selection::Walk& walk, const std::string& filter) {
  std::string text = " FROM " + walk.source + " WHERE ";
  if (!walk.condition.empty()) text += "(" + walk.condition + ") AND ";
  if (!filter.empty()) text += "(" + filter + ") AND ";
  return text + walk.key;
}

// Holds one contiguous run of the rows. A run that is walked on at its end grows from block to block, so that walking
// through everything asks seldom and looking at one row reads little.
class KeyedRows : public RowSource {
 public:
  KeyedRows(Engine& engine, const Selection::Walk& walk, const std::string& filter)
      : engine_(engine),
        upwards_(UpwardsStatement(walk, filter)),
        downwards_(DownwardsStatement(walk, filter)),
        countUpTo_("SELECT count(*)" + FromWhere(walk, filter) + " <= ?") {}

  RowPointer First() override {
    if (!reachesFirst_) FetchUpwards(kLowestKey, kFirstBlock);
    return rows_.empty() ? nullptr : rows_.front();
  }

  RowPointer Last() override {
    if (!reachesLast_) FetchDownwards(kHighestKey, kFirstBlock);
    return rows_.empty() ? nullptr : rows_.back();
  }

  RowPointer After(std::int64_t key) override {
    if (key == kHighestKey) return nullptr;
    const bool isHeld = reachesFirst_ || (!rows_.empty() && rows_.front()->key <= key);
    if (isHeld) {
      const auto next = std::upper_bound(rows_.begin(), rows_.end(), key, IsGreater);
      if (next != rows_.end()) return *next;
      if (reachesLast_) return nullptr;
    }
    FetchUpwards(key + 1, isHeld ? std::min(block_ * 2, kLargestBlock) : kFirstBlock);
    return rows_.empty() ? nullptr : rows_.front();
  }

  RowPointer Before(std::int64_t key) override {
    if (key == kLowestKey) return nullptr;
    const bool isHeld = reachesLast_ || (!rows_.empty() && rows_.back()->key >= key);
    if (isHeld) {
      const auto next = std::lower_bound(rows_.begin(), rows_.end(), key, IsLess);
      if (next != rows_.begin()) return *(next - 1);
      if (reachesFirst_) return nullptr;
    }
    FetchDownwards(key - 1, isHeld ? std::min(block_ * 2, kLargestBlock) : kFirstBlock);
    return rows_.empty() ? nullptr : rows_.back();
  }

  RowPointer At(std::int64_t key) override {
    FetchUpwards(key, kFirstBlock);
    return rows_.empty() || rows_.front()->key != key ? nullptr : rows_.front();
  }

  std::int64_t Count() override { return CountUpTo(kHighestKey); }

  std::int64_t CountUpTo(std::int64_t key) override {
    std::int64_t count = 0;
    const Value limit = key;
    engine_.Query(countUpTo_, {&limit, 1}, [&](SQLite::Statement& row) { count = row.getColumn(0).getInt64(); });
    return count;
  }

  void Forget() override {
    rows_.clear();
    reachesFirst_ = false;
    reachesLast_ = false;
  }

 private:
  void FetchUpwards(std::int64_t from, std::int64_t block) {
    const std::array<Value, 2> bindings = {from, block};
    rows_ = ReadRows(engine_, upwards_, bindings);
    block_ = block;
    reachesFirst_ = from == kLowestKey;
    reachesLast_ = std::ssize(rows_) < block;
  }

  void FetchDownwards(std::int64_t from, std::int64_t block) {
    const std::array<Value, 2> bindings = {from, block};
    rows_ = ReadRows(engine_, downwards_, bindings);
    std::reverse(rows_.begin(), rows_.end());
    block_ = block;
    reachesFirst_ = std::ssize(rows_) < block;
    reachesLast_ = from == kHighestKey;
  }

  Engine& engine_;
  std::string upwards_;
  std::string downwards_;
  std::string countUpTo_;
  std::vector<RowPointer> rows_;
  std::int64_t block_ = kFirstBlock;
  bool reachesFirst_ = false;
  bool reachesLast_ = false;
};

class SnapshotRows : public RowSource {
 public:
  SnapshotRows(Engine& engine, const Selection& selection, const std::string& filter) : engine_(engine) {
    // Numbered below the filter, so that a row keeps its key whatever the filter is.
    sql_ = "SELECT row_number() OVER () AS [place in the statement], * FROM (" + selection.sql + ")";
    if (!filter.empty()) sql_ = "SELECT * FROM (" + sql_ + ") WHERE " + filter;
  }

  RowPointer First() override { return Load().empty() ? nullptr : rows_.front(); }
  RowPointer Last() override { return Load().empty() ? nullptr : rows_.back(); }

  RowPointer After(std::int64_t key) override {
    const auto next = std::upper_bound(Load().begin(), Load().end(), key, IsGreater);
    return next == rows_.end() ? nullptr : *next;
  }

  RowPointer Before(std::int64_t key) override {
    const auto next = std::lower_bound(Load().begin(), Load().end(), key, IsLess);
    return next == rows_.begin() ? nullptr : *(next - 1);
  }

  RowPointer At(std::int64_t key) override {
    const auto found = std::lower_bound(Load().begin(), Load().end(), key, IsLess);
    return found == rows_.end() || (*found)->key != key ? nullptr : *found;
  }

  std::int64_t Count() override { return std::ssize(Load()); }

  std::int64_t CountUpTo(std::int64_t key) override {
    return std::upper_bound(Load().begin(), Load().end(), key, IsGreater) - rows_.begin();
  }

  void Forget() override {
    rows_.clear();
    isLoaded_ = false;
  }

 private:
  std::vector<RowPointer>& Load() {
    if (!isLoaded_) rows_ = ReadRows(engine_, sql_, {});
    isLoaded_ = true;
    return rows_;
  }

  Engine& engine_;
  std::string sql_;
  std::vector<RowPointer> rows_;
  bool isLoaded_ = false;
};

std::optional<Selection::Walk> WalkOf(Engine& engine, const SelectStatement::Parts& parts) {
  Selection::Walk walk{parts.columns, QuoteName(parts.source), {}, parts.condition, false};
  const char* key = StoredQueryKey(parts.source);
  if (key != nullptr) {
    // Only in a file of ours is the key of a stored query known to be one.
    if (!engine.IsScaleDatabase()) return {};
    walk.key = QuoteName(key);
    return walk;
  }
  if (!engine.IsNumberedTable(parts.source)) return {};
  walk.key = kRowNumber;
  walk.keyIsRowNumber = true;
  return walk;
}

}  // namespace

std::string UpwardsStatement(const Selection::Walk& walk, const std::string& filter) {
  return "SELECT " + walk.key + ", " + walk.columns + FromWhere(walk, filter) + " >= ? ORDER BY " + walk.key +
         " LIMIT ?";
}

std::string DownwardsStatement(const Selection::Walk& walk, const std::string& filter) {
  return "SELECT " + walk.key + ", " + walk.columns + FromWhere(walk, filter) + " <= ? ORDER BY " + walk.key +
         " DESC LIMIT ?";
}

std::shared_ptr<const Selection> MakeSelection(Engine& engine, const std::string& source) {
  SelectStatement statement = TranslateSelect(source);
  auto selection = std::make_shared<Selection>();
  if (statement.parts) selection->walk = WalkOf(engine, *statement.parts);
  if (selection->walk) {
    selection->fields = engine.ColumnNames(UpwardsStatement(*selection->walk, {}));
    selection->fields.erase(selection->fields.begin());
  } else {
    selection->fields = engine.ColumnNames(statement.sql);
  }
  selection->sql = std::move(statement.sql);
  return selection;
}

std::unique_ptr<RowSource> MakeRowSource(Engine& engine, const Selection& selection, const std::string& filter) {
  if (selection.walk) return std::make_unique<KeyedRows>(engine, *selection.walk, filter);
  return std::make_unique<SnapshotRows>(engine, selection, filter);
}

}  // namespace tonalith::data

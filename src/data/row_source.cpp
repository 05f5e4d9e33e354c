// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/row_source.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <span>
#include <utility>

#include "data/data_failure.h"
#include "data/engine.h"
#include "data/schema.h"
#include "data/sql_dialect.h"

namespace tonalith::data {
namespace {

// kFirstBlock in rows; the largest block is limited by its number of fields.
constexpr std::int64_t kFirstBlock = 32;
constexpr std::int64_t kLargestBlockFields = 1280;
constexpr std::int64_t kLowestKey = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighestKey = std::numeric_limits<std::int64_t>::max();
constexpr const char* kKeyOfRow = "[key of the row]";

using Rows = std::vector<std::shared_ptr<Row>>;

std::int64_t LargestBlock(const Selection& selection) {
  return std::max(kFirstBlock, kLargestBlockFields / std::max<std::int64_t>(std::ssize(selection.fields), 1));
}

// Reuses rows without other owners, so that an iteration does not allocate new ones.
class SpareRows {
 public:
  explicit SpareRows(Rows rows) : rows_(std::move(rows)) {}

  std::shared_ptr<Row> Take() {
    while (!rows_.empty()) {
      std::shared_ptr<Row> row = std::move(rows_.back());
      rows_.pop_back();
      if (row.use_count() == 1) return row;
    }
    return std::make_shared<Row>();
  }

 private:
  Rows rows_;
};

// Limits the size of a field for the current scope; a longer field throws.
class FieldLimit {
 public:
  FieldLimit(Engine& engine, int bytes) : engine_(engine), before_(engine.SetLongestField(bytes)) {}
  ~FieldLimit() { engine_.SetLongestField(before_); }
  FieldLimit(const FieldLimit&) = delete;
  FieldLimit& operator=(const FieldLimit&) = delete;

 private:
  Engine& engine_;
  int before_;
};

std::vector<SQLite::Column> ColumnsOf(SQLite::Statement& statement) {
  std::vector<SQLite::Column> columns;
  const int count = statement.getColumnCount();
  columns.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) columns.push_back(statement.getColumn(i));
  return columns;
}

Rows ReadRows(Engine& engine, const std::string& sql, std::span<const core::Value> bindings, Rows spare) {
  SpareRows spares(std::move(spare));
  Rows rows;
  // A Column reads the current row of its statement, so one object for each column is enough.
  std::vector<SQLite::Column> columns;
  engine.Query(sql, bindings, [&](SQLite::Statement& statement) {
    if (columns.empty()) columns = ColumnsOf(statement);
    std::shared_ptr<Row> row = spares.Take();
    row->key = columns.front().getInt64();
    row->values.resize(columns.size() - 1);
    for (std::size_t i = 1; i < columns.size(); ++i) ReadColumn(columns[i], row->values[i - 1]);
    rows.push_back(std::move(row));
  });
  return rows;
}

bool IsLess(const RowPointer& row, std::int64_t key) { return row->key < key; }
bool IsGreater(std::int64_t key, const RowPointer& row) { return key < row->key; }

// Ends with the key; the caller appends a comparison.
std::string FromWhere(const Selection::Walk& walk, const std::string& filter) {
  std::string text = " FROM " + walk.source + " WHERE ";
  if (!walk.condition.empty()) text += "(" + walk.condition + ") AND ";
  if (!filter.empty()) text += "(" + filter + ") AND ";
  return text + walk.key;
}

// The fields of a selection, in a form, from the result of `statement`, whose key column is kKeyOfRow.
std::string Narrowed(const Selection& selection, FieldForm form, const std::string& statement) {
  std::string columns = kKeyOfRow;
  for (const std::string& field : selection.fields) columns += ", " + InForm(form, QuoteName(field));
  return "SELECT " + columns + " FROM (" + statement + ")";
}

std::string BlockStatement(const Selection& selection, const std::string& filter, FieldForm form,
                           const std::string& comparison, const std::string& order) {
  const Selection::Walk& walk = *selection.walk;
  const std::string rows = ", " + walk.columns + FromWhere(walk, filter) + comparison;
  const std::string limit = order + " LIMIT ?";
  const bool isPlain = !selection.isNarrow && form == FieldForm::kWhole;
  if (isPlain) return "SELECT " + walk.key + rows + " ORDER BY " + walk.key + limit;
  return Narrowed(selection, form, "SELECT " + walk.key + " AS " + kKeyOfRow + rows) + " ORDER BY " + kKeyOfRow + limit;
}

// Caches one contiguous block of rows. Blocks grow while an iteration continues at their end, so that an iteration
// needs few queries and a single row reads little.
class KeyedRows : public RowSource {
 public:
  KeyedRows(Engine& engine, const Selection& selection, const std::string& filter)
      : engine_(engine),
        selection_(selection),
        filter_(filter),
        upwards_{UpwardsStatement, UpwardsStatement(selection, filter, FieldForm::kWhole)},
        downwards_{DownwardsStatement, DownwardsStatement(selection, filter, FieldForm::kWhole)},
        countUpTo_("SELECT count(*)" + FromWhere(*selection.walk, filter) + " <= ?"),
        largestBlock_(LargestBlock(selection)) {}

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
    const bool isCached = reachesFirst_ || (!rows_.empty() && rows_.front()->key <= key);
    if (isCached) {
      here_ = IndexAfter(key);
      if (here_ < rows_.size()) return rows_[here_];
      if (reachesLast_) return nullptr;
    }
    FetchUpwards(key + 1, isCached ? std::min(block_ * 2, largestBlock_) : kFirstBlock);
    return rows_.empty() ? nullptr : rows_.front();
  }

  RowPointer Before(std::int64_t key) override {
    if (key == kLowestKey) return nullptr;
    const bool isCached = reachesLast_ || (!rows_.empty() && rows_.back()->key >= key);
    if (isCached) {
      const auto next = std::lower_bound(rows_.begin(), rows_.end(), key, IsLess);
      if (next != rows_.begin()) return *(next - 1);
      if (reachesFirst_) return nullptr;
    }
    FetchDownwards(key - 1, isCached ? std::min(block_ * 2, largestBlock_) : kFirstBlock);
    return rows_.empty() ? nullptr : rows_.back();
  }

  RowPointer At(std::int64_t key) override {
    FetchUpwards(key, kFirstBlock);
    return rows_.empty() || rows_.front()->key != key ? nullptr : rows_.front();
  }

  std::int64_t Count() override { return CountUpTo(kHighestKey); }

  std::int64_t CountUpTo(std::int64_t key) override {
    std::int64_t count = 0;
    const core::Value limit = key;
    engine_.Query(countUpTo_, {&limit, 1}, [&](SQLite::Statement& row) { count = row.getColumn(0).getInt64(); });
    return count;
  }

  void DropCache() override {
    rows_.clear();
    reachesFirst_ = false;
    reachesLast_ = false;
  }

 private:
  // Usually the row after the one that was returned last.
  [[nodiscard]] std::size_t IndexAfter(std::int64_t key) const {
    if (here_ < rows_.size() && rows_[here_]->key == key) return here_ + 1;
    return static_cast<std::size_t>(std::upper_bound(rows_.begin(), rows_.end(), key, IsGreater) - rows_.begin());
  }

  struct Direction {
    std::string (*make)(const Selection&, const std::string&, FieldForm);
    std::string wholeFields;
  };

  // Returns the number of requested rows, which is 1 instead of `block` if a row is too long.
  std::int64_t Fetch(const Direction& direction, std::int64_t from, std::int64_t block) {
    Rows before = std::move(rows_);
    DropCache();
    try {
      const std::array<core::Value, 2> bindings = {from, block};
      const FieldLimit limit(engine_, kLongestFieldInBlock);
      rows_ = ReadRows(engine_, direction.wholeFields, bindings, std::move(before));
    } catch (const FieldTooLong&) {
      block = 1;
      rows_ = ReadLongRow(direction, from);
    }
    block_ = block;
    here_ = 0;
    return block;
  }

  Rows ReadLongRow(const Direction& direction, std::int64_t from) {
    const std::array<core::Value, 2> bindings = {from, std::int64_t{1}};
    try {
      const FieldLimit limit(engine_, kLongestWholeField);
      return ReadRows(engine_, direction.wholeFields, bindings, {});
    } catch (const FieldTooLong&) {
      return ReadCutRow(direction, bindings);
    }
  }

  Rows ReadCutRow(const Direction& direction, std::span<const core::Value> bindings) {
    try {
      return ReadRows(engine_, direction.make(selection_, filter_, FieldForm::kCut), bindings, {});
    } catch (const FieldTooLong&) {
      return ReadRows(engine_, direction.make(selection_, filter_, FieldForm::kLeftOut), bindings, {});
    }
  }

  // In a damaged file the rows after a key may be rows before it, and an iteration would never end.
  template <class IsBeyond>
  void RequireOrder(std::int64_t from, IsBeyond isBeyond) const {
    const auto isOutOfOrder = [&](const RowPointer& row, const RowPointer& next) {
      return !isBeyond(next->key, row->key);
    };
    const bool isRight = (rows_.empty() || rows_.front()->key == from || isBeyond(rows_.front()->key, from)) &&
                         std::adjacent_find(rows_.begin(), rows_.end(), isOutOfOrder) == rows_.end();
    if (!isRight) throw core::Failure::UnrecognizedFormat(engine_.Path());
  }

  // An empty block does not show whether there are rows on the other side of the key.
  void FetchUpwards(std::int64_t from, std::int64_t block) {
    const std::int64_t wanted = Fetch(upwards_, from, block);
    RequireOrder(from, std::greater<>());
    reachesFirst_ = from == kLowestKey;
    reachesLast_ = !rows_.empty() && std::ssize(rows_) < wanted;
  }

  void FetchDownwards(std::int64_t from, std::int64_t block) {
    const std::int64_t wanted = Fetch(downwards_, from, block);
    RequireOrder(from, std::less<>());
    std::reverse(rows_.begin(), rows_.end());
    reachesFirst_ = !rows_.empty() && std::ssize(rows_) < wanted;
    reachesLast_ = from == kHighestKey;
  }

  Engine& engine_;
  const Selection& selection_;
  std::string filter_;
  Direction upwards_;
  Direction downwards_;
  std::string countUpTo_;
  std::int64_t largestBlock_;
  Rows rows_;
  std::int64_t block_ = kFirstBlock;
  std::size_t here_ = 0;
  bool reachesFirst_ = false;
  bool reachesLast_ = false;
};

class SnapshotRows : public RowSource {
 public:
  SnapshotRows(Engine& engine, const Selection& selection, const std::string& filter)
      : engine_(engine), selection_(selection), filter_(filter) {}

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

  void DropCache() override {
    rows_.clear();
    isLoaded_ = false;
  }

 private:
  Rows& Load() {
    if (!isLoaded_) rows_ = Read(FieldForm::kWhole);
    isLoaded_ = true;
    return rows_;
  }

  Rows Read(FieldForm form) {
    try {
      std::optional<FieldLimit> limit;
      if (form == FieldForm::kWhole) limit.emplace(engine_, kLongestFieldInBlock);
      return ReadRows(engine_, Statement(form), {}, {});
    } catch (const FieldTooLong&) {
      if (form == FieldForm::kLeftOut) throw;
      return Read(form == FieldForm::kWhole ? FieldForm::kCut : FieldForm::kLeftOut);
    }
  }

  [[nodiscard]] std::string Statement(FieldForm form) const {
    std::string columns = ", *";
    if (form != FieldForm::kWhole) {
      columns.clear();
      for (const std::string& field : selection_.fields) {
        columns += ", " + InForm(form, QuoteName(field)) + " AS " + QuoteName(field);
      }
    }
    // Numbered before the filter applies, so that a row has the same key with any filter.
    std::string sql =
        std::string("SELECT row_number() OVER () AS ") + kKeyOfRow + columns + " FROM (" + selection_.sql + ")";
    if (!filter_.empty()) sql = "SELECT * FROM (" + sql + ") WHERE " + filter_;
    return selection_.isNarrow ? Narrowed(selection_, FieldForm::kWhole, sql) : sql;
  }

  Engine& engine_;
  const Selection& selection_;
  std::string filter_;
  Rows rows_;
  bool isLoaded_ = false;
};

std::optional<Selection::Walk> WalkOf(Engine& engine, const SelectStatement::Parts& parts) {
  Selection::Walk walk{parts.columns, QuoteName(parts.source), {}, parts.condition, false};
  const char* key = StoredQueryKey(parts.source);
  if (key != nullptr) {
    // Only in a scale database of Tonalith is the key of a stored query known to be unique.
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

std::string UpwardsStatement(const Selection& selection, const std::string& filter, FieldForm form) {
  return BlockStatement(selection, filter, form, " >= ?", "");
}

std::string DownwardsStatement(const Selection& selection, const std::string& filter, FieldForm form) {
  return BlockStatement(selection, filter, form, " <= ?", " DESC");
}

std::shared_ptr<const Selection> MakeSelection(Engine& engine, const std::string& source) {
  SelectStatement statement = TranslateSelect(source);
  auto selection = std::make_shared<Selection>();
  if (statement.parts) selection->walk = WalkOf(engine, *statement.parts);
  if (selection->walk) {
    selection->fields = engine.ColumnNames(UpwardsStatement(*selection, {}));
    selection->fields.erase(selection->fields.begin());
  } else {
    selection->fields = engine.ColumnNames(statement.sql);
  }
  selection->sql = std::move(statement.sql);
  return selection;
}

std::unique_ptr<RowSource> MakeRowSource(Engine& engine, const Selection& selection, const std::string& filter) {
  if (selection.walk) return std::make_unique<KeyedRows>(engine, selection, filter);
  return std::make_unique<SnapshotRows>(engine, selection, filter);
}

}  // namespace tonalith::data

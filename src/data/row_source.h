// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rows of a record set, ordered by key. Two kinds: rows read by key, with one block in the cache, and the rows of
// an arbitrary SELECT, read completely, with their row number as the key. Owned by its record set; engine and selection
// must outlive it. Throws like the engine. Private to this room.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/value.h"
#include "data/long_fields.h"

namespace tonalith::data {

class Engine;

struct Row {
  std::int64_t key = 0;
  std::vector<core::Value> values;
};
using RowPointer = std::shared_ptr<const Row>;

/// The properties of an open source; shared by the clones of a record set.
struct Selection {
  /// Set if the rows are read by key and can be changed. Names are quoted.
  struct Walk {
    std::string columns;
    std::string source;
    std::string key;
    std::string condition;
    bool keyIsRowNumber = false;
  };

  std::string sql;
  std::optional<Walk> walk;
  std::vector<std::string> fields;
  /// Whether `fields` are only some of the fields of the source.
  bool isNarrow = false;
};

std::shared_ptr<const Selection> MakeSelection(Engine& engine, const std::string& source);

/// Statements that read a block of rows from a key upwards or downwards. Parameters: the key and the number of rows.
/// The first result column is the key. `selection` has a walk.
std::string UpwardsStatement(const Selection& selection, const std::string& filter, FieldForm form = FieldForm::kWhole);
std::string DownwardsStatement(const Selection& selection, const std::string& filter,
                               FieldForm form = FieldForm::kWhole);

class RowSource {
 public:
  RowSource() = default;
  virtual ~RowSource() = default;
  RowSource(const RowSource&) = delete;
  RowSource& operator=(const RowSource&) = delete;

  /// Each returns nullptr if there is no such row. Except for At, `key` need not be the key of a row.
  virtual RowPointer First() = 0;
  virtual RowPointer Last() = 0;
  virtual RowPointer After(std::int64_t key) = 0;
  virtual RowPointer Before(std::int64_t key) = 0;
  /// With a walk by key this queries the database again, so that a row deleted by another connection is not found.
  virtual RowPointer At(std::int64_t key) = 0;

  virtual std::int64_t Count() = 0;
  /// The number of rows up to and including `key`.
  virtual std::int64_t CountUpTo(std::int64_t key) = 0;
  /// Drops the cached rows.
  virtual void DropCache() = 0;
};

/// `filter` is an SQL condition of the engine, empty for none.
std::unique_ptr<RowSource> MakeRowSource(Engine& engine, const Selection& selection, const std::string& filter);

}  // namespace tonalith::data

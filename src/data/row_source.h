// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where a record set gets its rows from, ordered by key. Two kinds: rows walked by key, of which one block is held at a
// time, and the rows of an arbitrary SELECT, read whole, with their place in it as the key. Private to the data room;
// owned by its record set; uses an engine and a selection that must outlive it. Fails as the engine does.

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

/// What is known about the source of a record set once it is open; shared by its clones.
struct Selection {
  /// Set when the rows are walked by key, and can be changed. Names are quoted.
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
  /// Whether `fields` are only some of what the source gives.
  bool isNarrow = false;
};

std::shared_ptr<const Selection> MakeSelection(Engine& engine, const std::string& source);

/// The statements that fetch a block of rows from a key on, upwards or downwards; both take the key and the number of
/// rows, and give the key in front of the fields. `selection` is one that is walked by key.
std::string UpwardsStatement(const Selection& selection, const std::string& filter, FieldForm form = FieldForm::kWhole);
std::string DownwardsStatement(const Selection& selection, const std::string& filter,
                               FieldForm form = FieldForm::kWhole);

class RowSource {
 public:
  RowSource() = default;
  virtual ~RowSource() = default;
  RowSource(const RowSource&) = delete;
  RowSource& operator=(const RowSource&) = delete;

  /// Each gives nullptr where there is no such row. `key` need not be the key of a row, except for At.
  virtual RowPointer First() = 0;
  virtual RowPointer Last() = 0;
  virtual RowPointer After(std::int64_t key) = 0;
  virtual RowPointer Before(std::int64_t key) = 0;
  /// Rows that are walked by key are asked for anew, so that one deleted elsewhere is not found.
  virtual RowPointer At(std::int64_t key) = 0;

  virtual std::int64_t Count() = 0;
  /// The number of rows up to and including `key`.
  virtual std::int64_t CountUpTo(std::int64_t key) = 0;
  /// Lets go of what is held, so that the next question goes to the database.
  virtual void Forget() = 0;
};

/// `filter` is a condition in the engine's dialect, empty for none.
std::unique_ptr<RowSource> MakeRowSource(Engine& engine, const Selection& selection, const std::string& filter);

}  // namespace tonalith::data

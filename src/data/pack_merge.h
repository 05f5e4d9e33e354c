// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Merges one data pack into the main database, with its own connections to both. Use it for one pack, once. If Run
// throws, call Rollback; call Close in any case. Private to this room.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/connection.h"
#include "data/pack_check.h"
#include "data/record_set.h"

namespace tonalith::data {

class ScaleNames;

class PackMerge {
 public:
  using OnRows = std::function<void(std::int64_t rows)>;

  /// `onRead` is called with the number of rows read so far while a Jet file is read, `onRow` after each merged row of
  /// the pack with its number, from 1. An exception from either ends the run.
  PackMerge(std::string path, OnRows onRead, OnRows onRow);

  void Run();
  void Rollback();
  /// The number of scales that a complete run has added.
  [[nodiscard]] std::int64_t AddedScales() const { return addedScales_; }

 private:
  /// How the rows of a table are identified and named.
  struct TableRules {
    std::string table;
    /// The key field for the lookup in the main table, and the conversion of its content to the key.
    std::string key;
    std::function<void(const core::Value& field, core::Value& key)> keyOfField;
    /// The field that is not copied: the number of a type is its key, a scale gets a new number.
    std::string ownNumber;
    /// The field that messages use as the name of a row.
    std::string name;
  };

  std::int64_t MergeTable(const TableRules& rules, PackSizeLimit& limit);
  [[nodiscard]] std::vector<std::string> CopiedFields(const TableRules& rules) const;
  /// `names`: only if the key is the name of a scale.
  bool MainHas(const std::string& statement, const core::Value& key, ScaleNames* names);

  std::string path_;
  OnRows onRead_;
  OnRows onRow_;
  std::int64_t rows_ = 0;
  std::int64_t addedScales_ = 0;
  // Closed in the reverse order.
  std::shared_ptr<Connection> main_ = std::make_shared<Connection>();
  std::shared_ptr<Connection> pack_ = std::make_shared<Connection>();
  std::unique_ptr<RecordSet> mainRecords_ = std::make_unique<RecordSet>();
};

}  // namespace tonalith::data

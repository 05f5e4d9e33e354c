// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One data pack on its way into the main database, with all that is open for it: a connection to each, and the record
// sets of the table that is being merged. Private to the data room; made for one pack, used once; one thread. Fails by
// throwing core::Failure; Rollback then takes back what was done, and Close ends what is open.

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

  /// `onRead` is called while a Jet file is read, with the rows read so far, and `onRow` after each row of the pack
  /// that is merged, counted from 1. What they throw ends the run.
  PackMerge(std::string path, OnRows onRead, OnRows onRow);

  void Run();
  void Rollback();
  /// The record set first, then the pack, then the main database, whatever state they are in. Throws nothing.
  void Close();
  /// The scales that a run which came to its end has added.
  [[nodiscard]] std::int64_t AddedScales() const { return addedScales_; }

 private:
  /// How the rows of a table are known and named.
  struct TableRules {
    std::string table;
    /// The field by which the main table is asked for a row, and what it is asked for.
    std::string key;
    std::function<void(const core::Value& field, core::Value& key)> keyOfField;
    /// The field that is not copied: a type's number is its key, a scale gets a number of the main database.
    std::string ownNumber;
    /// The field by which messages call a row.
    std::string name;
  };

  std::int64_t MergeTable(const TableRules& rules, PackBudget& budget);
  [[nodiscard]] std::vector<std::string> CopiedFields(const TableRules& rules) const;
  /// `names` where the key is a scale's name.
  bool MainHas(const std::string& statement, const core::Value& key, ScaleNames* names);

  std::string path_;
  OnRows onRead_;
  OnRows onRow_;
  std::int64_t rows_ = 0;
  std::int64_t addedScales_ = 0;
  std::shared_ptr<Connection> main_ = std::make_shared<Connection>();
  std::shared_ptr<Connection> pack_ = std::make_shared<Connection>();
  std::unique_ptr<RecordSet> mainRecords_ = std::make_unique<RecordSet>();
};

}  // namespace tonalith::data

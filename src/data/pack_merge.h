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
#include "data/record_set.h"

namespace tonalith::data {

class PackMerge {
 public:
  /// `onRow` hears of each row of the pack that is done, counted from 1.
  PackMerge(std::string path, std::function<void(std::int64_t)> onRow);

  /// The fields that are copied, by their number in the pack and their name in the main table.
  struct CopiedField {
    int from;
    std::string to;
  };

  void Run();
  void Rollback();
  /// The record sets first, then the pack, then the main database, whatever state they are in. Throws nothing.
  void Close();

 private:
  /// Makes `key` what the main table is asked for, out of the pack's field.
  using KeyOfField = std::function<void(const Value& field, Value& key)>;

  void MergeTable(const std::string& table, const std::string& mainKey, const std::string& ownNumber,
                  const KeyOfField& keyOfField);
  void OpenRecords(const std::string& table);
  [[nodiscard]] std::vector<CopiedField> CopiedFields(std::string_view ownNumber) const;
  bool MainHas(const std::string& statement, const Value& key);

  std::string path_;
  std::function<void(std::int64_t)> onRow_;
  std::int64_t rows_ = 0;
  std::shared_ptr<Connection> main_ = std::make_shared<Connection>();
  std::shared_ptr<Connection> pack_ = std::make_shared<Connection>();
  std::unique_ptr<RecordSet> packRecords_ = std::make_unique<RecordSet>();
  std::unique_ptr<RecordSet> mainRecords_ = std::make_unique<RecordSet>();
};

}  // namespace tonalith::data

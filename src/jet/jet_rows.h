// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rows of one table of a Jet file that libmdb has open: all rows that are not deleted, in page order, with decoded
// fields. Throws if the row count of the table does not match. Used only in the child process.

#pragma once

// Included first, because libmdb includes this header inside extern "C", where C++ templates are not allowed.
#include <glib.h>
#include <mdbtools.h>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "core/failure.h"
#include "jet/jet_file.h"

namespace tonalith::jet {

class JetRows {
 public:
  /// The table whose definition begins on page `page` of the file.
  JetRows(MdbHandle* handle, const std::string& name, unsigned long page);

  [[nodiscard]] const JetTable& Table() const { return table_; }
  void ForEach(const std::function<void(std::vector<core::Value>)>& onRow);

 private:
  struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
  };

  [[nodiscard]] MdbColumn* Column(std::size_t index) const;
  [[nodiscard]] core::Failure Damaged(const core::Message& what) const;
  void ReadPage(const std::function<void(std::vector<core::Value>)>& onRow);
  [[nodiscard]] std::vector<core::Value> ReadRow(int start, std::size_t size);
  [[nodiscard]] core::Value ReadField(const MdbColumn& column, const MdbField& field);
  [[nodiscard]] core::Value ReadNumber(const MdbColumn& column, int start);
  [[nodiscard]] core::Bytes ReadLong(std::span<const std::uint8_t> reference);
  void AppendLongRow(std::uint32_t address, bool isChained, core::Bytes& content, std::uint32_t& next);
  [[nodiscard]] std::string Text(std::span<const std::uint8_t> bytes) const;

  MdbHandle* handle_;
  MdbCatalogEntry entry_{};
  std::unique_ptr<MdbTableDef, FreeTable> definition_;
  JetTable table_;
  std::uint64_t rowsRead_ = 0;
};

}  // namespace tonalith::jet

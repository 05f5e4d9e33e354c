// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rows of one table of a Jet file that libmdb has open: every row that is not deleted, in the order of the file's
// pages, fields decoded. Throws where the table's own number of rows is not met. Private to the data room and to the
// process that reads; borrows the handle; one thread. Fails by throwing core::Failure whose description completes
// "the file cannot be read: ".

#pragma once

// libmdb's header includes this one where C++ may not stand, so it has to be there already.
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
  [[nodiscard]] core::Failure Damaged(const std::string& what) const;
  void ReadPage(const std::function<void(std::vector<core::Value>)>& onRow);
  [[nodiscard]] std::vector<core::Value> ReadRow(int start, std::size_t size);
  [[nodiscard]] core::Value ReadField(const MdbColumn& column, const MdbField& field);
  [[nodiscard]] core::Value ReadNumber(const MdbColumn& column, int start);
  [[nodiscard]] core::Bytes ReadLong(std::span<const std::uint8_t> reference);
  void AppendLongRow(std::uint32_t place, bool isChained, core::Bytes& content, std::uint32_t& next);
  [[nodiscard]] std::string Text(std::span<const std::uint8_t> bytes) const;

  MdbHandle* handle_;
  MdbCatalogEntry entry_{};
  std::unique_ptr<MdbTableDef, FreeTable> definition_;
  JetTable table_;
  std::uint64_t rowsRead_ = 0;
};

}  // namespace tonalith::jet

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scale_types.h"

#include <memory>

#include "data/connection.h"
#include "data/record_set.h"

namespace tonalith::editor {
namespace {

std::unique_ptr<data::RecordSet> OpenRows(const std::string& connectionString, const std::string& statement) {
  auto connection = std::make_shared<data::Connection>();
  connection->Open(connectionString);
  auto rows = std::make_unique<data::RecordSet>();
  rows->Open(statement, connection);
  return rows;
}

}  // namespace

std::vector<ScaleType> ReadScaleTypes(const std::string& connectionString) {
  std::vector<ScaleType> types;
  const auto rows =
      OpenRows(connectionString, "SELECT ScaleTypeID, ScaleTypeName FROM ScaleTypes ORDER BY ScaleTypeNo, ScaleTypeID");
  for (; !rows->IsEof(); rows->MoveNext()) {
    types.push_back({rows->FieldValue(0).AsInt(), rows->FieldValue(1).TextOr({})});
  }
  return types;
}

std::int64_t NextSortNumber(const std::string& connectionString, std::int64_t scaleTypeId) {
  const auto rows = OpenRows(connectionString, "SELECT max(CAST(Sort AS INTEGER)) FROM Scales WHERE ScaleTypeID = " +
                                                   std::to_string(scaleTypeId));
  const core::Value highest = rows->FieldValue(0);
  return highest.IsNull() ? 1 : highest.AsInt() + 1;
}

}  // namespace tonalith::editor

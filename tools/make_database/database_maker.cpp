// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "make_database/database_maker.h"

#include <unistd.h>

#include <memory>
#include <string>
#include <system_error>

#include "data/connection.h"
#include "data/connection_string.h"
#include "data/formula_tables.h"
#include "data/record_set.h"
#include "data/scale_database.h"
#include "data/schema.h"
#include "data/shipped_rows.h"

namespace tonalith::make_database {
namespace {

using core::Value;
using data::CursorType;
using data::LockType;
using data::RecordSet;

// A temporary file, removed by the destructor unless it was renamed.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::filesystem::path path) : path_(std::move(path)) {}
  ~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    std::filesystem::remove(path_.string() + "-journal", ignored);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

std::shared_ptr<data::Connection> OpenFile(const std::filesystem::path& path) {
  data::ConnectionSettings settings;
  settings.provider = data::kProvider;
  settings.dataSource = path.string();
  auto connection = std::make_shared<data::Connection>();
  connection->Open(data::ExpandedConnectionString(settings));
  return connection;
}

template <class Step>
void AtLocation(const TableLocation& location, Step step) {
  try {
    step();
  } catch (const core::Failure& failure) {
    throw TableFailure(location, failure.Description());
  }
}

void AddTypes(const std::vector<ScaleTypeRow>& types, const std::shared_ptr<data::Connection>& connection) {
  RecordSet records;
  records.Open("ScaleTypes", connection, CursorType::kKeyset, LockType::kOptimistic);
  for (const ScaleTypeRow& type : types) {
    AtLocation(type.location, [&] {
      records.AddNew();
      records.SetFieldValue("ScaleTypeID", type.scaleTypeId);
      records.SetFieldValue("ScaleTypeNo", type.scaleTypeNo);
      records.SetFieldValue("ScaleTypeName", type.scaleTypeName);
      records.Update();
    });
  }
}

void AddScales(const std::vector<ScaleRow>& scales, const std::shared_ptr<data::Connection>& connection) {
  RecordSet records;
  records.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  for (const ScaleRow& scale : scales) {
    AtLocation(scale.location, [&] {
      records.AddNew();
      records.SetFieldValue("ScaleID", scale.scaleId);
      records.SetFieldValue("ScaleName", scale.scaleName);
      records.SetFieldValue("ScaleTypeID", scale.scaleTypeId);
      records.SetFieldValue("ScaleDescription", scale.scaleDescription);
      records.SetFieldValue("StartNote", scale.startNote);
      records.SetFieldValue("ScaleIntervals", scale.scaleIntervals);
      records.SetFieldValue("Chord", Value::YesNo(scale.isChord));
      records.SetFieldValue("Sort", scale.sort);
      records.Update();
    });
  }
}

}  // namespace

void MakeDatabase(const ScaleTables& tables, const std::filesystem::path& output) {
  const TemporaryFile file(output.string() + "." + std::to_string(::getpid()) + ".new");
  data::CreateScaleDatabase(file.Path());
  const std::shared_ptr<data::Connection> connection = OpenFile(file.Path());
  connection->BeginTrans();
  AddTypes(tables.types, connection);
  AddScales(tables.scales, connection);
  connection->CommitTrans();
  connection->Close();
  data::AddFormulasToFile(file.Path(), FormulaLines(tables.scales));
  // A new library contains the current rows already, so its first start writes nothing.
  if (output.filename() == data::kDatabaseFileName) data::RenewShippedRows(file.Path());
  std::filesystem::rename(file.Path(), output);
}

}  // namespace tonalith::make_database

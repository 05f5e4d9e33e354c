// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_reader.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include "core/failure.h"
#include "jet/jet_rows.h"
#include "jet/messages.h"

namespace tonalith::jet {
namespace {

// The catalog table begins on this page in every Jet file.
constexpr unsigned long kObjectsPage = 2;
constexpr std::uint32_t kPageMask = 0x00FFFFFF;
// Flags of tables that belong to the system or to the program that created the file.
constexpr std::uint32_t kSystemFlags = 0x80000002;

// Offsets in the file header, which libmdb decrypts into its page buffer.
constexpr std::size_t kPasswordOffset = 0x42;
constexpr std::size_t kPasswordSizeJet3 = 20;
constexpr std::size_t kPasswordSize = 40;
constexpr int kCreationDateOffset = 0x72;

struct CloseHandle {
  void operator()(MdbHandle* handle) const { mdb_close(handle); }
};
using Handle = std::unique_ptr<MdbHandle, CloseHandle>;

// Jet 4 masks the password with the creation date of the file.
bool HasPassword(MdbHandle* handle) {
  const std::span<const std::uint8_t> header(handle->pg_buf);
  if (handle->f->jet_version == MDB_VER_JET3) {
    for (const std::uint8_t byte : header.subspan(kPasswordOffset, kPasswordSizeJet3)) {
      if (byte != 0) return true;
    }
    return false;
  }
  const double made = mdb_get_double(handle->pg_buf, kCreationDateOffset);
  if (!(made > -1e9 && made < 1e9)) throw core::Failure::Unspecified(MessageId::kDamagedHeader);
  const auto day = static_cast<std::uint32_t>(static_cast<std::int32_t>(made));
  for (std::size_t i = 0; i < kPasswordSize; ++i) {
    if (header[kPasswordOffset + i] != static_cast<std::uint8_t>(day >> (8 * (i % 4)))) return true;
  }
  return false;
}

Handle OpenHandle(const std::string& path) {
  // These variables make libmdb skip memos or read texts in another code page.
  for (const char* name : {"MDBOPTS", "MDBICONV", "MDB_JET3_CHARSET", "MDBPATH"}) ::unsetenv(name);
  Handle handle(mdb_open(path.c_str(), MDB_NOFLAGS));
  if (handle == nullptr) throw core::Failure::Unspecified(MessageId::kUnknownVersion);
  const bool knowsPasswords = handle->f->jet_version <= MDB_VER_JET4;
  if (handle->f->db_key != 0) throw core::Failure::Unspecified(MessageId::kEncrypted);
  if (knowsPasswords && HasPassword(handle.get())) {
    throw core::Failure::Unspecified(MessageId::kPassword);
  }
  return handle;
}

struct CatalogRow {
  std::string name;
  std::int32_t type = 0;
  std::uint32_t flags = 0;
  unsigned long page = 0;
};

core::Failure DamagedCatalog() { return core::Failure::Unspecified(MessageId::kDamagedCatalog); }

std::size_t FieldOf(const JetTable& table, const char* name) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (table.columns[i].name == name) return i;
  }
  throw DamagedCatalog();
}

std::vector<CatalogRow> ReadCatalog(MdbHandle* handle) {
  JetRows objects(handle, "MSysObjects", kObjectsPage);
  const std::size_t id = FieldOf(objects.Table(), "Id");
  const std::size_t name = FieldOf(objects.Table(), "Name");
  const std::size_t type = FieldOf(objects.Table(), "Type");
  const std::size_t flags = FieldOf(objects.Table(), "Flags");
  std::vector<CatalogRow> rows;
  objects.ForEach([&](const std::vector<core::Value>& values) {
    if (values[id].IsNull() || values[type].IsNull()) throw DamagedCatalog();
    const auto pageBits = static_cast<std::uint32_t>(values[id].AsInt32());
    const auto flagBits = values[flags].IsNull() ? 0U : static_cast<std::uint32_t>(values[flags].AsInt32());
    rows.push_back({values[name].TextOr({}), values[type].AsInt32(), flagBits, pageBits & kPageMask});
  });
  return rows;
}

// The kind for a type number of the catalog; nullptr for system objects.
const char* KindOf(std::int32_t type) {
  switch (type) {
    case 4:
    case 6:
      return "linked table";
    case 5:
      return "stored query";
    case 8:
      return "relationship";
    case -32768:
      return "form";
    case -32766:
      return "macro";
    case -32764:
      return "report";
    case -32761:
      return "module";
    case -32756:
      return "page";
    default:
      return nullptr;
  }
}

// Names with a tilde belong to deleted or embedded objects.
bool IsUsers(const CatalogRow& row) {
  return (row.flags & kSystemFlags) == 0 && !row.name.starts_with("~") && !row.name.starts_with("MSys");
}

}  // namespace

void ReadWithLibmdb(const std::string& path, JetVisitor& visitor) {
  constexpr std::int32_t kTable = 1;
  const Handle handle = OpenHandle(path);
  const std::vector<CatalogRow> catalog = ReadCatalog(handle.get());
  for (const CatalogRow& row : catalog) {
    const char* kind = KindOf(row.type);
    if (kind != nullptr && !row.name.starts_with("~")) visitor.OnObject({kind, row.name});
  }
  for (const CatalogRow& row : catalog) {
    if (row.type != kTable || !IsUsers(row)) continue;
    JetRows rows(handle.get(), row.name, row.page);
    visitor.OnTable(rows.Table());
    rows.ForEach([&](std::vector<core::Value> values) { visitor.OnRow(std::move(values)); });
  }
}

}  // namespace tonalith::jet

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_rows.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/failure.h"
#include "jet/jet_values.h"
#include "jet/messages.h"

namespace tonalith::jet {
namespace {

// The layout of a data page, from the format description of libmdb.
constexpr int kOffsetMask = 0x1FFF;
constexpr int kDeletedRow = 0x4000;
constexpr std::size_t kPageTypeOffset = 0;
constexpr int kOwnerOffset = 4;
constexpr std::string_view kLongContentOwner = "LVAL";

// A reference to a long value: its length with two flags, the address of its first row, and four unused bytes. An
// inline value follows the reference.
constexpr std::size_t kReferenceSize = 12;
constexpr std::uint32_t kIsInline = 0x80000000;
constexpr std::uint32_t kIsInOneRow = 0x40000000;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;

std::uint32_t Number32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint32_t>(bytes[at]) | static_cast<std::uint32_t>(bytes[at + 1]) << 8 |
         static_cast<std::uint32_t>(bytes[at + 2]) << 16 | static_cast<std::uint32_t>(bytes[at + 3]) << 24;
}

JetContent ContentOf(const MdbColumn& column, const std::string& table) {
  switch (column.col_type) {
    case MDB_BOOL:
      return JetContent::kYesNo;
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
      return JetContent::kWholeNumber;
    case MDB_FLOAT:
    case MDB_DOUBLE:
      return JetContent::kFraction;
    case MDB_MONEY:
    case MDB_NUMERIC:
      return JetContent::kDecimal;
    case MDB_DATETIME:
      return JetContent::kDate;
    case MDB_TEXT:
    case MDB_MEMO:
    case MDB_REPID:
      return JetContent::kText;
    case MDB_BINARY:
    case MDB_OLE:
      return JetContent::kBytes;
    default:
      throw core::Failure::Unspecified({MessageId::kUnknownFieldType, std::string(column.name), table});
  }
}

std::size_t SizeOf(int columnType) {
  switch (columnType) {
    case MDB_BYTE:
      return 1;
    case MDB_INT:
      return 2;
    case MDB_LONGINT:
    case MDB_FLOAT:
      return 4;
    case MDB_MONEY:
    case MDB_DOUBLE:
    case MDB_DATETIME:
      return 8;
    case MDB_REPID:
      return 16;
    case MDB_NUMERIC:
      return 17;
    default:
      return 0;
  }
}

std::string TakeText(char* text) {
  const std::unique_ptr<char, decltype(&g_free)> owner(text, &g_free);
  return text == nullptr ? std::string() : std::string(text);
}

/// With braces, "{01234567-89AB-CDEF-0123-456789ABCDEF}", the usual form; libmdb omits the braces.
std::string ReplicationId(const unsigned char* page, int start) {
  return "{" + TakeText(mdb_uuid_to_string_fmt(page, start, MDB_NOBRACES_4_2_2_2_6)) + "}";
}

}  // namespace

JetRows::JetRows(MdbHandle* handle, const std::string& name, unsigned long page) : handle_(handle) {
  table_.name = name;
  entry_.mdb = handle;
  entry_.object_type = MDB_TABLE;
  entry_.table_pg = page;
  name.copy(entry_.object_name, std::size(entry_.object_name) - 1);
  definition_.reset(mdb_read_table(&entry_));
  if (definition_ == nullptr || mdb_read_columns(definition_.get()) == nullptr) throw Damaged(MessageId::kItsFields);
  if (definition_->columns->len != definition_->num_cols || definition_->num_cols >= MDB_MAX_COLS) {
    throw Damaged(MessageId::kItsFields);
  }
  for (std::size_t i = 0; i < definition_->num_cols; ++i) {
    const MdbColumn& column = *Column(i);
    if (column.name[0] == '\0') throw Damaged(MessageId::kItsFields);
    table_.columns.push_back({column.name, ContentOf(column, name)});
  }
}

MdbColumn* JetRows::Column(std::size_t index) const {
  return static_cast<MdbColumn*>(definition_->columns->pdata[index]);
}

core::Failure JetRows::Damaged(const core::Message& what) const {
  return core::Failure::Unspecified({MessageId::kDamagedTable, table_.name, what});
}

void JetRows::ForEach(const std::function<void(std::vector<core::Value>)>& onRow) {
  mdb_rewind_table(definition_.get());
  rowsRead_ = 0;
  std::uint32_t latest = 0;
  while (mdb_read_next_dpg(definition_.get()) != 0) {
    // Page numbers must ascend; otherwise the chain could be circular.
    if (definition_->cur_phys_pg <= latest) throw Damaged(MessageId::kItsPages);
    latest = definition_->cur_phys_pg;
    ReadPage(onRow);
  }
  if (rowsRead_ != definition_->num_rows) {
    throw Damaged({MessageId::kRowCount, rowsRead_, definition_->num_rows});
  }
}

void JetRows::ReadPage(const std::function<void(std::vector<core::Value>)>& onRow) {
  const int rows = mdb_get_int16(handle_->pg_buf, handle_->fmt->row_count_offset);
  for (int row = 0; row < rows; ++row) {
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_row(handle_, row, &start, &size) != 0) throw Damaged(MessageId::kARow);
    if ((start & kDeletedRow) != 0) continue;
    if (++rowsRead_ > definition_->num_rows) throw Damaged(MessageId::kTooManyRows);
    onRow(ReadRow(start & kOffsetMask, size));
  }
}

std::vector<core::Value> JetRows::ReadRow(int start, std::size_t size) {
  std::array<MdbField, MDB_MAX_COLS> fields{};
  const int found = size == 0 ? -1 : mdb_crack_row(definition_.get(), start, size, fields.data());
  if (found < 0) throw Damaged(MessageId::kARow);
  std::vector<core::Value> values;
  values.reserve(table_.columns.size());
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    const MdbColumn& column = *Column(i);
    const MdbField& field = fields.at(i);
    if (column.col_type == MDB_BOOL) {
      values.push_back(core::Value::YesNo(field.is_null == 0));
    } else if (field.is_null != 0) {
      values.push_back(core::Value::Null());
    } else {
      values.push_back(ReadField(column, field));
    }
  }
  return values;
}

core::Value JetRows::ReadField(const MdbColumn& column, const MdbField& field) {
  const auto page = static_cast<std::size_t>(handle_->fmt->pg_size);
  if (field.start < 0 || field.siz < 0) throw Damaged(MessageId::kAField);
  const auto start = static_cast<std::size_t>(field.start);
  const auto size = static_cast<std::size_t>(field.siz);
  if (start + size > page) throw Damaged(MessageId::kAField);
  const std::span<const std::uint8_t> bytes(handle_->pg_buf + start, size);
  switch (column.col_type) {
    case MDB_TEXT:
      return Text(bytes);
    case MDB_BINARY:
      return core::Bytes(bytes.begin(), bytes.end());
    case MDB_MEMO:
      return Text(ReadLong(bytes));
    case MDB_OLE:
      return ReadLong(bytes);
    default:
      if (SizeOf(column.col_type) == 0 || size != SizeOf(column.col_type)) throw Damaged(MessageId::kAField);
      return ReadNumber(column, field.start);
  }
}

core::Value JetRows::ReadNumber(const MdbColumn& column, int start) {
  unsigned char* const page = handle_->pg_buf;
  switch (column.col_type) {
    case MDB_BYTE:
      return std::int64_t{mdb_get_byte(page, start)};
    case MDB_INT:
      return std::int64_t{static_cast<std::int16_t>(mdb_get_int16(page, start))};
    case MDB_LONGINT:
      return std::int64_t{static_cast<std::int32_t>(mdb_get_int32(page, start))};
    case MDB_MONEY:
      return JetDecimal(TakeText(mdb_money_to_string(handle_, start)));
    case MDB_NUMERIC:
      return JetDecimal(TakeText(mdb_numeric_to_string(handle_, start, column.col_scale, column.col_prec)));
    case MDB_DATETIME:
      return JetDate(mdb_get_double(page, start));
    case MDB_REPID:
      return ReplicationId(page, start);
    default:
      break;
  }
  const double number = column.col_type == MDB_FLOAT ? mdb_get_single(page, start) : mdb_get_double(page, start);
  if (std::isnan(number)) throw Damaged(MessageId::kANumber);
  return number;
}

core::Bytes JetRows::ReadLong(std::span<const std::uint8_t> reference) {
  if (reference.size() < kReferenceSize) throw Damaged(MessageId::kLongContent);
  const std::uint32_t flags = Number32(reference, 0);
  const std::uint32_t length = flags & kLengthMask;
  core::Bytes content;
  if ((flags & kIsInline) != 0) {
    content.assign(reference.begin() + kReferenceSize, reference.end());
  } else if (length > 0) {
    std::uint32_t address = Number32(reference, 4);
    const bool isChained = (flags & kIsInOneRow) == 0;
    // Each row of a chain has at least one byte, so a circular chain ends at the length.
    do AppendLongRow(address, isChained, content, address);
    while (isChained && address != 0 && content.size() < length);
  }
  if (content.size() < length) throw Damaged(MessageId::kLongContent);
  content.resize(length);
  return content;
}

void JetRows::AppendLongRow(std::uint32_t address, bool isChained, core::Bytes& content, std::uint32_t& next) {
  void* buffer = nullptr;
  int start = 0;
  std::size_t size = 0;
  if (mdb_find_pg_row(handle_, static_cast<int>(address), &buffer, &start, &size) != 0)
    throw Damaged(MessageId::kLongContent);
  const std::size_t offset = static_cast<std::size_t>(start & kOffsetMask);
  const std::span<const std::uint8_t> page(static_cast<const std::uint8_t*>(buffer),
                                           static_cast<std::size_t>(handle_->fmt->pg_size));
  const bool isLongContent =
      page[kPageTypeOffset] == MDB_PAGE_DATA &&
      std::equal(kLongContentOwner.begin(), kLongContentOwner.end(), page.begin() + kOwnerOffset);
  constexpr std::size_t kLink = 4;
  if (!isLongContent || offset + size > page.size() || size < (isChained ? kLink + 1 : 1)) {
    throw Damaged(MessageId::kLongContent);
  }
  std::span<const std::uint8_t> row = page.subspan(offset, size);
  next = 0;
  if (isChained) {
    next = Number32(row, 0);
    row = row.subspan(kLink);
  }
  content.insert(content.end(), row.begin(), row.end());
}

std::string JetRows::Text(std::span<const std::uint8_t> bytes) const {
  if (handle_->f->jet_version == MDB_VER_JET3) return JetCodePageText(bytes, handle_->f->code_page);
  return JetUnicodeText(bytes);
}

}  // namespace tonalith::jet

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_check.h"

#include <algorithm>
#include <array>
#include <variant>

#include "core/field_limits.h"
#include "core/text.h"
#include "data/data_failure.h"
#include "data/engine.h"
#include "data/messages.h"
#include "data/sql_tokens.h"
#include "jet/content_limit.h"

namespace tonalith::data {
namespace {

// Characters of a number that is written as text.
constexpr std::size_t kLongestNumber = 64;
// Bytes of an additional column in the user's library. It is never shown and may contain pictures.
constexpr std::size_t kLongestOtherField = std::size_t{1} << 20;
// Characters of a name in a message.
constexpr std::size_t kLongestNameShown = 60;

struct ColumnLimit {
  std::string_view column;
  std::size_t characters;
};
constexpr std::array<ColumnLimit, 13> kColumnLimits = {{
    {"ScaleName", core::kLongestName},
    {"ScaleTypeName", core::kLongestTypeName},
    {"ScaleDescription", core::kLongestDescription},
    {"StartNote", core::kLongestStartNote},
    {"ScaleIntervals", core::kLongestPattern},
    {"ScaleID", kLongestNumber},
    {"ScaleTypeID", kLongestNumber},
    {"ScaleTypeNo", kLongestNumber},
    {"Chord", kLongestNumber},
    {"Sort", kLongestNumber},
    {"Place", kLongestNumber},
    {"Formula", core::kLongestFormula},
    {"Alias", core::kLongestName},
}};

std::size_t LimitOf(std::string_view column) {
  const auto* const found = std::find_if(kColumnLimits.begin(), kColumnLimits.end(),
                                         [&](const ColumnLimit& limit) { return SameName(limit.column, column); });
  return found == kColumnLimits.end() ? kLongestOtherField : found->characters;
}

// A long name is cut.
std::string ShownName(const std::string& name) {
  const std::vector<std::string_view> characters =
      core::Characters(std::string_view(name).substr(0, (kLongestNameShown + 1) * 4));
  std::string shown;
  for (std::size_t i = 0; i < std::min(characters.size(), kLongestNameShown); ++i) shown += characters[i];
  return characters.size() > kLongestNameShown ? shown + "..." : shown;
}

core::Failure TooLong(MessageId withoutName, MessageId withName, const core::Value& owner, std::size_t limit) {
  const auto* const name = std::get_if<std::string>(&owner.Raw());
  if (name == nullptr) return core::Failure::Unspecified({withoutName, limit});
  return core::Failure::Unspecified({withName, ShownName(*name), limit});
}

std::size_t DigitsOf(std::string_view pattern) {
  return core::CharacterCount(pattern) - static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), ' '));
}

void RequireStoredColumns(Engine& pack, const std::string& table) {
  const core::Value name = table;
  std::string calculated;
  pack.Query("SELECT name FROM pragma_table_xinfo(?) WHERE hidden IN (2, 3)", {&name, 1},
             [&](SQLite::Statement& row) { calculated = row.getColumn(0).getString(); });
  if (calculated.empty()) return;
  throw core::Failure::Unspecified({MessageId::kCalculatedColumn, calculated, table});
}

}  // namespace

void RequirePlainTable(Engine& pack, const std::string& table) {
  const core::Value name = table;
  std::string type = "table";
  pack.Query("SELECT type FROM pragma_table_list WHERE schema = 'main' AND name = ? COLLATE NOCASE", {&name, 1},
             [&](SQLite::Statement& row) { type = row.getColumn(0).getString(); });
  if (type == "view") throw core::Failure::Unspecified({MessageId::kQueryInPack, table});
  if (type != "table") throw core::Failure::Unspecified({MessageId::kOddTableInPack, table});
  RequireStoredColumns(pack, table);
}

void AscendingKeyCheck::Require(std::int64_t row) {
  if (latest_ && row <= *latest_) throw core::Failure::UnrecognizedFormat(path_);
  latest_ = row;
}

PackSizeLimit::PackSizeLimit(std::uint64_t fileSize) : fileSize_(fileSize), left_(jet::ContentLimit(fileSize)) {}

void PackSizeLimit::Count(std::uint64_t bytes) {
  if (bytes >= left_) {
    throw core::Failure::Unspecified({MessageId::kTooMuchContent, fileSize_});
  }
  // A row without fields counts too, so that the iteration ends.
  left_ -= bytes + 1;
}

std::uint64_t SizeOf(const core::Value& value) {
  if (const auto* const text = std::get_if<std::string>(&value.Raw())) return text->size();
  if (const auto* const bytes = std::get_if<core::Bytes>(&value.Raw())) return bytes->size();
  return value.IsNull() ? 1 : sizeof(std::int64_t);
}

FieldLimit::FieldLimit(std::string_view column)
    : characters_(LimitOf(column)), isPattern_(SameName(column, "ScaleIntervals")) {}

void FieldLimit::Require(const core::Value& value, const core::Value& owner) const {
  const std::uint64_t size = SizeOf(value);
  if (size <= (isPattern_ ? core::kMostPatternDigits : characters_)) return;
  const auto* const text = std::get_if<std::string>(&value.Raw());
  if (isPattern_ && text != nullptr && DigitsOf(*text) > core::kMostPatternDigits) {
    throw TooLong(MessageId::kLongPattern, MessageId::kLongPatternOf, owner, core::kMostPatternDigits);
  }
  if ((text == nullptr ? size : core::CharacterCount(*text)) > characters_) {
    throw TooLong(MessageId::kLongField, MessageId::kLongFieldOf, owner, characters_);
  }
}

core::Failure At(const PackPlace& place, const core::Failure& failure) {
  const core::Message& text = failure.Text();
  const std::int32_t number = failure.Number();
  if (place.row > 0 && !place.column.empty()) {
    return {number, {MessageId::kInField, place.table, place.row, place.column, text}};
  }
  if (place.row > 0) return {number, {MessageId::kInRow, place.table, place.row, text}};
  if (!place.column.empty()) return {number, {MessageId::kInColumn, place.table, place.column, text}};
  return {number, {MessageId::kInTable, place.table, text}};
}

}  // namespace tonalith::data

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/scale_names.h"

#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <array>

#include "core/upper_case.h"
#include "data/data_failure.h"
#include "data/engine.h"
#include "data/messages.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

constexpr const char* kName = "ScaleName";
// Names with non-ASCII characters.
constexpr const char* kNamesWithOtherLetters = "SELECT ScaleID, ScaleName FROM Scales WHERE ScaleName GLOB ?";
constexpr const char* kOtherLetters = "*[^\x01-\x7F]*";
constexpr const char* kOtherScaleOfTheName = "SELECT 1 FROM Scales WHERE ScaleName = ? AND ScaleID <> ? LIMIT 1";
// For a name that is not in the table. Scale numbers start at 1.
constexpr std::int64_t kNoNumber = 0;

}  // namespace

void ScaleNames::Read() {
  if (isRead_) return;
  const core::Value pattern = std::string(kOtherLetters);
  engine_.Query(kNamesWithOtherLetters, {&pattern, 1}, [this](SQLite::Statement& row) {
    others_[core::UpperCase(row.getColumn(1).getString())].push_back(row.getColumn(0).getInt64());
  });
  isRead_ = true;
}

bool ScaleNames::Has(std::string_view name, std::int64_t except) {
  Read();
  const bool isAscii = core::IsAscii(name);
  if (isAscii && others_.empty()) return false;
  const std::u32string upper = core::UpperCase(name);
  const auto found = others_.find(upper);
  const auto isAnother = [except](std::int64_t number) { return number != except || number == kNoNumber; };
  if (found != others_.end() && std::any_of(found->second.begin(), found->second.end(), isAnother)) return true;
  // The upper case of a letter such as the Kelvin sign is an ASCII letter.
  const bool hasAsciiForm = std::all_of(upper.begin(), upper.end(), [](char32_t c) { return c <= 0x7F; });
  return !isAscii && hasAsciiForm && TableHas(std::string(upper.begin(), upper.end()), except);
}

void ScaleNames::Add(std::string_view name) {
  if (!core::IsAscii(name)) others_[core::UpperCase(name)].push_back(kNoNumber);
}

bool ScaleNames::TableHas(const std::string& name, std::int64_t except) {
  bool isThere = false;
  const std::array<core::Value, 2> bindings = {core::Value(name), core::Value(except)};
  engine_.Query(kOtherScaleOfTheName, bindings, [&](SQLite::Statement&) { isThere = true; });
  return isThere;
}

void RequireFreeName(Engine& engine, std::string_view source, const std::vector<std::string>& names,
                     const std::vector<core::Value>& values, std::int64_t except) {
  if (!SameName(source, QuoteName("ScalesQuery"))) return;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto* const name = std::get_if<std::string>(&values[i].Raw());
    if (name == nullptr || !SameName(names[i], QuoteName(kName))) continue;
    if (ScaleNames(engine).Has(*name, except)) {
      throw core::Failure::Unspecified(MessageId::kNameTaken);
    }
  }
}

}  // namespace tonalith::data

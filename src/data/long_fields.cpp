// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/long_fields.h"

#include "core/field_limits.h"

namespace tonalith::data {
namespace {

constexpr std::size_t kMostBytesOfCharacter = 4;
constexpr std::size_t kCutLength = core::kLongestDescription + 1;
static_assert(kCutLength * kMostBytesOfCharacter <= kLongestFieldInBlock);

}  // namespace

std::string InForm(FieldForm form, const std::string& field) {
  const std::string length = std::to_string(kCutLength);
  // The engine knows the type of a field without reading it.
  const std::string isLong = "CASE WHEN typeof(" + field + ") IN ('text', 'blob') THEN ";
  switch (form) {
    case FieldForm::kWhole:
      return field;
    case FieldForm::kCut:
      return isLong + "substr(" + field + ", 1, " + length + ") ELSE " + field + " END";
    case FieldForm::kLeftOut:
      return isLong + "printf('%." + length + "c', '.') ELSE " + field + " END";
  }
  return field;
}

}  // namespace tonalith::data

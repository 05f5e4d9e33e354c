// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Decodes texts, dates and decimals of Jet files. Malformed input throws core::Failure; the description completes "the
// file cannot be read: ".

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/value.h"

namespace tonalith::jet {

/// A text of Jet 4: UTF-16 little-endian or, after the marker FF FE, runs of one byte per character that alternate with
/// runs of two bytes at each zero byte.
std::string JetUnicodeText(std::span<const std::uint8_t> bytes);

/// A text of Jet 3 in the code page of its file. Throws for a code page that the system does not support.
std::string JetCodePageText(std::span<const std::uint8_t> bytes, int codePage);

/// A date and time as "2026-01-31 17:05:00", with milliseconds if there are any. `days` counts from 1899-12-30; for
/// negative numbers the fraction still counts forward in the day.
std::string JetDate(double days);

/// A decimal number: an integer or a fraction if that is exact, otherwise the text itself.
core::Value JetDecimal(std::string_view text);

}  // namespace tonalith::jet

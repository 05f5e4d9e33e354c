// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How Jet files write texts, dates and decimals, turned into what the program holds. Pure functions. What is not
// well formed is thrown as a core::Failure whose description completes "the file cannot be read: ".

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/value.h"

namespace tonalith::jet {

/// A text of Jet 4: UTF-16 in little-endian order or, behind the mark FF FE, runs of one byte a character that
/// alternate with runs of two at each zero byte.
std::string JetUnicodeText(std::span<const std::uint8_t> bytes);

/// A text of Jet 3, in the code page of its file. Throws for a code page that the system does not know.
std::string JetCodePageText(std::span<const std::uint8_t> bytes, int codePage);

/// A moment as "2026-01-31 17:05:00", with thousandths where there are any. `days` counts from the end of 1899; before
/// that, the part behind the point still runs forward.
std::string JetDate(double days);

/// A number written in decimals: a whole number or a fraction where it is exactly that, otherwise the text itself.
core::Value JetDecimal(std::string_view text);

}  // namespace tonalith::jet

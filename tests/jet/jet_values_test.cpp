// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_values.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/failure_of.h"
#include "support/temp_folder.h"

namespace tonalith::jet {
namespace {

using tests::FailureOf;

using RawBytes = std::vector<std::uint8_t>;

TEST(JetValues, ReadUtf16InLittleEndianOrder) {
  EXPECT_EQ(JetUnicodeText(RawBytes{'C', 0, 0x7E, 0x01, 0x2D, 0x4E}), "Cž中");
  EXPECT_EQ(JetUnicodeText(RawBytes{0x34, 0xD8, 0x1E, 0xDD}), "𝄞");
  EXPECT_EQ(JetUnicodeText({}), "");
}

TEST(JetValues, ReadRunsOfOneBytePerCharacterAfterTheMarker) {
  EXPECT_EQ(JetUnicodeText(RawBytes{0xFF, 0xFE, 'M', 'o', 'd', 'e'}), "Mode");
  EXPECT_EQ(JetUnicodeText(RawBytes{0xFF, 0xFE, 0xE9}), "é");
  EXPECT_EQ(JetUnicodeText(RawBytes{0xFF, 0xFE, 'a', 0, 0x7E, 0x01, 0, 'b'}), "ažb");
}

TEST(JetValues, RefuseATextThatIsNotUnicode) {
  EXPECT_THROW(JetUnicodeText(RawBytes{0x34, 0xD8}), core::Failure);
  EXPECT_THROW(JetUnicodeText(RawBytes{0x1E, 0xDD, 'a', 0}), core::Failure);
  EXPECT_THROW(JetUnicodeText(RawBytes{'a', 0, 'b'}), core::Failure);
}

TEST(JetValues, ReadTextsOfACodePage) {
  EXPECT_EQ(JetCodePageText(RawBytes{'k', 0xF9, 0xF2}, 1250), "kůň");
  EXPECT_EQ(JetCodePageText(RawBytes{0xE9, 0x80}, 1252), "é€");
  EXPECT_EQ(JetCodePageText(RawBytes{0xE9}, 0), "é");
  EXPECT_THROW(JetCodePageText(RawBytes{0xE9}, 7), core::Failure);
}

TEST(JetValues, CountDaysFromDecember30Of1899) {
  EXPECT_EQ(JetDate(0.0), "1899-12-30 00:00:00");
  EXPECT_EQ(JetDate(2.5), "1900-01-01 12:00:00");
  EXPECT_EQ(JetDate(46053.711805555555), "2026-01-31 17:05:00");
  EXPECT_EQ(JetDate(0.9999999999), "1899-12-31 00:00:00");
  EXPECT_EQ(JetDate(1.0 + 0.25 / 86400), "1899-12-31 00:00:00.250");
}

TEST(JetValues, CountHoursForwardBefore1899Too) { EXPECT_EQ(JetDate(-1.25), "1899-12-29 06:00:00"); }

TEST(JetValues, RefuseADateOutsideTheCalendar) {
  EXPECT_THROW(JetDate(3e6), core::Failure);
  EXPECT_THROW(JetDate(-7e5), core::Failure);
  EXPECT_THROW(JetDate(std::numeric_limits<double>::quiet_NaN()), core::Failure);
}

TEST(JetValues, ConvertADecimalToANumberOnlyIfThatIsExact) {
  EXPECT_EQ(JetDecimal("12.5000"), core::Value(12.5));
  EXPECT_EQ(JetDecimal("-3.0000"), core::Value(std::int64_t{-3}));
  EXPECT_EQ(JetDecimal("0.0000"), core::Value(std::int64_t{0}));
  EXPECT_EQ(JetDecimal("922337203685477.5807"), core::Value("922337203685477.5807"));
  EXPECT_EQ(JetDecimal("79228162514264337593543950335"), core::Value("79228162514264337593543950335"));
  EXPECT_EQ(JetDecimal("100"), core::Value(std::int64_t{100}));
}

}  // namespace
}  // namespace tonalith::jet

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "support/failure_of.h"

namespace tonalith::core {
namespace {

using tests::FailureOf;

TEST(Value, IsNullByDefault) {
  EXPECT_TRUE(Value().IsNull());
  EXPECT_FALSE(Value("").IsNull());
  EXPECT_FALSE(Value(0).IsNull());
}

TEST(Value, NullReadsAsNoAndAsNothingElse) {
  EXPECT_EQ(FailureOf([] { (void)Value().AsText(); }).Number(), 94);
  EXPECT_EQ(FailureOf([] { (void)Value().AsInt(); }).Number(), 94);
  EXPECT_EQ(FailureOf([] { (void)Value().AsDouble(); }).Number(), 94);
  EXPECT_EQ(Value().TextOr("otherwise"), "otherwise");
  EXPECT_FALSE(Value().AsYesNo());
}

TEST(Value, ReadsNumbersAsText) {
  EXPECT_EQ(Value(-7).AsText(), "-7");
  EXPECT_EQ(Value(1.5).AsText(), "1.5");
  EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::min()).AsText(), "-9223372036854775808");
}

TEST(Value, ReadsIntegersFromText) {
  EXPECT_EQ(Value("12").AsInt(), 12);
  EXPECT_EQ(Value("-3").AsInt(), -3);
  EXPECT_EQ(Value(4.0).AsInt(), 4);
}

TEST(Value, RefusesOtherValuesAsAnInteger) {
  for (const Value& value :
       {Value(""), Value("1x"), Value(" 1"), Value("1.5"), Value(1.5), Value(9.3e18), Value(Bytes{1})}) {
    EXPECT_EQ(FailureOf([&] { (void)value.AsInt(); }).Number(), 13);
  }
}

TEST(Value, ReadsIntegralFractionsInRangeAsIntegers) {
  const double limit = std::ldexp(1.0, 63);
  EXPECT_EQ(Value(-limit).AsInt(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Value(std::nextafter(limit, 0.0)).AsInt(), std::numeric_limits<std::int64_t>::max() - 1023);
  EXPECT_EQ(FailureOf([&] { (void)Value(limit).AsInt(); }).Number(), 13);
  EXPECT_EQ(FailureOf([&] { (void)Value(std::nextafter(-limit, -2 * limit)).AsInt(); }).Number(), 13);
}

TEST(Value, RefusesIntegersOfMoreThan32BitsAsInt32) {
  EXPECT_EQ(Value(std::int64_t{2147483647}).AsInt32(), 2147483647);
  EXPECT_EQ(FailureOf([] { (void)Value(std::int64_t{2147483648}).AsInt32(); }).Number(), 6);
}

TEST(Value, AnyNumberButZeroIsYes) {
  EXPECT_TRUE(Value(1).AsYesNo());
  EXPECT_TRUE(Value(-1).AsYesNo());
  EXPECT_FALSE(Value(0).AsYesNo());
  EXPECT_EQ(Value::YesNo(true), Value(1));
  EXPECT_EQ(FailureOf([] { (void)Value("maybe").AsYesNo(); }).Number(), 13);
}

TEST(Value, BytesAreNeitherNumberNorText) {
  const Value bytes(Bytes{49, 50});
  EXPECT_EQ(FailureOf([&] { (void)bytes.AsDouble(); }).Number(), 13);
  EXPECT_EQ(FailureOf([&] { (void)bytes.AsInt(); }).Number(), 13);
  EXPECT_EQ(FailureOf([&] { (void)bytes.AsText(); }).Number(), 13);
}

TEST(Value, ValuesOfDifferentKindsDiffer) {
  EXPECT_NE(Value(1), Value("1"));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(""), Value());
  EXPECT_EQ(Value("a"), Value("a"));
}

}  // namespace
}  // namespace tonalith::core

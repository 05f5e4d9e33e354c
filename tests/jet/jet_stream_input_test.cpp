// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "jet/jet_stream.h"
#include "support/failure_of.h"

namespace tonalith::jet {
namespace {

using tests::FailureOf;

// The child process may write any bytes.
class NoVisitor : public JetVisitor {
 public:
  void OnObject(const JetObject&) override {}
  void OnTable(const JetTable&) override {}
  void OnRow(std::vector<core::Value>) override { ++rows; }
  int rows = 0;
};

std::string StreamRefusal(std::vector<std::uint8_t> bytes, std::uint64_t byteLimit = 1 << 20) {
  NoVisitor visitor;
  const auto source = [&](std::span<std::uint8_t> buffer) {
    const std::size_t size = std::min(buffer.size(), bytes.size());
    std::copy_n(bytes.begin(), size, buffer.begin());
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    return size;
  };
  return FailureOf([&] { ReadJetStream(source, byteLimit, visitor); }).Description();
}

TEST(JetStream, IsReadAsWritten) {
  std::vector<std::uint8_t> bytes;
  class Echo : public NoVisitor {
   public:
    void OnTable(const JetTable& table) override { seen = table; }
    void OnRow(std::vector<core::Value> values) override { row = std::move(values); }
    JetTable seen;
    std::vector<core::Value> row;
  } echo;
  JetStreamWriter writer(
      [&](std::span<const std::uint8_t> part) { bytes.insert(bytes.end(), part.begin(), part.end()); });
  const JetTable table = {"T", {{"a", JetContent::kText}, {"b", JetContent::kBytes}, {"c", JetContent::kFraction}}};
  const std::vector<core::Value> row = {core::Value(std::string("x\0y", 3)), core::Value(core::Bytes(100'000, 7)),
                                        core::Value(-0.5)};
  writer.OnTable(table);
  writer.OnRow(row);
  writer.Finish();
  std::size_t at = 0;
  ReadJetStream(
      [&](std::span<std::uint8_t> buffer) {
        const std::size_t size = std::min({buffer.size(), bytes.size() - at, std::size_t{777}});
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), size, buffer.begin());
        at += size;
        return size;
      },
      bytes.size(), echo);
  EXPECT_EQ(echo.seen, table);
  EXPECT_EQ(echo.row, row);
}

TEST(JetStream, ValidatesItsInput) {
  const std::string damaged = "it is damaged, and reading it broke off";
  EXPECT_EQ(StreamRefusal({}), damaged);
  EXPECT_EQ(StreamRefusal({'?'}), damaged);
  EXPECT_EQ(StreamRefusal({'R'}), damaged);
  EXPECT_EQ(StreamRefusal({'O', 255, 255, 255, 255, 255, 255, 255, 255}), damaged);
  EXPECT_EQ(StreamRefusal({'O', 3, 0, 0, 0, 0, 0, 0, 0, 'a'}), damaged);
  EXPECT_EQ(StreamRefusal({'T', 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}), damaged);
  EXPECT_EQ(StreamRefusal({'E', 255, 2, 0, 0, 0, 0, 0, 0, 0, 'n', 'o'}), "no");
}

TEST(JetStream, EndsAtItsLimit) {
  // A table without fields, and an endless sequence of rows.
  std::vector<std::uint8_t> bytes = {'T', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  bytes.insert(bytes.end(), 5000, 'R');
  EXPECT_EQ(StreamRefusal(bytes, 1000), "it is damaged, and reading it broke off");
}

}  // namespace
}  // namespace tonalith::jet

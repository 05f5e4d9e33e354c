// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "jet/messages.h"
#include "support/failure_of.h"
#include "support/temp_folder.h"
#include "support/text_message.h"

namespace tonalith::jet {
namespace {

using tests::FailureOf;

constexpr std::uint64_t kByteLimit = std::uint64_t{1} << 20;
constexpr const char* kDamaged = "it is damaged, and reading it broke off";

using Stream = std::vector<std::uint8_t>;

/// Records the calls of a visitor, one line per call.
class CallRecorder : public JetVisitor {
 public:
  void OnObject(const JetObject& object) override { text += object.kind + " " + object.name + "\n"; }
  void OnTable(const JetTable& table) override {
    text += "table " + table.name;
    for (const JetColumn& column : table.columns) {
      text += " " + column.name + ":" + std::to_string(static_cast<int>(column.content));
    }
    text += "\n";
  }
  void OnRow(std::vector<core::Value> values) override { rows.push_back(std::move(values)); }

  std::string text;
  std::vector<std::vector<core::Value>> rows;
};

/// A stream with content by `write` and an end by `end`.
template <class Write, class End>
Stream Written(Write write, End end) {
  Stream stream;
  JetStreamWriter writer(
      [&](std::span<const std::uint8_t> bytes) { stream.insert(stream.end(), bytes.begin(), bytes.end()); });
  write(writer);
  end(writer);
  return stream;
}
template <class Write>
Stream Written(Write write) {
  return Written(write, [](JetStreamWriter& writer) { writer.Finish(); });
}

/// Reads the stream in chunks of at most `piece` bytes.
void Read(const Stream& stream, JetVisitor& visitor, std::size_t piece = 4096, std::uint64_t byteLimit = kByteLimit) {
  std::size_t at = 0;
  ReadJetStream(
      [&](std::span<std::uint8_t> buffer) {
        const std::size_t size = std::min({piece, buffer.size(), stream.size() - at});
        std::copy_n(stream.begin() + static_cast<std::ptrdiff_t>(at), size, buffer.begin());
        at += size;
        return size;
      },
      byteLimit, visitor);
}

std::string Refusal(const Stream& stream, std::uint64_t byteLimit = kByteLimit) {
  CallRecorder recorder;
  return FailureOf([&] { Read(stream, recorder, 4096, byteLimit); }).Description();
}

const JetTable kScales{"Scales", {{"ID", JetContent::kWholeNumber}, {"Name", JetContent::kText}}};

TEST(JetStream, PassesObjectsTablesAndRowsInOrderForAnyChunkSize) {
  const std::vector<core::Value> row{std::int64_t{-7}, "Aeolian ♭"};
  const std::vector<core::Value> other{core::Value::Null(), core::Value(core::Bytes{0, 255})};
  const std::vector<core::Value> third{-0.5, std::numeric_limits<std::int64_t>::min()};
  const Stream stream = Written([&](JetStreamWriter& writer) {
    writer.OnObject({"query", "ScalesQuery"});
    writer.OnTable(kScales);
    for (const auto& values : {row, other, third}) writer.OnRow(values);
  });
  for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{4096}}) {
    CallRecorder recorder;
    Read(stream, recorder, piece);
    EXPECT_EQ(recorder.text, "query ScalesQuery\ntable Scales ID:1 Name:5\n");
    EXPECT_EQ(recorder.rows, (std::vector<std::vector<core::Value>>{row, other, third}));
  }
}

TEST(JetStream, PassesATextLongerThanItsBuffers) {
  const std::string text(300'000, 'x');
  const Stream stream = Written([&](JetStreamWriter& writer) {
    writer.OnTable({"Notes", {{"Text", JetContent::kText}}});
    writer.OnRow({text});
  });
  CallRecorder recorder;
  Read(stream, recorder);
  ASSERT_EQ(recorder.rows.size(), 1U);
  EXPECT_EQ(recorder.rows[0][0], core::Value(text));
}

TEST(JetStream, PassesTheFailureOfTheReaderUnchanged) {
  const Stream stream = Written([](JetStreamWriter& writer) { writer.OnTable(kScales); },
                                [](JetStreamWriter& writer) { writer.Refuse(tests::TextMessage("it is encrypted")); });
  EXPECT_EQ(Refusal(stream), "it is encrypted");
}

TEST(JetStream, PassesAMessageWithItsIdAndArguments) {
  const core::Message damaged(MessageId::kDamagedTable, std::string("Scales"),
                              core::Message(MessageId::kRowCount, 1, 2));
  const Stream stream = Written([](JetStreamWriter&) {}, [&](JetStreamWriter& writer) { writer.Refuse(damaged); });
  CallRecorder recorder;
  const core::Failure failure = FailureOf([&] { Read(stream, recorder); });
  EXPECT_EQ(failure.Description(), damaged.English());
  EXPECT_EQ(failure.Text().Text(), damaged.Text());
  ASSERT_EQ(failure.Text().Arguments().size(), 2U);
  EXPECT_EQ(failure.Text().Arguments()[1].Text(), damaged.Arguments()[1].Text());
}

TEST(JetStream, RefusesMalformedMessages) {
  EXPECT_EQ(Refusal({'E', 3, 0, 0}), kDamaged) << "no such catalogue";
  EXPECT_EQ(Refusal({'E', 0, 200, 0}), kDamaged) << "no such message";
  EXPECT_EQ(Refusal({'E', 0, 0, 10}), kDamaged) << "too many arguments";
}

TEST(JetStream, MessagesAreNestedFourDeepAtMost) {
  const auto nested = [](int messages) {
    Stream stream{'E'};
    for (int i = 1; i < messages; ++i) stream.insert(stream.end(), {0, 0, 1});
    stream.insert(stream.end(), {0, 0, 0});
    return stream;
  };
  EXPECT_NE(Refusal(nested(4)), kDamaged);
  EXPECT_EQ(Refusal(nested(5)), kDamaged);
}

TEST(JetStream, IsDamagedIfTruncatedAnywhere) {
  const Stream stream = Written([](JetStreamWriter& writer) {
    writer.OnTable(kScales);
    writer.OnRow({std::int64_t{1}, "Major"});
  });
  for (std::size_t size = 0; size < stream.size(); ++size) {
    EXPECT_EQ(Refusal(Stream(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(size))), kDamaged) << size;
  }
}

TEST(JetStream, RefusesMalformedStreams) {
  EXPECT_EQ(Refusal({'?'}), kDamaged);
  const auto rowFirst = [](JetStreamWriter& writer) { writer.OnRow({std::int64_t{1}}); };
  EXPECT_EQ(Refusal(Written(rowFirst)), kDamaged) << "a row before its table";

  Stream stream = Written([](JetStreamWriter& writer) {
    writer.OnTable({"T", {{"C", JetContent::kText}}});
    writer.OnRow({core::Value::Null()});
  });
  stream[stream.size() - 2] = 9;
  EXPECT_EQ(Refusal(stream), kDamaged) << "a value of an unknown kind";

  stream = Written([](JetStreamWriter& writer) { writer.OnTable({"T", {{"C", JetContent::kText}}}); });
  stream[stream.size() - 2] = 200;
  EXPECT_EQ(Refusal(stream), kDamaged) << "a field of an unknown content";

  const JetTable wide{"T", std::vector<JetColumn>(256)};
  EXPECT_EQ(Refusal(Written([&](JetStreamWriter& writer) { writer.OnTable(wide); })), kDamaged) << "too many fields";
}

TEST(JetStream, IsNotReadBeyondItsLimit) {
  const Stream stream = Written([](JetStreamWriter& writer) {
    writer.OnTable(kScales);
    writer.OnRow({std::int64_t{1}, std::string(1000, 'x')});
  });
  CallRecorder recorder;
  EXPECT_NO_THROW(Read(stream, recorder, 4096, stream.size()));
  EXPECT_EQ(Refusal(stream, stream.size() - 1), kDamaged);
  EXPECT_EQ(Refusal(stream, 500), kDamaged);
}

}  // namespace
}  // namespace tonalith::jet

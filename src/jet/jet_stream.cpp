// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_stream.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <type_traits>
#include <utility>

#include "core/failure.h"
#include "core/messages.h"
#include "jet/messages.h"
#include "sandbox/messages.h"

namespace tonalith::jet {
namespace {

enum class Part : std::uint8_t { kObject = 'O', kTable = 'T', kRow = 'R', kEnd = 'Z', kRefusal = 'E' };
enum class Kind : std::uint8_t { kNull, kWhole, kFraction, kText, kBytes };

constexpr std::size_t kBuffer = std::size_t{64} << 10;
constexpr std::uint64_t kMostColumns = 255;
constexpr std::uint8_t kVerbatim = 255;
// The placeholders are %1 to %9.
constexpr std::uint8_t kMostArguments = 9;
// A message about a table has a message as an argument; none is nested deeper.
constexpr int kDeepestArgument = 4;

// Reads the parts of a stream, at most `byteLimit` bytes.
class Decoder {
 public:
  Decoder(const ByteSource& source, std::uint64_t byteLimit) : source_(source), remainingBytes_(byteLimit) {}

  std::uint8_t Byte() {
    std::uint8_t byte = 0;
    Bytes({&byte, 1});
    return byte;
  }

  std::uint64_t Number() {
    std::array<std::uint8_t, 8> bytes{};
    Bytes(bytes);
    std::uint64_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
    return number;
  }

  template <class Container>
  Container Sized() {
    const std::uint64_t size = Number();
    if (size > remainingBytes_) throw DamagedStream();
    Container content;
    // Grows in chunks: the length is untrusted, so it must not decide how much memory is allocated.
    for (std::uint64_t done = 0; done < size;) {
      const std::uint64_t piece = std::min<std::uint64_t>(size - done, kBuffer);
      content.resize(done + piece);
      Bytes({reinterpret_cast<std::uint8_t*>(content.data()) + done, piece});
      done += piece;
    }
    return content;
  }

  std::string Text() { return Sized<std::string>(); }

  core::Value Value() {
    switch (static_cast<Kind>(Byte())) {
      case Kind::kNull:
        return {};
      case Kind::kWhole:
        return static_cast<std::int64_t>(Number());
      case Kind::kFraction:
        return std::bit_cast<double>(Number());
      case Kind::kText:
        return Text();
      case Kind::kBytes:
        return Sized<core::Bytes>();
    }
    throw DamagedStream();
  }

 private:
  void Bytes(std::span<std::uint8_t> bytes) {
    if (bytes.size() > remainingBytes_) throw DamagedStream();
    remainingBytes_ -= bytes.size();
    while (!bytes.empty()) {
      if (at_ == filled_) Fill();
      const std::size_t piece = std::min(bytes.size(), filled_ - at_);
      std::copy_n(buffer_.begin() + static_cast<std::ptrdiff_t>(at_), piece, bytes.begin());
      at_ += piece;
      bytes = bytes.subspan(piece);
    }
  }

  void Fill() {
    at_ = 0;
    filled_ = source_(buffer_);
    if (filled_ == 0 || filled_ > buffer_.size()) throw DamagedStream();
  }

  const ByteSource& source_;
  std::uint64_t remainingBytes_;
  std::vector<std::uint8_t> buffer_ = std::vector<std::uint8_t>(kBuffer);
  std::size_t at_ = 0;
  std::size_t filled_ = 0;
};

// The catalogues of the messages that reading may fail with. Their positions are part of the stream.
std::array<std::span<const core::MessageText>, 3> Catalogues() {
  return {CatalogueOf(MessageId()), CatalogueOf(core::MessageId()), CatalogueOf(sandbox::MessageId())};
}

// A message is the position of its catalogue, then its position there, then its arguments; or kVerbatim and a text.
core::Message ReadMessage(Decoder& decoder, int depth) {
  const std::uint8_t position = decoder.Byte();
  if (position == kVerbatim) return core::Message::Verbatim(decoder.Text());
  const auto catalogues = Catalogues();
  if (position >= catalogues.size() || depth == 0) throw DamagedStream();
  const std::uint8_t entry = decoder.Byte();
  const std::uint8_t count = decoder.Byte();
  if (entry >= catalogues.at(position).size() || count > kMostArguments) throw DamagedStream();
  std::vector<core::Message> arguments;
  for (std::uint8_t i = 0; i < count; ++i) arguments.push_back(ReadMessage(decoder, depth - 1));
  return core::Message::FromEntry(catalogues.at(position)[entry], std::move(arguments));
}

JetTable ReadTable(Decoder& decoder) {
  JetTable table{decoder.Text(), {}};
  const std::uint64_t columns = decoder.Number();
  if (columns > kMostColumns) throw DamagedStream();
  for (std::uint64_t i = 0; i < columns; ++i) {
    std::string name = decoder.Text();
    const std::uint8_t content = decoder.Byte();
    if (content > static_cast<std::uint8_t>(JetContent::kBytes)) throw DamagedStream();
    table.columns.push_back({std::move(name), static_cast<JetContent>(content)});
  }
  return table;
}

}  // namespace

void JetStreamWriter::OnObject(const JetObject& object) {
  PutByte(static_cast<std::uint8_t>(Part::kObject));
  PutText(object.kind);
  PutText(object.name);
}

void JetStreamWriter::OnTable(const JetTable& table) {
  PutByte(static_cast<std::uint8_t>(Part::kTable));
  PutText(table.name);
  PutNumber(table.columns.size());
  for (const JetColumn& column : table.columns) {
    PutText(column.name);
    PutByte(static_cast<std::uint8_t>(column.content));
  }
}

void JetStreamWriter::OnRow(std::vector<core::Value> values) {
  PutByte(static_cast<std::uint8_t>(Part::kRow));
  for (const core::Value& value : values) PutValue(value);
}

void JetStreamWriter::Finish() {
  PutByte(static_cast<std::uint8_t>(Part::kEnd));
  Flush();
}

void JetStreamWriter::Refuse(const core::Message& reason) {
  PutByte(static_cast<std::uint8_t>(Part::kRefusal));
  PutMessage(reason);
  Flush();
}

void JetStreamWriter::PutByte(std::uint8_t byte) { PutBytes({&byte, 1}); }

void JetStreamWriter::PutNumber(std::uint64_t number) {
  std::array<std::uint8_t, 8> bytes{};
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(number);
    number >>= 8;
  }
  PutBytes(bytes);
}

void JetStreamWriter::PutBytes(std::span<const std::uint8_t> bytes) {
  buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
  if (buffer_.size() >= kBuffer) Flush();
}

void JetStreamWriter::PutText(const std::string& text) {
  PutNumber(text.size());
  PutBytes({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void JetStreamWriter::PutMessage(const core::Message& message) {
  const auto catalogues = Catalogues();
  for (std::size_t i = 0; i < catalogues.size(); ++i) {
    for (std::size_t entry = 0; entry < catalogues.at(i).size(); ++entry) {
      if (message.Text() != &catalogues.at(i)[entry]) continue;
      PutByte(static_cast<std::uint8_t>(i));
      PutByte(static_cast<std::uint8_t>(entry));
      PutByte(static_cast<std::uint8_t>(message.Arguments().size()));
      for (const core::Message& argument : message.Arguments()) PutMessage(argument);
      return;
    }
  }
  PutByte(kVerbatim);
  PutText(message.English());
}

void JetStreamWriter::PutValue(const core::Value& value) {
  PutByte(static_cast<std::uint8_t>(value.Raw().index()));
  std::visit(
      [&](const auto& content) {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, std::int64_t>) {
          PutNumber(static_cast<std::uint64_t>(content));
        } else if constexpr (std::is_same_v<Content, double>) {
          PutNumber(std::bit_cast<std::uint64_t>(content));
        } else if constexpr (std::is_same_v<Content, std::string>) {
          PutText(content);
        } else if constexpr (std::is_same_v<Content, core::Bytes>) {
          PutNumber(content.size());
          PutBytes(content);
        }
      },
      value.Raw());
}

void JetStreamWriter::Flush() {
  sink_(buffer_);
  buffer_.clear();
}

core::Failure DamagedStream() { return core::Failure::Unspecified(MessageId::kDamagedStream); }

void ReadJetStream(const ByteSource& source, std::uint64_t byteLimit, JetVisitor& visitor) {
  Decoder decoder(source, byteLimit);
  std::optional<std::size_t> columns;
  for (;;) {
    switch (static_cast<Part>(decoder.Byte())) {
      case Part::kObject: {
        std::string kind = decoder.Text();
        visitor.OnObject({std::move(kind), decoder.Text()});
        break;
      }
      case Part::kTable: {
        const JetTable table = ReadTable(decoder);
        columns = table.columns.size();
        visitor.OnTable(table);
        break;
      }
      case Part::kRow: {
        if (!columns) throw DamagedStream();
        std::vector<core::Value> values;
        values.reserve(*columns);
        for (std::size_t i = 0; i < *columns; ++i) values.push_back(decoder.Value());
        visitor.OnRow(std::move(values));
        break;
      }
      case Part::kEnd:
        return;
      case Part::kRefusal:
        throw core::Failure::Unspecified(ReadMessage(decoder, kDeepestArgument));
      default:
        throw DamagedStream();
    }
  }
}

}  // namespace tonalith::jet

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The content of a Jet file as a byte stream from the child process, which reads the file, to the program. The stream
// is untrusted input: each length is checked against the remaining limit and each row against its table. Throws
// core::Failure; DamagedStream for a stream that is truncated or malformed.

#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/failure.h"
#include "jet/jet_file.h"

namespace tonalith::jet {

/// Writes all the bytes.
using ByteSink = std::function<void(std::span<const std::uint8_t>)>;
/// Fills the start of the buffer and returns the number of bytes; 0 at the end.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

class JetStreamWriter : public JetVisitor {
 public:
  explicit JetStreamWriter(ByteSink sink) : sink_(std::move(sink)) {}
  void OnObject(const JetObject& object) override;
  void OnTable(const JetTable& table) override;
  void OnRow(std::vector<core::Value> values) override;
  /// End of the stream: the content is complete (Finish), or the message of a failure (Refuse). Call one of them,
  /// once.
  void Finish();
  void Refuse(const core::Message& reason);

 private:
  void PutByte(std::uint8_t byte);
  void PutNumber(std::uint64_t number);
  void PutBytes(std::span<const std::uint8_t> bytes);
  void PutText(const std::string& text);
  void PutMessage(const core::Message& message);
  void PutValue(const core::Value& value);
  void Flush();

  ByteSink sink_;
  std::vector<std::uint8_t> buffer_;
};

core::Failure DamagedStream();

/// Passes a complete stream to `visitor`. `byteLimit` is the maximum number of bytes. Throws the failure at the end of
/// the stream, if there is one.
void ReadJetStream(const ByteSource& source, std::uint64_t byteLimit, JetVisitor& visitor);

}  // namespace tonalith::jet

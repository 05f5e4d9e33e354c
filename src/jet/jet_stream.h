// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The content of a Jet file as a stream of bytes, between the process that reads the file and the program. The reading
// side trusts nothing: the process on the other end may have run wild, so every length is held against what is left of
// a budget and every row against its table. Owned by whoever reads or writes; one thread. Fails by throwing
// core::Failure; DamagedStream is the failure for a stream that breaks off or makes no sense.

#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/failure.h"
#include "jet/jet_file.h"

namespace tonalith::jet {

/// Puts bytes somewhere, all of them.
using ByteSink = std::function<void(std::span<const std::uint8_t>)>;
/// Fills the front of the buffer and tells how much of it; 0 when there is no more.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t>)>;

class JetStreamWriter : public JetVisitor {
 public:
  explicit JetStreamWriter(ByteSink sink) : sink_(std::move(sink)) {}
  void OnObject(const JetObject& object) override;
  void OnTable(const JetTable& table) override;
  void OnRow(std::vector<core::Value> values) override;
  /// The last words: the content is complete, or what is wrong with it. One of them, once.
  void Finish();
  void Refuse(const std::string& words);

 private:
  void PutByte(std::uint8_t byte);
  void PutNumber(std::uint64_t number);
  void PutBytes(std::span<const std::uint8_t> bytes);
  void PutText(const std::string& text);
  void PutValue(const core::Value& value);
  void Flush();

  ByteSink sink_;
  std::vector<std::uint8_t> buffer_;
};

core::Failure DamagedStream();

/// Hands a whole stream to `visitor`. `budget` is the highest number of bytes that it may hold. Throws the words of a
/// stream that ends in them.
void ReadJetStream(const ByteSource& source, std::uint64_t budget, JetVisitor& visitor);

}  // namespace tonalith::jet

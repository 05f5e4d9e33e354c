// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/failure.h"

#include <new>

#include "core/messages.h"

namespace tonalith::core {

Message Failure::NumberAndText() const { return {MessageId::kNumberAndDescription, number_, text_}; }
std::string Failure::NumberAndDescription() const { return NumberAndText().English(); }

Failure Failure::Overflow() { return {failure_number::kOverflow, MessageId::kOverflow}; }
Failure Failure::SubscriptOutOfRange() {
  return {failure_number::kSubscriptOutOfRange, MessageId::kSubscriptOutOfRange};
}
Failure Failure::TypeMismatch() { return {failure_number::kTypeMismatch, MessageId::kTypeMismatch}; }
Failure Failure::InvalidUseOfNull() { return {failure_number::kInvalidUseOfNull, MessageId::kInvalidUseOfNull}; }
Failure Failure::FileNotFound(const std::string& path) { return Unspecified({MessageId::kFileNotFound, path}); }
Failure Failure::UnrecognizedFormat(const std::string& path) {
  return Unspecified({MessageId::kUnrecognizedFormat, path});
}
Failure Failure::Unspecified(Message text) { return {failure_number::kUnspecified, std::move(text)}; }

Failure Failure::FromCurrentException() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return {failure_number::kOutOfMemory, MessageId::kOutOfMemory};
  } catch (const std::exception& other) {
    return {failure_number::kInternalError, Message::Verbatim(std::string(other.what()))};
  }
}

}  // namespace tonalith::core

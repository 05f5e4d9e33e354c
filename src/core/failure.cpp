// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/failure.h"

#include <new>

namespace tonalith::core {

std::string Failure::NumberAndDescription() const { return std::to_string(number_) + ": " + description_; }

Failure Failure::Overflow() { return {failure_number::kOverflow, "Overflow"}; }
Failure Failure::SubscriptOutOfRange() { return {failure_number::kSubscriptOutOfRange, "Subscript out of range"}; }
Failure Failure::TypeMismatch() { return {failure_number::kTypeMismatch, "Type mismatch"}; }
Failure Failure::InvalidUseOfNull() { return {failure_number::kInvalidUseOfNull, "Invalid use of Null"}; }
Failure Failure::FileNotFound(const std::string& path) { return Unspecified("Could not find file '" + path + "'."); }
Failure Failure::UnrecognizedFormat(const std::string& path) {
  return Unspecified("Unrecognized database format '" + path + "'.");
}
Failure Failure::Unspecified(std::string description) { return {failure_number::kUnspecified, std::move(description)}; }

Failure Failure::FromCurrentException() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return {failure_number::kOutOfMemory, "Out of memory"};
  } catch (const std::exception& other) {
    return {failure_number::kInternalError, other.what()};
  }
}

}  // namespace tonalith::core

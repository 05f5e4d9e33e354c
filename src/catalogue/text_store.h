// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Many short texts in one buffer, each four bytes of reference and one byte more than its length. Private to this room.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tonalith::catalogue {

class TextStore {
 public:
  /// The reference of a text; 0 is the empty text.
  using Place = std::uint32_t;
  /// Far more than a million names need; every place fits into 32 bits.
  static constexpr std::size_t kMostBytes = std::size_t{1} << 30;

  [[nodiscard]] bool HasRoomFor(std::size_t bytes) const { return bytes < kMostBytes - buffer_.size(); }
  /// Only if HasRoomFor. A text ends at its first zero byte.
  Place Add(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    if (text.empty()) return 0;
    const auto place = static_cast<Place>(buffer_.size());
    buffer_.append(text).push_back('\0');
    return place;
  }
  /// Valid until the next Add.
  [[nodiscard]] std::string_view At(Place place) const { return buffer_.c_str() + place; }

  [[nodiscard]] std::size_t Size() const { return buffer_.size(); }
  /// Removes what was added since the size was `size`.
  void ShrinkTo(std::size_t size) { buffer_.resize(size); }
  /// Gives memory back that is reserved for growth.
  void Trim() { buffer_.shrink_to_fit(); }

 private:
  std::string buffer_ = std::string(1, '\0');
};

}  // namespace tonalith::catalogue

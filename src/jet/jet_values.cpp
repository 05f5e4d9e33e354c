// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_values.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "core/failure.h"
#include "core/text.h"
#include "jet/messages.h"

namespace tonalith::jet {
namespace {

constexpr std::uint32_t kFirstHigh = 0xD800;
constexpr std::uint32_t kFirstLow = 0xDC00;
constexpr std::uint32_t kEndLow = 0xE000;

core::Failure BrokenText() { return core::Failure::Unspecified(MessageId::kBrokenText); }

std::u16string Units(std::span<const std::uint8_t> bytes) {
  const bool isCompressed = bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
  if (isCompressed) bytes = bytes.subspan(2);
  std::u16string units;
  units.reserve(bytes.size());
  bool isByteRun = isCompressed;
  for (std::size_t i = 0; i < bytes.size();) {
    if (isCompressed && bytes[i] == 0) {
      isByteRun = !isByteRun;
      ++i;
    } else if (isByteRun) {
      units += static_cast<char16_t>(bytes[i++]);
    } else {
      if (i + 1 >= bytes.size()) throw BrokenText();
      units += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
      i += 2;
    }
  }
  return units;
}

class Converter {
 public:
  explicit Converter(const std::string& from) : handle_(::iconv_open("UTF-8", from.c_str())) {
    if (handle_ == kNone) throw core::Failure::Unspecified({MessageId::kUnknownCodePage, from});
  }
  ~Converter() { ::iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  std::string Convert(std::span<const std::uint8_t> bytes) {
    std::string input(bytes.begin(), bytes.end());
    std::string text(bytes.size() * 4 + 4, '\0');
    char* from = input.data();
    char* to = text.data();
    std::size_t left = input.size();
    std::size_t remaining = text.size();
    if (::iconv(handle_, &from, &left, &to, &remaining) == static_cast<std::size_t>(-1)) throw BrokenText();
    text.resize(text.size() - remaining);
    return text;
  }

 private:
  // The failure result of iconv_open.
  inline static const iconv_t kNone = reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
  iconv_t handle_;
};

}  // namespace

std::string JetUnicodeText(std::span<const std::uint8_t> bytes) {
  const std::u16string units = Units(bytes);
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const std::uint32_t unit = units[i];
    if (unit < kFirstHigh || unit >= kEndLow) {
      core::AppendUtf8(text, unit);
      continue;
    }
    const bool isPair = unit < kFirstLow && i + 1 < units.size() && units[i + 1] >= kFirstLow && units[i + 1] < kEndLow;
    if (!isPair) throw BrokenText();
    core::AppendUtf8(text, 0x10000 + ((unit - kFirstHigh) << 10) + (units[++i] - kFirstLow));
  }
  return text;
}

std::string JetCodePageText(std::span<const std::uint8_t> bytes, int codePage) {
  return Converter("CP" + std::to_string(codePage == 0 ? 1252 : codePage)).Convert(bytes);
}

std::string JetDate(double days) {
  using namespace std::chrono;
  constexpr double kMillisecondsPerDay = 86'400'000.0;
  // The years 100 to 9999, the range of the format.
  if (!(days > -657'435.0 && days < 2'958'466.0)) throw core::Failure::Unspecified(MessageId::kDateOutside);
  double whole = std::trunc(days);
  auto inDay = milliseconds(std::llround(std::abs(days - whole) * kMillisecondsPerDay));
  // Times are stored in seconds; a difference of at most 1 ms is a rounding error of the double.
  const auto second = round<seconds>(inDay);
  if (abs(inDay - milliseconds(second)) <= 1ms) inDay = second;
  sys_days day = sys_days(year(1899) / December / 30) + std::chrono::days(static_cast<int>(whole));
  if (inDay >= 24h) {
    day += std::chrono::days(1);
    inDay -= 24h;
  }
  const year_month_day date(day);
  const hh_mm_ss<milliseconds> time(inDay);
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  std::string result = text.data();
  if (time.subseconds().count() != 0) {
    std::snprintf(text.data(), text.size(), ".%03d", static_cast<int>(time.subseconds().count()));
    result += text.data();
  }
  return result;
}

core::Value JetDecimal(std::string_view text) {
  // The number of decimal digits that a double always preserves.
  constexpr std::ptrdiff_t kExactDigits = 15;
  if (text.find('.') != std::string_view::npos) {
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
  }
  const char* const end = text.data() + text.size();
  std::int64_t whole = 0;
  const auto [afterWhole, wholeError] = std::from_chars(text.data(), end, whole);
  if (wholeError == std::errc() && afterWhole == end) return whole;
  double fraction = 0;
  const auto [afterFraction, fractionError] = std::from_chars(text.data(), end, fraction);
  const bool isNumber = fractionError == std::errc() && afterFraction == end;
  const std::ptrdiff_t digits = std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (isNumber && digits <= kExactDigits) return fraction;
  return std::string(text);
}

}  // namespace tonalith::jet

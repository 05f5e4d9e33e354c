// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_address.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "help/markup.h"

namespace tonalith::help {
namespace {

bool IsSchemeCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

}  // namespace

std::string SchemeOf(std::string_view address) {
  const std::size_t colon = address.find(':');
  if (colon == std::string_view::npos || colon < 2) return {};
  std::string scheme = ToLowerCase(address.substr(0, colon));
  return std::all_of(scheme.begin(), scheme.end(), IsSchemeCharacter) ? scheme : std::string();
}

std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned byte = 0;
    const std::string_view digits = text[at] == '%' ? text.substr(at + 1, 2) : std::string_view();
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() == 2 && error == std::errc() && end == digits.data() + 2) {
      decoded += static_cast<char>(static_cast<unsigned char>(byte));
      at += 2;
    } else {
      decoded += text[at];
    }
  }
  return decoded;
}

std::string ResolvedPath(std::string_view base, std::string_view relative) {
  std::string path = ToLowerCase(relative);
  std::replace(path.begin(), path.end(), '\\', '/');
  if (path.empty() || path[0] != '/') {
    path = ToLowerCase(base.substr(0, std::min(base.rfind('/'), base.size()))) + "/" + path;
  }
  std::vector<std::string_view> parts;
  for (std::string_view rest = path; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
  }
  std::string resolved;
  for (const std::string_view part : parts) resolved += "/" + std::string(part);
  return resolved.empty() ? "/" : resolved;
}

std::string_view WithoutStore(std::string_view address) {
  const std::string scheme = SchemeOf(address);
  if (scheme != "ms-its" && scheme != "its" && scheme != "mk") return address;
  const std::size_t separator = address.find("::");
  return separator == std::string_view::npos ? address : address.substr(separator + 2);
}

}  // namespace tonalith::help

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/connection_string.h"

#include <algorithm>
#include <array>

#include "core/paths.h"
#include "core/text.h"
#include "data/data_failure.h"
#include "data/messages.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

// Keywords that are accepted and ignored.
constexpr std::array<std::string_view, 5> kWithoutEffect = {"Persist Security Info", "Extended Properties",
                                                            "Locale Identifier", "Window Handle", "OLE DB Services"};
constexpr std::array<std::string_view, 8> kWithEffect = {"Provider", "Data Source", "DataSource", "Mode",
                                                         "User ID",  "UID",         "Password",   "PWD"};

bool IsKeyword(std::string_view key) {
  const auto isKey = [&](std::string_view known) { return SameName(known, key); };
  return std::any_of(kWithEffect.begin(), kWithEffect.end(), isKey) ||
         std::any_of(kWithoutEffect.begin(), kWithoutEffect.end(), isKey) || SameName(key.substr(0, 10), "Jet OLEDB:");
}

std::string_view KeyOf(std::string_view text) {
  const std::size_t end = text.find_first_of("=;");
  return end == std::string_view::npos || text[end] == ';' ? std::string_view() : core::Trim(text.substr(0, end));
}

std::string TakeQuoted(std::string_view& rest, char quote) {
  std::string value;
  std::size_t i = 1;
  for (;; ++i) {
    if (i >= rest.size()) throw core::Failure::Unspecified(MessageId::kOpenConnectionValue);
    if (rest[i] == quote) {
      if (i + 1 >= rest.size() || rest[i + 1] != quote) break;
      ++i;
    }
    value += rest[i];
  }
  rest.remove_prefix(i + 1);
  const std::size_t end = std::min(rest.find(';'), rest.size());
  if (!core::Trim(rest.substr(0, end)).empty()) {
    throw core::Failure::Unspecified(MessageId::kTextAfterConnectionValue);
  }
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return value;
}

// The name of a folder may contain a semicolon without quotes: text after the semicolon that is not a setting belongs
// to the value.
std::string TakePlain(std::string_view& rest, std::size_t from = 0) {
  std::size_t end = std::min(rest.find(';', from), rest.size());
  while (end < rest.size()) {
    const std::string_view after = rest.substr(end + 1);
    if (core::Trim(after.substr(0, after.find(';'))).empty() || IsKeyword(KeyOf(after))) break;
    end = std::min(rest.find(';', end + 1), rest.size());
  }
  std::string value(core::Trim(rest.substr(0, end)));
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return value;
}

// The name of a folder may also look like a setting. No other setting contains a path separator, so the path includes
// the last separator.
std::string TakePlainPath(std::string_view& rest) {
  const std::size_t separator = rest.rfind(core::kPathSeparator);
  return TakePlain(rest, separator == std::string_view::npos ? 0 : separator);
}

bool IsReadOnlyMode(const std::string& mode) {
  bool isReadOnly = false;
  std::string_view rest = mode;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('|'), rest.size());
    const std::string_view part = core::Trim(rest.substr(0, end));
    if (SameName(part, "Read")) {
      isReadOnly = true;
    } else if (!SameName(part, "ReadWrite") && !SameName(part, "Share Deny None") && !part.empty()) {
      throw core::Failure::Unspecified({MessageId::kUnknownMode, std::string(part)});
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return isReadOnly;
}

bool IsDataSource(std::string_view key) { return SameName(key, "Data Source") || SameName(key, "DataSource"); }

void Apply(ConnectionSettings& settings, std::string_view key, std::string value) {
  if (SameName(key, "Provider")) {
    settings.provider = std::move(value);
  } else if (IsDataSource(key)) {
    settings.dataSource = std::move(value);
  } else if (SameName(key, "Mode")) {
    settings.isReadOnly = IsReadOnlyMode(value);
  } else if (SameName(key, "User ID") || SameName(key, "UID")) {
    settings.user = std::move(value);
  } else if (SameName(key, "Password") || SameName(key, "PWD")) {
    settings.password = std::move(value);
  }
}

std::string Quoted(const std::string& value) {
  const bool isPlain =
      !value.empty() && value.find_first_of(";\"'=") == std::string::npos && core::Trim(value) == value;
  if (isPlain) return value;
  std::string quoted = "\"";
  for (const char c : value) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

}  // namespace

ConnectionSettings ParseConnectionString(std::string_view text) {
  ConnectionSettings settings;
  if (!IsKeyword(KeyOf(text))) {
    settings.dataSource = text;
    return settings;
  }
  std::string_view rest = text;
  while (!core::Trim(rest).empty()) {
    if (core::Trim(rest).front() == ';') {
      rest.remove_prefix(rest.find(';') + 1);
      continue;
    }
    const std::string_view key = KeyOf(rest);
    if (!IsKeyword(key)) throw core::Failure::Unspecified({MessageId::kUnknownSetting, std::string(key)});
    rest.remove_prefix(rest.find('=') + 1);
    while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
    const bool isQuoted = !rest.empty() && (rest.front() == '"' || rest.front() == '\'');
    if (isQuoted) {
      Apply(settings, key, TakeQuoted(rest, rest.front()));
    } else {
      Apply(settings, key, IsDataSource(key) ? TakePlainPath(rest) : TakePlain(rest));
    }
  }
  return settings;
}

std::string ExpandedConnectionString(const ConnectionSettings& settings) {
  return "Provider=" + Quoted(settings.provider) +
         ";User ID=" + Quoted(settings.user.empty() ? "Admin" : settings.user) +
         ";Data Source=" + Quoted(settings.dataSource) +
         ";Mode=" + (settings.isReadOnly ? "Read|Share Deny None" : "ReadWrite|Share Deny None") +
         ";Extended Properties=\"\";Persist Security Info=False";
}

}  // namespace tonalith::data

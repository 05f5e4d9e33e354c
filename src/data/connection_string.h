// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Parses and formats connection strings. Keywords are accepted in any case and order, values in either kind of quotes.
// A path without quotes may contain any text, even text that looks like a setting. Pure functions.

#pragma once

#include <string>
#include <string_view>

namespace tonalith::data {

struct ConnectionSettings {
  std::string provider;
  std::string dataSource;
  std::string user;
  std::string password;
  bool isReadOnly = false;
};

/// Text that does not start with a known keyword and "=" is the path of the data source. Throws for an unknown setting
/// or mode and for malformed quotes.
ConnectionSettings ParseConnectionString(std::string_view text);

/// The expanded form: every setting with its keyword, values quoted if needed. Never contains the password.
std::string ExpandedConnectionString(const ConnectionSettings& settings);

}  // namespace tonalith::data

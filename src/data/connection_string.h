// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What a connection string says, and the string that says it. Keywords come in any case and order, values may be quoted
// with either kind of quote. A path without quotes may hold anything, even what looks like a setting. Plain values and
// pure functions; a string that cannot be understood throws in words.

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

/// Reads a connection string. Text that does not begin with a known keyword and "=" is the path of the data source.
ConnectionSettings ParseConnectionString(std::string_view text);

/// The expanded form: every setting with its keyword, values quoted where they have to be. Never holds the password.
std::string ExpandedConnectionString(const ConnectionSettings& settings);

}  // namespace tonalith::data

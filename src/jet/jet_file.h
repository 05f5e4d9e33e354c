// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Genuine Jet files (version 4 and later, version 3 as far as libmdb knows it): recognised by their content, read from
// beginning to end, never written. The reading is done in a process of its own, because libmdb trusts its input: a file
// that makes it crash or run for ever is reported as damaged. All rows arrive or the file is refused: what was read is
// held against the row numbers and lengths that the file itself gives. Texts arrive as UTF-8, yes/no as 0 or 1, dates
// as "2026-01-31 17:05:00", amounts of money and decimals as numbers, or as text where a number would round them, OLE
// objects as their bytes. One thread. Fails by throwing core::Failure with a description that names the file.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/value.h"
#include "sandbox/child_process.h"

namespace tonalith::jet {

enum class JetContent { kYesNo, kWholeNumber, kFraction, kDecimal, kDate, kText, kBytes };

struct JetColumn {
  std::string name;
  JetContent content = JetContent::kText;
  bool operator==(const JetColumn&) const = default;
};

struct JetTable {
  std::string name;
  std::vector<JetColumn> columns;
  bool operator==(const JetTable&) const = default;
};

/// Something in a Jet file that is no table: its kind in words ("form", "stored query") and its name.
struct JetObject {
  std::string kind;
  std::string name;
  bool operator==(const JetObject&) const = default;
};

/// Takes what is in a Jet file, in this order: the other objects, then each of the user's tables with its rows. What it
/// throws ends the reading.
class JetVisitor {
 public:
  virtual ~JetVisitor() = default;
  virtual void OnObject(const JetObject& object) = 0;
  virtual void OnTable(const JetTable& table) = 0;
  /// A row of the latest table, one value for each of its columns.
  virtual void OnRow(std::vector<core::Value> values) = 0;
};

/// Whether a file begins as Jet files do. A file that is not there or cannot be read does not.
bool IsJetFile(const std::string& path);

/// Reads the whole file. A large file gets memory above that of the limits. `whileWaiting` as ChildProcess has it.
void ReadJetFile(const std::string& path, JetVisitor& visitor, sandbox::Limits limits = {},
                 const std::function<void()>& whileWaiting = {});

}  // namespace tonalith::jet

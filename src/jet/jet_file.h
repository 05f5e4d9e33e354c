// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Genuine Jet files (version 4 and later, version 3 as far as libmdb supports it): recognised by their content, read
// completely, never written. libmdb does not validate its input, so it runs in a child process; a file that crashes it
// or never ends is reported as damaged. All rows are read, or the file is refused: the content is checked against the
// row counts and lengths in the file. Texts are returned as UTF-8, yes/no as 0 or 1, dates as "2026-01-31 17:05:00",
// money and decimals as numbers, or as text if a number would round them, OLE objects as bytes. Throws core::Failure;
// the description contains the file name.

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

/// An object of a Jet file that is not a table: its kind as text ("form", "stored query") and its name.
struct JetObject {
  std::string kind;
  std::string name;
  bool operator==(const JetObject&) const = default;
};

/// Receives the content of a Jet file in this order: the objects, then each user table followed by its rows. An
/// exception of the visitor ends the reading.
class JetVisitor {
 public:
  virtual ~JetVisitor() = default;
  virtual void OnObject(const JetObject& object) = 0;
  virtual void OnTable(const JetTable& table) = 0;
  /// A row of the latest table, with one value per column.
  virtual void OnRow(std::vector<core::Value> values) = 0;
};

/// Whether a file starts with the signature of a Jet file. False for a file that does not exist or cannot be read.
bool IsJetFile(const std::string& path);

/// Reads the complete file. For a large file the memory limit is raised. `whileWaiting`: see ChildProcess.
void ReadJetFile(const std::string& path, JetVisitor& visitor, sandbox::Limits limits = {},
                 const std::function<void()>& whileWaiting = {});

}  // namespace tonalith::jet

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Writes the current row of a cursor. Each call is one transaction: it writes all or throws and writes nothing. Throws
// -2147217864 if the row is deleted, -2147217863 if another connection has changed it, and like the engine. `selection`
// has a walk. References must outlive the writer. Private to this room.

#pragma once

#include <cstdint>

#include "data/pending_edit.h"
#include "data/row_source.h"

namespace tonalith::data {

class RowCursor;

class RowWriter {
 public:
  RowWriter(Engine& engine, const Selection& selection, RowCursor& cursor)
      : engine_(engine), selection_(selection), walk_(*selection.walk), cursor_(cursor) {}

  /// Clears `edit` after writing it. A new row becomes the current one.
  void Write(PendingEdit& edit);
  void Delete();

 private:
  [[nodiscard]] std::int64_t Insert(const SetFields& set);
  void Update(SetFields set);
  void RequireRow(std::int64_t key);
  [[nodiscard]] std::int64_t KeyOfInserted(const SetFields& set);
  [[nodiscard]] std::int64_t HighestKey();

  Engine& engine_;
  const Selection& selection_;
  const Selection::Walk& walk_;
  RowCursor& cursor_;
};

}  // namespace tonalith::data

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The schema of a scale database as numbered revisions: the tables Scales and ScaleTypes and the stored query
// ScalesQuery, which is a view with triggers that add, change and delete scales and refuse, in readable words, what
// must not be. Writes to the tables themselves are not guarded, and a file whose rows already break a rule opens. A
// file of ours bears kApplicationId and, as its user version, the last revision applied. Fails by throwing
// core::Failure.

#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace SQLite {  // NOLINT(readability-identifier-naming): the library's name
class Database;
}

namespace tonalith::data {

/// "TNLH" in the file's header.
inline constexpr std::int32_t kApplicationId = 0x544E4C48;

/// The statements that lead from the revision before to this one.
struct SchemaRevision {
  const char* statements;
};

/// All revisions, the first one being number 1.
std::span<const SchemaRevision> SchemaRevisions();

/// The statements that create each table, index, view and trigger of all revisions, as a file keeps them.
const std::vector<std::string>& SchemaObjects();

/// Makes a new file with the present schema and no rows. Throws when there is a file of that name.
void CreateScaleDatabase(const std::filesystem::path& path);

/// Brings an open file of ours, of whatever revision, to the last of `revisions`, in one transaction. A file of another
/// program is left alone; one of a newer revision is refused. One with a schema that cannot be written to at the
/// moment, or is damaged, stays at its revision and is upgraded when it is opened another time.
void UpgradeSchema(SQLite::Database& database, const std::string& path,
                   std::span<const SchemaRevision> revisions = SchemaRevisions());

/// The column that identifies a row of a stored query; nullptr for a name that is no stored query.
const char* StoredQueryKey(const std::string& name);

}  // namespace tonalith::data

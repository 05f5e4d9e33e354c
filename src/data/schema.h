// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The schema of a scale database as numbered revisions: the tables Scales and ScaleTypes and the stored query
// ScalesQuery, a view with triggers that add, change and delete scales and refuse invalid values with a readable
// message. Writes to the tables themselves are not checked, and a file with invalid rows opens. A scale database has
// kApplicationId in its header and the last applied revision as its user version.

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

/// "TNLH" in the header of the file.
inline constexpr std::int32_t kApplicationId = 0x544E4C48;

/// The statements that upgrade the previous revision to this one.
struct SchemaRevision {
  const char* statements;
};

/// All revisions; the first one is number 1.
std::span<const SchemaRevision> SchemaRevisions();

/// The statements that create each table, index, view and trigger of all revisions, as stored in a file.
const std::vector<std::string>& SchemaObjects();

/// Creates a file with the current schema and no rows. Throws if the file exists.
void CreateScaleDatabase(const std::filesystem::path& path);

/// Upgrades an open scale database to the last of `revisions` in one transaction. A file of another program is not
/// changed; a newer revision throws. A file that cannot be written now, or is damaged, keeps its revision and is
/// upgraded when it is opened another time.
void UpgradeSchema(SQLite::Database& database, const std::string& path,
                   std::span<const SchemaRevision> revisions = SchemaRevisions());

/// The key column of a stored query; nullptr for a name that is not a stored query.
const char* StoredQueryKey(const std::string& name);

}  // namespace tonalith::data

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/schema_guard.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "data/formula_tables.h"
#include "data/schema.h"
#include "data/shipped_rows.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

constexpr std::string_view kStoredQuery = "ScalesQuery";
constexpr std::string_view kCreate = "CREATE ";

/// The tables that Tonalith's stored query needs.
bool IsTableOfQuery(std::string_view name) { return SameName(name, "Scales") || SameName(name, "ScaleTypes"); }

struct Findings {
  bool hasOurQuery = false;
  bool hasOthers = false;
  bool hasTrigger = false;
  bool hasTriggerOfTable = false;
  int tablesOfQuery = 0;
  std::string viewAsTable;
};

// Reads triggers, views, tables and indexes. The internal objects of the engine have a reserved prefix.
Findings ReadSchema(SQLite::Database& database) {
  const std::set<std::string_view> ours(SchemaObjects().begin(), SchemaObjects().end());
  Findings findings;
  SQLite::Statement objects(
      database, "SELECT type, name, tbl_name, sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
  while (objects.executeStep()) {
    const std::string type = objects.getColumn(0).getString();
    const std::string name = objects.getColumn(1).getString();
    const std::string statement = objects.getColumn(3).getString();
    const bool isOurs = ours.contains(statement) || statement == kCreateRevisions || CreatesFormulaTable(statement);
    findings.hasOurQuery |= isOurs && SameName(name, kStoredQuery);
    findings.tablesOfQuery += type == "table" && IsTableOfQuery(name) ? 1 : 0;
    if (type == "view" && IsTableOfQuery(name)) findings.viewAsTable = name;
    if (isOurs) continue;
    findings.hasOthers = true;
    if (type != "trigger") continue;
    findings.hasTrigger = true;
    findings.hasTriggerOfTable |= !SameName(objects.getColumn(2).getString(), kStoredQuery);
  }
  return findings;
}

void CreateOurView(SQLite::Database& database) {
  for (const std::string& object : SchemaObjects()) {
    if (object.starts_with("CREATE VIEW ")) database.exec("CREATE TEMP " + object.substr(kCreate.size()));
  }
}

void CreateOurTriggers(SQLite::Database& database, std::string_view schema) {
  static constexpr std::string_view kOn = " ON ";
  for (const std::string& object : SchemaObjects()) {
    if (!object.starts_with("CREATE TRIGGER ")) continue;
    std::string trigger = "CREATE TEMP " + object.substr(kCreate.size());
    trigger.insert(trigger.find(kOn) + kOn.size(), schema);
    database.exec(trigger);
  }
}

void StopTriggersOfFile(SQLite::Database& database) {
  sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
}

}  // namespace

SchemaGuard GuardSchema(SQLite::Database& database) {
  const Findings findings = ReadSchema(database);
  SchemaGuard guard;
  guard.isOurs = findings.hasOurQuery && !findings.hasOthers;
  guard.stopsTriggers = findings.hasTrigger;
  guard.stopsWriting = !findings.hasOurQuery && findings.hasTriggerOfTable;
  guard.replacesQuery = !findings.hasOurQuery && findings.tablesOfQuery == 2;
  guard.viewAsTable = findings.viewAsTable;
  if (guard.replacesQuery) {
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    CreateOurView(database);
    // The triggers of a temporary view run only if those of the file are enabled too. The triggers of the file's stored
    // query are harmless, because no statement uses it now, but those of its tables are not.
    if (findings.hasTriggerOfTable) {
      StopTriggersOfFile(database);
    } else {
      CreateOurTriggers(database, "temp.");
    }
  } else if (findings.hasTrigger) {
    StopTriggersOfFile(database);
    if (findings.hasOurQuery) CreateOurTriggers(database, "main.");
  }
  return guard;
}

}  // namespace tonalith::data

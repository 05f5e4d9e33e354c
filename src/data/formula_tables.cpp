// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/formula_tables.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <algorithm>
#include <utility>

#include "core/field_limits.h"
#include "data/data_failure.h"

namespace tonalith::data {
namespace {

/// Bytes of a character in UTF-8.
constexpr int kLongestCharacter = 4;

/// Removes the text up to the separator from `rest` and returns it.
std::string_view Take(std::string_view& rest, std::string_view separator) {
  const std::size_t end = std::min(rest.find(separator), rest.size());
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(std::min(end + separator.size(), rest.size()));
  return taken;
}

std::string KeyOf(std::string_view name, std::string_view pattern) {
  std::string key(name);
  key += '\t';
  return key += pattern;
}

/// One scale of the file.
struct Scale {
  std::int64_t id = 0;
  std::string name;
  std::string pattern;
};

class Writer {
 public:
  explicit Writer(SQLite::Database& database)
      : formulas_(database,
                  "INSERT OR REPLACE INTO ScaleFormulas (ScaleID, ScaleName, ScaleIntervals, Formula) "
                  "VALUES (?, ?, ?, ?)"),
        aliases_(database,
                 "INSERT OR REPLACE INTO ScaleAliases (ScaleID, ScaleName, ScaleIntervals, Alias, Place) "
                 "VALUES (?, ?, ?, ?, ?)") {}

  void Add(const Scale& scale, const FormulaLines::Entry& entry) {
    Bind(formulas_, scale, entry.formula);
    Run(formulas_);
    int place = 0;
    for (const std::string_view alias : entry.Aliases()) {
      Bind(aliases_, scale, alias);
      aliases_.bind(5, place++);
      Run(aliases_);
    }
  }

 private:
  static void Bind(SQLite::Statement& statement, const Scale& scale, std::string_view text) {
    statement.bind(1, scale.id);
    statement.bindNoCopy(2, scale.name);
    statement.bindNoCopy(3, scale.pattern);
    statement.bind(4, std::string(text));
  }
  static void Run(SQLite::Statement& statement) {
    statement.exec();
    statement.reset();
  }

  SQLite::Statement formulas_;
  SQLite::Statement aliases_;
};

// IF NOT EXISTS is not part of the statement that the file stores.
void CreateTable(SQLite::Database& database, std::string_view statement) {
  constexpr std::string_view kCreate = "CREATE TABLE ";
  database.exec(std::string(kCreate) + "IF NOT EXISTS " + std::string(statement.substr(kCreate.size())));
}

}  // namespace

std::vector<std::string_view> FormulaLines::Entry::Aliases() const {
  std::vector<std::string_view> split;
  std::string_view rest = aliases;
  while (!rest.empty() && split.size() < static_cast<std::size_t>(kMostAliases)) split.push_back(Take(rest, "; "));
  return split;
}

FormulaLines::FormulaLines(std::string_view text) {
  while (!text.empty()) {
    std::string_view line = Take(text, "\n");
    const std::string_view name = Take(line, "\t");
    std::string key = KeyOf(name, Take(line, "\t"));
    const std::string_view formula = Take(line, "\t");
    entries_.emplace(std::move(key), Entry{formula, line});
  }
}

const FormulaLines::Entry* FormulaLines::Find(std::string_view name, std::string_view pattern) const {
  const auto found = entries_.find(KeyOf(name, pattern));
  return found == entries_.end() ? nullptr : &found->second;
}

bool CreatesFormulaTable(std::string_view statement) {
  return statement == kCreateScaleFormulas || statement == kCreateScaleAliases;
}

void AddFormulas(SQLite::Database& database, std::string_view formulas) {
  CreateTable(database, kCreateScaleFormulas);
  CreateTable(database, kCreateScaleAliases);
  Writer writer(database);
  const FormulaLines lines(formulas);
  SQLite::Statement scales(database, "SELECT ScaleID, ScaleName, ScaleIntervals FROM Scales");
  constexpr int kLongest = kLongestCharacter * static_cast<int>(core::kLongestName);
  while (scales.executeStep()) {
    // No line has a longer name or pattern.
    if (scales.getColumn(1).getBytes() > kLongest || scales.getColumn(2).getBytes() > kLongest) continue;
    const Scale scale{scales.getColumn(0).getInt64(), scales.getColumn(1).getString(), scales.getColumn(2).getString()};
    if (const FormulaLines::Entry* const entry = lines.Find(scale.name, scale.pattern)) writer.Add(scale, *entry);
  }
}

void AddFormulasToFile(const std::string& path, std::string_view formulas) {
  try {
    SQLite::Database database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    AddFormulas(database, formulas);
    transaction.commit();
  } catch (const SQLite::Exception& exception) {
    throw FromEngine(exception, path);
  }
}

}  // namespace tonalith::data

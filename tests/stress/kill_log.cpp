// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/kill_log.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "stress/finding.h"

namespace tonalith::stress {
namespace {

constexpr std::string_view kWorkName = "Kill ";

/// The number after "number " in a description.
int NumberIn(const std::string& description) {
  return std::atoi(description.c_str() + std::min<std::size_t>(description.size(), 7));
}

void RequireWholeRow(const Scale& scale) {
  const std::string name = scale[column::kName].value_or("(null)");
  const WorkRow stored = {scale[column::kDescription].value_or("(null)"), scale[column::kStart].value_or("(null)"),
                          scale[column::kSort].value_or("(null)")};
  Require(stored == WorkRow::Of(NumberIn(stored.description)), "half a row",
          name + ": " + stored.description + ", " + stored.start + ", " + stored.sort);
  const bool isWhole = scale[column::kTypeId] && scale[column::kIntervals] == "2212221" && scale[column::kChord];
  Require(isWhole, "half a row", name + " lacks what a new scale begins with");
}

std::string Description(const std::map<std::string, int>& rows, const std::map<std::string, int>& others) {
  for (const auto& [name, number] : rows) {
    const auto other = others.find(name);
    if (other == others.end()) return name + " is missing";
    if (other->second != number)
      return name + " is " + std::to_string(other->second) + ", not " + std::to_string(number);
  }
  for (const auto& [name, number] : others) {
    if (rows.count(name) == 0) return name + " should not be there";
  }
  return {};
}

}  // namespace

void KillLog::BeginRound(WorkPack pack) { pack_ = std::move(pack); }

void KillLog::AddReport(const std::string& report) {
  std::istringstream fields(report);
  Operation operation;
  std::string number;
  std::getline(fields, operation.kind, '\t');
  std::getline(fields, operation.name, '\t');
  if (std::getline(fields, number)) operation.number = std::stoi(number);
  if (operation.kind == "ready") return;
  if (operation.kind == "unexpected") throw Finding("the worker was surprised", operation.name);
  if (operation.kind != "done") {
    pending_ = operation;
    return;
  }
  Require(pending_.has_value(), "the worker ended what it had not begun", report);
  Apply(*pending_);
  pending_.reset();
  ++done;
}

void KillLog::Apply(const Operation& operation) {
  if (operation.kind == "install") {
    packs_[pack_.namePrefix] = pack_;
  } else if (operation.kind == "delete") {
    rows_.erase(operation.name);
  } else {
    rows_[operation.name] = operation.number;
  }
}

KillLog::Rows KillLog::RowsOf(const Library& library) const {
  Rows rows;
  for (const auto& [number, scale] : library.scales) {
    const std::string name = scale[column::kName].value_or("");
    if (!name.starts_with(kWorkName)) continue;
    RequireWholeRow(scale);
    const bool isOne = rows.emplace(name, NumberIn(*scale[column::kDescription])).second;
    Require(isOne, "a row twice", name);
  }
  return rows;
}

void KillLog::CheckPacks(const Library& library) {
  std::map<std::string, int> counts;
  std::size_t others = 0;
  for (const auto& [number, scale] : library.scales) {
    const std::string name = scale[column::kName].value_or("");
    if (name.starts_with("Pack")) {
      ++counts[name.substr(0, name.find(' '))];
      Require(scale[column::kDescription] && scale[column::kIntervals] && scale[column::kTypeId], "half a row", name);
    } else if (!name.starts_with(kWorkName)) {
      ++others;
      const auto old = initial_.scales.find(number);
      Require(old != initial_.scales.end() && old->second == scale, "a scale that nobody touched has changed", name);
    }
  }
  Require(others == initial_.scales.size(), "a scale that nobody touched is gone", std::to_string(others));
  for (const auto& [word, pack] : packs_) {
    Require(counts[word] == pack.scales, "an import that was reported is not there",
            word + ": " + std::to_string(counts[word]) + " of " + std::to_string(pack.scales));
    Require(library.types.count(pack.type) == 1, "an import that was reported is not there", word + ": its type");
  }
  std::size_t known = 0;
  for (const auto& [word, count] : counts) known += count == 0 || packs_.count(word) == 1 ? 0 : 1;
  Require(known == 0, "a pack that was not installed is there", std::to_string(known));
}

void KillLog::CheckLibrary(const Library& library) {
  const std::optional<Operation> open = std::exchange(pending_, std::nullopt);
  const Rows found = RowsOf(library);
  if (open && open->kind == "install") {
    const bool isImported = std::any_of(library.scales.begin(), library.scales.end(), [&](const auto& scale) {
      return scale.second[column::kName].value_or("").starts_with(pack_.namePrefix + " ");
    });
    const bool isTypeImported = library.types.count(pack_.type) == 1;
    Require(isImported == isTypeImported, "an import is there by half", pack_.namePrefix);
    if (isImported) Apply(*open);
    ++(isImported ? completed : rolledBack);
  } else if (open) {
    const Rows before = rows_;
    if (Apply(*open); found == rows_) {
      ++completed;
    } else {
      rows_ = before;
      ++rolledBack;
    }
  }
  const std::string wrong = Description(rows_, found);
  Require(wrong.empty(), "the library is neither as before nor as after", wrong);
  CheckPacks(library);
}

}  // namespace tonalith::stress

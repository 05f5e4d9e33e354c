// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/expected_library.h"

#include <QKeySequence>
#include <algorithm>

#include "editor/scales_controls.h"
#include "stress/editor_rules.h"
#include "stress/finding.h"
#include "stress/music.h"
#include "stress/user_input.h"

namespace tonalith::stress {
namespace {

constexpr std::string_view kImported = "Imported data pack: \n";

/// The differences between two libraries, by scale number.
struct Changes {
  std::vector<std::int64_t> added;
  std::vector<std::int64_t> changed;
  std::vector<std::int64_t> deleted;
  [[nodiscard]] std::size_t Size() const { return added.size() + changed.size() + deleted.size(); }
};

Changes Compare(const Library& before, const Library& after) {
  Changes difference;
  for (const auto& [number, scale] : after.scales) {
    const auto old = before.scales.find(number);
    if (old == before.scales.end()) {
      difference.added.push_back(number);
    } else if (old->second != scale) {
      difference.changed.push_back(number);
    }
  }
  for (const auto& [number, scale] : before.scales) {
    if (after.scales.count(number) == 0) difference.deleted.push_back(number);
  }
  return difference;
}

std::string Description(const Changes& difference, const Library& before, const Library& after) {
  std::string text;
  const auto add = [&](const char* what, const std::vector<std::int64_t>& numbers, const Library& library) {
    for (std::size_t i = 0; i < std::min<std::size_t>(numbers.size(), 5); ++i) {
      text += what + std::to_string(numbers[i]) + " '" +
              library.scales.at(numbers[i])[column::kName].value_or("(null)") + "' ";
    }
  };
  add("added ", difference.added, after);
  add("changed ", difference.changed, after);
  add("gone ", difference.deleted, before);
  return text + "(" + std::to_string(difference.Size()) + " in all)";
}

bool IsAgreed(const Action& action) {
  return action.kind == action_kind::kAnswer && (action.text == "OK" || action.text == "Return");
}

bool IsYes(const Action& action) {
  return action.kind == action_kind::kAnswer && (action.text == "Yes" || action.text == "Alt+Y");
}

bool IsAny(const std::vector<Action>& actions, bool (*fits)(const Action&)) {
  return std::any_of(actions.begin(), actions.end(), fits);
}

bool IsDeletionConfirmed(const VisibleState& before, const std::vector<Action>& actions) {
  return before.message == message_text::kDelete && IsAny(actions, IsYes);
}

std::string Lines(const std::vector<Action>& actions) {
  std::string lines;
  for (const Action& action : actions) lines += (lines.empty() ? "" : ", ") + action.Line();
  return lines;
}

/// Whether the action may return a field to the stored value.
bool IsEditing(const Action& action) {
  if (action.kind == action_kind::kType || action.kind == action_kind::kErase || action.kind == action_kind::kEntry)
    return true;
  if (action.kind == action_kind::kWheel) return true;
  static const std::vector<std::string> keys = {"Ctrl+Z", "Ctrl+Y",    "Ctrl+Shift+Z", "Ctrl+X", "Ctrl+V", "Del",
                                                "Up",     "Backspace", "Down",         "Home",   "End",    "A"};
  return action.kind == action_kind::kKeys && std::find(keys.begin(), keys.end(), action.text) != keys.end();
}

}  // namespace

ExpectedLibrary::ExpectedLibrary(const std::string& libraryPath)
    : file_(libraryPath), expected_(file_.Read()), version_(file_.Version()) {
  const auto latest = file_.Query("SELECT seq FROM sqlite_sequence WHERE name = 'Scales'");
  if (!latest.empty()) latestNumber_ = std::stoll(latest.front().value_or("0"));
}

void ExpectedLibrary::Accept(const Library& found) {
  expected_ = found;
  if (!found.scales.empty()) latestNumber_ = std::max(latestNumber_, found.scales.rbegin()->first);
}

void ExpectedLibrary::CheckFile() const {
  const std::string complaint = file_.IntegrityErrors();
  Require(complaint.empty(), "the library is not sound", complaint);
}

void ExpectedLibrary::CheckImport(const VisibleState& now, const Library& found) {
  const std::string path = now.message.substr(kImported.size());
  const Library wanted = Merged(expected_, LibraryFile(path).Read(), latestNumber_);
  if (found != wanted) {
    throw Finding("an import did not add what its pack holds",
                  path + ": " + Description(Compare(wanted, found), wanted, found));
  }
  ++imports_;
  Accept(found);
}

void ExpectedLibrary::CheckEdit(const VisibleState& before, const std::vector<Action>& actions, const Library& found) {
  const Changes difference = Compare(expected_, found);
  const std::string description = Description(difference, expected_, found) + " after " + Lines(actions);
  Require(found.types == expected_.types, "types changed without an import", description);
  if (difference.Size() == 0) return;
  Require(difference.Size() == 1, "more than one record changed at once", description);
  Require(before.editor.isOpen, "the library changed without an editor", description);
  ++writes_;
  if (!difference.deleted.empty()) {
    Require(IsDeletionConfirmed(before, actions) && difference.deleted.front() == before.editor.number,
            "a record went without being deleted", description);
  } else {
    const bool isNew = !difference.added.empty();
    const std::int64_t number = isNew ? difference.added.front() : difference.changed.front();
    Require(isNew == before.editor.isNew, "another record was written than the one in the editor", description);
    Require(isNew ? number > latestNumber_ : number == before.editor.number,
            "a record was written under another number", description);
    const std::vector<std::string> patterns = {before.editor.pattern.toStdString(),
                                               PatternOfNotes(before.editor.notes)};
    const std::string wrong = stress::Difference(before.editor, found.scales.at(number), patterns);
    Require(wrong.empty(), "the library holds something else than the editor showed", wrong + " " + description);
    const std::string violation = ConstraintViolation(number, found);
    Require(violation.empty(), "the library took what it has to refuse", violation + " " + description);
  }
  Accept(found);
}

void ExpectedLibrary::CheckLostEdit(const VisibleState& before, const std::vector<Action>& actions,
                                    const VisibleState& now) const {
  const EditorState& was = before.editor;
  const EditorState& is = now.editor;
  const bool isSame = is.isOpen && is.isNew == was.isNew && is.number == was.number;
  if (!was.isOpen || !was.isPending || (isSame && is.isPending)) return;
  if (before.message == message_text::kKeep && !IsAny(actions, IsAgreed)) return;
  if (IsDeletionConfirmed(before, actions)) return;
  if (isSame && IsAny(actions, IsEditing)) return;
  if (is.isOpen && is.rejectedFields == was.fields) return;
  const auto row = expected_.scales.find(was.number);
  const std::vector<std::string> patterns = {was.pattern.toStdString(), PatternOfNotes(was.notes)};
  if (!was.isNew && row != expected_.scales.end() && stress::Difference(was, row->second, patterns).empty()) return;
  throw Finding("a change that was pending is neither stored nor pending",
                "scale " + std::to_string(was.number) + " '" + was.fields[editor::field::kName].toStdString() +
                    "' after " + Lines(actions));
}

void ExpectedLibrary::Update(const VisibleState& before, const std::vector<Action>& actions, const VisibleState& now) {
  // A new message box may have the same address as the previous one.
  const bool isNewReport =
      now.message.starts_with(kImported) && (now.box != checkedBox_ || now.message != checkedMessage_);
  checkedBox_ = now.box;
  checkedMessage_ = now.message;
  const std::int64_t version = file_.Version();
  const bool isWritten = version != version_;
  version_ = version;
  if (!isWritten && !isNewReport) return CheckLostEdit(before, actions, now);
  const Library found = file_.Read();
  if (isNewReport) return CheckImport(now, found);
  const long writesBefore = writes_;
  CheckEdit(before, actions, found);
  if (writes_ == writesBefore) CheckLostEdit(before, actions, now);
}

}  // namespace tonalith::stress

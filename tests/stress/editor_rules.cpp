// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/editor_rules.h"

#include <QApplication>
#include <algorithm>

#include "editor/frm_scales.h"
#include "stress/finding.h"
#include "stress/music.h"

namespace tonalith::stress {
namespace {

namespace field = editor::field;

/// An edit field shows line ends and other white space as blanks.
QString AsShown(const Cell& cell) {
  QString text = QString::fromStdString(cell.value_or(std::string()));
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  for (const char16_t other : {u'\n', u'\r', u'\u00a0', u'\u2028', u'\u2029', u'\t'})
    text.replace(QChar(other), QLatin1Char(' '));
  return text;
}

bool IsSameText(const QString& shown, const Cell& cell) { return AsShown(shown.toStdString()) == AsShown(cell); }

/// "05" is the number 5.
bool IsSameNumber(const QString& shown, const Cell& cell) {
  if (shown.trimmed().isEmpty()) return !cell;
  bool isNumber = false;
  const double number = shown.toDouble(&isNumber);
  return cell && isNumber && number == QString::fromStdString(*cell).toDouble();
}

const editor::frmScales* Form() {
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    const auto* const form = qobject_cast<const editor::frmScales*>(window);
    if (form != nullptr && form->isVisible()) return form;
  }
  return nullptr;
}

void CheckMode(const EditorState& state) {
  const editor::frmScales* const form = Form();
  if (form == nullptr) return;
  const editor::ScalesControls& c = form->Controls();
  const auto require = [](bool condition, const char* control) {
    Require(condition, "a control of the editor is not as the mode wants it", control);
  };
  const bool canType = state.isModifying && state.hasRecord;
  require(c.cmdApply->isEnabled() == state.isModifying, "cmdApply");
  require(c.picButtons->isHidden() != state.isModifying, "picButtons");
  require(c.Note(0)->isEnabled() == state.isModifying, "note0");
  require(c.txtFields[field::kName].box->isEnabled() == canType, "txtFields(1)");
  require(c.Combo1->isEnabled() == canType, "Combo1");
  require(c.txtIntervals->isReadOnly() != canType, "txtIntervals");
  require(!c.txtFields[field::kScaleId].box->isEnabled(), "txtFields(0)");
}

void CheckNotes(const EditorState& state) {
  const QString& notice = state.notice;
  const bool areUnsaved =
      notice.startsWith(QLatin1String("Apply saves")) || notice.startsWith(QLatin1String("No note is selected")) ||
      notice.startsWith(QLatin1String("Not kept")) || notice.endsWith(QLatin1String("the rest was left out.")) ||
      notice.startsWith(QLatin1String("Your changes are here again"));
  const std::string pattern = state.fields[field::kIntervals].toStdString();
  if (areUnsaved || PatternOfNotes(state.notes) == pattern) return;
  const unsigned wanted = state.hasRecord ? NotesOfPattern(pattern) : 0;
  Require(state.notes == wanted, "the note buttons are not those of the pattern",
          "'" + pattern + "' shows " + PatternOfNotes(state.notes) + ", notice '" + notice.toStdString() + "'");
}

}  // namespace

std::string Difference(const EditorState& state, const Scale& scale, const std::vector<std::string>& patterns) {
  const auto& f = state.fields;
  const auto description = [&](int index, std::size_t at) {
    return "field " + std::to_string(index) + " '" + f.at(static_cast<std::size_t>(index)).toStdString() +
           "' is stored as '" + scale.at(at).value_or("(null)") + "'";
  };
  if (!IsSameText(f[field::kName], scale[column::kName])) return description(field::kName, column::kName);
  if (!IsSameText(f[field::kDescription], scale[column::kDescription])) {
    return description(field::kDescription, column::kDescription);
  }
  if (!IsSameNumber(f[field::kScaleTypeId], scale[column::kTypeId]))
    return description(field::kScaleTypeId, column::kTypeId);
  const bool isDefaultStart = state.isNew && f[field::kStartNote].isEmpty() && scale[column::kStart] == "C";
  if (!isDefaultStart && !IsSameText(f[field::kStartNote], scale[column::kStart])) {
    return description(field::kStartNote, column::kStart);
  }
  const bool isDefaultSort = state.isNew && f[field::kSort].trimmed().isEmpty();
  if (!isDefaultSort && !IsSameNumber(f[field::kSort], scale[column::kSort]))
    return description(field::kSort, column::kSort);
  const std::string stored = scale[column::kIntervals].value_or("");
  const bool isOneOfThem = std::find(patterns.begin(), patterns.end(), stored) != patterns.end();
  if (!isOneOfThem && !IsSameText(f[field::kIntervals], scale[column::kIntervals])) {
    return description(field::kIntervals, column::kIntervals);
  }
  return {};
}

std::string ConstraintViolation(std::int64_t number, const Library& library) {
  const Scale& scale = library.scales.at(number);
  const std::string name = scale[column::kName].value_or("");
  if (name.find_first_not_of(' ') == std::string::npos) return "it has no name";
  for (const auto& [other, otherScale] : library.scales) {
    if (other != number && FoldedName(otherScale[column::kName].value_or("")) == FoldedName(name)) {
      return "its name is taken: " + name;
    }
  }
  const std::string pattern = scale[column::kIntervals].value_or("");
  if (pattern.find_first_not_of("0123456789 ") != std::string::npos) return "its pattern is '" + pattern + "'";
  if (library.types.count(std::stoll(scale[column::kTypeId].value_or("0"))) == 0) return "it has no type";
  const std::string sort = scale[column::kSort].value_or("0");
  bool isNumber = false;
  QString::fromStdString(sort).toLongLong(&isNumber);
  if (!isNumber) return "its sort number is '" + sort + "'";
  return {};
}

void CheckEditor(const EditorState& state, const Library& library) {
  if (!state.isOpen) return;
  CheckMode(state);
  CheckNotes(state);
  if (!state.hasRecord || state.isPending) return;
  const auto row = library.scales.find(state.number);
  Require(row != library.scales.end(), "the editor shows a record that is not in the library",
          std::to_string(state.number));
  const std::string difference = Difference(state, row->second);
  Require(difference.empty(), "the editor shows something else than the library holds", difference);
}

}  // namespace tonalith::stress

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the user does in the main window and in the editor.

#include <QAbstractButton>
#include <QMenuBar>
#include <QWidget>
#include <string>
#include <vector>

#include "stress/available_controls.h"
#include "stress/random_text.h"
#include "stress/user.h"
#include "stress/user_input.h"

namespace tonalith::stress {
namespace {

using Names = std::vector<const char*>;

const Names kArrows = {"First record", "Previous record", "Next record", "Next record", "Last record"};

}  // namespace

Action User::InMain(QWidget& window) {
  const int throwOf = dice_.Below(100);
  const auto target = [](const char* control) { return std::string("frmTonalith/") + control; };
  if (throwOf < 22) return Click(window, dice_.Pick(kArrows));
  if (throwOf < 44) return InMainByKeys(window);
  if (throwOf < 54) {
    const std::string note = "img" + std::to_string(dice_.Below(96));
    return Click(window, note.c_str());
  }
  if (throwOf < 57) return {verb::kClick, target("cmbTranspose"), {}};
  if (throwOf < 61) return {verb::kErase, target("cmbTranspose"), {}};
  if (throwOf < 65) return Type(window, "cmbTranspose", AnyKey(dice_));
  if (throwOf < 67) return {verb::kWheel, target("cmbTranspose"), dice_.OneIn(2) ? "120" : "-120"};
  if (throwOf < 71) return Click(window, "cmdUpdate");
  if (throwOf < 79) return Click(window, "cmdEdit");
  if (throwOf < 83) return Click(window, "cmdListen");
  if (throwOf < 85) return Click(window, "cmdPrint");
  if (throwOf < 86)
    return dice_.OneIn(2) ? Click(window, "cmdInstall")
                          : Action{verb::kPack, {}, std::to_string(dice_.Between(1, 400))};
  if (throwOf < 93) return {verb::kMenu, "frmTonalith", dice_.OneIn(4) ? "mHelp" : "mFile"};
  if (throwOf < 95) return {verb::kWait, {}, std::to_string(dice_.Between(1, 60))};
  if (throwOf < 96 && dice_.OneIn(12)) return {verb::kClose, "frmTonalith", {}};
  return Anything(window);
}

Action User::InMainByKeys(QWidget& window) {
  static const Names keys = {"PgUp",   "PgDown", "PgDown", "Ctrl+Home", "Ctrl+End", "F5",     "Ctrl+N", "Ctrl+E",
                             "Ctrl+F", "Ctrl+N", "Alt+T",  "Alt+H",     "Alt+E",    "Alt+U",  "Alt+L",  "Esc",
                             "Tab",    "Tab",    "Left",   "Right",     "Up",       "Down",   "Space",  "Return",
                             "F10",    "F1",     "Alt",    "F6",        "Ctrl+L",   "Ctrl+Z", "Delete", "Ctrl+W"};
  if (dice_.OneIn(40)) return Keys(window, "Ctrl+P");
  return Keys(window, dice_.Pick(keys));
}

Action User::InEditor(QWidget& window) {
  const int throwOf = dice_.Below(100);
  if (throwOf < 9) return Click(window, dice_.Pick(kArrows));
  if (throwOf < 17) return Click(window, "cmdModify");
  if (throwOf < 43) return InEditorFields(window);
  if (throwOf < 58) {
    const std::string note = "note" + std::to_string(dice_.Below(12));
    return Click(window, note.c_str());
  }
  if (throwOf < 64) return Click(window, "cmdApply");
  if (throwOf < 71) return Click(window, "cmdAdd");
  if (throwOf < 79) return Click(window, "cmdUpdate");
  if (throwOf < 84) return Click(window, "cmdDelete");
  if (throwOf < 86) return Click(window, "cmdRefresh");
  if (throwOf < 88) return Click(window, "cmdClose");
  if (throwOf < 89) return {verb::kClose, "frmScales", {}};
  static const Names keys = {"Ctrl+Z",       "Ctrl+Z", "Ctrl+Y", "PgUp",  "PgDown", "F2",    "Ctrl+Return",
                             "Esc",          "Tab",    "Space",  "Alt+A", "Alt+U",  "Alt+D", "Alt+R",
                             "Ctrl+Shift+Z", "Return", "Ctrl+Z", "Up",    "Down",   "Del"};
  return Keys(window, dice_.Pick(keys));
}

Action User::InEditorFields(QWidget& window) {
  static const Names boxes = {"txtFields(1)", "txtFields(2)", "txtFields(3)",
                              "txtFields(5)", "txtFields(7)", "txtIntervals"};
  const char* const box = dice_.Pick(boxes);
  const std::string target = std::string("frmScales/") + box;
  if (dice_.OneIn(4)) return {verb::kErase, target, {}};
  switch (dice_.Below(8)) {
    case 0:
      return Click(window, "Combo1");
    case 1:
      return {verb::kWheel, "frmScales/Combo1", dice_.OneIn(2) ? "120" : "-120"};
    case 2:
      return Type(window, "txtFields(2)", AnyText(dice_, 30));
    case 3:
      return Type(window, "txtFields(3)", AnyNumber(dice_));
    case 4:
      return Type(window, "txtFields(7)", AnyNumber(dice_));
    case 5:
      return Type(window, "txtIntervals", AnyPattern(dice_));
    case 6:
      return Type(window, "txtFields(5)", AnyKey(dice_));
    default:
      return Type(window, "txtFields(1)", AnyName(dice_));
  }
}

}  // namespace tonalith::stress

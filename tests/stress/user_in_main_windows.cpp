// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/user_in_main_windows.h"

#include <QWidget>
#include <string>
#include <vector>

#include "stress/random_text.h"
#include "stress/user_input.h"
#include "stress/window_actions.h"

namespace tonalith::stress {
namespace {

using Names = std::vector<const char*>;

const Names kArrows = {"First record", "Previous record", "Next record", "Next record", "Last record"};

Action InMainByKeys(QWidget& window, RandomSource& random) {
  static const Names keys = {"PgUp",   "PgDown", "PgDown", "Ctrl+Home", "Ctrl+End", "F5",     "Ctrl+N", "Ctrl+E",
                             "Ctrl+F", "Ctrl+N", "Alt+T",  "Alt+H",     "Alt+E",    "Alt+U",  "Alt+L",  "Esc",
                             "Tab",    "Tab",    "Left",   "Right",     "Up",       "Down",   "Space",  "Return",
                             "F10",    "F1",     "Alt",    "F6",        "Ctrl+L",   "Ctrl+Z", "Delete", "Ctrl+W"};
  if (random.OneIn(40)) return Keys(window, "Ctrl+P");
  return Keys(window, random.Pick(keys));
}

Action InEditorFields(QWidget& window, RandomSource& random) {
  static const Names boxes = {"txtFields(1)", "txtFields(2)", "txtFields(3)",
                              "txtFields(5)", "txtFields(7)", "txtIntervals"};
  const char* const box = random.Pick(boxes);
  const std::string target = std::string("frmScales/") + box;
  if (random.OneIn(4)) return {action_kind::kErase, target, {}};
  switch (random.Below(8)) {
    case 0:
      return Click(window, "Combo1");
    case 1:
      return {action_kind::kWheel, "frmScales/Combo1", random.OneIn(2) ? "120" : "-120"};
    case 2:
      return Type(window, "txtFields(2)", AnyText(random, 30));
    case 3:
      return Type(window, "txtFields(3)", AnyNumber(random));
    case 4:
      return Type(window, "txtFields(7)", AnyNumber(random));
    case 5:
      return Type(window, "txtIntervals", AnyPattern(random));
    case 6:
      return Type(window, "txtFields(5)", AnyKey(random));
    default:
      return Type(window, "txtFields(1)", AnyName(random));
  }
}

}  // namespace

Action InMainWindow(QWidget& window, RandomSource& random) {
  const int roll = random.Below(100);
  const auto target = [](const char* control) { return std::string("frmTonalith/") + control; };
  if (roll < 22) return Click(window, random.Pick(kArrows));
  if (roll < 44) return InMainByKeys(window, random);
  if (roll < 54) {
    const std::string note = "img" + std::to_string(random.Below(96));
    return Click(window, note.c_str());
  }
  if (roll < 57) return {action_kind::kClick, target("cmbTranspose"), {}};
  if (roll < 61) return {action_kind::kErase, target("cmbTranspose"), {}};
  if (roll < 65) return Type(window, "cmbTranspose", AnyKey(random));
  if (roll < 67) return {action_kind::kWheel, target("cmbTranspose"), random.OneIn(2) ? "120" : "-120"};
  if (roll < 71) return Click(window, "cmdUpdate");
  if (roll < 79) return Click(window, "cmdEdit");
  if (roll < 83) return Click(window, "cmdListen");
  if (roll < 85) return Click(window, "cmdPrint");
  if (roll < 86)
    return random.OneIn(2) ? Click(window, "cmdInstall")
                           : Action{action_kind::kPack, {}, std::to_string(random.Between(1, 400))};
  if (roll < 93) return {action_kind::kMenu, "frmTonalith", random.OneIn(4) ? "mHelp" : "mFile"};
  if (roll < 95) return {action_kind::kWait, {}, std::to_string(random.Between(1, 60))};
  if (roll < 96 && random.OneIn(12)) return {action_kind::kClose, "frmTonalith", {}};
  return AnyControl(window, random);
}

Action InEditor(QWidget& window, RandomSource& random) {
  const int roll = random.Below(100);
  if (roll < 9) return Click(window, random.Pick(kArrows));
  if (roll < 17) return Click(window, "cmdModify");
  if (roll < 43) return InEditorFields(window, random);
  if (roll < 58) {
    const std::string note = "note" + std::to_string(random.Below(12));
    return Click(window, note.c_str());
  }
  if (roll < 64) return Click(window, "cmdApply");
  if (roll < 71) return Click(window, "cmdAdd");
  if (roll < 79) return Click(window, "cmdUpdate");
  if (roll < 84) return Click(window, "cmdDelete");
  if (roll < 86) return Click(window, "cmdRefresh");
  if (roll < 88) return Click(window, "cmdClose");
  if (roll < 89) return {action_kind::kClose, "frmScales", {}};
  static const Names keys = {"Ctrl+Z",       "Ctrl+Z", "Ctrl+Y", "PgUp",  "PgDown", "F2",    "Ctrl+Return",
                             "Esc",          "Tab",    "Space",  "Alt+A", "Alt+U",  "Alt+D", "Alt+R",
                             "Ctrl+Shift+Z", "Return", "Ctrl+Z", "Up",    "Down",   "Del"};
  return Keys(window, random.Pick(keys));
}

}  // namespace tonalith::stress

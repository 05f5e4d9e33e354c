// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/window_actions.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitterHandle>
#include <utility>
#include <vector>

#include "stress/available_controls.h"
#include "stress/random_text.h"
#include "stress/user_input.h"

namespace tonalith::stress {
namespace {

/// Controls with a fixed weight in the list of their window, excluded from AnyControl.
bool HasOwnWeight(const QWidget& control) {
  static const QStringList names = {QStringLiteral("cmdInstall"), QStringLiteral("cmdPrint"), QStringLiteral("cmdPdf"),
                                    QStringLiteral("cmdListen"), QStringLiteral("cmbTranspose")};
  return names.contains(control.objectName());
}

}  // namespace

std::string TargetIn(QWidget& window, const char* control) { return NameOf(window).toStdString() + "/" + control; }

Action Click(QWidget& window, const char* control) { return {action_kind::kClick, TargetIn(window, control), {}}; }

Action Keys(QWidget& window, const char* keys) { return {action_kind::kKeys, NameOf(window).toStdString(), keys}; }

Action Type(QWidget& window, const char* control, std::string text) {
  return {action_kind::kType, TargetIn(window, control), std::move(text)};
}

Action AnyControl(QWidget& window, RandomSource& random) {
  const std::vector<QWidget*> usable = UsableControls(window);
  static const std::vector<const char*> keys = {"Tab",    "Shift+Tab", "Up",   "Down",   "Left",  "Right",
                                                "PgDown", "PgUp",      "Home", "End",    "Space", "F1",
                                                "Esc",    "F10",       "Del",  "Return", "A",     "Backspace"};
  if (usable.empty() || random.OneIn(3)) return Keys(window, random.Pick(keys));
  QWidget& control = *random.Pick(usable);
  const std::string target = AddressOf(control).toStdString();
  if (HasOwnWeight(control)) return Keys(window, "Tab");
  if (qobject_cast<QSplitterHandle*>(&control) != nullptr) {
    return {action_kind::kDrag, target, std::to_string(random.Between(-200, 200))};
  }
  const bool isText =
      qobject_cast<QLineEdit*>(&control) != nullptr || qobject_cast<QPlainTextEdit*>(&control) != nullptr;
  if (isText && random.OneIn(2)) return {action_kind::kType, target, AnyText(random, 6)};
  if (isText && random.OneIn(3)) return {action_kind::kErase, target, {}};
  if (random.OneIn(6)) return {action_kind::kRightClick, target, {}};
  if (random.OneIn(6)) return {action_kind::kDoubleClick, target, {}};
  if (random.OneIn(6)) return {action_kind::kWheel, target, random.OneIn(2) ? "120" : "-120"};
  return {action_kind::kClick, target, {}};
}

}  // namespace tonalith::stress

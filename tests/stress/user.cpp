// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <algorithm>

#include "stress/available_controls.h"
#include "stress/random_text.h"
#include "stress/user_in_main_windows.h"
#include "stress/user_input.h"
#include "stress/window_actions.h"

namespace tonalith::stress {

Action User::Next() {
  if (QWidget* const popup = QApplication::activePopupWidget()) return InPopup(*popup);
  const std::vector<QWidget*> windows = ReachableWindows();
  if (windows.empty()) return {action_kind::kWait, {}, "5"};
  QWidget* const active = QApplication::activeWindow();
  const bool isActive = std::find(windows.begin(), windows.end(), active) != windows.end();
  if (isActive && !random_.OneIn(5)) return InWindow(*active);
  QWidget& other = *random_.Pick(windows);
  if (&other != active && random_.OneIn(3)) return {action_kind::kActivate, NameOf(other).toStdString(), {}};
  return InWindow(other);
}

Action User::NextClosingStep() {
  if (QApplication::activePopupWidget() != nullptr)
    return {action_kind::kKeys, NameOf(*QApplication::topLevelWidgets().first()).toStdString(), "Esc"};
  QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr && qobject_cast<QMessageBox*>(modal) != nullptr) return {action_kind::kAnswer, {}, "Esc"};
  if (modal != nullptr) return {action_kind::kClose, NameOf(*modal).toStdString(), {}};
  const std::vector<QWidget*> windows = ReachableWindows();
  for (QWidget* const window : windows) {
    if (NameOf(*window) != QLatin1String("frmTonalith"))
      return {action_kind::kClose, NameOf(*window).toStdString(), {}};
  }
  return {action_kind::kClose, "frmTonalith", {}};
}

Action User::InPopup(QWidget& popup) {
  static const std::vector<const char*> keys = {"Esc", "Up", "Down", "Return", "End", "Home", "Esc"};
  const int entries = EntryCount(&popup);
  if (entries > 0 && !random_.OneIn(3)) return {action_kind::kEntry, {}, std::to_string(random_.Below(entries))};
  return Keys(*popup.window(), random_.Pick(keys));
}

Action User::InMessage(QWidget& box) {
  const auto buttons = static_cast<QMessageBox&>(box).buttons();
  if (buttons.isEmpty() || random_.OneIn(6)) return {action_kind::kAnswer, {}, "Esc"};
  const QAbstractButton* const button = buttons.at(random_.Below(static_cast<int>(buttons.size())));
  return {action_kind::kAnswer, {}, PlainCaption(button->text()).toStdString()};
}

Action User::InWindow(QWidget& window) {
  const QString name = NameOf(window);
  if (qobject_cast<QMessageBox*>(&window) != nullptr) return InMessage(window);
  if (random_.OneIn(8)) return AnyControl(window, random_);
  if (name == QLatin1String("frmTonalith")) return InMainWindow(window, random_);
  if (name == QLatin1String("frmScales")) return InEditor(window, random_);
  if (name == QLatin1String("frmSearch")) return InSearch(window);
  if (name == QLatin1String("frmPrint")) return InPrint(window);
  if (name == QLatin1String("QFileDialog")) return InFileDialog(window);
  if (random_.OneIn(12)) return {action_kind::kClose, name.toStdString(), {}};
  if (random_.OneIn(12)) return Keys(window, "Esc");
  return AnyControl(window, random_);
}

Action User::InSearch(QWidget& window) {
  const int roll = random_.Below(20);
  if (roll < 8) return Type(window, "txtSearch", AnySearch(random_));
  if (roll < 13) return Keys(window, "Return");
  if (roll < 15) return Click(window, "cmdSearch");
  if (roll < 16) return {action_kind::kErase, TargetIn(window, "txtSearch"), {}};
  if (roll < 17) return {action_kind::kClose, "frmSearch", {}};
  if (roll < 18) return Keys(window, "Esc");
  return Click(window, "cmdCancel");
}

Action User::InPrint(QWidget& window) {
  const int roll = random_.Below(20);
  if (roll < 4) return Click(window, "cmbPaper");
  if (roll < 8) return Click(window, "cmbOrientation");
  if (roll < 10) return Click(window, "cmdPdf");
  if (roll < 11) return Click(window, "cmdPrint");
  if (roll < 12) return Keys(window, "Alt+O");
  if (roll < 13) return {action_kind::kWheel, TargetIn(window, "cmbPaper"), random_.OneIn(2) ? "120" : "-120"};
  if (roll < 15) return Keys(window, "Esc");
  if (roll < 16) return {action_kind::kClose, "frmPrint", {}};
  return Click(window, "cmdCancel");
}

Action User::InFileDialog(QWidget& window) {
  if (random_.OneIn(3)) return Keys(window, "Esc");
  return {action_kind::kFile, {}, "page" + std::to_string(random_.Below(6))};
}

}  // namespace tonalith::stress

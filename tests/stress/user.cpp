// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/user.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitterHandle>

#include "stress/available_controls.h"
#include "stress/random_text.h"
#include "stress/user_input.h"

namespace tonalith::stress {
namespace {

std::string TargetIn(QWidget& window, const char* control) { return NameOf(window).toStdString() + "/" + control; }

/// Commands that only their window's own list gives, as rarely as it does.
bool IsWeighed(const QWidget& control) {
  static const QStringList names = {QStringLiteral("cmdInstall"), QStringLiteral("cmdPrint"), QStringLiteral("cmdPdf"),
                                    QStringLiteral("cmdListen"), QStringLiteral("cmbTranspose")};
  return names.contains(control.objectName());
}

}  // namespace

Action User::Click(QWidget& window, const char* control) const { return {verb::kClick, TargetIn(window, control), {}}; }
Action User::Keys(QWidget& window, const char* keys) const { return {verb::kKeys, NameOf(window).toStdString(), keys}; }
Action User::Type(QWidget& window, const char* control, std::string text) const {
  return {verb::kType, TargetIn(window, control), std::move(text)};
}

Action User::Next() {
  if (QWidget* const popup = QApplication::activePopupWidget()) return InPopup(*popup);
  const std::vector<QWidget*> windows = ReachableWindows();
  if (windows.empty()) return {verb::kWait, {}, "5"};
  QWidget* const active = QApplication::activeWindow();
  const bool isActive = std::find(windows.begin(), windows.end(), active) != windows.end();
  if (isActive && !dice_.OneIn(5)) return InWindow(*active);
  QWidget& other = *dice_.Pick(windows);
  if (&other != active && dice_.OneIn(3)) return {verb::kActivate, NameOf(other).toStdString(), {}};
  return InWindow(other);
}

Action User::NextTowardsEnd() {
  if (QApplication::activePopupWidget() != nullptr)
    return {verb::kKeys, NameOf(*QApplication::topLevelWidgets().first()).toStdString(), "Esc"};
  QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr && qobject_cast<QMessageBox*>(modal) != nullptr) return {verb::kAnswer, {}, "Esc"};
  if (modal != nullptr) return {verb::kClose, NameOf(*modal).toStdString(), {}};
  const std::vector<QWidget*> windows = ReachableWindows();
  for (QWidget* const window : windows) {
    if (NameOf(*window) != QLatin1String("frmTonalith")) return {verb::kClose, NameOf(*window).toStdString(), {}};
  }
  return {verb::kClose, "frmTonalith", {}};
}

Action User::InPopup(QWidget& popup) {
  static const std::vector<const char*> keys = {"Esc", "Up", "Down", "Return", "End", "Home", "Esc"};
  const int entries = EntryCount(&popup);
  if (entries > 0 && !dice_.OneIn(3)) return {verb::kEntry, {}, std::to_string(dice_.Below(entries))};
  return Keys(*popup.window(), dice_.Pick(keys));
}

Action User::InMessage(QWidget& box) {
  const auto buttons = static_cast<QMessageBox&>(box).buttons();
  if (buttons.isEmpty() || dice_.OneIn(6)) return {verb::kAnswer, {}, "Esc"};
  const QAbstractButton* const button = buttons.at(dice_.Below(static_cast<int>(buttons.size())));
  return {verb::kAnswer, {}, PlainCaption(button->text()).toStdString()};
}

Action User::InWindow(QWidget& window) {
  const QString name = NameOf(window);
  if (qobject_cast<QMessageBox*>(&window) != nullptr) return InMessage(window);
  if (dice_.OneIn(8)) return Anything(window);
  if (name == QLatin1String("frmTonalith")) return InMain(window);
  if (name == QLatin1String("frmScales")) return InEditor(window);
  if (name == QLatin1String("frmSearch")) return InSearch(window);
  if (name == QLatin1String("frmPrint")) return InPrint(window);
  if (name == QLatin1String("QFileDialog")) return InFileDialog(window);
  if (dice_.OneIn(12)) return {verb::kClose, name.toStdString(), {}};
  if (dice_.OneIn(12)) return Keys(window, "Esc");
  return Anything(window);
}

Action User::InSearch(QWidget& window) {
  const int throwOf = dice_.Below(20);
  if (throwOf < 8) return Type(window, "txtSearch", AnySearch(dice_));
  if (throwOf < 13) return Keys(window, "Return");
  if (throwOf < 15) return Click(window, "cmdSearch");
  if (throwOf < 16) return {verb::kErase, TargetIn(window, "txtSearch"), {}};
  if (throwOf < 17) return {verb::kClose, "frmSearch", {}};
  if (throwOf < 18) return Keys(window, "Esc");
  return Click(window, "cmdCancel");
}

Action User::InPrint(QWidget& window) {
  const int throwOf = dice_.Below(20);
  if (throwOf < 4) return Click(window, "cmbPaper");
  if (throwOf < 8) return Click(window, "cmbOrientation");
  if (throwOf < 10) return Click(window, "cmdPdf");
  if (throwOf < 11) return Click(window, "cmdPrint");
  if (throwOf < 12) return Keys(window, "Alt+O");
  if (throwOf < 13) return {verb::kWheel, TargetIn(window, "cmbPaper"), dice_.OneIn(2) ? "120" : "-120"};
  if (throwOf < 15) return Keys(window, "Esc");
  if (throwOf < 16) return {verb::kClose, "frmPrint", {}};
  return Click(window, "cmdCancel");
}

Action User::InFileDialog(QWidget& window) {
  if (dice_.OneIn(3)) return Keys(window, "Esc");
  return {verb::kFile, {}, "page" + std::to_string(dice_.Below(6))};
}

Action User::Anything(QWidget& window) {
  const std::vector<QWidget*> usable = UsableControls(window);
  static const std::vector<const char*> keys = {"Tab",    "Shift+Tab", "Up",   "Down",   "Left",  "Right",
                                                "PgDown", "PgUp",      "Home", "End",    "Space", "F1",
                                                "Esc",    "F10",       "Del",  "Return", "A",     "Backspace"};
  if (usable.empty() || dice_.OneIn(3)) return Keys(window, dice_.Pick(keys));
  QWidget& control = *dice_.Pick(usable);
  const std::string target = AddressOf(control).toStdString();
  if (IsWeighed(control)) return Keys(window, "Tab");
  if (qobject_cast<QSplitterHandle*>(&control) != nullptr) {
    return {verb::kDrag, target, std::to_string(dice_.Between(-200, 200))};
  }
  const bool isText =
      qobject_cast<QLineEdit*>(&control) != nullptr || qobject_cast<QPlainTextEdit*>(&control) != nullptr;
  if (isText && dice_.OneIn(2)) return {verb::kType, target, AnyText(dice_, 6)};
  if (isText && dice_.OneIn(3)) return {verb::kErase, target, {}};
  if (dice_.OneIn(6)) return {verb::kRightClick, target, {}};
  if (dice_.OneIn(6)) return {verb::kDoubleClick, target, {}};
  if (dice_.OneIn(6)) return {verb::kWheel, target, dice_.OneIn(2) ? "120" : "-120"};
  return {verb::kClick, target, {}};
}

}  // namespace tonalith::stress

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The help window with a small book.

#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <string>
#include <vector>

#include "help/book_fixture.h"
#include "help/frm_help.h"
#include "help/help_browser.h"
#include "support/recording_msg_box.h"

namespace tonalith::help {

inline QString Wide(const char* text) { return QString::fromUtf8(text); }

class FrmHelpTest : public testing::Test {
 protected:
  FrmHelpTest() {
    form_ = new frmHelp(
        box_,
        [this](const QUrl& url) {
          opened_.push_back(url.toString().toStdString());
          return opens_;
        },
        nullptr);
    form_->ShowBook(ReadBook());
    form_->show();
    form_->activateWindow();
    QCoreApplication::processEvents();
  }
  ~FrmHelpTest() override { delete form_.data(); }

  template <class Control>
  [[nodiscard]] Control* Find(const char* name) const {
    auto* const control = form_->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  [[nodiscard]] HelpBrowser* Page() const { return form_->Page(); }
  [[nodiscard]] QString Text() const { return Page()->toPlainText(); }
  [[nodiscard]] std::string Place() const {
    const HelpTarget& target = form_->CurrentTarget();
    return target.page + (target.anchor.empty() ? "" : "#" + target.anchor);
  }
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(form_.data(), static_cast<Qt::Key>(key), modifiers);
  }
  void Click(const char* name) const { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }
  void Follow(const std::string& link) const { Q_EMIT Page()->LinkChosen(link); }
  [[nodiscard]] QTreeWidgetItem* Entry(const char* tree, const char* text) const {
    for (QTreeWidgetItemIterator at(Find<QTreeWidget>(tree)); *at != nullptr; ++at) {
      if ((*at)->text(0) == Wide(text)) return *at;
    }
    ADD_FAILURE() << text;
    return nullptr;
  }
  void ClickEntry(const char* treeName, const char* text) const {
    auto* const tree = Find<QTreeWidget>(treeName);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(Entry(treeName, text)).center());
  }
  void ShowTab(int tab) const { Find<QTabWidget>("HelpTabs")->setCurrentIndex(tab); }
  /// The highlighted texts of the page, in order.
  [[nodiscard]] std::vector<std::string> Highlighted() const {
    std::vector<std::string> highlighted;
    for (const auto& selection : Page()->extraSelections())
      highlighted.push_back(selection.cursor.selectedText().toStdString());
    return highlighted;
  }
  [[nodiscard]] std::string FoundWords() const { return Find<QLabel>("lblPlaces")->text().toStdString(); }

  tests::RecordingMsgBox box_;
  std::vector<std::string> opened_;
  bool opens_ = true;
  QPointer<frmHelp> form_;
};

}  // namespace tonalith::help

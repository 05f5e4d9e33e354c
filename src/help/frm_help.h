// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The help window: contents, index and search beside the page, with the way back and forward, finding in the page and
// letters of any size. It is a window of its own beside the others, remembers nothing once it is closed, loads nothing
// from outside its file and opens no address before its user has agreed. Goes when it is closed, or with its parent;
// user-interface thread; does not fail.

#pragma once

#include <QUrl>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "core/msg_box.h"
#include "help/help_book.h"
#include "help/help_history.h"

class QLabel;
class QSplitter;
class QTabWidget;

namespace tonalith::help {

class ContentsPanel;
class FindBar;
class HelpBrowser;
class HelpButton;
class IndexPanel;
class SearchPanel;

/// Hands an address to the system's browser or mail program; false when there is none.
using AddressOpener = std::function<bool(const QUrl&)>;

class frmHelp : public QWidget {
  Q_OBJECT

 public:
  frmHelp(core::MsgBox& msgBox, AddressOpener opener, QWidget* parent);
  ~frmHelp() override;

  /// Shows the book at its default page; the way taken before is forgotten.
  void ShowBook(std::shared_ptr<const HelpBook> book);
  [[nodiscard]] const HelpTarget& CurrentTarget() const { return history_.Current().place; }
  [[nodiscard]] HelpBrowser* Page() const { return page_; }

 protected:
  bool event(QEvent* event) override;

 private:
  void MakeBar();
  void LayOut();
  void AddShortcuts();
  void ApplyTheme();
  void ChooseSize();

  void GoTo(const HelpTarget& place);
  void GoBack();
  void GoForward();
  void GoHome();
  /// Shows the current stop of the history.
  void ShowStop();
  void FollowLink(const std::string& link);
  void ConfirmAndOpen(const std::string& address);
  void ShowFound(const HelpTarget& place, const QStringList& words);
  void Escape();
  void ShowZoom();

  core::MsgBox& msgBox_;
  AddressOpener opener_;
  std::shared_ptr<const HelpBook> book_;
  HelpHistory history_;
  QWidget* bar_ = nullptr;
  HelpButton* back_ = nullptr;
  HelpButton* forward_ = nullptr;
  QLabel* zoom_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  QSplitter* splitter_ = nullptr;
  ContentsPanel* contents_ = nullptr;
  IndexPanel* index_ = nullptr;
  SearchPanel* search_ = nullptr;
  HelpBrowser* page_ = nullptr;
  FindBar* find_ = nullptr;
};

}  // namespace tonalith::help

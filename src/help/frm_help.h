// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The help window: contents, index and search next to the page, with history, find in page and zoom. It stores nothing
// after it is closed, loads nothing from outside the help file and opens an external address only after confirmation.
// It is deleted when closed or with its parent.

#pragma once

#include <QUrl>
#include <functional>
#include <memory>
#include <string>

#include "core/msg_box.h"
#include "help/help_book.h"
#include "help/help_history.h"
#include "windows/window.h"

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

/// Opens an address in the system's browser or mail program; returns false if there is none.
using AddressOpener = std::function<bool(const QUrl&)>;

class frmHelp : public windows::Window<QWidget> {
  Q_OBJECT

 public:
  frmHelp(core::MsgBox& msgBox, AddressOpener opener, QWidget* parent);
  ~frmHelp() override;

  /// Shows the book at its default page and clears the history.
  void ShowBook(std::shared_ptr<const HelpBook> book);
  [[nodiscard]] const HelpTarget& CurrentTarget() const { return history_.Current().target; }
  [[nodiscard]] HelpBrowser* Page() const { return page_; }

 protected:
  void ApplyTheme() override;
  void Escape() override;

 private:
  void MakeBar();
  void LayOut();
  void AddShortcuts();
  void ChooseSize();

  void GoTo(const HelpTarget& target);
  void GoBack();
  void GoForward();
  void GoHome();
  /// Shows the current entry of the history.
  void ShowStop();
  void FollowLink(const std::string& link);
  void ConfirmAndOpen(const std::string& address);
  void ShowFound(const HelpTarget& target, const QStringList& words);
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

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The search dialog: finds a scale or chord by a piece of its name and makes it the main window's current record.
// Cancel and the close box hide it and set SearchCancelled; only its owner destroys it. Enter and F3 search, Escape
// cancels. While a long search runs the dialog goes on taking events, so that it can be cancelled; a second search is
// does not start until the first has ended. Shows failures as their description. Owned by its caller;
// user-interface thread.

#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "core/msg_box.h"
#include "search/scale_search.h"
#include "search/search_dialog.h"
#include "windows/panel_button.h"

class QCloseEvent;
class QLabel;
class QLineEdit;

namespace tonalith::search {

class frmSearch : public QDialog, public SearchDialog {
  Q_OBJECT
  Q_PROPERTY(bool SearchCancelled READ SearchCancelled WRITE SetSearchCancelled)

 public:
  frmSearch(std::unique_ptr<ScaleSource> scales, core::MsgBox& msgBox, QWidget* parent);
  ~frmSearch() override;

  [[nodiscard]] bool SearchCancelled() const override { return searchCancelled_; }
  void SetSearchCancelled(bool cancelled) override { searchCancelled_ = cancelled; }
  [[nodiscard]] std::string SearchText() const override;
  void SetSearchText(const std::string& text) override;
  void ShowModal() override;
  [[nodiscard]] bool IsShown() const override { return isVisible(); }
  void BringToFront() override;

  void cmdSearch_Click();
  void cmdCancel_Click();
  /// Searches on from the current record, or from the first when the text is not the one that the active window's
  /// property "Tag" holds.
  void FindNextScaleMatch(const std::string& SearchText);

  /// Escape.
  void reject() override { cmdCancel_Click(); }

 protected:
  void closeEvent(QCloseEvent* event) override { Form_QueryUnload(*event); }
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Watcher;

  void Form_QueryUnload(QCloseEvent& event);
  void MakeControls();
  void LayOut();
  void ApplyTheme();
  /// Over the lower edge of the main window, where the name of what is found stays in sight.
  void MoveClearOfTheName();
  /// Moves a message box that belongs to the dialog so that the text box stays visible.
  void MoveClearOfTheText(QWidget& box) const;
  /// Runs one search unless one is running, and shows its failure.
  template <class Search>
  void RunAlone(Search&& search);
  void TellFound(const std::string& name);

  std::unique_ptr<ScaleSource> scales_;
  core::MsgBox& msgBox_;
  bool searchCancelled_ = false;
  bool isSearching_ = false;
  bool stopRequested_ = false;
  QLabel* lblSearch_ = nullptr;
  QLineEdit* txtSearch_ = nullptr;
  QLabel* lblHelp_ = nullptr;
  QLabel* lblMessage_ = nullptr;
  windows::PanelButton* cmdSearch_ = nullptr;
  windows::PanelButton* cmdCancel_ = nullptr;
};

}  // namespace tonalith::search

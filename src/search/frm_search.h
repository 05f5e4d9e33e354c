// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The search dialog: finds a scale or chord by a part of its name and makes it the current record of the main window.
// Enter and F3 search; Escape, Cancel and the close box hide the dialog and set SearchCancelled. During a long search
// the dialog processes events, so that the search can be cancelled; a second search cannot start. Shows the
// descriptions of failures. Owned by the caller of RunSearch.

#pragma once

#include <memory>
#include <string>

#include "core/msg_box.h"
#include "search/scale_search.h"
#include "windows/panel_button.h"
#include "windows/window.h"

class QLabel;
class QLineEdit;

namespace tonalith::search {

class frmSearch : public windows::Window<QDialog> {
  Q_OBJECT
  Q_PROPERTY(bool SearchCancelled READ SearchCancelled WRITE SetSearchCancelled)

 public:
  frmSearch(std::unique_ptr<ScaleSource> scales, core::MsgBox& msgBox, QWidget* parent);
  ~frmSearch() override;

  /// True if the user closed the dialog in any way.
  [[nodiscard]] bool SearchCancelled() const { return searchCancelled_; }
  void SetSearchCancelled(bool cancelled) { searchCancelled_ = cancelled; }
  /// The content of the text box.
  [[nodiscard]] std::string SearchText() const;
  void SetSearchText(const std::string& text);
  /// Returns when the dialog is hidden or destroyed.
  void ShowModal();

  void cmdSearch_Click();
  void cmdCancel_Click();
  /// Searches from the record after the current one, or from the first if `SearchText` differs from the property "Tag"
  /// of the active window.
  /// Kept: see docs/behaviour.md, Functions without callers
  void FindNextScaleMatch(const std::string& SearchText);

 protected:
  void ApplyTheme() override;
  void Escape() override { cmdCancel_Click(); }
  bool Form_QueryUnload() override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Watcher;

  void MakeControls();
  void LayOut();
  /// Moves the dialog over the lower edge of the main window, so that the name of the found record stays visible.
  void MoveBelowTheName();
  /// Moves a message box of the dialog so that the text box stays visible.
  void MoveOffTheText(QWidget& box) const;
  /// Runs a search unless one is running, and shows its failure.
  template <class Search>
  void RunAlone(Search&& search);
  void AnnounceFound(const std::string& name);

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

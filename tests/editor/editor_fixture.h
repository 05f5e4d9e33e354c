// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale editor on a database of the test's own: three scales of two types. Notes are written as in "C D# G".

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

#include "editor/frm_scales.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::editor {

inline constexpr const char* kViewHint = "Modify (F2) to change this scale or add one, Escape to close.";
inline constexpr const char* kEditHint = "Choose notes and press Apply (Ctrl+Enter). Add begins a new scale.";
inline constexpr const char* kKeep = "Are you sure you want to keep these changes?\n";

/// Records what was shown, and can do something while a box stands on the screen.
class BusyMsgBox : public tests::RecordingMsgBox {
 public:
  using tests::RecordingMsgBox::Show;
  core::MsgBoxAnswer Show(const std::string& text, core::MsgBoxStyle style, const std::string& title) override {
    if (const auto meanwhile = std::exchange(meanwhile_, {})) meanwhile();
    return tests::RecordingMsgBox::Show(text, style, title);
  }
  void Meanwhile(std::function<void()> act) { meanwhile_ = std::move(act); }

 private:
  std::function<void()> meanwhile_;
};

class RecordingHost : public ScaleEditorHost {
 public:
  void EditUpdates() override { calls_ += "EditUpdates "; }
  void BringToFront() override { calls_ += "BringToFront "; }
  /// What was called since the last time.
  std::string Calls() { return std::exchange(calls_, {}); }

 private:
  std::string calls_;
};

class ScaleEditorTest : public testing::Test {
 protected:
  ScaleEditorTest();
  ~ScaleEditorTest() override;

  void Execute(const std::string& statements);
  /// The rows of a statement, columns separated by a bar, rows by a line feed; null is "-".
  std::string Rows(const std::string& statement);
  /// Name, pattern and the rest of one scale as the database holds it.
  std::string Saved(const std::string& name);

  frmScales& Open(std::optional<std::int64_t> scaleId = {});
  frmScales& Form() { return *place_; }
  const ScalesControls& C() { return place_->Controls(); }
  /// Handles what is pending, the end of a closed form included.
  static void Settle();

  void Press(QWidget* button);
  void PressArrow(const char* accessibleName);
  /// Clicks the buttons of these notes.
  void ClickNotes(const std::string& names);
  /// Types into a field from its end, or in place of what it holds.
  void Type(int index, const char* text);
  void Retype(int index, const char* text);
  std::string Field(int index) { return C().txtFields.at(static_cast<std::size_t>(index)).Text().toStdString(); }

  std::string SelectedNotes();
  std::string VisibleNotes();
  std::string Notice() { return C().lblNotice->text().toStdString(); }
  /// The messages so far, and forgets them.
  std::string Told();

  tests::TempFolder temp_;
  std::string path_;
  BusyMsgBox box_;
  RecordingHost host_;
  data::ScaleDatabase database_;
  QPointer<frmScales> place_;
};

}  // namespace tonalith::editor

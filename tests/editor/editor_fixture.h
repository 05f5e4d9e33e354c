// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale editor with a test database: three scales of two types. Notes are written as in "C D# G".

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

/// Records message boxes and can run an action while one is open.
class ActingMsgBox : public tests::RecordingMsgBox {
 public:
  using tests::RecordingMsgBox::Show;
  core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle style, const core::Message& title) override {
    if (const auto action = std::exchange(action_, {})) action();
    return tests::RecordingMsgBox::Show(text, style, title);
  }
  void WhileShown(std::function<void()> act) { action_ = std::move(act); }

 private:
  std::function<void()> action_;
};

class RecordingHost : public ScaleEditorHost {
 public:
  void EditUpdates() override { calls_ += "EditUpdates "; }
  void BringToFront() override { calls_ += "BringToFront "; }
  /// The calls since the last call of this function.
  std::string Calls() { return std::exchange(calls_, {}); }

 private:
  std::string calls_;
};

class ScaleEditorTest : public testing::Test {
 protected:
  ScaleEditorTest();
  ~ScaleEditorTest() override;

  void Execute(const std::string& statements);
  /// The result rows of a statement, with columns separated by a bar and rows by a line feed; null is "-".
  std::string Rows(const std::string& statement);
  /// The stored fields of one scale.
  std::string Saved(const std::string& name);

  frmScales& Open(std::optional<std::int64_t> scaleId = {});
  frmScales& Form() { return *form_; }
  const ScalesControls& C() { return form_->Controls(); }
  /// Processes pending events, including the deferred delete of a closed form.
  static void ProcessEvents();

  void Press(QWidget* button);
  void PressArrow(const char* accessibleName);
  /// Clicks the buttons of these notes.
  void ClickNotes(const std::string& names);
  /// Types at the end of a field, or replaces its text.
  void Type(int index, const char* text);
  void Replace(int index, const char* text);
  std::string Field(int index) { return C().txtFields.at(static_cast<std::size_t>(index)).Text().toStdString(); }

  std::string SelectedNotes();
  std::string VisibleNotes();
  std::string Notice() { return C().lblNotice->text().toStdString(); }
  /// Returns and removes the messages so far.
  std::string Messages();

  tests::TempFolder temp_;
  std::string path_;
  ActingMsgBox box_;
  RecordingHost host_;
  data::ScaleDatabase database_;
  windows::OpenOnce<frmScales> editor_;
  QPointer<frmScales> form_;
};

}  // namespace tonalith::editor

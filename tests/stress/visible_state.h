// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The state that a user sees between two actions, as values: the message box and the fields of the editor. Read from
// the real widgets.

#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tonalith::app {
class frmTonalith;
}

namespace tonalith::stress {

namespace message_text {
inline constexpr const char* kKeep = "Are you sure you want to keep these changes?";
inline constexpr const char* kDelete =
    "Are you sure you want to delete this record? You will not be able to undo the deletion!";
}  // namespace message_text

struct EditorState {
  bool isOpen = false;
  bool hasRecord = false;
  bool isPending = false;
  /// The record has no number yet.
  bool isNew = false;
  bool isModifying = false;
  std::int64_t number = 0;
  /// By the index of the field; the chord check box has no text.
  std::array<QString, 8> fields;
  /// The text of the pattern box, which may not be in the record yet.
  QString pattern;
  QString notice;
  /// Bit i: note i is selected.
  unsigned notes = 0;
  /// The fields of the rejected edit that undo would restore; nullopt if there is none.
  std::optional<std::array<QString, 8>> rejectedFields;
};

struct VisibleState {
  EditorState editor;
  /// The text of the topmost message box; empty if there is none.
  std::string message;
  /// Identifies the message box.
  const void* box = nullptr;
  /// Whether the program runs a command and does not process user input.
  bool isBusy = false;
  bool isInstalling = false;
};

/// Whether a dialog is closed, but its nested event loop has not returned yet. Too short for a user to act in.
bool IsReturning();

/// The main window; null after it is closed.
app::frmTonalith* MainWindow();
VisibleState ReadVisibleState();

}  // namespace tonalith::stress

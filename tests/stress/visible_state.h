// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What a user sees between two actions, as values: the message box, the editor's form. Taken from the real widgets on
// the user-interface thread; never fails; nothing is kept of the widgets.

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

namespace question {
inline constexpr const char* kKeep = "Are you sure you want to keep these changes?";
inline constexpr const char* kDelete =
    "Are you sure you want to delete this record? You will not be able to undo the deletion!";
}  // namespace question

struct EditorState {
  bool isThere = false;
  bool hasRecord = false;
  bool isPending = false;
  /// A record that has no number yet.
  bool isNew = false;
  bool isModifying = false;
  std::int64_t number = 0;
  /// By the index of the field; the box of the chord has no text.
  std::array<QString, 8> fields;
  /// What stands in the box of the pattern, which may be typed or chosen but not be in the record yet.
  QString pattern;
  QString notice;
  /// Bit i: note i is chosen.
  unsigned notes = 0;
  /// The fields that undoing would bring back; nothing where no changes are set aside.
  std::optional<std::array<QString, 8>> setAside;
};

struct VisibleState {
  EditorState editor;
  /// The text of the message box on top; empty where there is none.
  std::string message;
  /// Tells two boxes apart.
  const void* box = nullptr;
  /// Whether the program is in the middle of something during which a user's clicks wait.
  bool isBusy = false;
  bool isInstalling = false;
};

/// Whether a dialog is closed already, but whoever has shown it has not gone on yet: a moment too short for any user.
bool IsReturning();

/// The main window, null once it is closed.
app::frmTonalith* MainWindow();
VisibleState Look();

}  // namespace tonalith::stress

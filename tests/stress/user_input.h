// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Performs an action with real mouse and key events through the platform window, so that modal dialogs, popups,
// shortcuts and the focus behave as for a user. An action may open a dialog and return only after that is closed;
// widgets may be destroyed by then.

#pragma once

#include <QString>

#include "stress/action.h"

class QAction;
class QWidget;

namespace tonalith::stress {

/// Returns false if the target does not exist.
bool Perform(const Action& action);

/// The kinds of actions, with the meaning of their text.
namespace action_kind {
inline constexpr const char* kClick = "click";
inline constexpr const char* kDoubleClick = "double click";
inline constexpr const char* kRightClick = "right click";
/// Eighths of a degree, up is positive.
inline constexpr const char* kWheel = "wheel";
/// Pixels to the right.
inline constexpr const char* kDrag = "drag";
/// Characters, typed after a click on the control.
inline constexpr const char* kType = "type";
/// Deletes the content of the control; no text.
inline constexpr const char* kErase = "erase";
/// A key sequence; the target is the window.
inline constexpr const char* kKeys = "keys";
/// The object name of a menu, in the menu bar of the target.
inline constexpr const char* kMenu = "menu";
/// The number of an entry of the popup that is open.
inline constexpr const char* kEntry = "entry";
/// The caption of a button of a message box, or a key.
inline constexpr const char* kAnswer = "answer";
/// A file name for the file dialog.
inline constexpr const char* kFile = "file";
inline constexpr const char* kActivate = "activate";
inline constexpr const char* kClose = "close";
/// Milliseconds without an action.
inline constexpr const char* kWait = "wait";
/// Creates a pack with this number of scales in the folder of packs; uses no window.
inline constexpr const char* kPack = "pack";
}  // namespace action_kind

/// A caption without its mnemonic character.
QString PlainCaption(QString caption);

/// The number of entries of the open popup; 0 if there is none.
int EntryCount(QWidget* popup);

}  // namespace tonalith::stress

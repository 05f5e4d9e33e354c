// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The hands of the user: carries out an action with real mouse and key events through the windows of the platform, so
// that modal dialogs, popups, shortcuts and the focus count as they do for a person. An action may open a dialog and
// return only when that is closed again; whatever was there before may be gone then. User-interface thread.

#pragma once

#include <QString>

#include "stress/action.h"

class QAction;
class QWidget;

namespace tonalith::stress {

/// False when there is nothing of that name to act on.
bool Perform(const Action& action);

/// The verbs. Those with a text say here what it is.
namespace verb {
inline constexpr const char* kClick = "click";
inline constexpr const char* kDoubleClick = "double click";
inline constexpr const char* kRightClick = "right click";
/// Eighths of a degree, up is positive.
inline constexpr const char* kWheel = "wheel";
/// Pixels to the right.
inline constexpr const char* kDrag = "drag";
/// Characters, behind a click on the control.
inline constexpr const char* kType = "type";
/// Everything in the control.
inline constexpr const char* kErase = "erase";
/// A key sequence; target is the window.
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
/// Milliseconds without doing anything.
inline constexpr const char* kWait = "wait";
/// Not with the window: puts a pack of that many scales into the folder of packs.
inline constexpr const char* kPack = "pack";
}  // namespace verb

/// A caption without its mnemonic mark.
QString PlainCaption(QString caption);

/// The number of entries of the popup that is open; 0 where none is.
int EntryCount(QWidget* popup);

}  // namespace tonalith::stress

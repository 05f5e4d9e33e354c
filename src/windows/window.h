// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The base class of all windows: the palette of Tonalith and its changes, Escape, closing, and the time before a window
// is complete and after it is closed. A window derives from Window<QMainWindow>, Window<QDialog> or Window<QWidget>;
// open_once.h opens it.

#pragma once

#include <QDialog>
#include <QMainWindow>

namespace tonalith::windows {

template <class Base>
class Window : public Base {
 public:
  /// Closing has begun or is over: the window still exists, but must not be used.
  [[nodiscard]] bool IsUnloaded() const { return isUnloaded_; }
  [[nodiscard]] bool IsOpen() const { return !isUnloaded_ && this->isVisible(); }

 protected:
  /// Sets the object name and the palette, which the controls inherit. `owner` may be null.
  explicit Window(const QString& name, QWidget* owner, Qt::WindowFlags flags = {});

  /// To be called in the constructor as soon as all controls exist. Calls ApplyTheme. Before this call, the window
  /// ignores palette changes, Escape and closing.
  void FinishConstruction();
  /// Sets what depends on the palette and the font of the window. Called again when the palette, the theme or the font
  /// of the system has changed; the window has its new palette then.
  virtual void ApplyTheme() {}
  /// The Escape key. Rejects a dialog, closes a QWidget; a main window does not handle the key.
  virtual void Escape();
  /// Whether the window may close. It may be destroyed meanwhile.
  virtual bool Form_QueryUnload() { return true; }
  /// Called once for each closing of a window by `close` or by the user, before it is hidden. A dialog that is accepted
  /// or rejected does not call it. The window may be destroyed meanwhile.
  virtual void Form_Unload() {}

  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FollowSystem();

  bool isComplete_ = false;
  bool isUnloaded_ = false;
};

extern template class Window<QMainWindow>;
extern template class Window<QDialog>;
extern template class Window<QWidget>;

}  // namespace tonalith::windows

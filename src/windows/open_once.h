// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The place of one window: it opens at most once, a second opening raises it, and it is deleted with the place. The
// place is a member of what opens the window. RunModal shows a modal window until it closes.

#pragma once

#include <QPointer>
#include <QScopeGuard>
#include <utility>

#include "windows/window_front.h"

namespace tonalith::windows {

/// `T` derives from Window.
template <class T>
class OpenOnce {
 public:
  OpenOnce() = default;
  ~OpenOnce() { Delete(); }
  OpenOnce(const OpenOnce&) = delete;
  OpenOnce& operator=(const OpenOnce&) = delete;

  /// The window; nullptr if there is none. A window of Show counts as none as soon as it closes: it deletes itself a
  /// moment later. A window of Put exists until it is deleted.
  [[nodiscard]] T* Window() const {
    const bool isThere = !window_.isNull() && (isPut_ || window_->IsOpen());
    return isThere ? window_.data() : nullptr;
  }

  /// Brings the window to the front if it is visible. False if there is no window.
  bool Raise() const {
    T* const window = Window();
    if (window != nullptr && window->isVisible()) BringToFront(*window);
    return window != nullptr;
  }

  /// Brings the window to the front, or shows the one that `make` returns. `make` may throw, and run the event loop: no
  /// second window is made meanwhile. It must not destroy the place.
  template <class Make>
  void Show(Make&& make) {
    if (isMaking_ || Raise()) return;
    isMaking_ = true;
    const auto ended = qScopeGuard([this] { isMaking_ = false; });
    window_ = std::forward<Make>(make)();
    isPut_ = false;
    BringToFront(*window_);
  }

  /// Takes a window for RunModal, in the place of the one before.
  QPointer<T> Put(T* window) {
    isPut_ = true;
    return window_ = window;
  }

  /// False if the window refuses to close. It may be destroyed meanwhile, and the place with it.
  [[nodiscard]] bool Close() {
    T* const window = Window();
    return window == nullptr || window->close();
  }

  /// Without asking the window.
  void Delete() { delete window_.data(); }

 private:
  QPointer<T> window_;
  bool isPut_ = false;
  bool isMaking_ = false;
};

/// Calls ShowModal of the window, which returns when the window is closed, then `atEnd` with the window, and deletes
/// it. The window may be destroyed meanwhile; then `atEnd` is not called. Throws what they throw.
template <class T, class AtEnd>
void RunModal(const QPointer<T>& window, AtEnd&& atEnd) {
  if (window.isNull()) return;
  const auto unload = qScopeGuard([window] { delete window.data(); });
  window->ShowModal();
  if (!window.isNull()) atEnd(*window);
}

}  // namespace tonalith::windows

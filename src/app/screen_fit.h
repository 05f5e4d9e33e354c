// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fits the main window, whose layout is fixed, onto a small screen: the whole program is drawn at a smaller scale, down
// to kSmallestScale, and below that the window gets scroll bars. Qt reads its scale once, before it knows the screen: a
// program that finds its screen too small starts itself again with a smaller one. What Qt does not do at a scale below
// 1, windows::ReducedPainting does.
// Also keeps scale settings out that Qt would take but cannot draw with. User-interface thread.

#pragma once

#include <QSize>
#include <string>
#include <utility>
#include <vector>

#include "core/msg_box.h"

class QMainWindow;

namespace tonalith::app {

/// Text of 12 pixels is still legible at this scale.
inline constexpr double kSmallestScale = 0.7;
/// What a scale setting of the environment may be; the resolution of a font in dots to an inch follows from 96 at 1.
inline constexpr double kLeastScaleSetting = 0.25;
inline constexpr double kLargestScaleSetting = 8;

/// The scale, kSmallestScale to 1, at which `window` fits into `room` if it can.
[[nodiscard]] double ScaleThatFits(QSize window, QSize room);

/// Whether a value of the environment variable `name` is empty or a scale within the limits above. True for names that
/// have nothing to do with the scale.
[[nodiscard]] bool IsUsableScaleSetting(const std::string& name, const std::string& value);

/// Puts the content of `window` into a scroll area if it is larger than `room`.
void AddScrollBars(QMainWindow& window, QSize room);

class ScreenFit {
 public:
  /// Before there is an application, and while there is one thread: takes settings that cannot be used out of the
  /// environment. The arguments are kept as they are; the application takes its own out of them.
  ScreenFit(int argc, char** argv);

  /// With an application: starts the program again in this process, at a smaller scale, if the screen is too small.
  /// Returns if it is not, or if it could not be done. After that restart: gives the environment its first scale back.
  void RestartIfTooLarge() const;

  /// Says which settings were not used, once there is a window.
  void Report(core::MsgBox& msgBox) const;

 private:
  using Setting = std::pair<std::string, std::string>;

  std::vector<std::string> arguments_;
  /// What the window system's plugin takes out of the environment, and needs again after a restart.
  std::vector<Setting> startUp_;
  std::vector<Setting> unusable_;
  bool isRestarted_ = false;
  std::string firstScale_;
};

}  // namespace tonalith::app

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fits the main window, whose layout is fixed, onto a small screen: the program runs at a smaller scale, down to
// kSmallestScale; below that the window gets scroll bars. Qt reads its scale before it knows the screen, so the program
// restarts itself with a smaller scale if the screen is too small. windows::ReducedPainting corrects painting at scales
// below 1. Also removes scale settings that Qt accepts but cannot draw with.

#pragma once

#include <QSize>
#include <string>
#include <utility>
#include <vector>

#include "core/msg_box.h"
#include "core/neck.h"

class QMainWindow;

namespace tonalith::app {

/// Text of 12 pixels is still legible at this scale.
inline constexpr double kSmallestScale = 0.7;
/// The range of scale settings in the environment; a font resolution is checked as 96 dots per inch at scale 1.
inline constexpr double kLeastScaleSetting = 0.25;
inline constexpr double kLargestScaleSetting = 8;

/// Returns the scale, kSmallestScale to 1, at which `window` fits into `room`; kSmallestScale if none does.
[[nodiscard]] double ScaleThatFits(QSize window, QSize room);

/// Whether a value of the environment variable `name` is empty or a scale in the range above. True for variables that
/// do not set a scale.
[[nodiscard]] bool IsUsableScaleSetting(const std::string& name, const std::string& value);

/// Puts the content of `window` into a scroll area if it is larger than `room`.
void AddScrollBars(QMainWindow& window, QSize room);

class ScreenFit {
 public:
  /// Removes unusable settings from the environment. Call before the application is created and other threads run.
  /// Copies the arguments, since the application removes its own from them.
  ScreenFit(int argc, char** argv);

  /// Restarts the program in this process at a smaller scale if the screen is too small. Returns if it is large enough
  /// or the restart fails. In the restarted program: restores the original scale setting. Needs an application.
  void RestartIfTooLarge(const core::Neck& neck) const;

  /// Shows which settings were not used. Call after the window is shown.
  void Report(core::MsgBox& msgBox) const;

 private:
  using Setting = std::pair<std::string, std::string>;

  std::vector<std::string> arguments_;
  /// Variables that the window system's plugin removes from the environment and needs again after a restart.
  std::vector<Setting> startUp_;
  std::vector<Setting> unusable_;
  bool isRestarted_ = false;
  std::string firstScale_;
};

}  // namespace tonalith::app

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The application's style: the style of the desktop, the command line or the environment, with Tonalith's palette for
// every window, so that menus, message boxes, lists and tooltips have the colours of the main window.

#pragma once

#include "platform/qt/deferred_icon_style.h"

class QApplication;

namespace tonalith::app {

class ProgramStyle : public platform::DeferredIconStyle {
 public:
  using DeferredIconStyle::DeferredIconStyle;
  using DeferredIconStyle::polish;

  /// Called by Qt for every widget before it is first shown. Installs windows::ReducedPainting for scales below 1.
  void polish(QWidget* widget) override;
  /// These two prevent a style from scaling down cached images of scale 1. The first also paints a visible edge around
  /// pop-ups in a dark palette.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget = nullptr) const override;
  /// Called by Qt for the palette of the system, at the start and after each change.
  void polish(QPalette& palette) override;
  /// Paints visible separators of menus in a dark palette. At scales above 1 it also closes the gaps that a style
  /// leaves in the border of a menu bar after each entry.
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget = nullptr) const override;
};

/// Wraps the current style of the application in a ProgramStyle. Needs the application: without one the desktop's style
/// is not known, and Qt would use its oldest style.
void InstallStyle(QApplication& application);

}  // namespace tonalith::app

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The application's style: the desktop's own (or the one that the command line or the environment asks for), with
// Tonalith's palette for every window, so that menus, message boxes, lists and tool tips have the colours of the main
// window. User-interface thread; never fails.

#pragma once

#include "platform/qt/deferred_icon_style.h"

class QApplication;

namespace tonalith::app {

class ProgramStyle : public platform::DeferredIconStyle {
 public:
  using DeferredIconStyle::DeferredIconStyle;
  using DeferredIconStyle::polish;

  /// Called by Qt for every widget before it is first shown. Windows on a screen with less than one pixel for each of
  /// theirs are painted at that size.
  void polish(QWidget* widget) override;
  /// These two keep a style from shrinking pictures that it has painted at scale 1. The first also gives the pop-ups of
  /// a dark palette a visible edge.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget = nullptr) const override;
  /// Called by Qt for the palette of the system, at the start and whenever it changes.
  void polish(QPalette& palette) override;
  /// Separates the entries of a menu visibly in a dark palette, and closes the gaps that a style leaves in the border
  /// of a menu bar, one after each entry, where the screen has more than one pixel for each of the widget.
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget = nullptr) const override;
};

/// Puts a ProgramStyle over the style that `application` has found. Before an application exists the desktop's style is
/// not known, and Qt would fall back to its oldest one.
void InstallStyle(QApplication& application);

}  // namespace tonalith::app

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The desktop's style, but the icons that it keeps in files are read when they are first painted. A menu bar asks for
// the icon of a button that most bars never show, and reading it makes Qt load every picture format that is installed:
// a tenth of what a start takes. Handed to the application, which owns it; user-interface thread; never fails.

#pragma once

#include <QProxyStyle>

namespace tonalith::platform {

class DeferredIconStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option = nullptr,
                                   const QWidget* widget = nullptr) const override;
};

}  // namespace tonalith::platform

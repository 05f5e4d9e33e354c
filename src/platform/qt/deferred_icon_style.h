// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The desktop's style with one change: the extension icon of a menu bar is loaded when first painted. Most menu bars
// never show it, and loading it makes Qt load every installed image format, which takes a tenth of the start-up time.
// The application owns it.

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

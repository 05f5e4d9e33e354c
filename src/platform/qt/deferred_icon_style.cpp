// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/deferred_icon_style.h"

#include <QIconEngine>
#include <QPointer>

namespace tonalith::platform {
namespace {

/// Loads the icon from the style when it is first painted or measured.
class DeferredIcon : public QIconEngine {
 public:
  DeferredIcon(const QStyle* style, QStyle::StandardPixmap which) : style_(style), which_(which) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    Real().paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Real().pixmap(size, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Real().actualSize(size, mode, state);
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DeferredIcon(*this); }

 private:
  const QIcon& Real() {
    if (real_.isNull() && style_ != nullptr) real_ = style_->standardIcon(which_);
    return real_;
  }

  QPointer<const QStyle> style_;
  QStyle::StandardPixmap which_;
  QIcon real_;
};

}  // namespace

QIcon DeferredIconStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  if (which != SP_ToolBarHorizontalExtensionButton) return QProxyStyle::standardIcon(which, option, widget);
  return QIcon(new DeferredIcon(baseStyle(), which));
}

}  // namespace tonalith::platform

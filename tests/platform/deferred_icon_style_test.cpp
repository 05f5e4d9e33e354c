// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/deferred_icon_style.h"

#include <gtest/gtest.h>

#include <QCommonStyle>
#include <QIcon>
#include <QPainter>

namespace tonalith::platform {
namespace {

constexpr auto kExtension = QStyle::SP_ToolBarHorizontalExtensionButton;
constexpr QSize kSize(16, 16);

/// A base style that counts its calls.
class Asked : public QCommonStyle {
 public:
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override {
    ++times;
    return QCommonStyle::standardIcon(which, option, widget);
  }
  mutable int times = 0;
};

QImage Painted(const QIcon& icon) {
  QImage image(kSize, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  icon.paint(&painter, QRect(QPoint(0, 0), kSize));
  return image;
}

TEST(DeferredIconStyle, LoadsTheExtensionIconWhenItIsFirstPainted) {
  auto* const asked = new Asked;
  const DeferredIconStyle style(asked);
  const QIcon icon = style.standardIcon(kExtension);
  EXPECT_FALSE(icon.isNull());
  EXPECT_EQ(asked->times, 0);
  const QImage painted = Painted(icon);
  EXPECT_EQ(asked->times, 1);
  EXPECT_EQ(painted, Painted(QCommonStyle().standardIcon(kExtension)));
  QImage blank(kSize, QImage::Format_ARGB32_Premultiplied);
  blank.fill(Qt::white);
  EXPECT_NE(painted, blank);
  Painted(icon);
  EXPECT_EQ(asked->times, 1);
}

TEST(DeferredIconStyle, ReturnsThePixmapAndSizeOfTheBaseStyle) {
  const DeferredIconStyle style(new Asked);
  const QIcon real = QCommonStyle().standardIcon(kExtension);
  const QIcon icon = style.standardIcon(kExtension);
  EXPECT_EQ(icon.pixmap(kSize).toImage(), real.pixmap(kSize).toImage());
  EXPECT_EQ(icon.actualSize({100, 100}), real.actualSize({100, 100}));
}

TEST(DeferredIconStyle, LeavesOtherIconsToTheBaseStyle) {
  auto* const asked = new Asked;
  const DeferredIconStyle style(asked);
  EXPECT_FALSE(style.standardIcon(QStyle::SP_MessageBoxWarning).isNull());
  EXPECT_EQ(asked->times, 1);
}

TEST(DeferredIconStyle, PaintsNothingAfterTheStyleIsDestroyed) {
  QIcon icon;
  {
    const DeferredIconStyle style(new Asked);
    icon = style.standardIcon(kExtension);
  }
  EXPECT_TRUE(icon.pixmap(kSize).isNull());
}

}  // namespace
}  // namespace tonalith::platform

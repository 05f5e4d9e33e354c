// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/panel_button.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QTest>

#include "paint/colours.h"
#include "paint/theme.h"
#include "support/paint_counter.h"
#include "support/recorded_painting.h"

namespace tonalith::windows {
namespace {

using tests::Drawing;
using tests::Drawn;

const QColor kAccent(paint::kAccent);

class PanelButtonLook : public testing::Test {
 protected:
  PanelButtonLook() {
    QPalette palette = paint::WarmPalette(QPalette(QColor(0xee, 0xee, 0xee)));
    palette.setColor(QPalette::Button, kFill);
    palette.setColor(QPalette::Disabled, QPalette::Button, kDisabledFill);
    window_.setPalette(palette);
    window_.resize(300, 200);
    button_.setGeometry(10, 10, 120, 36);
    other_.setGeometry(10, 100, 120, 36);
    window_.show();
    window_.activateWindow();
    other_.setFocus();
    QApplication::processEvents();
  }

  [[nodiscard]] Drawing Look() { return tests::RecordPainting(button_); }
  [[nodiscard]] Drawn Caption() { return Look().Text(QStringLiteral("Listen")); }
  /// The colour of the area behind the caption.
  [[nodiscard]] QColor Fill() { return button_.grab().toImage().pixelColor(10, 10); }
  /// The colour of the outermost line, in the middle of the left side.
  [[nodiscard]] QColor Outline() { return button_.grab().toImage().pixelColor(0, 18); }
  [[nodiscard]] QColor ColourOf(QPalette::ColorGroup group, QPalette::ColorRole role) const {
    return button_.palette().color(group, role);
  }

  const QColor kFill = QColor(0xfa, 0xfa, 0xf8);
  const QColor kDisabledFill = QColor(0xe8, 0xe6, 0xe2);
  QWidget window_;
  PanelButton button_{QStringLiteral("cmdListen"), QStringLiteral("Listen"), PanelButton::Kind::kOrdinary, &window_};
  PanelButton other_{QStringLiteral("cmdStop"), QStringLiteral("Stop"), PanelButton::Kind::kOrdinary, &window_};
};

TEST_F(PanelButtonLook, PaintsItsCaptionInTheMiddle) {
  const Drawn caption = Caption();
  EXPECT_NEAR(caption.box.center().x(), 60, 1);
  EXPECT_NEAR(caption.box.center().y(), 18, 1.5);
  EXPECT_EQ(caption.line, ColourOf(QPalette::Active, QPalette::ButtonText));
  EXPECT_NE(caption.font.weight(), QFont::Bold);
}

TEST_F(PanelButtonLook, IsAPanelWithAnOutline) {
  EXPECT_EQ(Fill(), kFill);
  EXPECT_EQ(Outline().rgb(), paint::OutlineColour(button_.palette()).rgb());
}

TEST_F(PanelButtonLook, HasGreyCaptionAndPanelWhileDisabled) {
  button_.setEnabled(false);
  EXPECT_EQ(Caption().line, ColourOf(QPalette::Disabled, QPalette::ButtonText));
  EXPECT_NE(Caption().line, ColourOf(QPalette::Active, QPalette::ButtonText));
  EXPECT_EQ(Fill(), kDisabledFill);
}

TEST_F(PanelButtonLook, IsDarkerWhilePressed) {
  button_.setDown(true);
  EXPECT_EQ(Look().FilledWith(kFill.darker(112)).size(), 1U);
  EXPECT_LT(Fill().lightness(), kFill.lightness());
  button_.setDown(false);
  EXPECT_EQ(Fill(), kFill);
}

TEST_F(PanelButtonLook, IsSlightlyDarkerUnderThePointerWhileEnabled) {
  button_.setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(Look().FilledWith(kFill.darker(104)).size(), 1U);
  button_.setEnabled(false);
  EXPECT_EQ(Fill(), kDisabledFill);
}

TEST_F(PanelButtonLook, HasARingInTheAccentColourWhileFocused) {
  button_.setFocus();
  ASSERT_TRUE(button_.hasFocus());
  EXPECT_EQ(Outline(), kAccent);
  EXPECT_EQ(Look().FilledWith(kAccent).size(), 1U);
  other_.setFocus();
  EXPECT_TRUE(Look().FilledWith(kAccent).empty());
}

TEST_F(PanelButtonLook, MainActionIsWhiteAndBoldOnTheAccent) {
  button_.SetKind(PanelButton::Kind::kMainAction);
  const Drawn caption = Caption();
  EXPECT_EQ(caption.line, QColor(Qt::white));
  EXPECT_EQ(caption.font.weight(), QFont::Bold);
  EXPECT_GE(QFontInfo(caption.font).pixelSize(), 14);
  EXPECT_EQ(Fill(), kAccent);
  EXPECT_EQ(Outline(), kAccent);
}

TEST_F(PanelButtonLook, MainActionHasAWhiteRingInsideWhileFocused) {
  button_.SetKind(PanelButton::Kind::kMainAction);
  EXPECT_TRUE(Look().OutlinedWith(Qt::white).empty());
  button_.setFocus();
  const std::vector<Drawn> rings = Look().OutlinedWith(Qt::white);
  ASSERT_EQ(rings.size(), 1U);
  EXPECT_GT(rings[0].lineWidth, 1);
  EXPECT_FALSE(rings[0].fill.isValid()) << "the ring would cover the panel";
  EXPECT_TRUE(QRectF(button_.rect()).adjusted(2, 2, -2, -2).contains(rings[0].box));
}

TEST_F(PanelButtonLook, DisabledMainActionLooksLikeAnyDisabledButton) {
  button_.setEnabled(false);
  const QImage ordinary = button_.grab().toImage();
  button_.SetKind(PanelButton::Kind::kMainAction);
  EXPECT_EQ(button_.grab().toImage(), ordinary);
}

TEST_F(PanelButtonLook, ChangingTheKindRepaints) {
  const tests::PaintCounter paints(button_);
  button_.SetKind(PanelButton::Kind::kMainAction);
  QApplication::processEvents();
  EXPECT_EQ(paints.Count(), 1);
}

TEST_F(PanelButtonLook, ReducesTheFontUntilTheCaptionFits) {
  const int normal = button_.fontInfo().pixelSize();
  EXPECT_EQ(QFontInfo(button_.FittedFont()).pixelSize(), normal);
  button_.setText(QStringLiteral("Listen to all these scales"));
  const QFont fitted = button_.FittedFont();
  ASSERT_GT(fitted.pixelSize(), 0);
  ASSERT_LT(fitted.pixelSize(), normal - 1);
  const auto width = [this](const QFont& used) {
    return QFontMetrics(used).size(Qt::TextShowMnemonic, button_.text()).width();
  };
  EXPECT_LE(width(fitted), 120 - 8);
  QFont larger = fitted;
  larger.setPixelSize(fitted.pixelSize() + 1);
  EXPECT_GT(width(larger), 120 - 8) << "no smaller than necessary";
  EXPECT_EQ(Look().All().back().font.pixelSize(), fitted.pixelSize());
  button_.setText(QString(200, QLatin1Char('W')));
  EXPECT_EQ(button_.FittedFont().pixelSize(), 9) << "the smallest size";
}

TEST_F(PanelButtonLook, HintIsWideEnoughForTheCaptionAndForAFinger) {
  EXPECT_EQ(button_.sizeHint(), QSize(100, 36));
  button_.setText(QStringLiteral("Listen to the scale and stop"));
  EXPECT_EQ(button_.sizeHint().width(), button_.fontMetrics().horizontalAdvance(button_.text()) + 32);
  QFont large = button_.font();
  large.setPixelSize(40);
  button_.setFont(large);
  EXPECT_EQ(button_.sizeHint().height(), button_.fontMetrics().height() + 14);
}

TEST_F(PanelButtonLook, ShowsTheMnemonicAsALineAndNotAsAnAmpersand) {
  button_.setText(QStringLiteral("&Listen"));
  EXPECT_FALSE(Look().Texts().join(QString()).contains(QLatin1Char('&')));
  EXPECT_EQ(Look().Texts().join(QString()), QStringLiteral("Listen"));
}

TEST_F(PanelButtonLook, UnderlinesTheMnemonicWhereTheStyleDoes) {
  struct Style : QProxyStyle {
    explicit Style(bool underlines) : underlines_(underlines) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
      return hint == SH_UnderlineShortcut ? underlines_ : QProxyStyle::styleHint(hint, option, widget, result);
    }
    const bool underlines_;
  } with(true), without(false);
  const QImage plain = button_.grab().toImage();
  button_.setText(QStringLiteral("&Listen"));
  button_.setStyle(&without);
  EXPECT_EQ(button_.grab().toImage(), plain);
  button_.setStyle(&with);
  EXPECT_NE(button_.grab().toImage(), plain);
  button_.setStyle(nullptr);
}

TEST_F(PanelButtonLook, ShortcutActsAtOnceWithoutShowingTheButtonPressed) {
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  button_.setText(QStringLiteral("&Listen"));
  QTest::keyClick(&window_, Qt::Key_L, Qt::AltModifier);
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_FALSE(button_.isDown());
}

}  // namespace
}  // namespace tonalith::windows

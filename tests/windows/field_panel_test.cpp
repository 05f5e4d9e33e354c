// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/field_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>

#include "paint/colours.h"

namespace tonalith::windows {
namespace {

class FieldPanelLook : public testing::Test {
 protected:
  FieldPanelLook() {
    QPalette palette = form_.palette();
    palette.setColor(QPalette::Window, Qt::darkCyan);
    palette.setColor(QPalette::Base, Qt::yellow);
    form_.setPalette(palette);
    auto* const rows = new QVBoxLayout(&form_);
    rows->addWidget(&other_);
    rows->addWidget(&panel_);
    form_.show();
    form_.activateWindow();
    other_.setFocus();
    QApplication::processEvents();
  }

  /// The colour next to the box, where the panel is visible.
  [[nodiscard]] QColor Background() { return panel_.grab().toImage().pixelColor(4, panel_.height() / 2); }
  /// The colour of the outline, in the middle of the left side.
  [[nodiscard]] QColor Outline() { return panel_.grab().toImage().pixelColor(1, panel_.height() / 2); }

  QWidget form_;
  QLineEdit other_;
  QLineEdit* box_ = new QLineEdit;
  FieldPanel panel_{box_, nullptr};
};

TEST_F(FieldPanelLook, HasTheBoxBackgroundAndIsFlatWhileReadOnly) {
  EXPECT_EQ(Background(), QColor(Qt::yellow));
  box_->setReadOnly(true);
  EXPECT_EQ(Background(), QColor(Qt::darkCyan));
  box_->setReadOnly(false);
  box_->setEnabled(false);
  EXPECT_EQ(Background(), QColor(Qt::darkCyan));
}

TEST_F(FieldPanelLook, ShowsTheFocusRingWhileItsBoxHasTheFocus) {
  EXPECT_NE(Outline(), QColor(paint::kAccent));
  box_->setFocus();
  ASSERT_TRUE(box_->hasFocus());
  EXPECT_EQ(Outline(), QColor(paint::kAccent));
  other_.setFocus();
  EXPECT_NE(Outline(), QColor(paint::kAccent));
}

TEST_F(FieldPanelLook, IsHiddenAndShownWithItsBox) {
  box_->hide();
  EXPECT_TRUE(panel_.isHidden());
  box_->show();
  EXPECT_FALSE(panel_.isHidden());
}

TEST_F(FieldPanelLook, HasTheGivenPaddingAboveAndBelowTheBox) {
  const FieldPanel roomy(new QLineEdit, nullptr, 9);
  EXPECT_EQ(roomy.sizeHint().height() - panel_.sizeHint().height(), 8) << "twice 9 instead of 5";
}

}  // namespace
}  // namespace tonalith::windows

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/key_box.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "core/note_model.h"

namespace tonalith::app {
namespace {

class KeyBoxTest : public testing::Test {
 protected:
  KeyBoxTest() : box_(QStringLiteral("cmbTranspose"), nullptr) {
    for (const auto note : core::kSharpNotes) box_.addItem(QString::fromUtf8(note.data(), note.size()));
    box_.Choose(0);
  }
  void Type(const char* text) {
    box_.lineEdit()->selectAll();
    QTest::keyClicks(&box_, QLatin1String(text));
  }
  KeyBox box_;
};

TEST_F(KeyBoxTest, TypingAnExactNoteNameSelectsItsItem) {
  Type("F#");
  EXPECT_EQ(box_.currentText().toStdString(), "F#");
  EXPECT_EQ(box_.currentIndex(), 6);
  EXPECT_EQ(box_.ListIndex(), 6);
}

TEST_F(KeyBoxTest, TheListIsWrittenLikeTheBox) {
  box_.show();
  box_.showPopup();
  EXPECT_EQ(box_.view()->font().pixelSize(), 14);
  EXPECT_TRUE(box_.view()->font().bold());
  EXPECT_EQ(box_.lineEdit()->font().pixelSize(), 14);
  box_.hidePopup();
}

TEST_F(KeyBoxTest, AnyOtherTextStaysAndReadsAsC) {
  Type("Hello");
  EXPECT_EQ(box_.currentText().toStdString(), "Hello");
  EXPECT_EQ(box_.ListIndex(), 0);
}

TEST_F(KeyBoxTest, LowerCaseIsNotCompletedToANoteName) {
  Type("g");
  EXPECT_EQ(box_.currentText().toStdString(), "g");
  EXPECT_EQ(box_.ListIndex(), 0);
}

TEST_F(KeyBoxTest, EveryKeyLetGoIsOneNotice) {
  const QSignalSpy released(&box_, &KeyBox::KeyReleased);
  Type("A#");
  EXPECT_EQ(released.count(), 2);
}

TEST_F(KeyBoxTest, ChoosingAnItemIsOneClick) {
  const QSignalSpy clicked(&box_, &KeyBox::Clicked);
  box_.Choose(2);
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_EQ(box_.currentText().toStdString(), "D");
}

TEST_F(KeyBoxTest, ArrowDownInTheBoxSelectsTheNextKeyAndTells) {
  const QSignalSpy clicked(&box_, &KeyBox::Clicked);
  QTest::keyClick(&box_, Qt::Key_Down);
  EXPECT_EQ(box_.currentText().toStdString(), "C#");
  EXPECT_EQ(clicked.count(), 1);
}

}  // namespace
}  // namespace tonalith::app

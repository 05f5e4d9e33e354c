// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How the boxes of the form are painted.

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "editor/text_boxes.h"
#include "editor/type_box.h"
#include "paint/colours.h"
#include "paint/theme.h"
#include "support/recorded_painting.h"

namespace tonalith::editor {
namespace {

using tests::Drawing;
using tests::Drawn;

class BoxesLook : public testing::Test {
 protected:
  BoxesLook() {
    window_.setPalette(paint::WarmPalette(QPalette(QColor(0xee, 0xee, 0xee))));
    window_.resize(400, 200);
    type_.setGeometry(0, 0, 200, 34);
    line_.setGeometry(0, 50, 120, 24);
    other_.setGeometry(0, 100, 120, 24);
    type_.SetTypes({{1, "Modes"}, {2, std::string(80, 'W')}});
    window_.show();
    window_.activateWindow();
    other_.setFocus();
    QApplication::processEvents();
  }
  [[nodiscard]] QColor TextColour(QPalette::ColorGroup group = QPalette::Active) const {
    return type_.palette().color(group, QPalette::Text);
  }

  QWidget window_;
  TypeBox type_{QStringLiteral("cmbScaleType"), &window_};
  LineBox line_{QStringLiteral("txtName"), &window_};
  LineBox other_{QStringLiteral("txtOther"), &window_};
};

TEST_F(BoxesLook, TypeBoxShowsItsTypeAndAnArrow) {
  type_.Show(QStringLiteral("1"));
  const Drawing look = tests::RecordPainting(type_);
  EXPECT_EQ(look.Texts(), QStringList{QStringLiteral("Modes")});
  const Drawn type = look.Text(QStringLiteral("Modes"));
  EXPECT_EQ(type.line, TextColour());
  EXPECT_NEAR(type.box.left(), 11, 1);
  EXPECT_NEAR(type.box.center().y(), 17, 1.5);
  const std::vector<Drawn> arrows = look.OutlinedWith(paint::SecondaryText(type_.palette()));
  ASSERT_EQ(arrows.size(), 1U);
  EXPECT_GT(arrows[0].box.left(), 200 - 30) << "to the right of the text";
  EXPECT_FALSE(arrows[0].fill.isValid() && arrows[0].form == "rect");
}

TEST_F(BoxesLook, TypeBoxShowsTheBeginningOfALongType) {
  type_.Show(QStringLiteral("2"));
  const std::vector<Drawn> drawn = tests::RecordPainting(type_).All();
  const auto text = std::find_if(drawn.begin(), drawn.end(), [](const Drawn& one) { return !one.text.isEmpty(); });
  ASSERT_NE(text, drawn.end());
  EXPECT_TRUE(text->text.endsWith(QChar(0x2026)));
  EXPECT_LE(text->box.right(), 200 - 30 + 1);
}

TEST_F(BoxesLook, TypeBoxHasAFocusRingAndAGreyTextWhileDisabled) {
  type_.Show(QStringLiteral("1"));
  const QColor accent(paint::kAccent);
  EXPECT_TRUE(tests::RecordPainting(type_).FilledWith(accent).empty());
  type_.setFocus();
  EXPECT_EQ(tests::RecordPainting(type_).FilledWith(accent).size(), 1U);
  type_.setEnabled(false);
  EXPECT_TRUE(tests::RecordPainting(type_).FilledWith(accent).empty());
  const QColor grey = tests::RecordPainting(type_).Text(QStringLiteral("Modes")).line;
  EXPECT_EQ(grey, TextColour(QPalette::Disabled));
  EXPECT_NE(grey, TextColour());
}

TEST_F(BoxesLook, TypeBoxKeepsTheShownTypeWhenTheListChanges) {
  type_.Show(QStringLiteral("2"));
  type_.SetTypes({{2, "Chords"}, {3, "Others"}});
  EXPECT_EQ(type_.currentText().toStdString(), "Chords");
  type_.Show(QStringLiteral(" 3 "));
  EXPECT_EQ(type_.currentText().toStdString(), "Others");
  type_.SetTypes({{2, "Chords"}});
  EXPECT_EQ(type_.currentText().toStdString(), "") << "its type has gone";
}

TEST_F(BoxesLook, LineBoxPaintsTheBeginningOfALongTextInTheColourOfTexts) {
  line_.setText(QStringLiteral("Dorian"));
  ASSERT_FALSE(line_.IsElided());
  EXPECT_EQ(tests::RecordPainting(line_).Texts(), QStringList{QStringLiteral("Dorian")});
  line_.setText(QString(60, QLatin1Char('M')));
  ASSERT_TRUE(line_.IsElided());
  const std::vector<Drawn> drawn = tests::RecordPainting(line_).All();
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_TRUE(drawn[0].text.startsWith(QLatin1String("MMM")));
  EXPECT_TRUE(drawn[0].text.endsWith(QChar(0x2026)));
  EXPECT_EQ(drawn[0].line, line_.palette().color(QPalette::Text));
  EXPECT_LE(drawn[0].box.right(), 120);
  EXPECT_NEAR(drawn[0].box.center().y(), 12, 1.5);
}

TEST_F(BoxesLook, LineBoxElidesAtTheSamePlaceWhereItsTextBegins) {
  line_.setText(QStringLiteral("MM"));
  const double left = tests::RecordPainting(line_).Text(QStringLiteral("MM")).box.left();
  line_.setText(QString(60, QLatin1Char('M')));
  EXPECT_NEAR(tests::RecordPainting(line_).All().at(0).box.left(), left, 1);
}

TEST_F(BoxesLook, ToolTipOfALineBoxIsTheWholeTextWhereItIsElided) {
  const auto rest = [this] {
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), line_.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&line_, &event);
    const QString shown = QToolTip::text();
    QToolTip::hideText();
    return shown.toStdString();
  };
  const std::string whole(60, 'M');
  line_.setText(QString::fromStdString(whole));
  EXPECT_EQ(rest(), whole);
  line_.setText(QStringLiteral("MM"));
  line_.setToolTip(QStringLiteral("The name."));
  EXPECT_EQ(rest(), "The name.");
}

}  // namespace
}  // namespace tonalith::editor

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <vector>

#include "help/book_fixture.h"
#include "help/frm_help.h"
#include "help/help_browser.h"
#include "help/help_style.h"
#include "help/picture_reader.h"
#include "paint/colours.h"
#include "paint/theme.h"
#include "support/recording_msg_box.h"

namespace tonalith::help {
namespace {

QPalette DarkPalette() { return QPalette(QColor(0x30, 0x30, 0x30)); }

class FrmHelpLookTest : public testing::Test {
 protected:
  FrmHelpLookTest() {
    form_.setAttribute(Qt::WA_DeleteOnClose, false);
    form_.ShowBook(ReadBook());
    form_.show();
    QCoreApplication::processEvents();
  }
  ~FrmHelpLookTest() override { QApplication::setPalette(QPalette()); }

  /// Qt sends a palette change to windows only while the application's event loop runs.
  void SetSystem(const QPalette& palette) {
    QApplication::setPalette(palette);
    QEvent change(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(&form_, &change);
    QCoreApplication::processEvents();
  }

  tests::RecordingMsgBox box_;
  frmHelp form_{box_, [](const QUrl&) { return true; }, nullptr};
};

/// All text colours of the page.
std::vector<QColor> TextColours(const QTextDocument& document) {
  std::vector<QColor> textColours;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextCharFormat format = part.fragment().charFormat();
      if (!format.isImageFormat()) textColours.push_back(format.foreground().color());
    }
  }
  return textColours;
}

TEST_F(FrmHelpLookTest, TextIsReadableOnLightAndDarkSystems) {
  for (const QPalette& system : {QPalette(QColor(0xef, 0xef, 0xef)), DarkPalette()}) {
    SetSystem(system);
    const QColor background = form_.Page()->palette().color(QPalette::Base);
    EXPECT_EQ(paint::IsDark(form_.Page()->palette()), paint::IsDark(system));
    const auto textColours = TextColours(*form_.Page()->document());
    ASSERT_FALSE(textColours.empty());
    for (const QColor& textColour : textColours)
      EXPECT_GE(paint::ContrastRatio(textColour, background), 4.5) << textColour.name().toStdString();
  }
}

TEST_F(FrmHelpLookTest, ScrollPositionIsStoredWhenGoingForward) {
  HelpBrowser& page = *form_.Page();
  const auto press = [this](const char* name) { form_.findChild<QAbstractButton*>(QLatin1String(name))->click(); };
  Q_EMIT page.LinkChosen("chords/open.html");
  page.SetScroll(222);
  Q_EMIT page.LinkChosen("../strings.html");
  press("cmdBack");
  ASSERT_EQ(page.Scroll(), 222);
  page.SetScroll(111);
  press("cmdForward");
  press("cmdBack");
  EXPECT_EQ(page.Scroll(), 111);
}

/// The style sheet of the file sets black on white.
TEST_F(FrmHelpLookTest, ColoursOfTheFileDoNotBreakADarkSystem) {
  SetSystem(DarkPalette());
  const QImage shot = form_.Page()->grab().toImage();
  EXPECT_LT(QColor(shot.pixel(shot.width() - 40, shot.height() - 10)).lightness(), 80);
}

TEST_F(FrmHelpLookTest, HighlightedTextIsReadable) {
  for (const QPalette& system : {QPalette(QColor(0xef, 0xef, 0xef)), DarkPalette()}) {
    const QPalette palette = paint::WarmPalette(system);
    EXPECT_GE(paint::ContrastRatio(palette.color(QPalette::Text), HitBackground(palette)), 4.5);
  }
}

TEST_F(FrmHelpLookTest, ColumnWidthIsReadableInAWideWindow) {
  form_.resize(1900, 900);
  QCoreApplication::processEvents();
  const QFontMetrics letters(form_.Page()->document()->defaultFont());
  const double characters = double(form_.Page()->lineWrapColumnOrWidth()) / letters.averageCharWidth();
  EXPECT_GT(characters, 60);
  EXPECT_LT(characters, 110);
}

TEST_F(FrmHelpLookTest, NothingIsClippedInAnyFontSize) {
  for (const int points : {7, 9, 14, 22}) {
    QFont letters = QApplication::font();
    letters.setPointSize(points);
    form_.setFont(letters);
    QTest::keyClick(&form_, Qt::Key_F, Qt::ControlModifier);
    form_.resize(form_.minimumSizeHint().expandedTo({900, 700}));
    QCoreApplication::processEvents();
    for (const auto* const control : form_.findChildren<QWidget*>()) {
      const bool isText =
          qobject_cast<const QLabel*>(control) != nullptr || qobject_cast<const QLineEdit*>(control) != nullptr;
      if (!isText || !control->isVisible()) continue;
      EXPECT_GE(control->height(), control->fontMetrics().height())
          << control->objectName().toStdString() << " " << points;
      EXPECT_GE(control->width(),
                qobject_cast<const QLabel*>(control) != nullptr ? control->minimumSizeHint().width() : 60)
          << control->objectName().toStdString() << " " << points;
    }
    EXPECT_EQ(form_.Page()->horizontalScrollBar()->maximum(), 0);
  }
}

TEST_F(FrmHelpLookTest, FocusableControlsHaveAccessibleNames) {
  int named = 0;
  for (const auto* const control : form_.findChildren<QWidget*>()) {
    if ((control->focusPolicy() & Qt::TabFocus) == 0 || control->objectName().startsWith(QLatin1String("qt_")))
      continue;
    if (qobject_cast<const QAbstractButton*>(control) == nullptr && control->objectName().isEmpty()) continue;
    if (control->inherits("QTabWidget") || control->inherits("QTabBar")) continue;
    EXPECT_FALSE(control->accessibleName().isEmpty())
        << control->metaObject()->className() << " " << control->objectName().toStdString();
    ++named;
  }
  EXPECT_GT(named, 10);
}

TEST_F(FrmHelpLookTest, IdleWindowDoesNotRepaint) {
  // A read-only page has no blinking caret.
  EXPECT_FALSE(form_.Page()->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

TEST(PictureReader, PageSetsTheSizeAndPictureTheProportions) {
  EXPECT_EQ(ShownSize({"p", 40, 0, ""}, {80, 60}, 1, 700), QSize(40, 30));
  EXPECT_EQ(ShownSize({"p", 0, 30, ""}, {80, 60}, 1, 700), QSize(40, 30));
  EXPECT_EQ(ShownSize({"p", 0, 0, ""}, {80, 60}, 1, 700), QSize(80, 60));
  EXPECT_EQ(ShownSize({"p", 40, 40, ""}, {80, 60}, 1, 700), QSize(40, 40));
  EXPECT_EQ(ShownSize({"p", 40, 0, ""}, {80, 60}, 2, 700), QSize(80, 60));
}

TEST(PictureReader, AreNotWiderThanTheColumn) {
  EXPECT_EQ(ShownSize({"p", 640, 0, ""}, {1280, 640}, 1, 320), QSize(320, 160));
  EXPECT_EQ(ShownSize({"p", 640, 0, ""}, {1280, 640}, 3, 320), QSize(320, 160));
}

TEST(PictureReader, DoubleSizedPictureIsUnscaledAtScaleTwo) {
  const QImage picture = ReadPicture(SourceOf("picture.png"));
  ASSERT_EQ(picture.size(), QSize(80, 80));
  const QSize shown = ShownSize({"p", 40, 0, ""}, picture.size(), 1, 700);
  const QImage sharp = SharpAt(picture, shown, 2);
  EXPECT_EQ(sharp.size(), picture.size());
  EXPECT_EQ(sharp.convertToFormat(QImage::Format_RGB32), [&] {
    QImage same = picture.convertToFormat(QImage::Format_RGB32);
    same.setDevicePixelRatio(2);
    return same;
  }());
  EXPECT_EQ(SharpAt(picture, shown, 1).size(), QSize(40, 40));
}

TEST(PictureReader, InvalidPictureIsNull) {
  EXPECT_TRUE(ReadPicture("").isNull());
  EXPECT_TRUE(ReadPicture("no picture").isNull());
  const std::string whole = SourceOf("picture.png");
  EXPECT_TRUE(ReadPicture(whole.substr(0, 30)).isNull());
  // A header that claims a hundred thousand pixels in each direction.
  std::string huge = whole;
  for (const std::size_t at : {16U, 20U}) huge.replace(at, 4, std::string("\x00\x01\x86\xA0", 4));
  EXPECT_TRUE(ReadPicture(huge).isNull());
}

TEST_F(FrmHelpLookTest, PictureIsShownAtItsWidth) {
  bool found = false;
  const QTextDocument& document = *form_.Page()->document();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
      if (!format.isValid()) continue;
      found = true;
      EXPECT_EQ(QSizeF(format.width(), format.height()), QSizeF(40, 40));
      EXPECT_FALSE(document.resource(QTextDocument::ImageResource, QUrl(format.name())).isNull());
    }
  }
  EXPECT_TRUE(found);
}

TEST(HelpBrowserPicture, MissingPictureShowsItsDescription) {
  HelpBrowser page(nullptr);
  page.ShowPage(
      std::make_shared<const HelpBook>(ChmObjects{{"/a.html", "<p>See <img src=gone.png alt='The neck'></p>"}}),
      {"/a.html", {}});
  EXPECT_EQ(page.toPlainText(), QStringLiteral("See [The neck]"));
}

TEST(HelpBrowserLimits, ATruncatedPageShowsAMessage) {
  HelpBrowser page(nullptr);
  page.ShowPage(std::make_shared<const HelpBook>(ChmObjects{{"/a.html", std::string(kLongestHelpText + 1, 'x')}}),
                {"/a.html", {}});
  EXPECT_TRUE(page.toPlainText().endsWith(QStringLiteral("This page is too long. The rest of it is not shown.")));
  page.ShowPage(std::make_shared<const HelpBook>(ChmObjects{{"/a.html", "<p>short"}}), {"/a.html", {}});
  EXPECT_EQ(page.toPlainText(), QStringLiteral("short"));
}

/// The darkest grey of each row of pixels.
std::vector<int> DarkestOfRows(const QImage& picture) {
  std::vector<int> darkest;
  for (int y = 0; y < picture.height(); ++y) {
    int row = 255;
    for (int x = 0; x < picture.width(); ++x) row = std::min(row, qGray(picture.pixel(x, y)));
    darkest.push_back(row);
  }
  return darkest;
}

TEST_F(FrmHelpLookTest, SearchResultShowsItsTitleAboveASecondaryExtract) {
  auto* const text = form_.findChild<QLineEdit*>(QStringLiteral("txtHelpSearch"));
  auto* const results = form_.findChild<QListWidget*>(QStringLiteral("HelpResults"));
  text->setText(QStringLiteral("string"));
  QTest::keyClick(text, Qt::Key_Return);
  ASSERT_GE(results->count(), 1);
  QStyleOptionViewItem option;
  option.initFrom(results);
  option.state = QStyle::State_Enabled;
  option.widget = results;
  option.font = results->font();
  option.fontMetrics = QFontMetrics(option.font);
  const QModelIndex first = results->model()->index(0, 0);
  option.rect = QRect(0, 0, 280, results->itemDelegate()->sizeHint(option, first).height());
  QImage picture(option.rect.size(), QImage::Format_RGB32);
  picture.fill(results->palette().color(QPalette::Base));
  QPainter painter(&picture);
  results->itemDelegate()->paint(&painter, option, first);
  painter.end();
  const std::vector<int> darkest = DarkestOfRows(picture);
  const int titleEnd = results->fontMetrics().lineSpacing() + 6;
  const int title = *std::min_element(darkest.begin(), darkest.begin() + titleEnd);
  const int extract = *std::min_element(darkest.begin() + titleEnd + 4, darkest.end());
  const int background = qGray(results->palette().color(QPalette::Base).rgb());
  EXPECT_LT(title, background - 150) << "the title is not visible";
  EXPECT_LT(extract, background - 60) << "the extract is not visible";
  EXPECT_LT(title, extract) << "the extract is as dark as the title";
}

}  // namespace
}  // namespace tonalith::help

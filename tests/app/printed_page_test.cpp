// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The printed page, checked by its draw commands and by a PDF file that another program reads.

#include <QFontInfo>
#include <QLabel>
#include <QTimer>
#include <regex>
#include <stdexcept>
#include <utility>
#include <vector>

#include "app/print_fixture.h"
#include "support/ink.h"
#include "support/pdf_file.h"

namespace tonalith::app {
namespace {

using platform::PaperOrientation;
using platform::PaperSize;
using testing::HasSubstr;

TEST_F(Printing, DrawsStaffThenNeckThenLabelsThenNoteImages) {
  StartOn({"Minor triad", "345"}, 2);
  Print();
  const std::string page = Page();
  std::size_t at = 0;
  for (const char* const step : {"picture Treble clef: D F A at ", "picture neck at ", "print \"Minor triad\" at ",
                                 "print \"Test scales\" at ", "print \"A scale for tests.\" at ", "print \"Key\" at ",
                                 "print \"D\" at ", "print \"Scale Steps:   T1.5  T2  T2.5\" at ",
                                 "print \" D F A\" at ", "print \"12\" at ", "picture scale-note at "}) {
    const std::size_t found = page.find(step, at);
    ASSERT_NE(found, std::string::npos) << step << "is missing or too early in\n" << page;
    at = found;
  }
}

/// Where the page has a drawing command, such as `picture neck`.
QPointF PlaceOf(const std::string& page, const std::string& command) {
  const std::size_t start = page.find(command + " at ");
  if (start == std::string::npos) throw std::runtime_error(command + " is not in\n" + page);
  const std::string place = page.substr(start + command.size() + 4);
  return {std::stod(place), std::stod(place.substr(place.find(',') + 1))};
}

TEST_F(Printing, LabelsAreArrangedAsInTheWindow) {
  StartOn({"Minor triad", "345"}, 2);
  Print();
  const std::string page = Page();
  const auto text = [&](const std::string& words) { return PlaceOf(page, "print \"" + words + "\""); };
  const QPointF name = text("Minor triad");
  QPointF above = name;
  for (const char* const label : {"Test scales", "A scale for tests.", "Key", "D"}) {
    EXPECT_EQ(text(label).x(), name.x()) << label;
    EXPECT_GT(text(label).y(), above.y() + 10) << label;
    above = text(label);
  }
  const QPointF steps = text("Scale Steps:   T1.5  T2  T2.5");
  EXPECT_GT(steps.x(), text("D").x() + 50) << "to the right of the key";
  EXPECT_GT(text(" D F A").y(), steps.y() + 10) << "the names are below the steps";
  const QPointF origin = PlaceOf(page, "picture neck");
  EXPECT_EQ(PlaceOf(page, "picture Treble clef: D F A"), origin) << "both have the coordinates of the window";
  const QLabel& label = *C().Label1;
  EXPECT_EQ(name - label.mapTo(Window().centralWidget(), QPoint(0, 0)), origin);
}

TEST_F(Printing, PaintsEveryVisibleNoteImageAtItsPosition) {
  StartOn({"Minor triad", "345"}, 2);
  Print();
  std::string expected;
  int visible = 0;
  for (int index = 0; index < 96; ++index) {
    const views::NoteImage& image = C().fretboard->Image(index);
    if (image.isHidden()) continue;
    ++visible;
    const QPoint place = image.mapTo(Window().centralWidget(), QPoint(0, 0)) - QPoint(38, 18);
    const char* const picture = image.Picture() == views::NotePicture::kKeyNote ? "key-note" : "scale-note";
    expected = std::string("picture ") + picture + " at " + std::to_string(place.x()) + "," + std::to_string(place.y());
    EXPECT_THAT(Page(), HasSubstr(expected + "\n"));
  }
  EXPECT_GT(visible, 15);
  std::size_t pictures = 0;
  const std::string page = Page();
  for (std::size_t at = page.find("-note at"); at != std::string::npos; at = page.find("-note at", at + 1)) ++pictures;
  EXPECT_EQ(pictures, static_cast<std::size_t>(visible));
}

TEST_F(Printing, OmitsNamesIfTheWindowHidesThem) {
  StartOn({"Minor triad", "345"}, 2);
  Window().mViewNotes_Click();
  Print();
  EXPECT_THAT(Page(), HasSubstr("picture key-note"));
  EXPECT_THAT(Page(), testing::Not(HasSubstr("print \"F\"")));
}

TEST_F(Printing, WritesLabelsInTheirFontAndSizeInDarkColours) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x30, 0x30, 0x30));
  dark.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(dark);
  StartOn({"Minor triad", "345"});
  QCoreApplication::processEvents();
  Print();
  const std::string family = QFontInfo(C().Label1->font()).family().toStdString();
  EXPECT_THAT(Page(), HasSubstr("colour &H171B1F\nfont \"" + family + "\" 30px bold\nprint \"Minor triad\""));
  EXPECT_THAT(Page(), HasSubstr("colour &H2D52A0\nfont \"" + family + "\" 14px bold\nprint \"Test scales\""));
}

TEST_F(Printing, LongTextsAreWrappedInFullAndMoveTheOthersDown) {
  std::string name;
  std::string description;
  for (int word = 1; word <= 30; ++word) name += "Endless" + std::to_string(word) + " ";
  for (int word = 1; word <= 300; ++word) description += "explained" + std::to_string(word) + " ";
  StartOn({name, "2212221", description});
  const tests::PdfFile pdf(PrintPdf());
  const std::string text = pdf.Text();
  EXPECT_THAT(text, HasSubstr("Endless1 "));
  EXPECT_THAT(text, HasSubstr("Endless30 "));
  EXPECT_THAT(text, HasSubstr("explained300 "));
  EXPECT_THAT(text, testing::Not(HasSubstr("\xE2\x80\xA6"))) << "nothing is elided";
  EXPECT_GT(C().printPic->height(), 600);
  const std::string page = Page();
  const auto topOf = [&](const std::string& printed) {
    const std::size_t at = page.find(",", page.find("at ", page.find("print \"" + printed)));
    return std::stod(page.substr(at + 1));
  };
  EXPECT_GT(topOf("Scale Steps"), topOf("Key") - 2);
  EXPECT_GT(topOf("Key"), topOf("explained1 ") + 100);
  EXPECT_GT(topOf("Tonalith"), topOf("Scale Steps") + 300);
}

TEST_F(Printing, LongTextsMoveTheNotesWithTheNeck) {
  std::string description;
  for (int word = 1; word <= 300; ++word) description += "explained" + std::to_string(word) + " ";
  StartOn({"Minor triad", "345", description}, 2);
  Print();
  const std::string page = Page();
  std::vector<std::pair<int, int>> printed;
  const std::regex note("-note at (-?\\d+),(-?\\d+)");
  for (std::sregex_iterator at(page.begin(), page.end(), note); at != std::sregex_iterator(); ++at) {
    printed.emplace_back(std::stoi((*at)[1]), std::stoi((*at)[2]));
  }
  std::vector<std::pair<int, int>> onScreen;
  for (int index = 0; index < 96; ++index) {
    const views::NoteImage& image = C().fretboard->Image(index);
    if (image.isHidden()) continue;
    const QPoint place = image.mapTo(Window().centralWidget(), QPoint(0, 0)) - QPoint(38, 18);
    onScreen.emplace_back(place.x(), place.y());
  }
  ASSERT_EQ(printed.size(), onScreen.size());
  const int shift = printed[0].second - onScreen[0].second;
  EXPECT_GT(shift, 50);
  for (auto& [x, y] : onScreen) y += shift;
  EXPECT_EQ(printed, onScreen);
}

TEST_F(Printing, ProcessesPendingEventsMeanwhile) {
  StartOn({"Minor triad", "345"});
  bool isProcessed = false;
  QTimer::singleShot(0, &Window(), [&] { isProcessed = true; });
  Print();
  EXPECT_TRUE(isProcessed);
}

TEST_F(Printing, WordWiderThanItsLineIsBroken) {
  StartOn({std::string(400, 'W'), "2212221", std::string(3000, 'm')});
  const QImage page = tests::PdfFile(PrintPdf()).Page(100);
  const QRect ink = tests::InkBox(page, page.rect());
  const QRect printable = page.rect().adjusted(25, 25, -25, -25);
  EXPECT_TRUE(printable.contains(ink));
  const std::string text = Page();
  EXPECT_GT(std::count(text.begin(), text.end(), 'W'), 399);
  EXPECT_GT(std::count(text.begin(), text.end(), 'm'), 2999);
}

TEST_F(Printing, ShortTextsKeepTheLayoutOfTheScreen) {
  StartOn({"Minor triad", "345"});
  Print();
  EXPECT_EQ(C().printPic->size(), QSize(998, 500)) << "from the discs to the ends of the strings, without the buttons";
}

struct Extreme {
  const char* name;
  const char* pattern;
  int key;
};
void PrintTo(const Extreme& extreme, std::ostream* out) { *out << extreme.name; }

class ExtremeScales : public Printing, public testing::WithParamInterface<Extreme> {};

TEST_P(ExtremeScales, NothingIsClippedOnAnyPaper) {
  StartOn({GetParam().name, GetParam().pattern}, GetParam().key);
  box_.Forget();
  for (const PaperSize size : {PaperSize::kA4, PaperSize::kLetter}) {
    for (const PaperOrientation orientation : {PaperOrientation::kLandscape, PaperOrientation::kPortrait}) {
      const tests::PdfFile pdf(PrintPdf({size, orientation}));
      EXPECT_EQ(pdf.Info("Pages"), "1");
      const QImage page = pdf.Page(72);
      const QRect ink = tests::InkBox(page, page.rect());
      EXPECT_TRUE(page.rect().adjusted(18, 18, -18, -18).contains(ink));
      const double width = page.width() - 36;
      EXPECT_LE(ink.width(), 0.9 * width + 1);
      EXPECT_GE(ink.width(), 0.9 * width * 0.96) << "the neck reaches from edge to edge of the view";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scales, ExtremeScales,
                         testing::Values(Extreme{"Twelve", "111111111111", 11}, Extreme{"Ledgers", "777777", 11},
                                         Extreme{"Wide", "2222222222222222222222222", 6}, Extreme{"One", "9", 0}),
                         [](const auto& scale) { return std::string(scale.param.name); });

TEST_F(Printing, PdfHasSelectableTextAndEmbeddedFonts) {
  StartOn({"Minor triad", "345", "A chord \xE2\x80\x94 small & sad."}, 6);
  const tests::PdfFile pdf(PrintPdf());
  EXPECT_EQ(pdf.Info("Title"), "Minor triad in F#");
  for (const char* const text : {"Minor triad", "Test scales", "A chord \xE2\x80\x94 small & sad.", "Key",
                                 "Scale Steps: T1.5 T2 T2.5", "F# A C#", "12", "scales and chords for guitar"}) {
    EXPECT_THAT(pdf.Text(), HasSubstr(text));
  }
  const auto fonts = pdf.Fonts();
  EXPECT_FALSE(fonts.empty());
  for (const tests::PdfFont& font : fonts) EXPECT_TRUE(font.isEmbedded && font.isUnicode) << font.name;
}

TEST_F(Printing, NeckAndStaffHaveThePositionsOfTheView) {
  StartOn({"Minor triad", "345"}, 2);
  const QImage page = tests::PdfFile(PrintPdf()).Page(300);
  const double dots = 300.0 / 72;
  const double pixel = (842 - 36) * 0.9 / 998 * dots;
  const double left = (18 + (842 - 36) * 0.1 * 0.15) * dots;
  const double top = (18 + (595 - 36 - 500 * 0.9 * (842 - 36) / 998) * 0.15) * dots;
  const auto onPage = [&](double x, double y) {
    return QPoint(qRound(left + (x - 38) * pixel), qRound(top + (y - 18) * pixel));
  };
  // Find the nut, a thick dark bar, and the five dark staff lines.
  const QRectF nut = C().fretboard->Geometry().nut;
  const QPoint middle = onPage(nut.center().x(), nut.top() + 12);
  EXPECT_GT(tests::Darkness(page, middle.x(), middle.y()), 128);
  EXPECT_EQ(tests::InkRuns(page, onPage(0, 123).y(), onPage(900, 0).x(), onPage(1030, 0).x()), 1);
  int lines = 0;
  bool isDark = false;
  for (int y = onPage(0, 115).y(); y < onPage(0, 170).y(); ++y) {
    const bool now = tests::Darkness(page, onPage(1000, 0).x(), y) > 128;
    lines += now && !isDark ? 1 : 0;
    isDark = now;
  }
  EXPECT_EQ(lines, 5);
}

TEST_F(Printing, NoteNamesAreAlignedWithTheStepLine) {
  StartOn({"Minor triad", "345"}, 2);
  Print();
  const std::string page = Page();
  paint::RecordingSurface surface;
  surface.SetScaleMode(paint::ScaleMode::kPixels);
  surface.SetFontName(QFontInfo(C().lblScaleNotes->font()).family().toStdString());
  surface.SetFontSize(paint::Pixels(14));
  surface.SetFontBold(true);
  EXPECT_NEAR(104 + surface.TextWidth(" "), 108, 1.5) << "the blank moves the names to the right";
  EXPECT_THAT(page, HasSubstr("print \" D F A\" at 104,"));
}

TEST_F(Printing, TextThatIsNoKeyIsPrintedAsTyped) {
  StartOn({"Minor triad", "345"});
  C().cmbTranspose->setEditText(QStringLiteral("Hx"));
  Print();
  EXPECT_THAT(Page(), HasSubstr("20px bold\nprint \"Hx\" at "));
  EXPECT_EQ(PageTitle(C()), "Minor triad in Hx");
  const QString longText = QStringLiteral("No key at all but a sentence of it");
  C().cmbTranspose->setEditText(longText);
  Print();
  const tests::PdfFile pdf(PrintPdf());
  for (const QString& word : longText.split(QLatin1Char(' '))) EXPECT_THAT(pdf.Text(), HasSubstr(word.toStdString()));
}

TEST_F(Printing, VersionLineIsRightBelowTheFretNumbers) {
  StartOn({"Minor triad", "345"});
  Print();
  const std::string page = Page();
  const auto topOf = [&](const std::string& printed) {
    const std::size_t at = page.find(',', page.find("at ", page.find("print \"" + printed)));
    return std::stod(page.substr(at + 1));
  };
  EXPECT_GT(topOf("Tonalith"), topOf("12") + 12);
  EXPECT_LT(topOf("Tonalith"), topOf("12") + 32);
}

TEST_F(Printing, ShortDescriptionHasTheLargestSize) {
  StartOn({"Minor triad", "345", "Short."});
  Print();
  EXPECT_THAT(Page(), HasSubstr(" 16px\nprint \"Short.\""));
}

TEST_F(Printing, LongDescriptionHasASmallerSize) {
  std::string description;
  for (int word = 1; word <= 34; ++word) description += "explained ";
  StartOn({"Minor triad", "345", description});
  Print();
  EXPECT_THAT(Page(), testing::AnyOf(HasSubstr(" 13px\nprint \"explained"), HasSubstr(" 14px\nprint \"explained")));
}

TEST_F(Printing, PageIsWhiteInADarkTheme) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(dark);
  StartOn({"Major", "2212221"});
  const QImage page = tests::PdfFile(PrintPdf()).Page(100);
  std::int64_t darkness = 0;
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) darkness += tests::Darkness(page, x, y);
  }
  const double share = static_cast<double>(darkness) / 255 / page.width() / page.height();
  EXPECT_LT(share, 0.06);
  EXPECT_GT(share, 0.01);
  EXPECT_EQ(page.pixelColor(5, 5), QColor(Qt::white));
}

TEST_F(Printing, EmptyDatabasePrintsAnEmptyNeck) {
  MakeDatabase({});
  Start();
  MakeWindowPrinting();
  Print();
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(Page(), testing::Not(HasSubstr("-note at")));
  EXPECT_EQ(PageTitle(C()), "Tonalith");
}

}  // namespace
}  // namespace tonalith::app

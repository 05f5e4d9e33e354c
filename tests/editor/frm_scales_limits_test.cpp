// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Texts that are too long: pasted, typed, or already in the library.

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <algorithm>

#include "core/field_limits.h"
#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr int kMillion = 1000000;

/// The most characters that a box of several lines had to insert and to lay out at once. Laying out a million of them
/// takes minutes.
struct Work {
  explicit Work(QTextDocument& document) {
    QObject::connect(&document, &QTextDocument::contentsChange, &context,
                     [this](int /*from*/, int /*removed*/, int added) { inserted = std::max(inserted, added); });
    QObject::connect(document.documentLayout(), &QAbstractTextDocumentLayout::update, &context,
                     [this, &document] { laidOut = std::max(laidOut, document.characterCount()); });
  }
  int inserted = 0;
  int laidOut = 0;
  QObject context;
};

class Limits : public ScaleEditorTest {
 protected:
  void Paste(QWidget* box, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    ProcessEvents();
  }
  QTextDocument& Description() { return *qobject_cast<QPlainTextEdit*>(Box(2))->document(); }
  QWidget* Box(int index) { return C().txtFields.at(static_cast<std::size_t>(index)).box; }
};

TEST_F(Limits, AMillionPastedLettersAreTruncatedAndReported) {
  Open();
  Press(C().cmdModify);
  const Work work(Description());
  for (const auto& [index, longest, caption] : {std::tuple(1, core::kLongestName, "Scale Name:"),
                                                std::tuple(2, core::kLongestDescription, "Scale Description:"),
                                                std::tuple(5, core::kLongestStartNote, "Start Note:")}) {
    Paste(Box(index), QString(kMillion, QLatin1Char('x')));
    EXPECT_EQ(Field(index).size(), longest);
    EXPECT_EQ(Notice(),
              std::string(caption) + " Only " + std::to_string(longest) + " characters fit; the rest was left out.");
  }
  // The document counts the end of its last line as a character.
  EXPECT_LE(work.inserted, static_cast<int>(core::kLongestDescription) + 1);
  EXPECT_GT(work.inserted, 0);
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Rows("SELECT length(ScaleDescription) FROM Scales WHERE ScaleID = 1"),
            std::to_string(core::kLongestDescription));
}

TEST_F(Limits, APasteIntoATextInsertsWhatFits) {
  Open();
  Press(C().cmdModify);
  QGuiApplication::clipboard()->setText(QString(kMillion, QLatin1Char('x')));
  Box(2)->setFocus();
  QTest::keyClick(Box(2), Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(Box(2), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Field(2).size(), core::kLongestDescription);
  EXPECT_EQ(Field(2).substr(0, 16), "The bright one.x");
  QTest::keyClick(Box(2), Qt::Key_Home, Qt::ControlModifier);
  QTest::keyClick(Box(2), Qt::Key_A);
  ProcessEvents();
  EXPECT_EQ(Field(2).substr(0, 15), "The bright one.") << "a full box takes no letter, and loses none";
  EXPECT_EQ(Field(2).size(), core::kLongestDescription);
  QTest::keyClick(Box(2), Qt::Key_Delete);
  EXPECT_EQ(Notice(), "Not saved yet.");
}

TEST_F(Limits, AMillionLettersOfAssistiveTechnologyAreTruncated) {
  Open();
  Press(C().cmdModify);
  QAccessibleEditableTextInterface* const text = QAccessible::queryAccessibleInterface(Box(2))->editableTextInterface();
  ASSERT_NE(text, nullptr);
  const Work work(Description());
  text->insertText(4, QString(kMillion, QLatin1Char('x')));
  ProcessEvents();
  EXPECT_EQ(Field(2).size(), core::kLongestDescription);
  EXPECT_EQ(Field(2).substr(0, 6), "The xx");
  EXPECT_EQ(Field(2).substr(Field(2).size() - 12), "xbright one.") << "the text around the insertion stays";
  EXPECT_EQ(Notice(), "Scale Description: Only 8000 characters fit; the rest was left out.");
  EXPECT_GT(work.inserted, kMillion - 1);
  EXPECT_LE(work.laidOut, static_cast<int>(core::kLongestDescription) + 1);
  EXPECT_GT(Description().documentLayout()->documentSize().height(), 20) << "the cut text is laid out";
}

TEST_F(Limits, APastedPatternIsTruncatedToThreeOctaves) {
  Open();
  Press(C().cmdModify);
  Paste(C().txtIntervals, QString(kMillion, QLatin1Char('1')));
  EXPECT_EQ(C().txtIntervals->text().size(), static_cast<int>(core::kMostPatternDigits));
  EXPECT_EQ(Notice(), "Scale Intervals: Only digits fit, 36 at most; the rest was left out.");
}

TEST_F(Limits, AHugeStoredTextIsShownInPartAndChangesOnlyByTyping) {
  Execute("UPDATE Scales SET ScaleDescription = '" + std::string(2 * kMillion, 'x') + "', ScaleName = '" +
          std::string(kMillion, 'y') + "' WHERE ScaleID = 1");
  Open(2);
  const Work work(Description());
  PressArrow("First record");
  EXPECT_EQ(Field(2).size(), core::kLongestDescription);
  EXPECT_LE(work.inserted, static_cast<int>(core::kLongestDescription) + 1);
  EXPECT_LE(work.laidOut, static_cast<int>(core::kLongestDescription) + 1);
  Press(C().cmdModify);
  Replace(5, "D");
  EXPECT_EQ(Notice(), "Not saved yet.");
  Press(C().cmdUpdate);
  EXPECT_EQ(Rows("SELECT length(ScaleName), length(ScaleDescription) FROM Scales WHERE ScaleID = 1"), "1000000|2000000")
      << "a text that nobody typed into stays whole";
  Replace(1, "Short");
  EXPECT_EQ(Notice(), "The library holds more of this text than is shown. Saving replaces all of it.");
  Press(C().cmdUpdate);
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Short");
}

}  // namespace
}  // namespace tonalith::editor

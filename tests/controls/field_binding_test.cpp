// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Text boxes bound to fields, and the edits of the data control.

#include "controls/field_binding.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>

#include "controls/data_control.h"
#include "core/failure.h"
#include "data/schema.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::controls {
namespace {

class FieldBindingTest : public testing::Test {
 protected:
  FieldBindingTest() {
    data::CreateScaleDatabase(path_);
    SQLite::Database db(path_, SQLite::OPEN_READWRITE);
    db.exec(
        "INSERT INTO ScaleTypes VALUES (1, 1, 'Type');"
        "INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleDescription, Sort) VALUES ('A', 1, 'a' || char(13, 10) || "
        "'b', 1),"
        "  ('B', 1, NULL, 2)");
    control_.SetConnectionString("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path_);
    control_.SetRecordSource("SELECT * FROM ScalesQuery");
    control_.SetLockType(data::LockType::kBatchOptimistic);
  }
  std::string Saved() {
    SQLite::Database db(path_);
    SQLite::Statement rows(
        db, "SELECT ScaleName || ' ' || ifnull(Sort, '-') || ' ' || typeof(ScaleDescription) FROM Scales");
    std::string text;
    while (rows.executeStep()) text += rows.getColumn(0).getString() + "\n";
    return text;
  }

  tests::TempFolder temp_;
  std::string path_ = temp_ / "scales.mdb";
  tests::RecordingMsgBox box_;
  DataControl control_{QStringLiteral("Data1"), QStringLiteral("Scales"), box_, nullptr};
  QLineEdit name_;
  QLineEdit sort_;
  QPlainTextEdit description_;
  FieldBinding* nameField_ = new FieldBinding(control_, "ScaleName", FieldBinding::Kind::kText, box_, &name_);
  FieldBinding* sortField_ = new FieldBinding(control_, "Sort", FieldBinding::Kind::kNumber, box_, &sort_);
  FieldBinding* descriptionField_ =
      new FieldBinding(control_, "ScaleDescription", FieldBinding::Kind::kText, box_, &description_);
};

TEST_F(FieldBindingTest, ShowsTheRowAndEmitsChanges) {
  const QSignalSpy changed(sortField_, &FieldBinding::Changed);
  const QSignalSpy edited(sortField_, &FieldBinding::Edited);
  control_.Refresh();
  control_.MoveNext();
  control_.Refresh();
  EXPECT_EQ(nameField_->Text(), QStringLiteral("A"));
  EXPECT_EQ(changed.count(), 3);
  EXPECT_EQ(edited.count(), 0);
  EXPECT_FALSE(control_.IsEditPending());
}

TEST_F(FieldBindingTest, TypedTextBecomesAPendingEdit) {
  control_.Refresh();
  const QSignalSpy edited(nameField_, &FieldBinding::Edited);
  QTest::keyClicks(&name_, QStringLiteral("bc"));
  EXPECT_EQ(edited.count(), 2);
  EXPECT_EQ(edited.at(1).at(0).toString(), QStringLiteral("Ab"));
  EXPECT_EQ(control_.FieldValue(1), core::Value("Abc"));
  EXPECT_EQ(Saved(), "A 1 text\nB 2 null\n");
  control_.MoveNext();
  EXPECT_EQ(Saved(), "Abc 1 text\nB 2 null\n");
}

TEST_F(FieldBindingTest, TypedAndDeletedTextIsNoChange) {
  control_.Refresh();
  control_.MoveNext();
  QTest::keyClicks(&description_, QStringLiteral("x"));
  QTest::keyClicks(&sort_, QStringLiteral("3"));
  EXPECT_TRUE(control_.IsEditPending());
  QTest::keyClick(&description_, Qt::Key_Backspace);
  QTest::keyClick(&sort_, Qt::Key_Backspace);
  EXPECT_FALSE(control_.IsEditPending()) << "a null is still a null, a number a number";
}

TEST_F(FieldBindingTest, DoesNotConvertLineBreaksOfTheDatabase) {
  control_.Refresh();
  QTest::keyClicks(&description_, QStringLiteral("x"));
  QTest::keyClick(&description_, Qt::Key_Backspace);
  EXPECT_FALSE(control_.IsEditPending());
}

TEST_F(FieldBindingTest, ConvertsNumbersAndEmptyText) {
  control_.Refresh();
  sortField_->SetText(QStringLiteral(" 12 "));
  EXPECT_EQ(control_.FieldValue(7), core::Value(12));
  sortField_->SetText({});
  EXPECT_TRUE(control_.FieldValue(7).IsNull());
  sortField_->SetText(QStringLiteral("last"));
  EXPECT_EQ(control_.FieldValue(7), core::Value("last"));
}

TEST_F(FieldBindingTest, ReportsWhyTypedTextCannotBeStored) {
  QTest::keyClicks(&name_, QStringLiteral("x"));
  EXPECT_EQ(box_.Texts(), "Operation is not allowed when the object is closed.\n");
  EXPECT_THROW(nameField_->SetText(QStringLiteral("y")), core::Failure);
  EXPECT_EQ(name_.text(), QStringLiteral("x"));
}

TEST_F(FieldBindingTest, KeepsARefusedEditAndReportsItAsRefused) {
  control_.Refresh();
  nameField_->SetText(QStringLiteral("B"));
  EXPECT_FALSE(control_.IsEditRefused());
  EXPECT_THROW(control_.UpdateBatch(), core::Failure);
  EXPECT_TRUE(control_.IsEditRefused());
  control_.RunMove(&DataControl::MoveNext);
  EXPECT_EQ(box_.Texts(), "There is a scale of this name already.\n");
  EXPECT_EQ(control_.FieldValue(0), core::Value(1)) << "still there";
  nameField_->SetText(QStringLiteral("C"));
  EXPECT_FALSE(control_.IsEditRefused());
  control_.CancelUpdate();
  EXPECT_EQ(name_.text(), QStringLiteral("A"));
}

TEST_F(FieldBindingTest, NewRowIsPendingUntilItIsWritten) {
  control_.Refresh();
  const QSignalSpy written(&control_, &DataControl::Written);
  control_.AddNew({{"ScaleTypeID", 1}, {"Sort", 7}});
  EXPECT_EQ(sort_.text(), QStringLiteral("7"));
  EXPECT_EQ(name_.text(), QString());
  EXPECT_FALSE(control_.CurrentBookmark().has_value());
  nameField_->SetText(QStringLiteral("C"));
  EXPECT_EQ(written.count(), 0);
  control_.UpdateBatch();
  EXPECT_EQ(written.count(), 1);
  EXPECT_EQ(control_.CurrentBookmark(), data::Bookmark{3});
  EXPECT_EQ(Saved(), "A 1 text\nB 2 null\nC 7 null\n");
}

TEST_F(FieldBindingTest, DeletingDropsANewRowAndMovesOnFromAnExistingOne) {
  control_.Refresh();
  control_.AddNew({});
  control_.Delete();
  EXPECT_EQ(name_.text(), QStringLiteral("A"));
  control_.MoveLast();
  control_.Delete();
  EXPECT_EQ(name_.text(), QStringLiteral("A"));
  control_.Delete();
  EXPECT_FALSE(control_.HasRecord());
  EXPECT_EQ(name_.text(), QString());
  EXPECT_EQ(Saved(), "");
}

TEST_F(FieldBindingTest, SetTextShowsTheTextAndLaterTypingIsTaken) {
  control_.Refresh();
  nameField_->SetText(QStringLiteral("New"));
  EXPECT_EQ(name_.text(), QStringLiteral("New"));
  QTest::keyClicks(&name_, QStringLiteral("er"));
  control_.UpdateBatch();
  EXPECT_EQ(Saved(), "Newer 1 text\nB 2 null\n");
}

TEST_F(FieldBindingTest, OnlyATextThatIsTooLongIsShortened) {
  SQLite::Database db(path_, SQLite::OPEN_READWRITE);
  db.exec("UPDATE Scales SET ScaleDescription = '" + std::string(100'000, 'x') + "' WHERE ScaleName = 'A'");
  nameField_->SetLongestShown(1);
  descriptionField_->SetLongestShown(500);
  control_.Refresh();
  EXPECT_FALSE(nameField_->IsShortened());
  EXPECT_TRUE(descriptionField_->IsShortened());
  EXPECT_EQ(description_.toPlainText(), QString(500, QLatin1Char('x')));
  control_.MoveNext();
  EXPECT_FALSE(descriptionField_->IsShortened());
}

TEST_F(FieldBindingTest, TextIsShortenedAboveItsLimitOnly) {
  const auto shown = [this](const std::string& text, qsizetype longest) {
    SQLite::Database db(path_, SQLite::OPEN_READWRITE);
    SQLite::Statement set(db, "UPDATE Scales SET ScaleDescription = ? WHERE ScaleName = 'A'");
    set.bind(1, text);
    set.exec();
    descriptionField_->SetLongestShown(longest);
    control_.Refresh();
    return description_.toPlainText().toStdString() + (descriptionField_->IsShortened() ? " ..." : "");
  };
  EXPECT_EQ(shown("abcd", 4), "abcd");
  EXPECT_EQ(shown("abcde", 4), "abcd ...");
  EXPECT_EQ(shown("abcd\u266F\u266F\u266F", 7), "abcd\u266F\u266F\u266F") << "7 characters of 13 bytes";
  EXPECT_EQ(shown("\U0001D11E\U0001D11E", 4), "\U0001D11E\U0001D11E");
  EXPECT_EQ(shown("\U0001D11E\U0001D11Ex", 3), "\U0001D11E ...") << "no half of a character";
  EXPECT_EQ(shown("\U0001D11E\U0001D11E\U0001D11E", 2), "\U0001D11E ...");
  EXPECT_EQ(shown(std::string(19, 'x'), 4), "xxxx ...");
  EXPECT_EQ(shown(std::string(20, 'x'), 4), "xxxx ...");
}

TEST_F(FieldBindingTest, UnchangedShortenedTextKeepsTheWholeValue) {
  SQLite::Database db(path_, SQLite::OPEN_READWRITE);
  db.exec("UPDATE Scales SET ScaleDescription = 'abcdef' WHERE ScaleName = 'A'");
  descriptionField_->SetLongestShown(4);
  control_.Refresh();
  QTest::keyClicks(&description_, QStringLiteral("x"));
  EXPECT_TRUE(control_.IsEditPending());
  QTest::keyClick(&description_, Qt::Key_Backspace);
  EXPECT_FALSE(control_.IsEditPending());
  EXPECT_EQ(control_.FieldValue(3).TextOr(""), "abcdef");
}

TEST_F(FieldBindingTest, IsChangedWhileTheTextDiffersFromTheRow) {
  control_.Refresh();
  EXPECT_FALSE(nameField_->IsChanged());
  nameField_->SetText(QStringLiteral("A2"));
  EXPECT_TRUE(nameField_->IsChanged());
  nameField_->SetText(QStringLiteral("A"));
  EXPECT_FALSE(nameField_->IsChanged());
  nameField_->SetText(QStringLiteral("A2"));
  control_.UpdateBatch();
  EXPECT_FALSE(nameField_->IsChanged());
}

TEST_F(FieldBindingTest, SignalsHaveTheTextBeforeAndTypingEmitsEditedFirst) {
  std::string signalled;
  QObject::connect(nameField_, &FieldBinding::Edited,
                   [&](const QString& before) { signalled += "edited " + before.toStdString() + ", "; });
  QObject::connect(nameField_, &FieldBinding::Changed,
                   [&](const QString& before) { signalled += "changed " + before.toStdString() + ", "; });
  control_.Refresh();
  EXPECT_EQ(std::exchange(signalled, {}), "changed , ");
  QTest::keyClicks(&name_, QStringLiteral("b"));
  EXPECT_EQ(std::exchange(signalled, {}), "edited A, changed A, ");
  nameField_->SetText(QStringLiteral("Ab"));
  EXPECT_EQ(signalled, "") << "the same text";
  nameField_->SetText(QStringLiteral("C"));
  EXPECT_EQ(std::exchange(signalled, {}), "changed Ab, ");
  control_.CancelUpdate();
  EXPECT_EQ(std::exchange(signalled, {}), "changed C, ");
  control_.MoveNext();
  EXPECT_EQ(std::exchange(signalled, {}), "changed A, ");
}

TEST_F(FieldBindingTest, SettingTheShownTextIsNoEdit) {
  control_.Refresh();
  nameField_->SetText(QStringLiteral("A"));
  EXPECT_FALSE(control_.IsEditPending());
}

TEST_F(FieldBindingTest, BoxThatShowsTheValueKeepsItsCursorAndItsUndoStack) {
  control_.Refresh();
  QTest::keyClicks(&name_, QStringLiteral("bc"));
  QTest::keyClicks(&description_, QStringLiteral("x"));
  name_.setCursorPosition(1);
  control_.UpdateBatch();
  EXPECT_EQ(name_.cursorPosition(), 1);
  EXPECT_TRUE(name_.isUndoAvailable());
  EXPECT_TRUE(description_.document()->isUndoAvailable());
}

TEST_F(FieldBindingTest, BlankNumberIsNullAndBlankTextIsText) {
  control_.Refresh();
  sortField_->SetText(QStringLiteral("  "));
  EXPECT_TRUE(control_.FieldValue(7).IsNull());
  descriptionField_->SetText(QStringLiteral("12"));
  EXPECT_EQ(control_.FieldValue(3), core::Value("12"));
  descriptionField_->SetText(QStringLiteral("  "));
  EXPECT_EQ(control_.FieldValue(3), core::Value("  "));
}

}  // namespace
}  // namespace tonalith::controls

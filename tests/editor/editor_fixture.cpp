// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/editor_fixture.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QCoreApplication>
#include <QTest>
#include <sstream>

#include "data/schema.h"

namespace tonalith::editor {
namespace {

constexpr const char* kScales = R"sql(
INSERT INTO ScaleTypes VALUES (1, 1, 'Scales'), (2, 2, 'Chords');
INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, Sort) VALUES
  ('Major', 1, 'The bright one.', 'C', '2212221', 0, 1),
  ('Natural Minor', 1, 'The dark one.', 'A', '2122122', 0, 2),
  ('Minor Triad', 2, NULL, 'C', '345', 1, 7);
)sql";

}  // namespace

ScaleEditorTest::ScaleEditorTest() : path_(temp_ / data::kDatabaseFileName), database_(temp_.Path().string(), box_) {
  data::CreateScaleDatabase(path_);
  Execute(kScales);
}

ScaleEditorTest::~ScaleEditorTest() = default;

void ScaleEditorTest::Execute(const std::string& statements) {
  SQLite::Database db(path_, SQLite::OPEN_READWRITE);
  db.exec(statements);
}

std::string ScaleEditorTest::Rows(const std::string& statement) {
  SQLite::Database db(path_, SQLite::OPEN_READONLY);
  SQLite::Statement rows(db, statement);
  std::string text;
  while (rows.executeStep()) {
    if (!text.empty()) text += "\n";
    for (int i = 0; i < rows.getColumnCount(); ++i) {
      if (i > 0) text += "|";
      text += rows.getColumn(i).isNull() ? "-" : rows.getColumn(i).getString();
    }
  }
  return text;
}

std::string ScaleEditorTest::Saved(const std::string& name) {
  return Rows(
      "SELECT ScaleName, ScaleIntervals, ScaleTypeID, ScaleDescription, StartNote, Chord, Sort FROM Scales WHERE "
      "ScaleName = '" +
      name + "'");
}

frmScales& ScaleEditorTest::Open(std::optional<std::int64_t> scaleId) {
  std::optional<data::Bookmark> current;
  if (scaleId) current = data::Bookmark{*scaleId};
  ShowScaleEditor(editor_, {database_, box_, host_, current}, nullptr);
  form_ = editor_.Window();
  (void)QTest::qWaitForWindowActive(form_);
  return *form_;
}

void ScaleEditorTest::ProcessEvents() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void ScaleEditorTest::Press(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }

void ScaleEditorTest::PressArrow(const char* accessibleName) {
  Press(C().datPrimaryRS->findChild<QAbstractButton*>(QLatin1String(accessibleName)));
}

void ScaleEditorTest::ClickNotes(const std::string& names) {
  std::istringstream words(names);
  for (std::string name; words >> name;) Press(C().Note(core::CNoteToNumber(name)));
}

void ScaleEditorTest::Type(int index, const char* text) {
  QWidget* const box = C().txtFields.at(static_cast<std::size_t>(index)).box;
  box->setFocus();
  QTest::keyClick(box, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClicks(box, QLatin1String(text));
}

void ScaleEditorTest::Replace(int index, const char* text) {
  QWidget* const box = C().txtFields.at(static_cast<std::size_t>(index)).box;
  box->setFocus();
  QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
  if (*text == '\0') QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, QLatin1String(text));
}

std::string ScaleEditorTest::SelectedNotes() {
  std::string notes;
  for (const NoteButton* const note : C().keyboard->Notes()) {
    if (note->Colours() != kSelectedColours) continue;
    notes += (notes.empty() ? "" : " ") + note->text().toStdString();
  }
  return notes;
}

std::string ScaleEditorTest::VisibleNotes() {
  std::string notes;
  for (const NoteButton* const note : C().keyboard->Notes()) {
    if (note->isVisible()) notes += (notes.empty() ? "" : " ") + note->text().toStdString();
  }
  return notes;
}

std::string ScaleEditorTest::Messages() {
  const std::string texts = box_.Texts();
  box_.Forget();
  return texts;
}

}  // namespace tonalith::editor

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_window_fixture.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QAbstractButton>
#include <QTest>
#include <filesystem>

#include "data/schema.h"

namespace tonalith::app {

namespace fs = std::filesystem;

MainWindowTest::MainWindowTest()
    : bridge_(std::make_unique<platform::QtMessageBridge>(messages_)),
      output_(platform::MakeSilentWaveOutput(messages_)),
      sounds_(std::make_unique<audio::SoundManager>(scaleSounds_, *output_, messages_, box_)) {}

MainWindowTest::~MainWindowTest() = default;

void MainWindowTest::MakeDatabase(const std::vector<TestScale>& scales) {
  const fs::path path = temp_.Path() / data::kDatabaseFileName;
  data::CreateScaleDatabase(path);
  SQLite::Database db(path.string(), SQLite::OPEN_READWRITE);
  SQLite::Transaction transaction(db);
  db.exec("INSERT INTO ScaleTypes(ScaleTypeID, ScaleTypeNo, ScaleTypeName) VALUES (1, 1, 'Test scales')");
  SQLite::Statement insert(db,
                           "INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, "
                           "Chord, Sort) VALUES (?, 1, ?, 'C', ?, 0, 1)");
  for (const TestScale& scale : scales) {
    insert.bind(1, scale.name);
    insert.bind(2, scale.description);
    if (scale.pattern) {
      insert.bind(3, *scale.pattern);
    } else {
      insert.bind(3);
    }
    insert.exec();
    insert.reset();
  }
  transaction.commit();
}

void MainWindowTest::CopyShippedDatabase() {
  fs::copy_file(fs::path(TONALITH_BINARY_DIR) / "content" / data::kDatabaseFileName,
                temp_.Path() / data::kDatabaseFileName);
}

void MainWindowTest::Execute(const std::string& statements) {
  SQLite::Database db(Path(std::string(data::kDatabaseFileName)), SQLite::OPEN_READWRITE);
  db.exec(statements);
}

frmTonalith& MainWindowTest::Start() {
  database_ = std::make_unique<data::ScaleDatabase>(temp_.Path().string(), box_);
  window_ = OpenScaleDatabase({*database_, box_, player_, *sounds_, scaleSounds_, events_, printing_, help_, neck_});
  return *window_;
}

void MainWindowTest::Press(const char* accessibleName) {
  for (QAbstractButton* const button : window_->findChildren<QAbstractButton*>()) {
    if (button->accessibleName() == QLatin1String(accessibleName)) {
      QTest::mouseClick(button, Qt::LeftButton);
      return;
    }
  }
  FAIL() << "no button " << accessibleName;
}

std::string MainWindowTest::StringNotes(int string) {
  std::string notes;
  for (int position = 0; position < 16; ++position) {
    const views::NoteImage& image = C().fretboard->Image((string - 1) * 16 + position);
    if (!image.isVisibleTo(window_.get())) continue;
    if (!notes.empty()) notes += ' ';
    notes += image.Tag();
  }
  return notes;
}

}  // namespace tonalith::app

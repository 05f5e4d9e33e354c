// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A search without a match over 100,000 scales, as the button of the search dialog runs it, against one SELECT with
// LIKE over the same rows.

#include <SQLiteCpp/SQLiteCpp.h>

#include <QApplication>
#include <QLineEdit>
#include <cstdio>

#include "controls/data_control.h"
#include "core/recording_msg_box.h"
#include "data/scale_database.h"
#include "measuring.h"
#include "search/data_control_scales.h"
#include "search/frm_search.h"

namespace {

using namespace tonalith;

constexpr int kScales = 100'000;
constexpr int kRuns = 31;

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const bench::Folder folder;
  const std::string path = (folder.Path() / "library.mdb").string();
  bench::MakeLibrary(path, kScales, "Scale number ");

  core::RecordingMsgBox box;
  controls::DataControl data1(QStringLiteral("Data1"), {}, box, nullptr);
  data1.SetConnectionString(data::FullConnectionString(path));
  data1.SetRecordSource(std::string(data::kAllScalesStatement));
  data1.Refresh();
  search::frmSearch form(std::make_unique<search::DataControlScales>(data1), box, nullptr);
  form.findChild<QLineEdit*>(QStringLiteral("txtSearch"))->setText(QStringLiteral("er 12z"));

  SQLite::Database db(path, SQLite::OPEN_READONLY);
  const auto select = [&db](const char* sql) {
    return [&db, sql] {
      SQLite::Statement statement(db, sql);
      if (statement.executeStep()) std::printf("The baseline found a match.\n");
    };
  };
  const bench::Contender ours{"search without a match", [&] { form.cmdSearch_Click(); }};
  bench::PrintHeading("over 100,000 scales");
  bench::Compare(
      ours, {"SELECT over ScalesQuery with LIKE", select("SELECT * FROM ScalesQuery WHERE ScaleName LIKE '%er 12z%'")},
      kRuns, 4);
  bench::Compare(
      ours,
      {"the same over the bare table", select("SELECT ScaleID, ScaleName FROM Scales WHERE ScaleName LIKE '%er 12z%'")},
      kRuns, 4);
  for (const auto& message : box.Messages()) {
    if (message.text == "No matches found.") continue;
    std::printf("Instead of finding nothing: %s\n", message.text.c_str());
    return 1;
  }
  return box.Messages().size() == std::size_t{2} * kRuns ? 0 : 1;
}

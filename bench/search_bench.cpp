// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A search without a match over 100,000 scales, as the search dialog runs it, compared with one SELECT with LIKE over
// the same rows; and a pattern with exponential time in a naive matcher.

#include <SQLiteCpp/SQLiteCpp.h>

#include <QApplication>
#include <QLineEdit>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "controls/data_control.h"
#include "data/scale_database.h"
#include "measuring.h"
#include "search/data_control_scales.h"
#include "search/frm_search.h"
#include "search/like_matcher.h"
#include "support/recording_msg_box.h"

namespace {

using namespace tonalith;

void ReportWorstPattern() {
  const std::u32string text(10'000, U'a');
  const int runs = bench::Runs(31);
  std::vector<bench::Spent> times;
  times.reserve(static_cast<std::size_t>(runs));
  for (int i = 0; i < runs; ++i) {
    times.push_back(bench::Measure([&] {
      if (search::LikePattern(U"*a*a*a*a*b").Matches(text)) std::abort();
    }));
  }
  bench::ReportTimes("*a*a*a*a*b against 10,000 letters a", times, 0.5, 10);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const bench::Folder folder;
  const std::string path = (folder.Path() / "library.mdb").string();
  bench::MakeLibrary(path, bench::Scales(), "Scale number ");

  tests::RecordingMsgBox box;
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
  const int runs = bench::Runs(31);
  const bench::Contender ours{"search without a match in 100,000 scales", [&] { form.cmdSearch_Click(); }};
  bench::Compare(
      ours,
      {"SELECT with LIKE over the stored query", select("SELECT * FROM ScalesQuery WHERE ScaleName LIKE '%er 12z%'")},
      runs, 4);
  bench::Compare({"the same, the types of the scales left to us", ours.step},
                 {"SELECT with LIKE over the bare table",
                  select("SELECT ScaleID, ScaleName FROM Scales WHERE ScaleName LIKE '%er 12z%'")},
                 runs, 4);
  ReportWorstPattern();
  for (const auto& message : box.Messages()) {
    if (message.text == "No matches found.") continue;
    std::printf("Instead of finding nothing: %s\n", message.text.c_str());
    return 1;
  }
  return box.Messages().size() == 2 * static_cast<std::size_t>(runs) ? 0 : 1;
}

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/scale_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/failure.h"
#include "search/fake_scales.h"
#include "support/recording_msg_box.h"

namespace tonalith::search {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

constexpr const char* kWrapText = "You have searched all the records once";

class RecordingWatcher : public SearchWatcher {
 public:
  void SetMessage(const core::Message& text) override { message_ = text.English(); }
  [[nodiscard]] bool ShouldContinue() override { return remaining_-- > 0; }
  void OnEnd() override { ++ends_; }
  std::string message_;
  int remaining_ = 1000;
  int ends_ = 0;
};

class ScaleSearchTest : public testing::Test {
 protected:
  /// "names | current" such as "A,B,C | B".
  void Make(const std::string& names, const std::string& current) {
    scales_ = FakeScales(names);
    for (const auto& [key, name] : scales_.rows_) {
      if (name == current) scales_.current_ = key;
    }
  }
  /// The names tested and the record made current.
  std::string Search(const std::string& text) {
    watcher_.message_.clear();
    result_ = ScaleSearch(scales_, watcher_, box_).Search(text);
    return scales_.TakeLog();
  }
  std::string FindNext(const std::string& text) {
    result_ = ScaleSearch(scales_, watcher_, box_).FindNext(text, tag_);
    return scales_.TakeLog();
  }

  FakeScales scales_;
  RecordingWatcher watcher_;
  tests::RecordingMsgBox box_;
  SearchResult result_;
  std::string tag_;
};

TEST_F(ScaleSearchTest, CurrentRecordIsTestedLastAfterTheWrap) {
  Make("A,B,C", "B");
  EXPECT_EQ(Search("b"), "C? A? B? =B ");
  EXPECT_EQ(watcher_.message_, kWrapText);
  EXPECT_EQ(result_.outcome, SearchOutcome::kFound);
  EXPECT_EQ(result_.name, "B");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleSearchTest, LaterMatchIsFoundBeforeTheCurrentRecord) {
  Make("A,Bx,C,By,D", "Bx");
  EXPECT_EQ(Search("b"), "C? By? =By ");
  EXPECT_EQ(watcher_.message_, "");
}

TEST_F(ScaleSearchTest, SearchingAgainFindsTheNextMatchAndWraps) {
  Make("Ax,B,Ay", "B");
  EXPECT_EQ(Search("a"), "Ay? =Ay ");
  EXPECT_EQ(Search("a"), "Ax? =Ax ");
  EXPECT_EQ(watcher_.message_, "");
  EXPECT_EQ(Search("a"), "B? Ay? =Ay ");
}

TEST_F(ScaleSearchTest, SearchAfterTheLastRecordStartsAtTheFirstSilently) {
  Make("A,B,C", "C");
  EXPECT_EQ(Search("b"), "A? B? =B ");
  EXPECT_EQ(watcher_.message_, "");
}

TEST_F(ScaleSearchTest, SearchFromTheFirstRecordReportsTheWrapAtTheLast) {
  Make("A,B,C", "C");
  EXPECT_EQ(Search("x"), "A? B? C? ");
  EXPECT_EQ(watcher_.message_, kWrapText);
}

TEST_F(ScaleSearchTest, WrapMessageIsThereWhenTheMatchFollowsTheWrap) {
  Make("A,B,C,D", "C");
  EXPECT_EQ(Search("a"), "D? A? =A ");
  EXPECT_EQ(watcher_.message_, kWrapText);
}

TEST_F(ScaleSearchTest, WithoutAMatchEachRecordIsTestedOnce) {
  Make("A,B,C", "A");
  EXPECT_EQ(Search("x"), "B? C? A? ");
  EXPECT_EQ(watcher_.message_, kWrapText);
  EXPECT_EQ(result_.outcome, SearchOutcome::kNoMatch);
  EXPECT_EQ(scales_.current_, 1);
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"No matches found.", core::MsgBoxStyle::kInformation, ""}));
}

TEST_F(ScaleSearchTest, SingleRecordIsTestedOnce) {
  Make("A", "A");
  EXPECT_EQ(Search("x"), "A? ");
  EXPECT_EQ(watcher_.message_, kWrapText);
  EXPECT_EQ(Search("a"), "A? =A ");
  EXPECT_EQ(watcher_.message_, "");
}

TEST_F(ScaleSearchTest, CaseAndALeadingStarMakeNoDifference) {
  for (const char* const text : {"melodic", "MELODIC", "*Melodic"}) {
    Make("Harmonic Minor,Melodic Minor,Jazz Melodic,Major", "Harmonic Minor");
    EXPECT_EQ(Search(text), "Melodic Minor? =Melodic Minor ") << text;
    EXPECT_EQ(Search(text), "Jazz Melodic? =Jazz Melodic ") << text;
    EXPECT_EQ(Search(text), "Major? Harmonic Minor? Melodic Minor? =Melodic Minor ") << text;
  }
}

TEST_F(ScaleSearchTest, CaseOfNonAsciiLettersMakesNoDifference) {
  Make("A,\u00c9tude", "A");
  EXPECT_EQ(Search("\u00e9TUDE"), "\u00c9tude? =\u00c9tude ");
  Make("A,\u0426\u042b\u0413\u0410\u041d\u0421\u041a\u0410\u042f", "A");
  Search("\u0446\u044b\u0433\u0430\u043d");
  EXPECT_EQ(scales_.current_, 2);
  Make("A,Gro\u00dfe Terz", "A");
  Search("GRO\u1e9eE");
  EXPECT_EQ(scales_.current_, 2);
}

TEST_F(ScaleSearchTest, StarInsideTheTextIsAWildcard) {
  Make("Major Pentatonic,Minor Pentatonic", "Major Pentatonic");
  EXPECT_EQ(Search("Min*Pent"), "Minor Pentatonic? =Minor Pentatonic ");
}

TEST_F(ScaleSearchTest, QuestionMarkMatchesAnySingleCharacter) {
  Make("Mjor,Maajor,Major", "Mjor");
  EXPECT_EQ(Search("m?jor"), "Maajor? Major? =Major ");
  Make("A,Gro\u00dfe", "A");
  EXPECT_EQ(Search("gro?e"), "Gro\u00dfe? =Gro\u00dfe ");
}

TEST_F(ScaleSearchTest, NumberSignMatchesOnlyADigit) {
  Make("Mode X,Mode #,Mode 7", "Mode X");
  EXPECT_EQ(Search("mode #"), "Mode #? Mode 7? =Mode 7 ");
}

TEST_F(ScaleSearchTest, ListAndRangeWorkInAnyCase) {
  Make("Zulu,Alpha,Nova", "Zulu");
  EXPECT_EQ(Search("[a-m]lph"), "Alpha? =Alpha ");
  EXPECT_EQ(Search("[!a-m]ova"), "Nova? =Nova ");
}

TEST_F(ScaleSearchTest, TextIsTrimmedAndInnerBlanksAreKept) {
  Make("A,MinorBlues,Minor Blues", "A");
  EXPECT_EQ(Search("  minor blues  "), "MinorBlues? Minor Blues? =Minor Blues ");
}

TEST_F(ScaleSearchTest, EmptyOrBlankTextDoesNothing) {
  Make("A,B", "A");
  EXPECT_EQ(Search(""), "");
  EXPECT_EQ(Search("    "), "");
  EXPECT_EQ(result_.outcome, SearchOutcome::kNothingAsked);
  EXPECT_EQ(watcher_.message_, "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleSearchTest, MalformedListIsFailure93AndTestsNothing) {
  Make("A,B", "A");
  try {
    Search("[a");
    FAIL() << "taken";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.NumberAndDescription(), "93: Invalid pattern string");
  }
  EXPECT_EQ(scales_.TakeLog(), "");
  EXPECT_THROW(Search("[m-a]"), core::Failure);
  EXPECT_THROW(FindNext("[!"), core::Failure);
  EXPECT_EQ(tag_, "");
}

TEST_F(ScaleSearchTest, RecordWithoutANameMatchesNothing) {
  Make("A,B,C", "A");
  scales_.rows_[2] = std::nullopt;
  EXPECT_EQ(Search("*"), "(null)? C? =C ");
}

TEST_F(ScaleSearchTest, EmptyRecordSetHasNoMatches) {
  EXPECT_EQ(Search("a"), "");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"No matches found.", core::MsgBoxStyle::kInformation, ""}));
  EXPECT_EQ(watcher_.message_, "");
}

TEST_F(ScaleSearchTest, MissingRecordSetIsReported) {
  scales_.isOpen_ = false;
  const auto failureOf = [](const auto& search) -> std::string {
    try {
      search();
    } catch (const core::Failure& failure) {
      return failure.NumberAndDescription();
    }
    return "none";
  };
  constexpr const char* kFailure = "3704: There are no scales to search: the scale database is not open.";
  EXPECT_EQ(failureOf([this] { Search("a"); }), kFailure);
  EXPECT_EQ(failureOf([this] { FindNext("a"); }), kFailure);
  EXPECT_EQ(Search("  "), "");
}

TEST_F(ScaleSearchTest, SearchFromADeletedRecordStartsAtTheFirst) {
  Make("A,B,C", "B");
  scales_.rows_.erase(2);
  EXPECT_EQ(Search("x"), "A? C? ");
  scales_.current_.reset();
  EXPECT_EQ(Search("c"), "A? C? =C ");
}

TEST_F(ScaleSearchTest, MatchDeletedBeforeItIsShownIsSkipped) {
  Make("A,Bx,By", "A");
  int tested = 0;
  scales_.onTest_ = [&] {
    if (++tested == 1) scales_.rows_.erase(2);
  };
  EXPECT_EQ(Search("b"), "Bx? By? =By ");
}

TEST_F(ScaleSearchTest, SearchEndsIfItsStartRecordIsDeleted) {
  Make("A,B,C,D", "C");
  int tested = 0;
  scales_.onTest_ = [&] {
    if (++tested == 1) scales_.rows_.erase(4);
  };
  EXPECT_EQ(Search("x"), "D? A? B? C? ");
  EXPECT_EQ(result_.outcome, SearchOutcome::kNoMatch);
}

TEST_F(ScaleSearchTest, SearchEndsIfAllRecordsAreDeleted) {
  Make("A,B,C", "A");
  scales_.onTest_ = [&] { scales_.rows_.clear(); };
  EXPECT_EQ(Search("x"), "B? ");
  EXPECT_EQ(result_.outcome, SearchOutcome::kNoMatch);
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"No matches found.", core::MsgBoxStyle::kInformation, ""}));
}

TEST_F(ScaleSearchTest, StoppedSearchReportsAndMovesNothing) {
  Make("A,B,C,D", "A");
  watcher_.remaining_ = 2;
  EXPECT_EQ(Search("d"), "B? C? ");
  EXPECT_EQ(result_.outcome, SearchOutcome::kStopped);
  EXPECT_EQ(scales_.current_, 1);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleSearchTest, WatcherIsNotifiedOnceOfTheEnd) {
  Make("A,B,C", "A");
  Search("b");
  EXPECT_EQ(watcher_.ends_, 1);
  Search("x");
  EXPECT_EQ(watcher_.ends_, 2);
  FindNext("x");
  EXPECT_EQ(watcher_.ends_, 3);
}

TEST_F(ScaleSearchTest, FindNextWithANewTextTestsTheFirstRecordFirst) {
  Make("Ax,B,Ay", "B");
  EXPECT_EQ(FindNext("a"), "Ax? =Ax ");
  EXPECT_EQ(tag_, "a");
}

TEST_F(ScaleSearchTest, FindNextWithTheSameTextContinuesAndWrapsSilently) {
  Make("Ax,B,Ay", "B");
  FindNext("a");
  EXPECT_EQ(FindNext("a"), "B? Ay? =Ay ");
  EXPECT_EQ(FindNext("a"), "Ax? =Ax ");
  FindNext("b");
  EXPECT_EQ(FindNext("b"), "Ay? Ax? B? =B ");
  EXPECT_EQ(watcher_.message_, "");
}

TEST_F(ScaleSearchTest, FindNextMatchesWithoutCaseButComparesItsTextWithCase) {
  Make("Ax,B,Ay", "B");
  FindNext("a");
  EXPECT_EQ(FindNext("A"), "Ax? =Ax ");
}

TEST_F(ScaleSearchTest, FindNextKeepsTheBlanksOfItsText) {
  Make("Minor,Minor Blues", "Minor");
  EXPECT_EQ(FindNext("r "), "Minor? Minor Blues? =Minor Blues ");
}

TEST_F(ScaleSearchTest, FindNextWithoutAMatchEndsAtItsStart) {
  Make("A,B,C", "C");
  EXPECT_EQ(FindNext("x"), "A? B? C? =A ");
  EXPECT_EQ(FindNext("x"), "B? C? A? =B ");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"No matches found for 'x'", core::MsgBoxStyle::kInformation, ""},
                                           Message{"No matches found for 'x'", core::MsgBoxStyle::kInformation, ""}));
}

TEST_F(ScaleSearchTest, FindNextOnAnEmptyRecordSetDoesNothing) {
  EXPECT_EQ(FindNext("a"), "");
  EXPECT_EQ(tag_, "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

}  // namespace
}  // namespace tonalith::search

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/sql_dialect.h"

#include <gtest/gtest.h>

#include <string>

#include "data/data_failure.h"
#include "data/sql_tokens.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

// Tokens as text: words unchanged, names in brackets, texts in quotes, each followed by a blank.
std::string Tokens(std::string_view statement) {
  std::string text;
  for (const SqlToken& token : TokenizeSql(statement)) {
    switch (token.kind) {
      case SqlTokenKind::kBracketedName:
        text += "[" + token.text + "] ";
        break;
      case SqlTokenKind::kText:
        text += "<" + token.text + "> ";
        break;
      default:
        text += token.text + " ";
    }
  }
  return text;
}

TEST(SqlTokens, SplitAStatementIntoWordsNamesTextsNumbersAndSymbols) {
  EXPECT_EQ(Tokens("SELECT a.b,[c d] FROM x WHERE n>=1.5 AND t<>'u'"),
            "SELECT a . b , [c d] FROM x WHERE n >= 1.5 AND t <> <u> ");
}

TEST(SqlTokens, NeedNoBlankBetweenASymbolAndANumber) {
  EXPECT_EQ(Tokens("(Scales.ScaleID) =7;"), "( Scales . ScaleID ) = 7 ; ");
}

TEST(SqlTokens, ReadADoubledQuoteAsOne) {
  EXPECT_EQ(Tokens("'O''Neil''s'"), "<O'Neil's> ");
  EXPECT_EQ(Tokens("\"say \"\"so\"\"\""), "<say \"so\"> ");
  EXPECT_EQ(Tokens("''''"), "<'> ");
  EXPECT_EQ(Tokens("''"), "<> ");
}

TEST(SqlTokens, KeepTheOtherQuoteInsideAText) {
  EXPECT_EQ(Tokens("'a\"b'"), "<a\"b> ");
  EXPECT_EQ(Tokens("\"a'b\""), "<a'b> ");
}

TEST(SqlTokens, DoNotInterpretTheInsideOfAText) {
  EXPECT_EQ(Tokens("'-- ; /* % [x] # SELECT DISTINCTROW True'"), "<-- ; /* % [x] # SELECT DISTINCTROW True> ");
}

TEST(SqlTokens, HaveNoComments) { EXPECT_EQ(Tokens("1--2 /* 3"), "1 - - 2 / * 3 "); }

TEST(SqlTokens, ReadNonAsciiLettersAsLetters) { EXPECT_EQ(Tokens("Größe='Übermäßig 音'"), "Größe = <Übermäßig 音> "); }

TEST(SqlTokens, ReadFractionsAndExponents) {
  EXPECT_EQ(Tokens("1.5e-3 .5 2E7"), "1.5e-3 .5 2E7 ");
  EXPECT_EQ(Tokens("a.5"), "a . 5 ");
}

TEST(SqlTokens, RefuseUnterminatedTextsAndNames) {
  for (const char* statement : {"'a", "\"a", "[a", "'a''", "[]"}) {
    EXPECT_EQ(FailureOf([&] { TokenizeSql(statement); }).Number(), failure_number::kSyntax) << statement;
  }
}

TEST(SqlTokens, RefuseDatesAndUnknownCharactersWithAMessage) {
  EXPECT_EQ(FailureOf([] { TokenizeSql("d=#1/2/2003#"); }).Description(), "Dates between # signs are not understood.");
  EXPECT_EQ(FailureOf([] { TokenizeSql("a ? b"); }).Description(), "The character ? is not understood here.");
  EXPECT_EQ(FailureOf([] { TokenizeSql("12abc"); }).Description(), "A number runs into a name.");
  EXPECT_EQ(FailureOf([] { TokenizeSql(std::string_view("a\0b", 3)); }).Number(), failure_number::kSyntax);
}

std::string Sql(std::string_view statement) { return TranslateSelect(statement).sql; }

TEST(SqlDialect, DropsDistinctrowAfterSelectOnly) {
  EXPECT_EQ(Sql("SELECT DISTINCTROW a FROM t"), "SELECT a FROM t");
  EXPECT_EQ(Sql("SELECT distinctrow FROM t WHERE a='DISTINCTROW'"), "SELECT FROM t WHERE a = 'DISTINCTROW'");
  EXPECT_EQ(Sql("SELECT a, DISTINCTROW FROM t"), "SELECT a , DISTINCTROW FROM t");
}

TEST(SqlDialect, DropsTrailingSemicolonsAndRefusesASecondStatement) {
  EXPECT_EQ(Sql("SELECT a FROM t;"), "SELECT a FROM t");
  EXPECT_EQ(Sql("SELECT a FROM t ;\r\n ; "), "SELECT a FROM t");
  EXPECT_EQ(FailureOf([] { Sql("SELECT a FROM t; DROP TABLE t"); }).Description(),
            "Characters found after end of SQL statement.");
}

TEST(SqlDialect, FindsAColumnOfTheStoredQueryUnderTheNameOfItsTable) {
  EXPECT_EQ(Sql("SELECT * FROM ScalesQuery WHERE (Scales.ScaleID) =7;"),
            "SELECT * FROM ScalesQuery WHERE ( [ScaleID] ) = 7");
  EXPECT_EQ(Sql("SELECT [Scales].[ScaleName] FROM scalesquery"), "SELECT [ScaleName] FROM scalesquery");
}

TEST(SqlDialect, KeepsAQualifierThatIsInFrom) {
  EXPECT_EQ(Sql("SELECT ScalesQuery.ScaleID FROM ScalesQuery"), "SELECT [ScalesQuery] . [ScaleID] FROM ScalesQuery");
  EXPECT_EQ(Sql("SELECT q.ScaleID FROM ScalesQuery AS q"), "SELECT [q] . [ScaleID] FROM ScalesQuery AS q");
  EXPECT_EQ(Sql("SELECT q.ScaleID FROM ScalesQuery q"), "SELECT [q] . [ScaleID] FROM ScalesQuery q");
  EXPECT_EQ(Sql("SELECT t.a FROM ScalesQuery INNER JOIN t ON t.a = Scales.ScaleID"),
            "SELECT [t] . [a] FROM ScalesQuery INNER JOIN t ON [t] . [a] = [ScaleID]");
}

TEST(SqlDialect, KeepsAQualifierWithoutAStoredQuery) {
  EXPECT_EQ(Sql("SELECT Other.a FROM Scales"), "SELECT [Other] . [a] FROM Scales");
}

TEST(SqlDialect, WritesBothKindsOfTextInSingleQuotes) {
  EXPECT_EQ(Sql("SELECT a FROM t WHERE a=\"O'Neil \"\"x\"\"\" OR b='O''Neil'"),
            "SELECT a FROM t WHERE a = 'O''Neil \"x\"' OR b = 'O''Neil'");
}

TEST(SqlDialect, WritesTrueAndFalseAsNumbersUnlessTheyAreNames) {
  EXPECT_EQ(Sql("SELECT a FROM t WHERE Chord = True OR Chord=false"), "SELECT a FROM t WHERE Chord = 1 OR Chord = 0");
  EXPECT_EQ(Sql("SELECT [True] FROM t"), "SELECT [True] FROM t");
  EXPECT_EQ(Sql("SELECT t.True FROM t"), "SELECT [t] . [True] FROM t");
}

TEST(SqlDialect, JoinsTexts) { EXPECT_EQ(Sql("SELECT a & 'x' FROM t"), "SELECT a || 'x' FROM t"); }

TEST(SqlDialect, MakesNoCommentOutOfMinusSigns) {
  EXPECT_EQ(Sql("SELECT a FROM t WHERE n = 1--1"), "SELECT a FROM t WHERE n = 1 - - 1");
}

TEST(SqlDialect, ReadsABareNameAsAllItsColumns) {
  EXPECT_EQ(Sql("ScalesQuery"), "SELECT * FROM [ScalesQuery]");
  EXPECT_EQ(Sql("[odd name]"), "SELECT * FROM [odd name]");
}

TEST(SqlDialect, RefusesOtherStatements) {
  for (const char* statement : {"", ";", "DROP TABLE Scales", "DELETE FROM Scales", "PRAGMA user_version = 9",
                                "ATTACH 'x' AS y", "'text'", "7", "INSERT INTO Scales SELECT * FROM Scales"}) {
    EXPECT_EQ(FailureOf([&] { Sql(statement); }).Number(), failure_number::kSyntax) << statement;
  }
}

TEST(SqlDialect, RefusesParenthesesThatDoNotMatch) {
  EXPECT_EQ(FailureOf([] { Sql("SELECT a FROM t WHERE (a=1"); }).Number(), failure_number::kSyntax);
  EXPECT_EQ(FailureOf([] { TranslateCondition("a=1) OR (1=1"); }).Number(), failure_number::kSyntax);
}

TEST(SqlDialect, ReturnsThePartsOfAPlainSelect) {
  const SelectStatement statement =
      TranslateSelect("SELECT DISTINCTROW ScaleID, Scales.ScaleName FROM [ScalesQuery] WHERE Chord=True;");
  ASSERT_TRUE(statement.parts);
  EXPECT_EQ(statement.parts->columns, "ScaleID , [ScaleName]");
  EXPECT_EQ(statement.parts->source, "ScalesQuery");
  EXPECT_EQ(statement.parts->condition, "Chord = 1");
}

TEST(SqlDialect, ReturnsNoPartsOfOtherStatements) {
  for (const char* statement :
       {"SELECT count(*) FROM t", "SELECT DISTINCT a FROM t", "SELECT TOP 3 a FROM t", "SELECT a FROM t ORDER BY a",
        "SELECT a FROM t WHERE b = 1 GROUP BY a", "SELECT a FROM t, u", "SELECT a FROM t INNER JOIN u ON t.a = u.a",
        "SELECT a FROM (SELECT * FROM t)", "SELECT a FROM t WHERE b = 1 UNION SELECT a FROM u", "SELECT a + 1 FROM t",
        "SELECT 1", "SELECT a FROM t AS u", "SELECT a, FROM t"}) {
    EXPECT_FALSE(TranslateSelect(statement).parts) << statement;
  }
  EXPECT_TRUE(TranslateSelect("SELECT a FROM t WHERE a IN (SELECT b FROM u ORDER BY b)").parts);
}

TEST(SqlDialect, TranslatesAConditionAndDropsItsQualifiers) {
  EXPECT_EQ(TranslateCondition("Scales.ScaleName='O''Neil'"), "[ScaleName] = 'O''Neil'");
  EXPECT_EQ(FailureOf([] { TranslateCondition("a=1; DROP TABLE t"); }).Number(), failure_number::kSyntax);
  EXPECT_EQ(FailureOf([] { TranslateCondition("  "); }).Number(), failure_number::kSyntax);
}

TEST(SqlDialect, WritesRowsWithAParameterForEachField) {
  EXPECT_EQ(InsertStatement("[t]", {"[a]", "[b]"}), "INSERT INTO [t] ([a], [b]) VALUES (?, ?)");
  EXPECT_EQ(InsertStatement("[t]", {"[a]", "[b]"}, 3), "INSERT INTO [t] ([a], [b]) VALUES (?, ?), (?, ?), (?, ?)");
  EXPECT_EQ(InsertStatement("[t]", {}), "INSERT INTO [t] DEFAULT VALUES");
}

TEST(SqlDialect, QuotesAnyName) {
  EXPECT_EQ(QuoteName("a b"), "[a b]");
  EXPECT_EQ(QuoteName("a]`b"), "`a]``b`");
  EXPECT_EQ(QuoteText("it's"), "'it''s'");
}

}  // namespace
}  // namespace tonalith::data

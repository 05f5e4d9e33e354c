// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/program_messages.h"

#include <gmock/gmock.h>

namespace tonalith::help_text {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

std::vector<std::string> Messages(const std::string& source) {
  std::vector<std::string> messages;
  for (const auto& [message, path] : MessagesOf(SourcesFrom(source))) messages.push_back(message);
  return messages;
}

std::vector<std::string> Literals(std::string_view source) {
  std::vector<std::string> literals;
  for (const SourceToken& token : TokensOf(source)) {
    if (token.kind == SourceToken::Kind::kLiteral) literals.push_back(token.text);
  }
  return literals;
}

TEST(SourceTokens, JoinAdjacentLiterals) {
  EXPECT_THAT(Literals("f(\"one \"\n  \"two\", \"three\")"), UnorderedElementsAre("one two", "three"));
}

TEST(SourceTokens, ResolveEscapesAndPrefixes) {
  EXPECT_THAT(Literals(R"x(f(u8"a\"b\\\n", "\u2014", "\xE2\x80\x94", R"q(r"aw\n)q", "view"sv))x"),
              ElementsAre("a\"b\\\n", "\u2014", "\u2014", "r\"aw\\n", "view"));
}

TEST(SourceTokens, SkipCommentsDirectivesAndCharacters) {
  EXPECT_THAT(
      Literals("// \"a\"\n/* \"b\" */\n#include \"c\"\nchar d = '\"'; int e = 1'000; char f = '\\''; g(\"h\");"),
      UnorderedElementsAre("h"));
}

TEST(SourceTokens, ReturnTextAsDisplayed) {
  EXPECT_EQ(AsDisplayed(" Hide/View &Names  of\n notes "), "Hide/View Names of notes");
  EXPECT_EQ(AsDisplayed("Rock & Roll"), "Rock & Roll");
}

TEST(SourceTokens, SplitTextAtPlaceholders) {
  EXPECT_THAT(PiecesOf("Apply saves %1: %2 now\nand again'."),
              UnorderedElementsAre("Apply saves", "now", "and again'."));
}

TEST(ProgramMessages, AreFoundInMessageBoxes) {
  EXPECT_THAT(Messages("services_.msgBox.Show(\"Box \" + name, style, \"Title\"); msgBox_->Show(tr(\"Other\"));"),
              UnorderedElementsAre("Box", "Title", "Other"));
  EXPECT_THAT(Messages("combo->Show(\"none\"); log(\"none\");"), IsEmpty());
}

TEST(ProgramMessages, AreFoundWithoutTranslationContext) {
  EXPECT_THAT(Messages("msgBox.Show(InUsersLanguage(QT_TRANSLATE_NOOP(\"tonalith::a\", \"Box\")));"
                       "msgBox.Show(QCoreApplication::translate(\"tonalith::a\", \"Other\").toStdString());"),
              UnorderedElementsAre("Box", "Other"));
}

TEST(ProgramMessages, AreFoundInStatusLines) {
  EXPECT_THAT(Messages("watcher_.SetMessage(\"Once round\"); ShowStatus(\"Playing: \" + note);"
                       "lblStatus_->setText(tr(\"Ready\")); c.lblNotice->setText(\"Note\"); label->setText(\"none\");"),
              UnorderedElementsAre("Once round", "Playing:", "Ready", "Note"));
}

TEST(ProgramMessages, AreFoundInThrowExpressions) {
  EXPECT_THAT(Messages("if (a) throw std::runtime_error(\"First \" + b + \" last\"); f(\"none\");"),
              UnorderedElementsAre("First", "last"));
}

TEST(ProgramMessages, AreFoundInFailureMakers) {
  EXPECT_THAT(
      Messages("== a.h\ncore::Failure Damaged(const std::string& what);\n== b.cpp\nthrowIt(Damaged(\"its end\"));\n"),
      UnorderedElementsAre("its end"));
  EXPECT_THAT(Messages("Failure Rows::Damaged(int a) const { if (a) f(\"none\"); return {kNumber, \"Broken \" + b}; }"),
              UnorderedElementsAre("Broken"));
  EXPECT_THAT(Messages("[[noreturn]] void Refuse(const char* why);\nvoid F() { Refuse(\"too late\"); }"),
              UnorderedElementsAre("too late"));
  EXPECT_THAT(Messages("WaveFile::Problem WaveFile::Read() { return \"Too short\"; }"),
              UnorderedElementsAre("Too short"));
  EXPECT_THAT(Messages("QString frmScales::NoticeText() { g(\"none\"); return tr(\"Saved: %1\").arg(a); }"),
              UnorderedElementsAre("Saved:"));
}

TEST(ProgramMessages, AreFoundInTriggers) {
  EXPECT_THAT(Messages("const char* s = R\"sql(SELECT RAISE(ABORT, 'Not so.') WHERE a; SELECT 'none';)sql\";"),
              UnorderedElementsAre("Not so."));
}

TEST(ProgramMessages, AreFoundInVariablesAndConstants) {
  EXPECT_THAT(Messages("std::string words = \"It holds \"; words += \" and more\"; throw "
                       "core::Failure::Unspecified(words + \".\");"),
              UnorderedElementsAre("It holds", "and more"));
  EXPECT_THAT(Messages("== a.h\nconst char* kQuestion = \"Sure?\";\n== b.cpp\nmsgBox.Show(kQuestion);\n"),
              UnorderedElementsAre("Sure?"));
  EXPECT_THAT(Messages("std::string name = \"none\"; throw core::Failure::Unspecified(name.substr(1));"), IsEmpty());
}

}  // namespace
}  // namespace tonalith::help_text

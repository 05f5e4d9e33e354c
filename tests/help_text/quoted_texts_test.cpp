// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Texts that the help quotes exist in the program, and the help explains every message of the program.

#include <gmock/gmock.h>

#include "help_text/help_folder.h"
#include "help_text/program_messages.h"

namespace tonalith::help_text {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

const std::string kExplained = "messages.html";

/// Quotations, each with its topic, that are not in `known`.
template <class Known>
std::vector<std::string> Unknown(const std::map<std::string, std::string>& quoted, const Known& known) {
  std::vector<std::string> unknown;
  for (const auto& [text, topic] : quoted) {
    if (known.count(text) == 0) unknown.push_back(FaultOf(topic, {text}));
  }
  return unknown;
}

/// Messages, each with its source, that are not explained.
std::vector<std::string> Unexplained(const std::map<std::string, std::string>& messages,
                                     const std::set<std::string>& explained) {
  return Unknown(messages, explained);
}

TEST(QuotedTexts, EveryCaptionIsInTheProgram) {
  EXPECT_THAT(Unknown(HelpFolder::Shipped().Quoted("caption"), TextsOf(ProgramSources())), IsEmpty());
}

TEST(QuotedTexts, EveryTooltipIsInTheProgram) {
  EXPECT_THAT(Unknown(HelpFolder::Shipped().Quoted("tooltip"), TextsOf(ProgramSources())), IsEmpty());
}

TEST(QuotedTexts, EveryMessageIsInTheProgram) {
  EXPECT_THAT(Unknown(HelpFolder::Shipped().Quoted("message"), MessagesOf(ProgramSources())), IsEmpty());
}

TEST(QuotedTexts, EveryMessageOfTheProgramIsExplained) {
  EXPECT_THAT(Unexplained(MessagesOf(ProgramSources()), HelpFolder::Shipped().QuotedIn(kExplained, "message")),
              IsEmpty())
      << "content/help/" << kExplained << " has to tell what they mean, each piece in a span of class \"message\".";
}

TEST(QuotedTexts, MessagesOfAllKindsAreFound) {
  std::set<std::string> messages;
  for (const auto& [message, source] : MessagesOf(ProgramSources())) messages.insert(message);
  EXPECT_THAT(messages, IsSupersetOf({"Cannot open file", "Confirm Deletion", "Error importing", "Overflow",
                                      "Playing:", "Not saved yet.", "The scale needs a name.",
                                      "You have searched all the records once",
                                      "Path/File access error:", "' cannot be", "its fields"}));
}

TEST(QuotedTexts, SomeOfEachKindAreQuoted) {
  for (const char* const kind : {"caption", "tooltip", "message"}) {
    EXPECT_THAT(HelpFolder::Shipped().Quoted(kind), ::testing::SizeIs(::testing::Ge(8U))) << kind;
  }
}

TEST(QuotedTexts, AQuotationMissingInTheProgramIsFound) {
  const Sources sources = SourcesFrom("== a.cpp\nauto a = tr(\"&Tools\"); msgBox.Show(\"No way.\");\n");
  const std::map<std::string, std::string> quoted{{"Tools", "a.html"}, {"Tool", "b.html"}, {"No way.", "c.html"}};
  EXPECT_THAT(Unknown(quoted, TextsOf(sources)), ElementsAre("b.html: Tool"));
  EXPECT_THAT(Unknown(quoted, MessagesOf(sources)), ElementsAre("b.html: Tool", "a.html: Tools"));
}

TEST(QuotedTexts, AMessageWithoutAnExplanationIsFound) {
  const Sources sources =
      SourcesFrom("== a.cpp\nmsgBox.Show(\"No way.\"); throw core::Failure::Unspecified(\"Gone.\");\n");
  EXPECT_THAT(Unexplained(MessagesOf(sources), {"No way."}), ElementsAre("a.cpp: Gone."));
}

}  // namespace
}  // namespace tonalith::help_text

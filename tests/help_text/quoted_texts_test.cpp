// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Messages that the help quotes exist in the program, and the help explains every message of the program. The captions
// that it quotes are compared with the windows in tests/app/window_texts_test.cpp.

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

TEST(QuotedTexts, EveryMessageIsInTheProgram) {
  EXPECT_THAT(Unknown(HelpFolder::Shipped().Quoted("message"), MessagePieces(ProgramCatalogues())), IsEmpty());
}

TEST(QuotedTexts, EveryMessageOfTheProgramIsExplained) {
  EXPECT_THAT(Unexplained(MessagePieces(ProgramCatalogues()), HelpFolder::Shipped().QuotedIn(kExplained, "message")),
              IsEmpty())
      << "content/help/" << kExplained << " has to tell what they mean, each piece in a span of class \"message\".";
}

TEST(QuotedTexts, MessagesOfAllKindsAreFound) {
  std::set<std::string> messages;
  for (const auto& [message, source] : MessagePieces(ProgramCatalogues())) messages.insert(message);
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

constexpr core::MessageText kTwo[] = {{"a", "No way."}, {"a", "Gone."}};

TEST(QuotedTexts, AQuotationMissingInTheProgramIsFound) {
  const std::map<std::string, std::string> quoted{{"Go", "b.html"}, {"No way.", "c.html"}};
  EXPECT_THAT(Unknown(quoted, MessagePieces({{"a", kTwo}})), ElementsAre("b.html: Go"));
}

TEST(QuotedTexts, AMessageWithoutAnExplanationIsFound) {
  EXPECT_THAT(Unexplained(MessagePieces({{"a", kTwo}}), {"No way."}), ElementsAre("a: Gone."));
}

}  // namespace
}  // namespace tonalith::help_text

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/message.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string_view>
#include <type_traits>

#include "core/failure.h"
#include "core/messages.h"

namespace tonalith::core {
namespace {

enum class TestId : std::uint8_t { kPlain, kSwapped, kRepeated, kPercent, kCount };

std::span<const MessageText> CatalogueOf(TestId /*id*/) {
  // In another order than the ids.
  static constexpr auto kTexts = MakeCatalogue(std::to_array<CatalogueEntry<TestId>>({
      {TestId::kSwapped, TONALITH_MESSAGE("test", "%2 before %1")},
      {TestId::kPlain, TONALITH_MESSAGE("test", "plain")},
      {TestId::kPercent, TONALITH_MESSAGE("test", "%1 of 100 % or %0 or %9 or %")},
      {TestId::kRepeated, TONALITH_MESSAGE("test", "%1, %1")},
  }));
  return kTexts;
}

std::string InCapitals(const char* context, const char* english) {
  std::string text = std::string(context) + ":" + english;
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// A text that is in no catalogue compiles only as Message::Verbatim, and a literal does not compile at all.
template <class Text>
constexpr bool kIsMessage = std::is_convertible_v<Text, Message> || std::is_constructible_v<Message, Text> ||
                            std::is_constructible_v<Failure, std::int32_t, Text>;
static_assert(!kIsMessage<const char*> && !kIsMessage<std::string> && !kIsMessage<std::string_view>);
static_assert(std::is_convertible_v<TestId, Message> && std::is_constructible_v<Message, TestId, std::string>);
static_assert(
    !std::is_invocable_v<decltype([](auto text) -> decltype(Message::Verbatim(text)) { return {}; }), const char*>);

TEST(Message, IsEmptyByDefault) {
  EXPECT_TRUE(Message().IsEmpty());
  EXPECT_EQ(Message().English(), "");
  EXPECT_TRUE(Message::Verbatim(std::string()).IsEmpty());
  EXPECT_FALSE(Message(TestId::kPlain).IsEmpty());
}

TEST(Message, HasTheTextOfItsIdInEveryOrderOfTheCatalogue) {
  EXPECT_EQ(Message(TestId::kPlain).English(), "plain");
  EXPECT_EQ(Message(TestId::kSwapped, 1, 2).English(), "2 before 1");
}

TEST(Message, TakesArgumentsOfAllKinds) {
  const std::string path = "/a";
  EXPECT_EQ(Message(TestId::kSwapped, path, std::int64_t{-7}).English(), "-7 before /a");
  EXPECT_EQ(Message(TestId::kSwapped, TestId::kPlain, Message(TestId::kRepeated, path)).English(),
            "/a, /a before plain");
}

TEST(Message, KeepsPercentSignsThatAreNoPlaceholders) {
  EXPECT_EQ(Message(TestId::kPercent, std::string("%1 %2")).English(), "%1 %2 of 100 % or %0 or %9 or %");
}

TEST(Message, TranslatesItsTextAndTheMessagesInIt) {
  const Message message(TestId::kSwapped, Message(TestId::kPlain), std::string("name"));
  EXPECT_EQ(message.Translated(InCapitals), "TEST:name BEFORE TEST:PLAIN");
  EXPECT_EQ(Message::Verbatim(std::string("%1 name")).Translated(InCapitals), "%1 name");
}

TEST(Message, OfAFailureHasItsNumberAndItsDescription) {
  const Failure failure = Failure::FileNotFound("/a.mdb");
  EXPECT_EQ(failure.Description(), "Could not find file '/a.mdb'.");
  EXPECT_EQ(failure.Text().Translated(InCapitals), "TONALITH::CORE:COULD NOT FIND FILE '/a.mdb'.");
  EXPECT_EQ(Failure::Overflow().NumberAndText().Translated(InCapitals), "TONALITH::CORE:6: TONALITH::CORE:OVERFLOW");
}

}  // namespace
}  // namespace tonalith::core

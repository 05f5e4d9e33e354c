// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A text for the user: an entry of a room's message catalogue with its arguments. A room that makes such texts has a
// messages.h with the enumeration MessageId, whose last value is kCount, and the function CatalogueOf. Rooms without
// windows pass messages on; the message box and the windows translate them.

#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tonalith::core {

/// An entry of a catalogue; both members are literals. `english` is UTF-8 with the placeholders %1 to %9.
struct MessageText {
  /// The name space of the room: the context in the files of a translation.
  const char* context = nullptr;
  const char* english = nullptr;
};

/// An entry of a catalogue. The tool that collects the texts for translators finds this name in the sources.
#define TONALITH_MESSAGE(context, english) \
  ::tonalith::core::MessageText { context, english }

template <class Id>
struct CatalogueEntry {
  Id id;
  MessageText text;
};

/// The texts by MessageId. Does not compile if an id is missing or has two texts.
template <class Id, std::size_t kSize>
constexpr std::array<MessageText, kSize> MakeCatalogue(const std::array<CatalogueEntry<Id>, kSize>& entries) {
  static_assert(kSize == static_cast<std::size_t>(Id::kCount), "each id needs one text");
  std::array<MessageText, kSize> texts;
  for (const CatalogueEntry<Id>& entry : entries) {
    MessageText& text = texts.at(static_cast<std::size_t>(entry.id));
    // Not a constant expression, so the second text does not compile.
    if (text.english != nullptr) std::abort();
    text = entry.text;
  }
  return texts;
}

template <class Id>
concept MessageIdentifier = requires(Id id) {
  { CatalogueOf(id) } -> std::same_as<std::span<const MessageText>>;
};

class Message {
 public:
  /// The translation of an English text in its context.
  using Translator = std::function<std::string(const char* context, const char* english)>;

  /// The empty text.
  Message() = default;
  /// Arguments: messages, their ids, numbers, untranslated texts (names, paths, reports of the operating system).
  template <MessageIdentifier Id, class... Arguments>
  Message(Id id, const Arguments&... arguments)  // NOLINT(google-explicit-constructor): an id is a message
      : text_(&CatalogueOf(id)[static_cast<std::size_t>(id)]), arguments_{Argument(arguments)...} {}

  /// A text in no catalogue, such as the name of a file or an error text from the system. It is never translated.
  static Message Verbatim(std::string text);
  /// A literal belongs in a catalogue.
  static Message Verbatim(const char* text) = delete;

  /// The entry of the catalogue; null for a verbatim text.
  [[nodiscard]] const MessageText* Text() const { return text_; }
  [[nodiscard]] const std::vector<Message>& Arguments() const { return arguments_; }
  [[nodiscard]] bool IsEmpty() const { return text_ == nullptr && verbatim_.empty(); }

  [[nodiscard]] std::string English() const;
  /// The text and the messages among its arguments, translated.
  [[nodiscard]] std::string Translated(const Translator& translator) const;

  /// A message with these arguments, for a decoder.
  static Message FromEntry(const MessageText& text, std::vector<Message> arguments);

 private:
  static Message Argument(const Message& message) { return message; }
  static Message Argument(const std::string& text) { return Verbatim(text); }
  static Message Argument(const char* text) = delete;
  template <MessageIdentifier Id>
  static Message Argument(Id id) {
    return Message(id);
  }
  template <std::integral Number>
  static Message Argument(Number number) {
    return Verbatim(std::to_string(number));
  }

  const MessageText* text_ = nullptr;
  std::string verbatim_;
  std::vector<Message> arguments_;
};

}  // namespace tonalith::core

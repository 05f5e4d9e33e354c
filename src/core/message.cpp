// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/message.h"

#include <string_view>

namespace tonalith::core {
namespace {

/// Replaces each placeholder that has an argument. A "%" in an argument is no placeholder.
template <class ArgumentText>
std::string WithArguments(std::string_view text, std::size_t arguments, const ArgumentText& argumentText) {
  std::string whole;
  whole.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool hasDigit = text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
    const std::size_t number = hasDigit ? static_cast<std::size_t>(text[at + 1] - '1') : arguments;
    if (number < arguments) {
      whole += argumentText(number);
      ++at;
    } else {
      whole += text[at];
    }
  }
  return whole;
}

}  // namespace

Message Message::Verbatim(std::string text) {
  Message message;
  message.verbatim_ = std::move(text);
  return message;
}

Message Message::FromEntry(const MessageText& text, std::vector<Message> arguments) {
  Message message;
  message.text_ = &text;
  message.arguments_ = std::move(arguments);
  return message;
}

std::string Message::English() const {
  if (text_ == nullptr) return verbatim_;
  return WithArguments(text_->english, arguments_.size(),
                       [this](std::size_t number) { return arguments_[number].English(); });
}

std::string Message::Translated(const Translator& translator) const {
  if (text_ == nullptr) return verbatim_;
  return WithArguments(translator(text_->context, text_->english), arguments_.size(),
                       [&](std::size_t number) { return arguments_[number].Translated(translator); });
}

}  // namespace tonalith::core

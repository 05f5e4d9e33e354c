// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/markup.h"

#include <algorithm>

#include "help/characters.h"

namespace tonalith::help {
namespace {

constexpr std::size_t kMostAttributes = 32;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool EndsName(char c) { return IsBlank(c) || c == '>' || c == '/' || c == '='; }

std::size_t Find(std::string_view text, std::string_view what, std::size_t from) {
  return std::min(text.find(what, from), text.size());
}

/// The position of the first closing tag `name`, or the end of the text.
std::size_t FindClosing(std::string_view text, std::string_view name) {
  for (std::size_t at = Find(text, "</", 0); at < text.size(); at = Find(text, "</", at + 2)) {
    if (ToLowerCase(text.substr(at + 2, name.size())) == name) return at;
  }
  return text.size();
}

}  // namespace

const std::string& MarkupToken::Attribute(std::string_view name) const {
  static const std::string none;
  const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const auto& a) { return a.first == name; });
  return found == attributes.end() ? none : found->second;
}

std::optional<MarkupToken> MarkupReader::Next() {
  while (SkipUnseen()) {
  }
  if (rest_.empty()) return std::nullopt;
  if (rest_[0] == '<' && rest_.size() > 1 && IsLetter(rest_[1])) return Tag(1, false);
  if (rest_[0] == '<' && rest_.size() > 2 && rest_[1] == '/' && IsLetter(rest_[2])) return Tag(2, true);
  return Text();
}

bool MarkupReader::SkipUnseen() {
  if (rest_.size() < 2 || rest_[0] != '<') return false;
  if (rest_.substr(0, 4) == "<!--") {
    rest_.remove_prefix(std::min(Find(rest_, "-->", 4) + 3, rest_.size()));
    return true;
  }
  if (rest_[1] != '!' && rest_[1] != '?') return false;
  rest_.remove_prefix(std::min(Find(rest_, ">", 1) + 1, rest_.size()));
  return true;
}

MarkupToken MarkupReader::Text() {
  // A "<" that does not start a tag is text.
  const std::size_t end = Find(rest_, "<", 1);
  MarkupToken token;
  token.text = ResolveEntities(rest_.substr(0, end));
  rest_.remove_prefix(end);
  return token;
}

MarkupToken MarkupReader::Tag(std::size_t nameAt, bool closes) {
  MarkupToken token;
  token.kind = closes ? MarkupToken::Kind::kClose : MarkupToken::Kind::kOpen;
  std::size_t end = nameAt;
  while (end < rest_.size() && !EndsName(rest_[end])) ++end;
  token.text = ToLowerCase(rest_.substr(nameAt, end - nameAt));
  rest_.remove_prefix(end);
  for (SkipBlanks(); !rest_.empty() && rest_[0] != '>'; SkipBlanks()) ReadAttribute(token);
  if (!rest_.empty()) rest_.remove_prefix(1);
  if (!closes && (token.text == "script" || token.text == "style")) rest_.remove_prefix(FindClosing(rest_, token.text));
  return token;
}

void MarkupReader::ReadAttribute(MarkupToken& token) {
  std::size_t end = 0;
  while (end < rest_.size() && !EndsName(rest_[end])) ++end;
  std::string name = ToLowerCase(rest_.substr(0, end));
  // Skip a stray "/" or "=".
  rest_.remove_prefix(std::max<std::size_t>(end, 1));
  if (end == 0) return;
  SkipBlanks();
  std::string value;
  if (!rest_.empty() && rest_[0] == '=') {
    rest_.remove_prefix(1);
    SkipBlanks();
    value = TakeValue();
  }
  if (token.attributes.size() < kMostAttributes) token.attributes.emplace_back(std::move(name), std::move(value));
}

std::string MarkupReader::TakeValue() {
  if (rest_.empty()) return {};
  const char quote = rest_[0];
  if (quote == '"' || quote == '\'') {
    const std::size_t end = Find(rest_, std::string_view(&quote, 1), 1);
    std::string value = ResolveEntities(rest_.substr(1, end - 1));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return value;
  }
  std::size_t end = 0;
  while (end < rest_.size() && !IsBlank(rest_[end]) && rest_[end] != '>') ++end;
  std::string value = ResolveEntities(rest_.substr(0, end));
  rest_.remove_prefix(end);
  return value;
}

void MarkupReader::SkipBlanks() {
  while (!rest_.empty() && IsBlank(rest_[0])) rest_.remove_prefix(1);
}

std::string ToLowerCase(std::string_view text) {
  std::string small(text);
  for (char& c : small) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return small;
}

std::string Collapsed(std::string_view text) {
  std::string collapsed;
  bool isBlankDue = false;
  for (const char c : text) {
    if (IsBlank(c)) {
      isBlankDue = !collapsed.empty();
      continue;
    }
    if (isBlankDue) collapsed += ' ';
    isBlankDue = false;
    collapsed += c;
  }
  return collapsed;
}

}  // namespace tonalith::help

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/program_messages.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <sstream>
#include <utility>

#include "house/house_files.h"

namespace tonalith::help_text {
namespace {

using Tokens = std::vector<SourceToken>;
using Names = std::set<std::string>;

/// The tokens from `begin` up to, excluding, `end`.
struct TokenRange {
  const Tokens* tokens;
  std::size_t begin;
  std::size_t end;
};

bool IsPunctuation(const Tokens& tokens, std::size_t at, char character) {
  return at < tokens.size() && tokens[at].IsPunctuation(character);
}
bool IsWord(const Tokens& tokens, std::size_t at) {
  return at < tokens.size() && tokens[at].kind == SourceToken::Kind::kWord;
}

bool Opens(const SourceToken& token) {
  return token.IsPunctuation('(') || token.IsPunctuation('{') || token.IsPunctuation('[');
}
bool Closes(const SourceToken& token) {
  return token.IsPunctuation(')') || token.IsPunctuation('}') || token.IsPunctuation(']');
}

/// The tokens between the bracket at `open` and its closing bracket.
TokenRange Group(const Tokens& tokens, std::size_t open) {
  int depth = 0;
  std::size_t at = open;
  for (; at < tokens.size(); ++at) {
    if (Opens(tokens[at])) ++depth;
    if (Closes(tokens[at]) && --depth == 0) break;
  }
  return {&tokens, open + 1, at};
}

/// From `begin` to the semicolon of the statement, or to the end of the enclosing brackets.
TokenRange Statement(const Tokens& tokens, std::size_t begin) {
  int depth = 0;
  std::size_t at = begin;
  for (; at < tokens.size(); ++at) {
    if (Opens(tokens[at])) ++depth;
    if (Closes(tokens[at]) && --depth < 0) break;
    if (depth == 0 && tokens[at].IsPunctuation(';')) break;
  }
  return {&tokens, begin, at};
}

bool IsFailureType(const SourceToken& token) { return token.IsWord("Failure") || token.IsWord("Problem"); }

/// The index of a function's name after its result type (with an optional class name), or 0.
std::size_t NameAfter(const Tokens& tokens, std::size_t type) {
  std::size_t at = type + 1;
  while (IsWord(tokens, at) && IsPunctuation(tokens, at + 1, ':') && IsPunctuation(tokens, at + 2, ':')) at += 3;
  return IsWord(tokens, at) && IsPunctuation(tokens, at + 1, '(') ? at : 0;
}

/// The index of the name of a [[noreturn]] function, which must throw, or 0.
std::size_t NameOfThrower(const Tokens& tokens, std::size_t word) {
  std::size_t at = word + 1;
  while (at < tokens.size() && !tokens[at].IsPunctuation('(') && !tokens[at].IsPunctuation(';')) ++at;
  return IsPunctuation(tokens, at, '(') ? at - 1 : 0;
}

/// The names of all functions whose arguments become part of a failure.
Names FailureMakers(const Sources& sources) {
  Names makers{"Failure"};
  for (const auto& [path, tokens] : sources) {
    for (std::size_t at = 0; at < tokens.size(); ++at) {
      const std::size_t name = IsFailureType(tokens[at])       ? NameAfter(tokens, at)
                               : tokens[at].IsWord("noreturn") ? NameOfThrower(tokens, at)
                                                               : 0;
      if (name != 0) makers.insert(tokens[name].text);
    }
  }
  return makers;
}

bool IsOneOf(const std::string& name, std::initializer_list<std::string_view> beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(),
                     [&](std::string_view beginning) { return name.starts_with(beginning); });
}

/// The object of a member call: the word before "." or "->", in lower case.
std::string ObjectOf(const Tokens& tokens, std::size_t member) {
  std::size_t at = member;
  while (at > 0 &&
         (tokens[at - 1].IsPunctuation('.') || tokens[at - 1].IsPunctuation('>') || tokens[at - 1].IsPunctuation('-')))
    --at;
  if (at == member || at == 0) return {};
  std::string name = tokens[at - 1].text;
  std::transform(name.begin(), name.end(), name.begin(), [](char c) { return std::tolower(c); });
  return name;
}

bool ShowsText(const Tokens& tokens, std::size_t at) {
  if (!IsWord(tokens, at) || !IsPunctuation(tokens, at + 1, '(')) return false;
  const SourceToken& name = tokens[at];
  if (name.IsWord("SetMessage") || name.IsWord("SetNews") || name.IsWord("ShowLimit") || name.IsWord("ShowStatus"))
    return true;
  const std::string object = ObjectOf(tokens, at);
  if (name.IsWord("Show")) return object.ends_with("msgbox") || object.ends_with("msgbox_");
  return name.IsWord("setText") && IsOneOf(object, {"lblstatus", "lblmessage", "lblnotice"});
}

/// Adds the expressions after each `return` in the body of a function whose result is shown.
void AddReturns(const Tokens& tokens, std::size_t name, std::vector<TokenRange>& shown) {
  std::size_t at = Group(tokens, name + 1).end + 1;
  while (IsWord(tokens, at)) ++at;
  if (!IsPunctuation(tokens, at, '{')) return;
  const TokenRange body = Group(tokens, at);
  for (std::size_t i = body.begin; i < body.end; ++i) {
    if (tokens[i].IsWord("return")) shown.push_back(Statement(tokens, i + 1));
  }
}

std::vector<TokenRange> ShownRanges(const Tokens& tokens, const Names& makers) {
  std::vector<TokenRange> shown;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const SourceToken& token = tokens[at];
    const bool makes = token.kind == SourceToken::Kind::kWord && makers.count(token.text) != 0;
    if (makes && (IsPunctuation(tokens, at + 1, '(') || IsPunctuation(tokens, at + 1, '{')))
      shown.push_back(Group(tokens, at + 1));
    if (token.IsWord("throw")) shown.push_back(Statement(tokens, at + 1));
    if (ShowsText(tokens, at)) shown.push_back(Group(tokens, at + 1));
    const std::size_t name = IsFailureType(token) ? NameAfter(tokens, at) : 0;
    if (name != 0) AddReturns(tokens, name, shown);
    const bool isNotice = token.IsWord("NoticeText") || token.IsWord("ChosenNotesText") ||
                          token.IsWord("ViewingHint") || token.IsWord("StatusText");
    if (isNotice && IsPunctuation(tokens, at + 1, '(')) AddReturns(tokens, at, shown);
  }
  return shown;
}

/// The texts assigned to each name.
using Settings = std::map<std::string, std::vector<std::string>>;

/// Whether the literal is a translation context; the text follows it.
bool IsContext(const Tokens& tokens, std::size_t at) {
  return at >= 2 && IsPunctuation(tokens, at - 1, '(') &&
         (tokens[at - 2].IsWord("translate") || tokens[at - 2].IsWord("QT_TRANSLATE_NOOP"));
}

void AddLiterals(const TokenRange& range, std::vector<std::string>& texts) {
  for (std::size_t at = range.begin; at < range.end; ++at) {
    const SourceToken& token = (*range.tokens)[at];
    if (token.kind == SourceToken::Kind::kLiteral && !IsContext(*range.tokens, at)) texts.push_back(token.text);
  }
}

Settings SettingsOf(const Tokens& tokens) {
  Settings settings;
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    if (!tokens[at].IsPunctuation('=') || IsPunctuation(tokens, at + 1, '=')) continue;
    const std::size_t name = tokens[at - 1].IsPunctuation('+') ? at - 2 : at - 1;
    if (name < tokens.size() && IsWord(tokens, name)) {
      AddLiterals(Statement(tokens, at + 1), settings[tokens[name].text]);
    }
  }
  return settings;
}

bool IsConstant(const std::string& name) {
  return name.size() > 1 && name[0] == 'k' && std::isupper(static_cast<unsigned char>(name[1])) != 0;
}

/// Whether a name is used as a text: not called and without member access.
bool IsTextName(const Tokens& tokens, std::size_t at) {
  return IsWord(tokens, at) && !IsPunctuation(tokens, at + 1, '(') && !IsPunctuation(tokens, at + 1, '.') &&
         !IsPunctuation(tokens, at + 1, ':') &&
         !(IsPunctuation(tokens, at + 1, '-') && IsPunctuation(tokens, at + 2, '>'));
}

std::vector<std::string> TextsOf(const TokenRange& range, const Settings& own, const Settings& all) {
  std::vector<std::string> texts;
  AddLiterals(range, texts);
  for (std::size_t at = range.begin; at < range.end; ++at) {
    if (!IsTextName(*range.tokens, at)) continue;
    const std::string& name = (*range.tokens)[at].text;
    const Settings& settings = IsConstant(name) ? all : own;
    const auto found = settings.find(name);
    if (found != settings.end()) texts.insert(texts.end(), found->second.begin(), found->second.end());
  }
  return texts;
}

/// The texts that the triggers in an SQL statement raise.
std::vector<std::string> RaisedTexts(const std::string& statement) {
  static const std::regex raise(R"(RAISE\s*\(\s*\w+\s*,\s*'((?:[^']|'')*)')");
  std::vector<std::string> texts;
  for (auto found = std::sregex_iterator(statement.begin(), statement.end(), raise); found != std::sregex_iterator();
       ++found) {
    texts.push_back((*found)[1]);
  }
  return texts;
}

std::vector<std::string> MessagesIn(const Tokens& tokens, const Names& makers, const Settings& all) {
  std::vector<std::string> messages;
  const Settings own = SettingsOf(tokens);
  for (const TokenRange& range : ShownRanges(tokens, makers)) {
    const std::vector<std::string> texts = TextsOf(range, own, all);
    messages.insert(messages.end(), texts.begin(), texts.end());
  }
  for (const SourceToken& token : tokens) {
    if (token.kind != SourceToken::Kind::kLiteral) continue;
    const std::vector<std::string> raised = RaisedTexts(token.text);
    messages.insert(messages.end(), raised.begin(), raised.end());
  }
  return messages;
}

}  // namespace

Sources ProgramSources() {
  Sources sources;
  const house::Path root = house::ProjectRoot() / "src";
  for (const house::Path& file : house::ProjectFiles(root)) {
    const std::string path = file.generic_string();
    const bool isSource = file.extension() == ".cpp" || file.extension() == ".h";
    if (isSource) sources[path] = TokensOf(house::ReadFile(root / file));
  }
  return sources;
}

Sources SourcesFrom(std::string_view text) {
  std::map<std::string, std::string> files;
  std::istringstream lines{std::string(text)};
  std::string path;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("== ")) {
      path = line.substr(3);
    } else {
      files[path] += line + "\n";
    }
  }
  Sources sources;
  for (const auto& [name, content] : files) sources[name] = TokensOf(content);
  return sources;
}

std::map<std::string, std::string> MessagesOf(const Sources& sources) {
  const Names makers = FailureMakers(sources);
  Settings all;
  for (const auto& [path, tokens] : sources) {
    for (const auto& [name, texts] : SettingsOf(tokens)) all[name].insert(all[name].end(), texts.begin(), texts.end());
  }
  std::map<std::string, std::string> messages;
  for (const auto& [path, tokens] : sources) {
    for (const std::string& message : MessagesIn(tokens, makers, all)) {
      for (const std::string& piece : PiecesOf(message)) messages.emplace(piece, path);
    }
  }
  return messages;
}

std::set<std::string> TextsOf(const Sources& sources) {
  std::set<std::string> all;
  for (const auto& [path, tokens] : sources) all.merge(TextsOf(tokens));
  return all;
}

}  // namespace tonalith::help_text

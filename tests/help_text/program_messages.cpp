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

/// From one token up to, and without, another.
struct Stretch {
  const Tokens* tokens;
  std::size_t begin;
  std::size_t end;
};

bool IsMark(const Tokens& tokens, std::size_t at, char mark) { return at < tokens.size() && tokens[at].IsMark(mark); }
bool IsWord(const Tokens& tokens, std::size_t at) {
  return at < tokens.size() && tokens[at].kind == SourceToken::Kind::kWord;
}

bool Opens(const SourceToken& token) { return token.IsMark('(') || token.IsMark('{') || token.IsMark('['); }
bool Closes(const SourceToken& token) { return token.IsMark(')') || token.IsMark('}') || token.IsMark(']'); }

/// What stands between the bracket at `open` and the one that closes it.
Stretch Group(const Tokens& tokens, std::size_t open) {
  int depth = 0;
  std::size_t at = open;
  for (; at < tokens.size(); ++at) {
    if (Opens(tokens[at])) ++depth;
    if (Closes(tokens[at]) && --depth == 0) break;
  }
  return {&tokens, open + 1, at};
}

/// From `begin` to the semicolon of the statement, or to the end of the brackets that it stands in.
Stretch Statement(const Tokens& tokens, std::size_t begin) {
  int depth = 0;
  std::size_t at = begin;
  for (; at < tokens.size(); ++at) {
    if (Opens(tokens[at])) ++depth;
    if (Closes(tokens[at]) && --depth < 0) break;
    if (depth == 0 && tokens[at].IsMark(';')) break;
  }
  return {&tokens, begin, at};
}

bool IsFailureType(const SourceToken& token) { return token.IsWord("Failure") || token.IsWord("Problem"); }

/// The index of a function's name behind its result type (a class's name may stand before it), or 0.
std::size_t NameBehind(const Tokens& tokens, std::size_t type) {
  std::size_t at = type + 1;
  while (IsWord(tokens, at) && IsMark(tokens, at + 1, ':') && IsMark(tokens, at + 2, ':')) at += 3;
  return IsWord(tokens, at) && IsMark(tokens, at + 1, '(') ? at : 0;
}

/// Behind [[noreturn]]: the function never gives anything back, so it throws.
std::size_t NameOfThrower(const Tokens& tokens, std::size_t word) {
  std::size_t at = word + 1;
  while (at < tokens.size() && !tokens[at].IsMark('(') && !tokens[at].IsMark(';')) ++at;
  return IsMark(tokens, at, '(') ? at - 1 : 0;
}

/// The names of all functions whose arguments end up in a failure.
Names FailureMakers(const Sources& sources) {
  Names makers{"Failure"};
  for (const auto& [path, tokens] : sources) {
    for (std::size_t at = 0; at < tokens.size(); ++at) {
      const std::size_t name = IsFailureType(tokens[at])       ? NameBehind(tokens, at)
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

/// The object that a member is called on: the word before its point or arrow, in small letters.
std::string ObjectOf(const Tokens& tokens, std::size_t member) {
  std::size_t at = member;
  while (at > 0 && (tokens[at - 1].IsMark('.') || tokens[at - 1].IsMark('>') || tokens[at - 1].IsMark('-'))) --at;
  if (at == member || at == 0) return {};
  std::string name = tokens[at - 1].text;
  std::transform(name.begin(), name.end(), name.begin(), [](char c) { return std::tolower(c); });
  return name;
}

bool TellsTheUser(const Tokens& tokens, std::size_t at) {
  if (!IsWord(tokens, at) || !IsMark(tokens, at + 1, '(')) return false;
  const SourceToken& name = tokens[at];
  if (name.IsWord("SetMessage") || name.IsWord("SetNews") || name.IsWord("ShowLimit") || name.IsWord("ShowStatus"))
    return true;
  const std::string object = ObjectOf(tokens, at);
  if (name.IsWord("Show")) return object.ends_with("msgbox") || object.ends_with("msgbox_");
  return name.IsWord("setText") && IsOneOf(object, {"lblstatus", "lblmessage", "lblnotice"});
}

/// What a function gives back whose result is told: the stretches behind each `return` of its body.
void AddReturns(const Tokens& tokens, std::size_t name, std::vector<Stretch>& told) {
  std::size_t at = Group(tokens, name + 1).end + 1;
  while (IsWord(tokens, at)) ++at;
  if (!IsMark(tokens, at, '{')) return;
  const Stretch body = Group(tokens, at);
  for (std::size_t i = body.begin; i < body.end; ++i) {
    if (tokens[i].IsWord("return")) told.push_back(Statement(tokens, i + 1));
  }
}

std::vector<Stretch> ToldStretches(const Tokens& tokens, const Names& makers) {
  std::vector<Stretch> told;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const SourceToken& token = tokens[at];
    const bool makes = token.kind == SourceToken::Kind::kWord && makers.count(token.text) != 0;
    if (makes && (IsMark(tokens, at + 1, '(') || IsMark(tokens, at + 1, '{'))) told.push_back(Group(tokens, at + 1));
    if (token.IsWord("throw")) told.push_back(Statement(tokens, at + 1));
    if (TellsTheUser(tokens, at)) told.push_back(Group(tokens, at + 1));
    const std::size_t name = IsFailureType(token) ? NameBehind(tokens, at) : 0;
    if (name != 0) AddReturns(tokens, name, told);
    const bool isNotice = token.IsWord("NoticeText") || token.IsWord("ChosenNotesText") || token.IsWord("ViewingHint");
    if (isNotice && IsMark(tokens, at + 1, '(')) AddReturns(tokens, at, told);
  }
  return told;
}

/// Texts that a name is set to, by name.
using Settings = std::map<std::string, std::vector<std::string>>;

/// Whether the literal says to a translator where a text stands; the text comes after it.
bool IsContext(const Tokens& tokens, std::size_t at) {
  return at >= 2 && IsMark(tokens, at - 1, '(') &&
         (tokens[at - 2].IsWord("translate") || tokens[at - 2].IsWord("QT_TRANSLATE_NOOP"));
}

void AddLiterals(const Stretch& stretch, std::vector<std::string>& texts) {
  for (std::size_t at = stretch.begin; at < stretch.end; ++at) {
    const SourceToken& token = (*stretch.tokens)[at];
    if (token.kind == SourceToken::Kind::kLiteral && !IsContext(*stretch.tokens, at)) texts.push_back(token.text);
  }
}

Settings SettingsOf(const Tokens& tokens) {
  Settings settings;
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    if (!tokens[at].IsMark('=') || IsMark(tokens, at + 1, '=')) continue;
    const std::size_t name = tokens[at - 1].IsMark('+') ? at - 2 : at - 1;
    if (name < tokens.size() && IsWord(tokens, name)) {
      AddLiterals(Statement(tokens, at + 1), settings[tokens[name].text]);
    }
  }
  return settings;
}

bool IsConstant(const std::string& name) {
  return name.size() > 1 && name[0] == 'k' && std::isupper(static_cast<unsigned char>(name[1])) != 0;
}

/// A name stands for its text unless something is asked or called of it.
bool StandsForText(const Tokens& tokens, std::size_t at) {
  return IsWord(tokens, at) && !IsMark(tokens, at + 1, '(') && !IsMark(tokens, at + 1, '.') &&
         !IsMark(tokens, at + 1, ':') && !(IsMark(tokens, at + 1, '-') && IsMark(tokens, at + 2, '>'));
}

std::vector<std::string> TextsOf(const Stretch& stretch, const Settings& own, const Settings& all) {
  std::vector<std::string> texts;
  AddLiterals(stretch, texts);
  for (std::size_t at = stretch.begin; at < stretch.end; ++at) {
    if (!StandsForText(*stretch.tokens, at)) continue;
    const std::string& name = (*stretch.tokens)[at].text;
    const Settings& settings = IsConstant(name) ? all : own;
    const auto found = settings.find(name);
    if (found != settings.end()) texts.insert(texts.end(), found->second.begin(), found->second.end());
  }
  return texts;
}

/// What the triggers in a statement of the database raise.
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
  for (const Stretch& stretch : ToldStretches(tokens, makers)) {
    const std::vector<std::string> texts = TextsOf(stretch, own, all);
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
    const bool isTestsOwn = path.starts_with("platform/scripted/") || path == "core/recording_msg_box.h";
    const bool isSource = file.extension() == ".cpp" || file.extension() == ".h";
    if (isSource && !isTestsOwn) sources[path] = TokensOf(house::ReadFile(root / file));
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

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/action.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace tonalith::stress {
namespace {

/// Escapes the characters that separate columns and lines.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '\\':
        escaped += "\\\\";
        break;
      case '\t':
        escaped += "\\t";
        break;
      case '\n':
        escaped += "\\n";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const char c = text[++i];
    plain += c == 't' ? '\t' : c == 'n' ? '\n' : c;
  }
  return plain;
}

}  // namespace

std::string Action::Line() const { return kind + '\t' + Escaped(target) + '\t' + Escaped(text); }

std::optional<Action> Action::FromLine(const std::string& line) {
  if (line.empty() || line[0] == '#') return std::nullopt;
  const std::size_t first = line.find('\t');
  const std::size_t second = first == std::string::npos ? first : line.find('\t', first + 1);
  Action action{line.substr(0, first), {}, {}};
  if (first != std::string::npos) action.target = Unescaped(line.substr(first + 1, second - first - 1));
  if (second != std::string::npos) action.text = Unescaped(line.substr(second + 1));
  return action;
}

std::vector<Action> ReadActions(const std::string& path) {
  std::vector<Action> actions;
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (auto action = Action::FromLine(line)) actions.push_back(std::move(*action));
  }
  return actions;
}

Journal::Journal(const std::string& path)
    : file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666)) {
  if (file_ < 0) throw std::runtime_error("the journal " + path + " cannot be written");
}

Journal::~Journal() { ::close(file_); }

void Journal::Write(const Action& action) const {
  const std::string line = action.Line() + '\n';
  if (::write(file_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
    throw std::runtime_error("the journal cannot be written");
  }
}

}  // namespace tonalith::stress

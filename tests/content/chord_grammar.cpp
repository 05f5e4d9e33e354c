// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "content/chord_grammar.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tonalith::content_tests {
namespace {

/// One step of a recipe: an operation and its degree, such as "b9".
struct Step {
  enum class Kind {
    kMinor,
    kDiminished,
    kAugmented,
    kMajorSeventh,
    kStack,
    kSuspend,
    kAdd,
    kAlter,
    kOmit,
    kAllAltered
  };
  Kind kind;
  std::string degree;
};

class ChordBuilder {
 public:
  void Do(const Step& step) {
    switch (step.kind) {
      case Step::Kind::kMinor:
        degrees_[3] = "b3";
        break;
      case Step::Kind::kDiminished:
        degrees_[3] = "b3";
        degrees_[5] = "b5";
        diminished_ = true;
        break;
      case Step::Kind::kAugmented:
        degrees_[5] = "#5";
        break;
      case Step::Kind::kMajorSeventh:
        majorSeventh_ = true;
        break;
      case Step::Kind::kStack:
        Stack(std::stoi(step.degree));
        break;
      case Step::Kind::kSuspend:
        degrees_.erase(3);
        others_ += " " + step.degree;
        break;
      case Step::Kind::kAdd:
        others_ += " " + step.degree;
        break;
      case Step::Kind::kAlter:
        degrees_.erase(Number(step.degree));
        others_ += " " + step.degree;
        break;
      case Step::Kind::kOmit:
        if (degrees_.erase(Number(step.degree)) == 0) {
          throw std::invalid_argument("nothing to leave out: " + step.degree);
        }
        break;
      case Step::Kind::kAllAltered:
        degrees_.erase(5);
        others_ += " b5 #5 b9 #9";
        break;
    }
  }

  [[nodiscard]] PitchClassSet Notes() const {
    std::string all = others_;
    for (const auto& [number, degree] : degrees_) {
      all += " " + degree;
    }
    return FromDegrees(all);
  }

 private:
  static int Number(const std::string& degree) { return std::stoi(degree.substr(degree.find_first_not_of("b#"))); }

  void Stack(int top) {
    if (top == 5) {
      degrees_.erase(3);
    } else if (top == 6) {
      degrees_[6] = "6";
    } else if (top == 7 || top == 9 || top == 11 || top == 13) {
      degrees_[7] = majorSeventh_ ? "7" : diminished_ ? "bb7" : "b7";
      const bool minor = degrees_[3] == "b3";
      for (int next = 9; next <= top; next += 2) {
        if (next != 11 || top == 11 || minor) {
          degrees_[next] = std::to_string(next);
        }
      }
    } else {
      throw std::invalid_argument("no such chord number: " + std::to_string(top));
    }
  }

  std::map<int, std::string> degrees_ = {{1, "1"}, {3, "3"}, {5, "5"}};
  std::string others_;
  bool majorSeventh_ = false;
  bool diminished_ = false;
};

using Kind = Step::Kind;

/// Removes the word from the beginning of the text; false if the text begins otherwise.
bool Take(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) {
    return false;
  }
  text.remove_prefix(word.size());
  return true;
}

/// Removes a degree from the beginning of the text, accidentals and digits such as "b13", and returns it.
std::string TakeDegree(std::string_view& text) {
  std::string degree;
  while (!text.empty() && (text.front() == 'b' || text.front() == '#')) {
    degree += text.front();
    text.remove_prefix(1);
  }
  const std::size_t accidentals = degree.size();
  while (!text.empty() && std::isdigit(static_cast<unsigned char>(text.front())) != 0) {
    degree += text.front();
    text.remove_prefix(1);
  }
  if (degree.size() == accidentals) {
    throw std::invalid_argument("a degree is missing before: " + std::string(text));
  }
  return degree;
}

struct Mark {
  std::string_view text;
  Kind kind;
};

Step NextSymbolStep(std::string_view& rest) {
  constexpr std::array<Mark, 8> kQualities = {{{"maj", Kind::kMajorSeventh},
                                               {"M", Kind::kMajorSeventh},
                                               {"min", Kind::kMinor},
                                               {"m", Kind::kMinor},
                                               {"-", Kind::kMinor},
                                               {"dim", Kind::kDiminished},
                                               {"aug", Kind::kAugmented},
                                               {"+", Kind::kAugmented}}};
  for (const Mark& quality : kQualities) {
    if (Take(rest, quality.text)) {
      return {quality.kind, ""};
    }
  }
  if (Take(rest, "alt")) {
    return {Kind::kAllAltered, ""};
  }
  if (Take(rest, "sus")) {
    return {Kind::kSuspend, rest.empty() ? "4" : TakeDegree(rest)};
  }
  if (Take(rest, "addM")) {
    return {Kind::kAdd, TakeDegree(rest)};
  }
  if (Take(rest, "add") || Take(rest, "/")) {
    return {Kind::kAdd, TakeDegree(rest)};
  }
  if (Take(rest, "no")) {
    return {Kind::kOmit, TakeDegree(rest)};
  }
  const bool altered = rest.starts_with('b') || rest.starts_with('#');
  return {altered ? Kind::kAlter : Kind::kStack, TakeDegree(rest)};
}

/// The degree at the beginning of the text: "flat 9", "sharp 11", "major 7" or a number.
std::string DegreeInWords(std::istream& words) {
  std::string word;
  words >> word;
  std::string sign;
  if (word == "flat" || word == "sharp" || word == "major") {
    sign = word == "flat" ? "b" : word == "sharp" ? "#" : "";
    words >> word;
  }
  std::string_view digits = word;
  std::string degree = sign + TakeDegree(digits);
  if (!words || !digits.empty()) {
    throw std::invalid_argument("no degree: " + word);
  }
  return degree;
}

std::optional<Step> StepInWords(const std::string& word, std::istream& words) {
  static const std::map<std::string, Kind> kQualities = {{"major", Kind::kMajorSeventh},
                                                         {"minor", Kind::kMinor},
                                                         {"diminished", Kind::kDiminished},
                                                         {"augmented", Kind::kAugmented}};
  static const std::map<std::string, Kind> kWithDegree = {
      {"suspended", Kind::kSuspend}, {"added", Kind::kAdd}, {"no", Kind::kOmit}};
  if (const auto quality = kQualities.find(word); quality != kQualities.end()) {
    return Step{quality->second, ""};
  }
  if (const auto action = kWithDegree.find(word); action != kWithDegree.end()) {
    return Step{action->second, DegreeInWords(words)};
  }
  if (word == "altered") {
    return Step{Kind::kAllAltered, ""};
  }
  if (word == "power") {
    return Step{Kind::kStack, "5"};
  }
  if (word == "flat" || word == "sharp") {
    return Step{Kind::kAlter, (word == "flat" ? "b" : "#") + DegreeInWords(words)};
  }
  if (word == "dominant" || word == "triad" || word == "chord") {
    return std::nullopt;
  }
  std::string_view digits = word;
  Step step{Kind::kStack, TakeDegree(digits)};
  if (!digits.empty()) {
    throw std::invalid_argument("not a word of chord names: " + word);
  }
  return step;
}

}  // namespace

PitchClassSet ChordFromWords(std::string_view name) {
  std::string lowered(name.substr(0, name.find('(')));
  std::ranges::transform(lowered, lowered.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  std::istringstream words(lowered);
  ChordBuilder chord;
  for (std::string word; words >> word;) {
    if (const std::optional<Step> step = StepInWords(word, words)) {
      chord.Do(*step);
    }
  }
  return chord.Notes();
}

PitchClassSet ChordFromSymbol(std::string_view symbol) {
  std::string plain(symbol);
  std::erase_if(plain, [](char c) { return c == '(' || c == ')'; });
  std::string_view rest = plain;
  ChordBuilder chord;
  while (!rest.empty()) {
    chord.Do(NextSymbolStep(rest));
  }
  return chord.Notes();
}

}  // namespace tonalith::content_tests

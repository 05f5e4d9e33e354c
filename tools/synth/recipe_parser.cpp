// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "synth/recipe_parser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <locale>
#include <set>
#include <sstream>
#include <utility>

namespace tonalith::synth {

using voice::BodyMode;
using voice::Curve;
using voice::Guitar;
using voice::Pitch;
using voice::Recipe;
using voice::SoundSet;

namespace {

struct CurveRule {
  std::string_view name;
  Curve Guitar::*curve;
  double least;
  double most;
};

constexpr std::array<CurveRule, 10> kCurves = {{{"decay", &Guitar::decay, 0.1, 20.0},
                                                {"treble-decay", &Guitar::trebleDecay, 0.01, 20.0},
                                                {"pluck-position", &Guitar::pluckPosition, 0.02, 0.5},
                                                {"finger-hertz", &Guitar::fingerHertz, 100.0, 15000.0},
                                                {"nail", &Guitar::nail, -120.0, 0.0},
                                                {"touch", &Guitar::touch, -120.0, 0.0},
                                                {"side-level", &Guitar::sideLevel, -120.0, 0.0},
                                                {"side-cents", &Guitar::sideCents, -2.0, 2.0},
                                                {"side-decay", &Guitar::sideDecay, 0.1, 2.0},
                                                {"body", &Guitar::body, -60.0, 20.0}}};

Pitch ParsePitch(const std::string& word) {
  constexpr std::string_view kLetters = "C D EF G A B";
  const std::size_t letter = word.empty() || word[0] == ' ' ? std::string_view::npos : kLetters.find(word[0]);
  const bool sharp = word.size() > 1 && word[1] == '#';
  const std::size_t octaveAt = sharp ? 2 : 1;
  if (letter == std::string_view::npos || word.size() != octaveAt + 1 || word[octaveAt] < '0' || word[octaveAt] > '8') {
    throw RecipeError("\"" + word + "\" is no pitch such as C4 or F#3");
  }
  return 12 * (word[octaveAt] - '0' + 1) + static_cast<Pitch>(letter) + (sharp ? 1 : 0);
}

/// Reads the words of one line in sequence.
class Words {
 public:
  explicit Words(const std::string& line) : in_(line.substr(0, line.find(" #"))) {}

  std::string Next(std::string_view what) {
    std::string word;
    if (!(in_ >> word)) {
      throw RecipeError("the " + std::string(what) + " is missing");
    }
    return word;
  }

  double Number(std::string_view what, double least, double most) {
    const std::string word = Next(what);
    std::istringstream in(word);
    in.imbue(std::locale::classic());
    double value = 0.0;
    if (!(in >> value) || in.peek() != std::istringstream::traits_type::eof()) {
      throw RecipeError("\"" + word + "\" is no number (" + std::string(what) + ")");
    }
    if (!(value >= least && value <= most)) {
      throw RecipeError(std::string(what) + " " + word + " is out of its range");
    }
    return value;
  }

  int Whole(std::string_view what, int least, int most) {
    const double value = Number(what, least, most);
    if (value != std::floor(value)) {
      throw RecipeError("the " + std::string(what) + " is no whole number");
    }
    return static_cast<int>(value);
  }

  void Keyword(std::string_view expected) {
    const std::string word = Next(expected);
    if (word != expected) {
      throw RecipeError("\"" + word + "\" stands where \"" + std::string(expected) + "\" belongs");
    }
  }

  bool AtEnd() { return (in_ >> std::ws).eof(); }

  void End() {
    if (!AtEnd()) {
      throw RecipeError("there are words too many, from \"" + Next("rest") + "\"");
    }
  }

 private:
  std::istringstream in_;
};

class Parser {
 public:
  void Line(const std::string& line) {
    if (line.empty() || line[0] == '#' || line.find_first_not_of(" \t\r") == std::string::npos) {
      return;
    }
    Words words(line);
    const std::string name = words.Next("name");
    if (name != "mode" && name != "set" && !seen_.insert(name).second) {
      throw RecipeError("\"" + name + "\" stands there twice");
    }
    Entry(name, words);
    words.End();
  }

  Recipe Finish() {
    for (const CurveRule& rule : kCurves) {
      Require(std::string(rule.name));
    }
    Require("seed");
    Require("level");
    if (recipe_.guitar.modes.empty() || recipe_.sets.empty()) {
      throw RecipeError("a recipe needs a mode and a set");
    }
    for (const SoundSet& set : recipe_.sets) {
      CheckString(set);
    }
    return std::move(recipe_);
  }

 private:
  void Entry(const std::string& name, Words& words) {
    if (name == "seed") {
      recipe_.guitar.seed = static_cast<std::uint64_t>(words.Whole("seed", 0, 1'000'000'000));
    } else if (name == "level") {
      recipe_.guitar.levelDecibels = words.Number("level", -60.0, 0.0);
    } else if (name == "columns") {
      Columns(words);
    } else if (name == "mode") {
      Mode(words);
    } else if (name == "set") {
      Set(words);
    } else {
      Values(name, words);
    }
  }

  void Columns(Words& words) {
    while (!words.AtEnd()) {
      const Pitch pitch = ParsePitch(words.Next("pitch"));
      if (!columns_.empty() && pitch <= columns_.back()) {
        throw RecipeError("the pitches of the columns do not rise");
      }
      columns_.push_back(pitch);
    }
  }

  void Values(const std::string& name, Words& words) {
    for (const CurveRule& rule : kCurves) {
      if (rule.name != name) {
        continue;
      }
      if (columns_.empty()) {
        throw RecipeError("\"columns\" has to come before \"" + name + "\"");
      }
      std::vector<Curve::Point> points;
      for (const Pitch pitch : columns_) {
        points.push_back({pitch, words.Number(name, rule.least, rule.most)});
      }
      recipe_.guitar.*rule.curve = Curve(std::move(points));
      return;
    }
    throw RecipeError("\"" + name + "\" is unknown");
  }

  void Mode(Words& words) {
    BodyMode mode;
    mode.hertz = words.Number("frequency", 20.0, 12000.0);
    mode.sharpness = words.Number("sharpness", 0.5, 200.0);
    const double level = voice::FromDecibels(words.Number("level", -60.0, 20.0));
    const std::string phase = words.Next("phase");
    if (phase != "+" && phase != "-") {
      throw RecipeError("\"" + phase + "\" is no phase; + and - are");
    }
    mode.gain = phase == "+" ? level : -level;
    recipe_.guitar.modes.push_back(mode);
  }

  void Set(Words& words) {
    SoundSet set;
    set.folder = words.Next("folder");
    if (set.folder.find_first_of("/\\.") != std::string::npos) {
      throw RecipeError("\"" + set.folder + "\" is no plain folder name");
    }
    const std::string steps = words.Next("kind of steps");
    if (steps != "chromatic" && steps != "major") {
      throw RecipeError("\"" + steps + "\" is no kind of steps; chromatic and major are");
    }
    set.steps = steps == "major" ? voice::Steps::kMajor : voice::Steps::kChromatic;
    words.Keyword("from");
    set.first = ParsePitch(words.Next("first pitch"));
    words.Keyword("files");
    set.count = words.Whole("number of files", 1, 73);
    words.Keyword("seconds");
    set.firstSeconds = words.Number("length", 0.1, 20.0);
    set.lastSeconds = words.Number("length", 0.1, 20.0);
    words.Keyword("fade");
    set.fadeSeconds = words.Number("fade", 0.001, 20.0);
    words.Keyword("silence");
    set.silenceSeconds = words.Number("silence", 0.001, 20.0);
    if (set.fadeSeconds + set.silenceSeconds > std::min(set.firstSeconds, set.lastSeconds) - 0.05) {
      throw RecipeError("fade and silence leave no time for the note");
    }
    recipe_.sets.push_back(set);
  }

  void Require(const std::string& name) const {
    if (!seen_.contains(name)) {
      throw RecipeError("\"" + name + "\" is missing");
    }
  }

  /// The string's loss filter requires a treble decay shorter than the fundamental's, and a fundamental well below
  /// kTrebleHertz.
  void CheckString(const SoundSet& set) const {
    for (int number = 0; number < set.count; ++number) {
      const Pitch pitch = set.PitchOf(number);
      if (pitch < voice::kLowestPitch || pitch > voice::kHighestPitch) {
        throw RecipeError(set.folder + " leaves the range from G#0 to E7");
      }
      if (recipe_.guitar.trebleDecay.At(pitch) >= recipe_.guitar.decay.At(pitch)) {
        throw RecipeError("treble-decay is not below decay");
      }
    }
  }

  Recipe recipe_;
  std::vector<Pitch> columns_;
  std::set<std::string> seen_;
};

}  // namespace

Recipe ParseRecipe(std::string_view text) {
  Parser parser;
  std::istringstream in{std::string(text)};
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    try {
      parser.Line(line);
    } catch (const RecipeError& error) {
      throw RecipeError("line " + std::to_string(number) + ": " + error.what());
    }
  }
  return parser.Finish();
}

}  // namespace tonalith::synth

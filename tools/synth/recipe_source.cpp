// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <ios>
#include <locale>
#include <sstream>

#include "synth/recipe_parser.h"

namespace tonalith::synth {
namespace {

/// Writes numbers in hexadecimal, which is lossless.
class Writer {
 public:
  Writer() {
    out_.imbue(std::locale::classic());
    out_ << std::hexfloat;
  }

  void Line(const std::string& text) { out_ << text << '\n'; }
  void Value(const std::string& name, double value) { out_ << "    made.guitar." << name << " = " << value << ";\n"; }

  void Curve(const std::string& name, const voice::Curve& curve) {
    out_ << "    made.guitar." << name << " = Curve({";
    for (const voice::Curve::Point& point : curve.Points()) out_ << "{" << point.pitch << ", " << point.value << "}, ";
    out_ << "});\n";
  }

  void Mode(const voice::BodyMode& mode) {
    out_ << "    made.guitar.modes.push_back({" << mode.hertz << ", " << mode.sharpness << ", " << mode.gain << "});\n";
  }

  void Set(const voice::SoundSet& set) {
    out_ << "    made.sets.push_back({\"" << set.folder
         << "\", Steps::" << (set.steps == voice::Steps::kMajor ? "kMajor" : "kChromatic") << ", " << set.first << ", "
         << set.count << ", " << set.firstSeconds << ", " << set.lastSeconds << ", " << set.fadeSeconds << ", "
         << set.silenceSeconds << "});\n";
  }

  [[nodiscard]] std::string Text() const { return out_.str(); }

 private:
  std::ostringstream out_;
};

}  // namespace

std::string RecipeSource(const voice::Recipe& recipe) {
  const voice::Guitar& guitar = recipe.guitar;
  Writer out;
  out.Line("#include \"voice/recipe.h\"\n\nnamespace tonalith::voice {\n");
  out.Line("const Recipe& BuiltInRecipe() {\n  static const Recipe recipe = [] {\n    Recipe made;");
  out.Line("    made.guitar.seed = " + std::to_string(guitar.seed) + "U;");
  out.Value("levelDecibels", guitar.levelDecibels);
  out.Curve("decay", guitar.decay);
  out.Curve("trebleDecay", guitar.trebleDecay);
  out.Curve("pluckPosition", guitar.pluckPosition);
  out.Curve("fingerHertz", guitar.fingerHertz);
  out.Curve("nail", guitar.nail);
  out.Curve("touch", guitar.touch);
  out.Curve("sideLevel", guitar.sideLevel);
  out.Curve("sideCents", guitar.sideCents);
  out.Curve("sideDecay", guitar.sideDecay);
  out.Curve("body", guitar.body);
  for (const voice::BodyMode& mode : guitar.modes) out.Mode(mode);
  for (const voice::SoundSet& set : recipe.sets) out.Set(set);
  out.Line("    return made;\n  }();\n  return recipe;\n}\n\n}  // namespace tonalith::voice");
  return out.Text();
}

}  // namespace tonalith::synth

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <sstream>

#include "cli/messages.h"
#include "cli/refusal.h"
#include "instrument/positions.h"

namespace tonalith::cli {
namespace {

using theory::AccidentalSigns;
using theory::NoteLanguage;
using theory::NoteStyle;

const std::map<std::string, NoteStyle>& NoteStyles() {
  static const std::map<std::string, NoteStyle> kStyles = {
      {"english", {NoteLanguage::kEnglish, AccidentalSigns::kAscii}},
      {"german", {NoteLanguage::kGerman, AccidentalSigns::kSyllables}},
      {"german-bb", {NoteLanguage::kGermanBb, AccidentalSigns::kSyllables}},
      {"do-re-mi", {NoteLanguage::kSolfege, AccidentalSigns::kAscii}},
  };
  return kStyles;
}

// The parser reads words after a command as its positionals; `words` collects them.
struct Typed {
  std::vector<std::string> words;
  std::string notes = "english";
  std::string system;
};

void AddWords(CLI::App* command, Typed& typed, const std::string& name, const std::string& meaning, bool isRequired) {
  CLI::Option* const words = command->add_option(name, typed.words, meaning);
  if (isRequired) words->required();
}

void AddKey(CLI::App* command, Options& options) {
  command->add_option("--key", options.key, "The tonic or root, such as F# or Bb (C if there is none)")
      ->type_name("K")
      ->take_last();
}

void AddInstrument(CLI::App* command, Options& options) {
  command->add_option("--instrument", options.instrument, "A name of the command instruments (guitar)")
      ->type_name("I")
      ->take_last();
}

void AddLimit(CLI::App* command, Options& options) {
  command->add_option("--limit", options.limit, "The most answers (20)")
      ->check(CLI::Range(1, kMostLimit))
      ->type_name("N")
      ->take_last();
}

void AddList(CLI::App& app, Options& options, Typed& typed) {
  CLI::App* const list = app.add_subcommand("list", "List scales and chords, all of them or those with a word");
  AddWords(list, typed, "TEXT", "Beginnings of words of a name or another name; case and accents do not count", false);
  list->add_option("--type", options.type, "Only entries of this type")->type_name("T")->take_last();
  CLI::Option* const chords = list->add_flag("--chords", options.onlyChords, "Only chords");
  list->add_flag("--scales", options.onlyScales, "Only scales")->excludes(chords);
}

void AddShow(CLI::App& app, Options& options, Typed& typed) {
  CLI::App* const show = app.add_subcommand("show", "Show the notes of a scale or chord");
  AddWords(show, typed, "NAME", "A scale or chord by its name, or a chord symbol such as Am7", true);
  AddKey(show, options);
}

void AddName(CLI::App& app, Options& options, Typed& typed) {
  CLI::App* const name = app.add_subcommand("name", "Name notes or the frets of a shape as chords and scales");
  AddWords(name, typed, "NOTES",
           "Notes, the lowest first (C E G), or frets from the lowest string (x32010, x-10-12-12-11-10)", true);
  AddInstrument(name, options);
  AddLimit(name, options);
}

void AddShapes(CLI::App& app, Options& options, Typed& typed) {
  CLI::App* const shapes = app.add_subcommand("shapes", "List the shapes of a chord, the best first");
  AddWords(shapes, typed, "CHORD", "A chord symbol such as Am7 or C/E, or the name of a chord", true);
  AddKey(shapes, options);
  AddInstrument(shapes, options);
  AddLimit(shapes, options);
}

void AddPositions(CLI::App& app, Options& options, Typed& typed) {
  CLI::App* const positions = app.add_subcommand("positions", "List the positions of a scale on the neck");
  AddWords(positions, typed, "SCALE", "A scale or chord by its name", true);
  AddKey(positions, options);
  AddInstrument(positions, options);
  positions->add_option("--system", typed.system, "boxes, or per-string: the same number of notes on each string")
      ->check(CLI::IsMember({"boxes", "per-string"}))
      ->type_name("boxes|per-string")
      ->take_last();
  positions->add_option("--per-string", options.notesPerString, "Notes on each string; implies --system per-string")
      ->check(CLI::Range(1, instrument::kMostNotesPerString))
      ->type_name("N")
      ->take_last();
}

void AddCommands(CLI::App& app, Options& options, Typed& typed) {
  AddList(app, options, typed);
  AddShow(app, options, typed);
  AddName(app, options, typed);
  AddShapes(app, options, typed);
  AddPositions(app, options, typed);
  CLI::App* const chords = app.add_subcommand("chords", "List the triads and seventh chords of a scale");
  AddWords(chords, typed, "SCALE", "A scale by its name", true);
  AddKey(chords, options);
  app.add_subcommand("instruments", "List instruments and tunings");
  // Options of the program may follow the command.
  for (CLI::App* const command : app.get_subcommands({})) command->fallthrough();
}

void AddGlobalOptions(CLI::App& app, Options& options, Typed& typed) {
  app.add_flag("--json", options.json, "Answer in JSON");
  app.add_option("--library", options.library, "Use this file alone, not the library and packs of the program")
      ->type_name("FILE")
      ->take_last();
  std::vector<std::string> styles;
  for (const auto& style : NoteStyles()) styles.push_back(style.first);
  app.add_option("--notes", typed.notes, "The names of notes, except in JSON: english, german, german-bb or do-re-mi")
      ->check(CLI::IsMember(styles))
      ->type_name("STYLE")
      ->take_last();
  app.set_version_flag("--version", "tonalith-cli " TONALITH_VERSION);
  app.footer("The exit code is 0, 1 if something is not found, or 2 for wrong usage.");
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

Command CommandOf(const CLI::App& app) {
  static const std::map<std::string, Command> kCommands = {
      {"list", Command::kList},
      {"show", Command::kShow},
      {"name", Command::kName},
      {"shapes", Command::kShapes},
      {"positions", Command::kPositions},
      {"chords", Command::kChords},
      {"instruments", Command::kInstruments},
  };
  return kCommands.at(app.get_subcommands().front()->get_name());
}

void TakeTyped(const Typed& typed, Options& options) {
  options.text = Joined(typed.words);
  options.style = NoteStyles().at(typed.notes);
  const bool isPerString = typed.system == "per-string" || (typed.system.empty() && options.notesPerString);
  options.system = isPerString ? PositionSystem::kPerString : PositionSystem::kBoxes;
  if (!isPerString && options.notesPerString) throw Refusal(kWrongUsage, MessageId::kPerStringInBoxes);
}

}  // namespace

std::variant<Options, Exit> ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  Typed typed;
  CLI::App app("Scales, chords, shapes and positions of the Tonalith library.", "tonalith-cli");
  app.require_subcommand(1);
  AddGlobalOptions(app, options, typed);
  AddCommands(app, options, typed);
  try {
    // The parser takes arguments from the end.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    options.command = CommandOf(app);
    TakeTyped(typed, options);
    return options;
  } catch (const CLI::ParseError& error) {
    std::ostringstream output;
    std::ostringstream complaint;
    const int code = app.exit(error, output, complaint);
    return Exit{code == 0 ? kSuccess : kWrongUsage, output.str(), complaint.str()};
  }
}

}  // namespace tonalith::cli

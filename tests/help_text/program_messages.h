// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The messages of the program, read off its sources. A text is one when it
//   - stands among the arguments of a message box, of a status line, or of a call that makes a failure,
//   - stands in a throw expression, or in what a function gives back whose result is a failure, the problem of a sound
//     file or the notice of a form,
//   - is raised by a trigger of the database,
// or when a variable or constant used in one of these places is set to it. Texts are cut into their fixed pieces where
// variable ones stand between them. Pure functions over sources that were read before.

#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "help_text/source_tokens.h"

namespace tonalith::help_text {

/// Sources by their path.
using Sources = std::map<std::string, std::vector<SourceToken>>;

/// What the program itself is made of: every header and source under src/ but what only tests link.
Sources ProgramSources();

/// The sources of a text that names files: "== path" and the lines of the file.
Sources SourcesFrom(std::string_view text);

/// Each fixed piece of a message, with the first place that shows it.
std::map<std::string, std::string> MessagesOf(const Sources& sources);

/// Every text literal of the sources, whole and in pieces.
std::set<std::string> TextsOf(const Sources& sources);

}  // namespace tonalith::help_text

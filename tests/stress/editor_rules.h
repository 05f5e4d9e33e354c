// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What has to hold in the editor between any two actions, and how what it shows is held against a row of the library.
// User-interface thread; what is broken is thrown as a Finding.

#pragma once

#include "stress/library.h"
#include "stress/visible_state.h"

namespace tonalith::stress {

/// Fields against the row where nothing is pending, the note buttons against the pattern, what is on against the mode.
void CheckEditor(const EditorState& sight, const Library& library);

/// The first field in which the row is not what the form shows; empty where there is none. The pattern may also be one
/// of `patterns`, which the form was about to write.
std::string Difference(const EditorState& sight, const Scale& scale, const std::vector<std::string>& patterns = {});

/// What the library would refuse in that row beside the others; empty where it takes it.
std::string Fault(std::int64_t number, const Library& library);

}  // namespace tonalith::stress

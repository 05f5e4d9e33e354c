// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rules for the editor between two actions, and the comparison of its fields with a row of the library. Throws a
// Finding if a rule is violated.

#pragma once

#include "stress/library.h"
#include "stress/visible_state.h"

namespace tonalith::stress {

/// Compares the fields with the row if no edit is pending, the note buttons with the pattern, and the enabled controls
/// with the mode.
void CheckEditor(const EditorState& state, const Library& library);

/// Describes the first field that differs between the form and the row; empty if there is none. The stored pattern may
/// also be one of `patterns`, which the form was about to write.
std::string Difference(const EditorState& state, const Scale& scale, const std::vector<std::string>& patterns = {});

/// Describes the first rule of the library that the row violates; empty if there is none.
std::string ConstraintViolation(std::int64_t number, const Library& library);

}  // namespace tonalith::stress

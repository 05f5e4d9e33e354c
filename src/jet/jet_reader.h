// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads a Jet file with libmdb, in this very process: a damaged file may crash it or keep it busy for ever, so it is
// run in a ChildProcess. libmdb finds pages, rows and fields; values are decoded here, and counts and lengths
// checked. Private to the data room; one thread, one file at a time. Fails by throwing core::Failure whose description
// completes "the file cannot be read: ".

#pragma once

#include <string>

#include "jet/jet_file.h"

namespace tonalith::jet {

void ReadWithLibmdb(const std::string& path, JetVisitor& visitor);

}  // namespace tonalith::jet

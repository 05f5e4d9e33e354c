// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads a Jet file with libmdb in the calling process. A damaged file may crash libmdb or make it loop without end, so
// call this in a ChildProcess. libmdb finds pages, rows and fields; this room decodes the values and checks counts and
// lengths. One file at a time.

#pragma once

#include <string>

#include "jet/jet_file.h"

namespace tonalith::jet {

void ReadWithLibmdb(const std::string& path, JetVisitor& visitor);

}  // namespace tonalith::jet

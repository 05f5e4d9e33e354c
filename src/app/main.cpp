// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program.h"

int main(int argc, char* argv[]) { return tonalith::app::RunProgram(argc, argv); }

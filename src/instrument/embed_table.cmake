# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# Writes the C++ source TO, which defines the constant NAME of the room with the text of the table FROM.
file(READ "${FROM}" text)
# Compilers need not accept a string literal above 64 KiB.
string(LENGTH "${text}" length)
if(length GREATER 65000)
  message(FATAL_ERROR "${FROM} is too long for one string literal")
endif()
file(
  WRITE "${TO}"
  "// Generated from ${FROM}.\n"
  "#include \"instrument/built_in_text.h\"\n"
  "namespace tonalith::instrument {\n"
  "constexpr std::string_view ${NAME} = R\"table(${text})table\";\n"
  "}\n")

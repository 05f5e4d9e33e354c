# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# cmake -D FROM=<database> -D TO=<database> -P stage_database.cmake
#
# Copies a database or a data pack to the stage unless a file with that name exists: it may contain scales of a user.
if(NOT EXISTS "${TO}" AND NOT IS_SYMLINK "${TO}")
  get_filename_component(folder "${TO}" DIRECTORY)
  file(MAKE_DIRECTORY "${folder}")
  file(COPY_FILE "${FROM}" "${TO}.new")
  file(RENAME "${TO}.new" "${TO}")
endif()

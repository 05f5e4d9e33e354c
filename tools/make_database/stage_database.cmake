# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# cmake -D FROM=<database> -D TO=<database> -P stage_database.cmake
#
# Puts a database or a data pack onto the stage unless there is one of that name: the one that is there may hold
# somebody's scales.
if(NOT EXISTS "${TO}" AND NOT IS_SYMLINK "${TO}")
  get_filename_component(folder "${TO}" DIRECTORY)
  file(MAKE_DIRECTORY "${folder}")
  file(COPY_FILE "${FROM}" "${TO}.new")
  file(RENAME "${TO}.new" "${TO}")
endif()

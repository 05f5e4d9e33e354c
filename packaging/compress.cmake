# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# cmake -D GZIP=... -D FROM=... -D TO=... -P compress.cmake
execute_process(COMMAND "${GZIP}" -9nc "${FROM}" OUTPUT_FILE "${TO}" COMMAND_ERROR_IS_FATAL ANY)

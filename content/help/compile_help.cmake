# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# cmake -D CHMCMD=... -D FOLDER=... -D TO=... -P compile_help.cmake: compiles FOLDER/tonalith.hhp to the file TO. The
# exit status of the compiler is not sufficient: it is 0 for a missing project, and a missing topic is only a warning.
# So this script fails, with the output of the compiler, on a warning or a missing result.
set(compiled "${FOLDER}/TLHELP.chm")
file(REMOVE "${compiled}")
execute_process(COMMAND "${CHMCMD}" tonalith.hhp WORKING_DIRECTORY "${FOLDER}" RESULT_VARIABLE status
                OUTPUT_VARIABLE said ERROR_VARIABLE said)
set(size 0)
if(EXISTS "${compiled}")
  file(SIZE "${compiled}" size)
endif()
if(NOT status EQUAL 0 OR size EQUAL 0 OR said MATCHES "Warning|Error")
  message(FATAL_ERROR "The help could not be compiled (exit status ${status}):\n${said}")
endif()
file(COPY_FILE "${compiled}" "${TO}")

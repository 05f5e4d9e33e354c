# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# One room is one folder, one static library and one set of arrows (permitted dependencies). Every target of the project
# is created here, so that warnings, sanitizers, clang-tidy and Qt settings are the same everywhere.

add_library(tonalith_options INTERFACE)
target_compile_options(
  tonalith_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
                             -Woverloaded-virtual)
# Warnings are errors with the compilers of .ci/run. Newer compilers have other warnings and other false positives, so
# there they are only shown.
if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
   OR (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15))
  target_compile_options(tonalith_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports the unused storage of a std::optional as uninitialized, a false positive. It collects garbage only
  # above 400 MB, which few sources reach; with the default it spends a tenth of the time on that.
  target_compile_options(tonalith_options INTERFACE -Wno-maybe-uninitialized "SHELL:--param ggc-min-heapsize=409600")
endif()
target_compile_definitions(tonalith_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                      QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_include_directories(tonalith_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(TONALITH_SANITIZE)
  target_compile_options(tonalith_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
  target_link_options(tonalith_options INTERFACE -fsanitize=address,undefined)
endif()
if(TONALITH_THREADS)
  target_compile_options(tonalith_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(tonalith_options INTERFACE -fsanitize=thread)
endif()
if(TONALITH_COVERAGE)
  # Atomic counters: sound output and its tests use several threads.
  target_compile_options(tonalith_options INTERFACE --coverage -O0 -g1 -fprofile-update=atomic)
  target_link_options(tonalith_options INTERFACE --coverage)
endif()
if(TONALITH_FUZZ)
  target_compile_options(tonalith_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(TONALITH_TIDY)
  find_program(TONALITH_CLANG_TIDY NAMES clang-tidy REQUIRED)
endif()

function(tonalith_finish target)
  if(TONALITH_TIDY)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${TONALITH_CLANG_TIDY};--quiet")
  endif()
endfunction()

# tonalith_headers(name READS <vector> ... LINKS ... OPTIONS ...): precompiled headers, for targets that use them with
# REUSE_FROM and have the same OPTIONS. Sources must not depend on them: clang-tidy runs without them.
function(tonalith_headers name)
  cmake_parse_arguments(HEADERS "" "" "READS;LINKS;OPTIONS" ${ARGN})
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${name}.cpp" CONTENT "")
  add_library(${name} OBJECT "${PROJECT_BINARY_DIR}/${name}.cpp")
  target_link_libraries(${name} PRIVATE ${HEADERS_LINKS} tonalith_options)
  target_compile_options(${name} PRIVATE ${HEADERS_OPTIONS})
  target_precompile_headers(${name} PRIVATE <algorithm> <filesystem> <functional> <map> <memory> <optional> <string>
                                            <vector> ${HEADERS_READS})
endfunction()

# Headers that nearly every window includes.
set(TONALITH_QT_READS <QAbstractButton> <QApplication> <QLabel> <QLineEdit> <QPainter> <QPointer>)
if(TONALITH_QT)
  tonalith_headers(tonalith_qt_headers READS ${TONALITH_QT_READS} LINKS Qt6::Widgets)
endif()

# tonalith_room(core SOURCES ... LINKS ...): the static library tonalith_core. LINKS contains rooms and packages.
function(tonalith_room name)
  cmake_parse_arguments(ROOM "QT" "" "SOURCES;LINKS" ${ARGN})
  set(target tonalith_${name})
  add_library(${target} STATIC ${ROOM_SOURCES})
  target_link_libraries(${target} PUBLIC ${ROOM_LINKS} PRIVATE tonalith_options)
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  if(ROOM_QT)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_precompile_headers(${target} REUSE_FROM tonalith_qt_headers)
  endif()
  tonalith_finish(${target})
endfunction()

# Precompiled headers for tests without and with Qt. Tests are compiled without optimisation: there are many, and each
# runs once.
set(TONALITH_TEST_OPTIONS $<$<CONFIG:RelWithDebInfo>:-O0>)
function(tonalith_test_headers name)
  cmake_parse_arguments(HEADERS "" "" "READS;LINKS" ${ARGN})
  tonalith_headers(${name} READS <gmock/gmock.h> <chrono> <fstream> <sstream> <thread> ${HEADERS_READS}
                   LINKS ${HEADERS_LINKS} GTest::gmock OPTIONS ${TONALITH_TEST_OPTIONS})
endfunction()

# tonalith_test(core SOURCES ... LINKS ...): one GoogleTest program for a folder of tests/.
function(tonalith_test name)
  cmake_parse_arguments(TEST "QT" "" "SOURCES;LINKS" ${ARGN})
  set(target tonalith_${name}_tests)
  add_executable(${target} ${TEST_SOURCES})
  target_link_libraries(${target} PRIVATE ${TEST_LINKS} GTest::gmock tonalith_options)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_options(${target} PRIVATE ${TONALITH_TEST_OPTIONS})
  target_compile_definitions(${target} PRIVATE TONALITH_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                               TONALITH_BINARY_DIR="${PROJECT_BINARY_DIR}")
  if(TEST_QT)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_link_libraries(${target} PRIVATE Qt6::Test)
    target_precompile_headers(${target} REUSE_FROM tonalith_qt_test_headers)
  else()
    target_link_libraries(${target} PRIVATE GTest::gmock_main)
    target_precompile_headers(${target} REUSE_FROM tonalith_test_headers)
  endif()
  if(TONALITH_COVERAGE)
    # Counts the lines that a child process runs before _exit.
    target_link_libraries(${target} PRIVATE tonalith_counted_exit)
    target_link_options(${target} PRIVATE -Wl,--wrap=_exit)
  endif()
  tonalith_finish(${target})
  set(surroundings "QT_QPA_PLATFORM=offscreen;QT_ACCESSIBILITY=0")
  if(TONALITH_TESTS_WHOLE)
    # One process per test folder instead of one per test: with a sanitizer, most of the time of a test is process
    # start.
    add_test(NAME ${name} COMMAND ${target} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${surroundings}" TIMEOUT 600)
  else()
    include(GoogleTest)
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60
                         PROPERTIES ENVIRONMENT "${surroundings}")
  endif()
endfunction()

# At start the dynamic linker resolves ten thousand symbols by searching the libraries in link order. Nearly all are in
# Qt, so Qt is linked before the libraries of the rooms.
function(tonalith_link_qt_first target)
  target_link_options(
    ${target} PRIVATE "LINKER:--no-as-needed" "$<TARGET_LINKER_FILE:Qt6::Core>" "$<TARGET_LINKER_FILE:Qt6::Widgets>"
                      "$<TARGET_LINKER_FILE:Qt6::Gui>" "LINKER:--as-needed")
endfunction()

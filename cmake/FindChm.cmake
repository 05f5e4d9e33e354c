# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
#
# chmlib has no CMake or pkg-config files: defines the target Chm::Chm.
find_path(CHM_INCLUDE_DIR chm_lib.h)
find_library(CHM_LIBRARY chm)
mark_as_advanced(CHM_INCLUDE_DIR CHM_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Chm REQUIRED_VARS CHM_LIBRARY CHM_INCLUDE_DIR)

if(Chm_FOUND AND NOT TARGET Chm::Chm)
  add_library(Chm::Chm UNKNOWN IMPORTED)
  set_target_properties(Chm::Chm PROPERTIES IMPORTED_LOCATION "${CHM_LIBRARY}"
                                            INTERFACE_INCLUDE_DIRECTORIES "${CHM_INCLUDE_DIR}")
endif()

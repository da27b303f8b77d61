# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Finds DUMB 0.9.3 (module decoding and resampling): target DUMB::DUMB, DUMB_FOUND, DUMB_VERSION.

find_path(DUMB_INCLUDE_DIR dumb.h)
find_library(DUMB_LIBRARY dumb)
mark_as_advanced(DUMB_INCLUDE_DIR DUMB_LIBRARY)

if(DUMB_INCLUDE_DIR)
  file(STRINGS "${DUMB_INCLUDE_DIR}/dumb.h" version_line REGEX "^#define DUMB_VERSION_STR ")
  string(REGEX REPLACE ".*\"([^\"]*)\".*" "\\1" DUMB_VERSION "${version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(
  DUMB
  REQUIRED_VARS DUMB_LIBRARY DUMB_INCLUDE_DIR
  VERSION_VAR DUMB_VERSION
  REASON_FAILURE_MESSAGE
    "On Debian install libdumb1-dev. For a Windows cross build run scripts/deps-windows.")

if(DUMB_FOUND AND NOT TARGET DUMB::DUMB)
  add_library(DUMB::DUMB UNKNOWN IMPORTED)
  set_target_properties(DUMB::DUMB PROPERTIES IMPORTED_LOCATION "${DUMB_LIBRARY}"
                                              INTERFACE_INCLUDE_DIRECTORIES "${DUMB_INCLUDE_DIR}")
endif()

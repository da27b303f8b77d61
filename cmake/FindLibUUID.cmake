# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Finds libuuid (name-based identifiers): target LibUUID::LibUUID, LibUUID_FOUND.

find_path(LIBUUID_INCLUDE_DIR uuid/uuid.h)
find_library(LIBUUID_LIBRARY uuid)
mark_as_advanced(LIBUUID_INCLUDE_DIR LIBUUID_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(
  LibUUID
  REQUIRED_VARS LIBUUID_LIBRARY LIBUUID_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "On Debian install uuid-dev.")

if(LibUUID_FOUND AND NOT TARGET LibUUID::LibUUID)
  add_library(LibUUID::LibUUID UNKNOWN IMPORTED)
  set_target_properties(LibUUID::LibUUID
                        PROPERTIES IMPORTED_LOCATION "${LIBUUID_LIBRARY}"
                                   INTERFACE_INCLUDE_DIRECTORIES "${LIBUUID_INCLUDE_DIR}")
endif()

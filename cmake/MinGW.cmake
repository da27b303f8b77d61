# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Common part of the MinGW-w64 toolchain files; SONIMBRA_TRIPLET and CMAKE_SYSTEM_PROCESSOR are set
# by the file that includes it.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${SONIMBRA_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${SONIMBRA_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${SONIMBRA_TRIPLET}-windres)

# scripts/deps-windows puts headers and archives of the dependencies there. Nothing of the building
# machine's own headers and libraries is looked at.
get_filename_component(sonimbra_root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
set(CMAKE_FIND_ROOT_PATH "${sonimbra_root}/build/deps/${SONIMBRA_TRIPLET}"
                         "/usr/${SONIMBRA_TRIPLET}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

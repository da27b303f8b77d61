# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
set(SONIMBRA_TRIPLET x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
include("${CMAKE_CURRENT_LIST_DIR}/MinGW.cmake")
set(CMAKE_CROSSCOMPILING_EMULATOR "${sonimbra_root}/scripts/lib/wine-run")

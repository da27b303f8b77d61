# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
set(SONIMBRA_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86)
include("${CMAKE_CURRENT_LIST_DIR}/MinGW.cmake")

# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# sonimbra_collect_sources(<variable> <folder>...)
#
# Lists the .cpp files of the folders (relative to the repository root; a folder that is not there
# adds nothing) that belong to the target platform: *_win32.cpp and the WinMM back end on Windows,
# *_posix.cpp and the ALSA back end elsewhere, *_x86.cpp or *_generic.cpp by the processor, and
# everything that carries no platform in its name.
function(sonimbra_collect_sources variable)
  set(sources)
  foreach(folder IN LISTS ARGN)
    file(GLOB found CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    list(APPEND sources ${found})
  endforeach()
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
    list(FILTER sources EXCLUDE REGEX "/CSonimbraALSA[^/]*\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_win32\\.cpp$")
    list(FILTER sources EXCLUDE REGEX "/CSonimbraWinMM[^/]*\\.cpp$")
  endif()
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86|[xX]86)$")
    list(FILTER sources EXCLUDE REGEX "_generic\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_x86\\.cpp$")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

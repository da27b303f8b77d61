# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# sonimbra_add_plugin(<name> <folder> <source>...)
#
# Builds a plug-in, <name>.dll or <name>.so, into a folder. Plug-ins need the public headers and no
# library: they call the engine through the interfaces that it hands them. (The empty generator
# expression keeps Visual Studio from adding a folder for each configuration.)
function(sonimbra_add_plugin name folder)
  add_library(${name} MODULE ${ARGN})
  sonimbra_configure_target(${name})
  sonimbra_hide_symbols(${name})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/engine/include")
  set_target_properties(${name} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY "${folder}$<0:>")
  if(MINGW)
    target_link_options(${name} PRIVATE -static)
  endif()
endfunction()

# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Settings that every target of the project shares. What must reach code that is not the
# project's own (sanitizers, so that GoogleTest is instrumented too) is set for the directory; all
# the rest goes through sonimbra_configure_target().

if(PROJECT_IS_TOP_LEVEL)
  get_property(multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  if(NOT CMAKE_BUILD_TYPE AND NOT multi_config)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
  endif()
  # One folder for programs and DLLs: Windows looks for a DLL beside the program.
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
  set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
endif()

if(SONIMBRA_SANITIZE)
  string(REPLACE ";" "," sanitizers "${SONIMBRA_SANITIZE}")
  add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${sanitizers})
endif()
if(SONIMBRA_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(MSVC)
  set(sonimbra_compile_options /utf-8 /permissive- /EHsc /fp:precise)
  set(sonimbra_warnings /W4 /WX)
else()
  # The same input gives the same samples on every machine: no fused multiply-add, and no 80-bit
  # intermediate results on 32-bit x86.
  set(sonimbra_compile_options -ffp-contract=off)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|X86|AMD64)$")
    list(APPEND sonimbra_compile_options -msse2 -mfpmath=sse)
    if(WIN32)
      # Windows promises 4-byte stacks only, and SSE spills need 16.
      list(APPEND sonimbra_compile_options -mstackrealign)
    endif()
  endif()
  set(sonimbra_warnings
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
      -Wundef -Werror)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # GoogleTest's parametrised suites use it.
    list(APPEND sonimbra_warnings -Wno-gnu-zero-variadic-macro-arguments)
  endif()
endif()

# Applies language level, floating-point rules, warnings and the repository's include root.
function(sonimbra_configure_target target)
  set_target_properties(${target} PROPERTIES CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON
                                             CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE ${sonimbra_compile_options})
  if(SONIMBRA_DEVELOPER)
    target_compile_options(${target} PRIVATE ${sonimbra_warnings})
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE NOMINMAX)
  endif()
  get_target_property(type ${target} TYPE)
  if(MINGW AND type MATCHES "EXECUTABLE|SHARED_LIBRARY")
    # Compiler runtime, libstdc++ and winpthread go into the file: nothing has to lie beside it.
    target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++)
  endif()
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
endfunction()

# Hides everything but the exported functions. Sanitizer builds keep default visibility, because the
# check of virtual tables compares type information across libraries by address.
function(sonimbra_hide_symbols target)
  if(NOT SONIMBRA_SANITIZE)
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden
                                               VISIBILITY_INLINES_HIDDEN ON)
  endif()
endfunction()

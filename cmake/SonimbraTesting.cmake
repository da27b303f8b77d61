# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Functions behind tests/CMakeLists.txt. Folders are relative to tests/; one without sources makes
# no target. Each program is one ctest entry, because every start under Wine costs seconds.

# The folder may hold a GoogleTest checkout or the sources that Debian installs.
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # its options take the values that are set here
set(INSTALL_GTEST OFF)
set(gtest_force_shared_crt ON)
if(NOT EXISTS "${SONIMBRA_GOOGLETEST_DIR}/CMakeLists.txt")
  message(FATAL_ERROR "No GoogleTest sources in ${SONIMBRA_GOOGLETEST_DIR}: on Debian install "
                      "googletest, or set SONIMBRA_GOOGLETEST_DIR.")
endif()
add_subdirectory("${SONIMBRA_GOOGLETEST_DIR}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)

function(sonimbra_add_header_check target)
  set(sources)
  foreach(header IN LISTS sonimbra_public_headers)
    cmake_path(GET header FILENAME name)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp")
    # Twice, which also proves that the header guards itself.
    file(CONFIGURE OUTPUT "${source}"
         CONTENT "#include <sonimbra/${name}>\n#include <sonimbra/${name}>\n")
    list(APPEND sources "${source}")
  endforeach()
  if(sources)
    add_library(${target} OBJECT ${sources})
    sonimbra_configure_target(${target})
    set_target_properties(${target} PROPERTIES CXX_STANDARD 17 INCLUDE_DIRECTORIES
                                               "${PROJECT_SOURCE_DIR}/engine/include")
  endif()
endfunction()

function(sonimbra_add_test_support target folder)
  sonimbra_collect_sources(sources tests/${folder})
  if(sources)
    add_library(${target} STATIC ${sources})
    sonimbra_configure_test_code(${target})
    # The writer of Ogg files encodes; the library itself only decodes.
    find_library(VORBISENC_LIBRARY vorbisenc REQUIRED)
    mark_as_advanced(VORBISENC_LIBRARY)
    target_link_libraries(${target} PUBLIC Sonimbra::Static GTest::gtest
                          PRIVATE "${VORBISENC_LIBRARY}" VorbisFile::VorbisFile)
  endif()
endfunction()

# Test code is compiled often and runs little: less optimization, whatever the build type says.
function(sonimbra_configure_test_code target)
  sonimbra_configure_target(${target})
  if(NOT MSVC)
    target_compile_options(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-O1>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # GCC 12 sees faults in its own std::string concatenation at this level.
      target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-restrict
                                               -Wno-stringop-overflow)
    endif()
  endif()
endfunction()

function(sonimbra_link_test target)
  sonimbra_configure_test_code(${target})
  target_link_libraries(${target} PRIVATE Sonimbra::Static ${ARGN})
  if(TARGET sonimbra_test_support)
    target_link_libraries(${target} PRIVATE sonimbra_test_support)
  endif()
endfunction()

# sonimbra_add_gtest(<target> <folder> TIMEOUT <seconds>)
function(sonimbra_add_gtest target folder)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "")
  sonimbra_collect_sources(sources tests/${folder})
  if(NOT sources)
    return()
  endif()
  add_executable(${target} ${sources})
  sonimbra_link_test(${target} GTest::gtest_main)
  target_precompile_headers(${target} PRIVATE <gtest/gtest.h>) # halves the compile time
  add_test(NAME ${target} COMMAND ${target})
  set_tests_properties(${target} PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()

# sonimbra_add_test_plugins(<target> <folder>)
#
# Gives the program a folder of its own, because others must not find what lies beside it: plug-ins
# made of the sources in <folder>. Below it, in "elsewhere", are more, and files that only look like
# some.
function(sonimbra_add_test_plugins target folder)
  set(output "${PROJECT_BINARY_DIR}/bin/${target}")
  set(elsewhere "${output}/elsewhere")
  set(suffix "${CMAKE_SHARED_MODULE_SUFFIX}")
  sonimbra_add_plugin(snpwild "${output}" ${folder}/snpwild.cpp)
  sonimbra_add_plugin(snphollow "${output}" ${folder}/snphollow.cpp)
  sonimbra_add_plugin(snptone "${elsewhere}"
                      "${PROJECT_SOURCE_DIR}/examples/plugin_sine/snpsine.cpp")
  sonimbra_add_plugin(SNPLOUD "${elsewhere}" ${folder}/snphollow.cpp)
  string(TOUPPER "${suffix}" upper_suffix)
  set_target_properties(SNPLOUD PROPERTIES SUFFIX "${upper_suffix}")
  file(MAKE_DIRECTORY "${elsewhere}")
  foreach(name snphollow${suffix} snpbroken${suffix} plugin_snp${suffix} snp.dll snpx.so)
    file(TOUCH "${elsewhere}/${name}")
  endforeach()

  add_dependencies(${target} snpwild snphollow snptone SNPLOUD)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${output}$<0:>")
  if(NOT MSVC AND NOT SONIMBRA_SANITIZE)
    target_compile_options(snptone PRIVATE -fno-rtti) # a plug-in may be made without
  endif()
  if(SONIMBRA_SANITIZE)
    # Plug-ins then share its type information, which the sanitizer compares by address.
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
  endif()
endfunction()

# sonimbra_add_real_sound_test(<name> <script> TIMEOUT <seconds>)
#
# Plays through the real output driver and listens to what the sound server received. The script
# fails, and does not skip, where the server or Wine is missing: scripts/test starts them.
function(sonimbra_add_real_sound_test name script)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "")
  if(NOT TARGET sonimbra_player)
    return()
  endif()
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  # By its path: for a target CMake would start the interpreter itself under the emulator.
  add_test(NAME ${name} COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/${script}" -v)
  set_tests_properties(
    ${name}
    PROPERTIES
      TIMEOUT ${arg_TIMEOUT} RUN_SERIAL ON ENVIRONMENT
      "SONIMBRA_PLAYER=$<TARGET_FILE:sonimbra_player>;SONIMBRA_WINE=${CMAKE_CROSSCOMPILING_EMULATOR};PYTHONDONTWRITEBYTECODE=1")
endfunction()

# sonimbra_add_flat_interface_test(<name> <script> [<test>...])
#
# Reads the headers, and calls the shared library as a foreign language does; where that cannot run,
# only the tests that are named.
function(sonimbra_add_flat_interface_test name script)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  add_test(NAME ${name} COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/${script}" -v
                                ${ARGN})
  set_tests_properties(
    ${name}
    PROPERTIES
      TIMEOUT 60 ENVIRONMENT
      "SONIMBRA_LIBRARY=$<TARGET_FILE:sonimbra>;SONIMBRA_CXX=${CMAKE_CXX_COMPILER};SONIMBRA_OBJDUMP=${CMAKE_OBJDUMP};PYTHONDONTWRITEBYTECODE=1")
endfunction()

# sonimbra_add_fuzzers(<folder>)
#
# Each <name>_fuzzer.cpp is a libFuzzer program that runs for a minute. Its seeds are what
# make_corpus.cpp wrote: that program gets one argument, the corpus root, and puts the seeds of
# <name>_fuzzer into the folder <name> there.
function(sonimbra_add_fuzzers folder)
  file(GLOB fuzzers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*_fuzzer.cpp")
  if(NOT fuzzers)
    return()
  endif()
  set(root "${CMAKE_CURRENT_BINARY_DIR}/fuzz")
  add_executable(sonimbra_make_corpus "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/make_corpus.cpp")
  sonimbra_link_test(sonimbra_make_corpus)
  add_test(NAME sonimbra_make_corpus COMMAND sonimbra_make_corpus "${root}/corpus")
  set_tests_properties(sonimbra_make_corpus PROPERTIES FIXTURES_SETUP fuzz_corpus)

  foreach(source IN LISTS fuzzers)
    cmake_path(GET source STEM target)
    string(REGEX REPLACE "_fuzzer$" "" name "${target}")
    add_executable(${target} "${source}")
    sonimbra_link_test(${target})
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    # libFuzzer keeps what it finds in the first folder and reads the second. Inputs that take long,
    # such as modules that repeat themselves for hours, are tried less often than others.
    file(MAKE_DIRECTORY "${root}/found/${name}" "${root}/corpus/${name}" "${root}/crashes")
    add_test(NAME ${target}
             COMMAND ${target} -max_total_time=60 -timeout=60 -rss_limit_mb=2048
                     -entropic_scale_per_exec_time=1 -print_final_stats=1
                     "-artifact_prefix=${root}/crashes/${name}-" "${root}/found/${name}"
                     "${root}/corpus/${name}")
    set_tests_properties(${target} PROPERTIES TIMEOUT 180 FIXTURES_REQUIRED fuzz_corpus)
  endforeach()
endfunction()

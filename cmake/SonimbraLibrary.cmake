# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# The library: `sonimbra` (shared, Sonimbra::Sonimbra) and `sonimbra_static` (Sonimbra::Static).

find_package(DUMB REQUIRED)
find_package(VorbisFile REQUIRED)
set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)

set(sonimbra_folders core io streams engine drivers/software recording binding/native)
if(WIN32)
  list(APPEND sonimbra_folders drivers/directsound recording/directsound)
endif()
sonimbra_collect_sources(sonimbra_sources ${sonimbra_folders})
file(GLOB sonimbra_public_headers CONFIGURE_DEPENDS
     "${PROJECT_SOURCE_DIR}/engine/include/sonimbra/*.h")
file(GLOB sonimbra_flat_headers CONFIGURE_DEPENDS
     "${PROJECT_SOURCE_DIR}/binding/native/include/sonimbra/*.h")
set(sonimbra_include_folders "${PROJECT_SOURCE_DIR}/engine/include"
                             "${PROJECT_SOURCE_DIR}/binding/native/include")

# Only these are compiled for a processor with AVX2, and run on one alone.
set(sonimbra_avx2_sources ${sonimbra_sources})
list(FILTER sonimbra_avx2_sources INCLUDE REGEX "_avx2_x86\\.cpp$")
if(sonimbra_avx2_sources)
  set_source_files_properties(${sonimbra_avx2_sources} PROPERTIES COMPILE_OPTIONS
                              "$<IF:$<CXX_COMPILER_ID:MSVC>,/arch:AVX2,-mavx2>")
endif()

set(sonimbra_libraries DUMB::DUMB VorbisFile::VorbisFile Threads::Threads)
if(WIN32)
  list(APPEND sonimbra_libraries winmm ole32 user32 dxguid)
else()
  find_package(ALSA REQUIRED)
  find_package(LibUUID REQUIRED)
  list(APPEND sonimbra_libraries ALSA::ALSA LibUUID::LibUUID ${CMAKE_DL_LIBS})
endif()

if(NOT sonimbra_sources)
  message(FATAL_ERROR "No library sources found below ${PROJECT_SOURCE_DIR}.")
endif()

# Compiles the sources once; the archive and the shared library are made from the same objects.
function(sonimbra_add_objects target)
  add_library(${target} OBJECT ${sonimbra_sources})
  sonimbra_configure_target(${target})
  sonimbra_hide_symbols(${target})
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${target} PRIVATE ${sonimbra_include_folders})
  target_link_libraries(${target} PRIVATE ${sonimbra_libraries})
  target_compile_definitions(${target} PRIVATE SONIMBRA_DUMB_ALONE=$<BOOL:${SONIMBRA_DUMB_ALONE}>)
endfunction()

sonimbra_add_objects(sonimbra_objects)
target_compile_definitions(sonimbra_objects PRIVATE SONIMBRA_BUILDING)
set(sonimbra_static_objects sonimbra_objects)
if(WIN32)
  # Export marks are part of the object code there, and an archive must not carry them into the
  # program that links it.
  sonimbra_add_objects(sonimbra_objects_static)
  target_compile_definitions(sonimbra_objects_static PRIVATE SONIMBRA_STATIC)
  set(sonimbra_static_objects sonimbra_objects_static)
endif()

function(sonimbra_set_usage target)
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${sonimbra_include_folders}>")
  target_compile_features(${target} INTERFACE cxx_std_17)
endfunction()

add_library(sonimbra SHARED $<TARGET_OBJECTS:sonimbra_objects>)
add_library(Sonimbra::Sonimbra ALIAS sonimbra)
sonimbra_configure_target(sonimbra)
sonimbra_set_usage(sonimbra)
set_target_properties(sonimbra PROPERTIES LINKER_LANGUAGE CXX EXPORT_NAME Sonimbra
                                          VERSION ${PROJECT_VERSION} SOVERSION 1)
target_link_libraries(sonimbra PRIVATE ${sonimbra_libraries})
if(WIN32)
  set_target_properties(sonimbra PROPERTIES PREFIX "") # sonimbra.dll with every compiler
  if(MINGW)
    target_link_options(sonimbra PRIVATE LINKER:--exclude-all-symbols) # only what is marked
  endif()
elseif(NOT SONIMBRA_SANITIZE)
  target_link_options(sonimbra PRIVATE LINKER:--no-undefined)
endif()

add_library(sonimbra_static STATIC $<TARGET_OBJECTS:${sonimbra_static_objects}>)
add_library(Sonimbra::Static ALIAS sonimbra_static)
sonimbra_set_usage(sonimbra_static)
set_target_properties(sonimbra_static PROPERTIES LINKER_LANGUAGE CXX EXPORT_NAME Static)
target_compile_definitions(sonimbra_static INTERFACE SONIMBRA_STATIC)
target_link_libraries(sonimbra_static PUBLIC ${sonimbra_libraries})

if(SONIMBRA_INSTALL)
  include(SonimbraInstall)
endif()

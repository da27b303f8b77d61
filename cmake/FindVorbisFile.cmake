# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Finds vorbisfile with the libraries beneath it: target VorbisFile::VorbisFile, VorbisFile_FOUND.

find_path(VORBISFILE_INCLUDE_DIR vorbis/vorbisfile.h)
find_path(OGG_INCLUDE_DIR ogg/ogg.h)
find_library(VORBISFILE_LIBRARY vorbisfile)
find_library(VORBIS_LIBRARY vorbis)
find_library(OGG_LIBRARY ogg)
mark_as_advanced(VORBISFILE_INCLUDE_DIR OGG_INCLUDE_DIR VORBISFILE_LIBRARY VORBIS_LIBRARY
                 OGG_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(
  VorbisFile
  REQUIRED_VARS VORBISFILE_LIBRARY VORBIS_LIBRARY OGG_LIBRARY VORBISFILE_INCLUDE_DIR
                OGG_INCLUDE_DIR
  REASON_FAILURE_MESSAGE
    "On Debian install libogg-dev and libvorbis-dev. For a Windows cross build run scripts/deps-windows.")

if(VorbisFile_FOUND AND NOT TARGET VorbisFile::VorbisFile)
  add_library(VorbisFile::VorbisFile UNKNOWN IMPORTED)
  set_target_properties(
    VorbisFile::VorbisFile
    PROPERTIES IMPORTED_LOCATION "${VORBISFILE_LIBRARY}"
               INTERFACE_INCLUDE_DIRECTORIES "${VORBISFILE_INCLUDE_DIR};${OGG_INCLUDE_DIR}"
               INTERFACE_LINK_LIBRARIES "${VORBIS_LIBRARY};${OGG_LIBRARY}")
endif()

# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib

# Install rules, and the package behind find_package(Sonimbra).

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Sonimbra")

install(FILES ${sonimbra_public_headers} ${sonimbra_flat_headers}
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/sonimbra")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/sonimbra")

# The static archive has its own export file: it needs the libraries beneath it where it is used,
# the shared library does not.
install(TARGETS sonimbra EXPORT SonimbraTargets
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT SonimbraTargets NAMESPACE Sonimbra:: DESTINATION "${package_dir}")
install(TARGETS sonimbra_static EXPORT SonimbraStaticTargets
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT SonimbraStaticTargets NAMESPACE Sonimbra:: DESTINATION "${package_dir}")

configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/SonimbraConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/SonimbraConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/SonimbraConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/SonimbraConfig.cmake"
              "${PROJECT_BINARY_DIR}/SonimbraConfigVersion.cmake"
              "${CMAKE_CURRENT_LIST_DIR}/FindDUMB.cmake"
              "${CMAKE_CURRENT_LIST_DIR}/FindLibUUID.cmake"
              "${CMAKE_CURRENT_LIST_DIR}/FindVorbisFile.cmake"
        DESTINATION "${package_dir}")

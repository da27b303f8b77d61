# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
# shellcheck shell=bash
#
# Recordings and modules that people made, from Debian packages, for demonstration and tests. Source
# common.sh first.

real_files_folder=build/real-files
real_files_packages="alsa-utils sound-theme-freedesktop gltron open-invaders-data njam-data biniax2-data"

# download_packages PACKAGE...: fetches the archives into the current folder, installs nothing.
download_packages() { apt-get -qq -o APT::Sandbox::User= download "$@" >/dev/null; }

# Fetches and unpacks them once.
fetch_real_files() {
    [ "$(cat "$real_files_folder/ready" 2>/dev/null)" = "$real_files_packages" ] && return 0
    say "Fetching recordings and modules ($real_files_packages)"
    rm -rf "$real_files_folder"
    mkdir -p "$real_files_folder/packages"
    (
        cd "$real_files_folder/packages"
        # shellcheck disable=SC2086
        download_packages $real_files_packages 2>/dev/null || {
            refresh_package_lists
            download_packages $real_files_packages
        }
    )
    local package
    for package in "$real_files_folder"/packages/*.deb; do
        dpkg -x "$package" "$real_files_folder"
    done
    say "$real_files_packages" >"$real_files_folder/ready"
}

# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
# shellcheck shell=bash disable=SC2034
#
# Shared by the scripts. Source it; it changes into the repository root.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$root" || exit 1

say() { printf '%s\n' "$*"; }
warn() { printf '%s\n' "$*" >&2; }
die() {
    warn "error: $*"
    exit 1
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "installing packages needs root rights or sudo: $*"
    fi
}

missing_packages() {
    local package
    for package in "$@"; do
        if ! dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null |
            grep -qx installed; then
            printf '%s\n' "$package"
        fi
    done
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 \
        install -y --no-install-recommends "$@" >/dev/null
}

# Installs those of the Debian packages that are not there. The package lists are fetched once per
# run, and only when something is missing.
require_packages() {
    local missing
    command -v dpkg-query >/dev/null || die "this needs Debian's packages: $*"
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -eq 0 ] && return 0
    say "Installing ${missing[*]}"
    refresh_package_lists
    apt_install "${missing[@]}"
}

refresh_package_lists() {
    [ -n "${package_lists_fresh:-}" ] && return 0
    as_root apt-get -qq -o DPkg::Lock::Timeout=600 update
    package_lists_fresh=1
}

# Packages behind the presets.
packages_build="cmake ninja-build"
packages_linux="$packages_build g++ libdumb1-dev libogg-dev libvorbis-dev libasound2-dev uuid-dev libcli11-dev"
packages_clang="$packages_linux clang-14 libclang-rt-14-dev llvm-14"
packages_windows="$packages_build libcli11-dev g++-mingw-w64-x86-64-posix"
packages_windows_x86="$packages_build libcli11-dev g++-mingw-w64-i686-posix"
packages_tests="googletest"
packages_examples="libzip-dev"
packages_wine="wine wine64"
packages_managed="mono-mcs mono-runtime nunit-console libnunit-cil-dev"
packages_sound="pulseaudio pulseaudio-utils libasound2-plugins"

jobs=${SONIMBRA_JOBS:-$(nproc)}

# configure_and_build PRESET FOLDER [CMAKE_OPTION...] -- [TARGET...]
# Goes on after an error, so that one run shows all of them.
configure_and_build() {
    local preset=$1 folder=$2 options=()
    shift 2
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        options+=("$1")
        shift
    done
    [ $# -gt 0 ] && shift
    cmake --preset "$preset" -B "$folder" "${options[@]}" &&
        cmake --build "$folder" --parallel "$jobs" ${1:+--target "$@"} -- -k 0
}

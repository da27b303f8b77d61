# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
# shellcheck shell=bash disable=SC2034,SC2154
#
# Building the decoder libraries from their sources, which come from Debian by the machine's own apt
# set-up. Source common.sh first.

recipe=2 # raise it when what is built changes: older results are then built again
packages_sources=(dpkg-dev cmake ninja-build)
sources="$root/build/deps/src"

# A private copy of the machine's apt sources with source entries, and private state beside it: the
# system's configuration stays as it is.
write_source_entries() {
    local parts=$1/sources.list.d file name
    rm -rf "$parts"
    mkdir -p "$parts"
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -f "$file" ] || continue
        name=$(basename "$file" .list)
        sed -n 's/^[[:space:]]*deb[[:space:]]/deb-src /p' "$file" >"$parts/$name.list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -f "$file" ] || continue
        sed 's/^Types:.*/Types: deb-src/' "$file" >"$parts/$(basename "$file")"
    done
}

# download_source PACKAGE...: leaves the packages' archives in $sources.
download_source() {
    local package apt="$root/build/deps/apt"
    mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
    write_source_entries "$apt"
    local options=(
        -qq
        -o "Dir::Etc::sourcelist=$apt/none" -o "Dir::Etc::sourceparts=$apt/sources.list.d"
        -o "Dir::State::lists=$apt/lists" -o "Dir::Cache=$apt/cache"
        -o APT::Sandbox::User= -o Acquire::Retries=3
    )
    : >"$apt/none"
    # Failures on the way (a list without source packages, a packaging archive that the mirror does
    # not have) are no reason to stop: what counts is the upstream archive.
    {
        apt-get "${options[@]}" update || true
        for package in "$@"; do
            (cd "$sources" && apt-get "${options[@]}" source --download-only "$package") || true
        done
    } >"$apt/log" 2>&1
}

# The upstream archive is enough; the packaging archive beside it is not used.
source_archive() { find "$sources" -maxdepth 1 -name "$1_*.orig.tar.*" ! -name '*.asc' -print -quit; }

fetch_sources() {
    local package missing=()
    for package in libdumb libogg libvorbis; do
        [ -n "$(source_archive "$package")" ] || missing+=("$package")
    done
    [ "${#missing[@]}" -eq 0 ] && return 0
    download_source "${missing[@]}"
    for package in "${missing[@]}"; do
        [ -n "$(source_archive "$package")" ] && continue
        cat build/deps/apt/log >&2
        die "the source of $package could not be fetched"
    done
}

# unpack_source PACKAGE: a new folder with the package's source; prints its path.
unpack_source() {
    local work
    work=$(mktemp -d "$root/build/deps/$1.XXXXXX")
    tar -xf "$(source_archive "$1")" -C "$work" --strip-components=1
    printf '%s\n' "$work"
}

# An IT instrument's envelope has room for 25 nodes, and the reader believes whatever count the file
# states. The same file is refused by the library that Debian ships.
bound_envelope_nodes() {
    local file=$1/src/it/itread.c
    local line='envelope->n_nodes = dumbfile_getc(f);'
    [ "$(grep -cF "$line" "$file")" = 1 ] ||
        die "libdumb's source is not the one that the bound on envelope nodes was written for"
    sed -i "s/^\t$line\$/&\n\tif (envelope->n_nodes > 25) {\n\t\tenvelope->n_nodes = 0;\n\t\treturn -1;\n\t}/" "$file"
    grep -qF 'if (envelope->n_nodes > 25) {' "$file" || die "libdumb: the bound was not applied"
}

# build_dumb TARGET COMPILER ARCHIVER FLAG...
build_dumb() {
    local target=$1 compiler=$2 archiver=$3 work source
    shift 3
    work=$(unpack_source libdumb)
    bound_envelope_nodes "$work"
    mkdir "$work/objects"
    for source in "$work"/src/core/*.c "$work"/src/helpers/*.c "$work"/src/it/*.c; do
        "$compiler" "$@" -w -I"$work/include" -c "$source" \
            -o "$work/objects/$(basename "$(dirname "$source")")_$(basename "$source" .c).o"
    done
    "$archiver" rcs "$target/lib/libdumb.a" "$work"/objects/*.o
    cp "$work/include/dumb.h" "$target/include/"
    rm -rf "$work"
}

# build_with_cmake PACKAGE TARGET OPTION...: static, by the package's own CMake files.
build_with_cmake() {
    local package=$1 target=$2 work
    shift 2
    work=$(unpack_source "$package")
    {
        cmake -G Ninja -S "$work" -B "$work/objects" -Wno-dev -DCMAKE_BUILD_TYPE=Release \
            -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF -DINSTALL_DOCS=OFF \
            -DCMAKE_INSTALL_PREFIX="$target" -DCMAKE_INSTALL_LIBDIR=lib \
            -DCMAKE_PREFIX_PATH="$target" "$@" &&
            cmake --build "$work/objects" --parallel "$jobs" &&
            cmake --install "$work/objects"
    } >"$target/$package.log" 2>&1 || {
        cat "$target/$package.log" >&2
        die "$package could not be built"
    }
    rm -rf "$work"
}

is_current() { [ "$(cat "$1/stamp" 2>/dev/null)" = "$recipe" ]; }
mark_current() { printf '%s\n' "$recipe" >"$1/stamp"; }

start_target() {
    rm -rf "$1"
    mkdir -p "$1/lib" "$1/include"
}

mkdir -p "$sources"
# Two runs at a time would build into the same folder.
exec 8>build/deps/lock
flock 8

# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
# shellcheck shell=bash
#
# A private Wine prefix below build/. Source common.sh first, or set `root`.

export WINEPREFIX="${SONIMBRA_WINEPREFIX:-$root/build/wine}"
export WINEARCH=win64
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml,winemenubuilder.exe,winedbg.exe=}"

# Creates the prefix once. Without a graphics driver hidden windows work on a machine that has no
# display. The stamp is written last, so an interrupted start is done again.
prepare_wine() {
    [ -e "$WINEPREFIX/.sonimbra-ready" ] && return 0
    command -v wine >/dev/null || die "wine is missing: install the Debian packages wine and wine64"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    if ! wineboot --init >"$WINEPREFIX/.log" 2>&1 ||
        ! wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f \
            >>"$WINEPREFIX/.log" 2>&1; then
        cat "$WINEPREFIX/.log" >&2
        die "the Wine prefix could not be created"
    fi
    wineserver -w
    touch "$WINEPREFIX/.sonimbra-ready"
}

# Keeps Wine's own processes running until stop_wine. Otherwise every program starts them anew, and
# whoever reads the program's output waits for them to end, because they inherit it.
start_wine() {
    prepare_wine
    ${SONIMBRA_REALTIME:-} wineserver -p >/dev/null 2>&1 </dev/null
    ${SONIMBRA_REALTIME:-} wine cmd /c exit >/dev/null 2>&1 </dev/null
}

# Ends what still runs in the private prefix.
stop_wine() {
    if [ -e "$WINEPREFIX/.sonimbra-ready" ]; then
        wineserver -k 2>/dev/null || true
    fi
}

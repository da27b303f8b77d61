# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
# shellcheck shell=bash
#
# A private sound server with a null sink `nul`; what is played can be recorded from `nul.monitor`.
# Source common.sh first.

sound_runtime_dir=

# Starts a command that has to keep up with the sound. Exported too: the tests that listen start
# their programs by it. Empty where the system does not allow it.
SONIMBRA_REALTIME=
if chrt --rr 5 true 2>/dev/null; then
    SONIMBRA_REALTIME="chrt --rr 5"
fi
export SONIMBRA_REALTIME

sound_server_reachable() { command -v pactl >/dev/null && timeout 10 pactl info >/dev/null 2>&1; }

# Starts the server and points this shell's environment at it.
start_sound_server() {
    # A short path: the name of a socket is limited to about 100 characters.
    sound_runtime_dir=$(mktemp -d /tmp/snd.XXXXXX)
    unset PULSE_SERVER PULSE_SINK PULSE_SOURCE
    export XDG_RUNTIME_DIR="$sound_runtime_dir"
    export PULSE_COOKIE="$sound_runtime_dir/cookie"
    local log="$sound_runtime_dir/log"
    # shellcheck disable=SC2086
    if ! PULSE_STATE_PATH="$sound_runtime_dir/state" $SONIMBRA_REALTIME pulseaudio -D --exit-idle-time=-1 -n \
        -L module-native-protocol-unix -L "module-null-sink sink_name=nul" >"$log" 2>&1 ||
        ! sound_server_reachable; then
        cat "$log" >&2
        stop_sound_server
        die "the sound server did not start"
    fi
}

stop_sound_server() {
    [ -n "$sound_runtime_dir" ] || return 0
    local pid
    if pid=$(cat "$sound_runtime_dir/pulse/pid" 2>/dev/null) && kill "$pid" 2>/dev/null; then
        # It removes this file as the last thing.
        for _ in {1..30}; do
            [ -e "$sound_runtime_dir/pulse/pid" ] || break
            sleep 0.1
        done
    fi
    rm -rf "$sound_runtime_dir"
    sound_runtime_dir=
}

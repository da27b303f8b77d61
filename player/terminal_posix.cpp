// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/terminal.h"

#include <atomic>
#include <csignal>

#include <sys/ioctl.h>
#include <unistd.h>

namespace player::terminal {
namespace {

std::atomic<bool> g_stopRequested{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler stores it");

void onSignal(int) {
    g_stopRequested = true;
}

} // namespace

void prepare() {
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART; // a write to the output file goes on
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
    }
}

std::vector<std::string> arguments(int argc, char** argv) {
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool outputIsTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

int columns() {
    winsize size = {};
    const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : 80;
}

bool stopRequested() {
    return g_stopRequested;
}

std::FILE* openForWriting(const std::string& utf8Name) {
    return std::fopen(utf8Name.c_str(), "wb");
}

} // namespace player::terminal

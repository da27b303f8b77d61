// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/status_line.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "player/terminal.h"
#include "player/text.h"

namespace player {
namespace {

/// The level gives way when less than this is left for the name.
constexpr int LEAST_NAME_COLUMNS = 12;

} // namespace

StatusLine::StatusLine(const Options& options)
    : Plain(!options.quiet && (options.verbose || !terminal::outputIsTerminal())),
      Live(!options.quiet && !Plain) {
}

void StatusLine::draw(const std::string& name, const std::string& times, const std::string& extra) {
    // The last column stays free: many terminals begin a new line when it is filled.
    const int columns = terminal::columns() - 1;
    const std::string all = "  " + times + extra;
    const bool tight = columns - columnsOf(all) < std::min(columnsOf(name), LEAST_NAME_COLUMNS);
    const std::string rest = tight ? "  " + times : all;
    const std::string line = fitted(fitted(name, columns - columnsOf(rest)) + rest, columns);
    const int blanks = std::max(0, DrawnColumns - columnsOf(line));
    DrawnColumns = columnsOf(line);
    const std::string output = "\r" + line + std::string(static_cast<std::size_t>(blanks), ' ');
    std::fputs(output.c_str(), stdout);
    std::fflush(stdout);
}

void StatusLine::end() {
    printLine("");
    DrawnColumns = 0;
}

std::string levelText(std::int32_t peak) {
    const double decibels = peak > 0 ? 20.0 * std::log10(peak / 32768.0) : -100.0;
    const int cells = std::clamp(static_cast<int>(std::ceil(decibels / 5.0)) + 10, 0, 10);
    const std::string bar = std::string(static_cast<std::size_t>(cells), '#') +
                            std::string(static_cast<std::size_t>(10 - cells), '-');
    const std::string figure = peak > 0 ? decimal(decibels, 1, 5) + " dB" : "silent  ";
    return "  [" + bar + "] " + figure;
}

} // namespace player

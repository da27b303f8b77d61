// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "player/terminal.h"
#include "player/text.h"

namespace player {
namespace {

constexpr auto DRAW_INTERVAL = std::chrono::milliseconds(100);
/// The level gives way when less than this is left for the name.
constexpr int LEAST_NAME_COLUMNS = 12;

std::string lengthText(std::int32_t milliseconds) {
    return milliseconds < 0 ? "?" : clockText(static_cast<std::uint32_t>(milliseconds));
}

/// A bar of ten cells, five decibels each, and the figure.
std::string levelText(std::int32_t peak) {
    const double decibels = peak > 0 ? 20.0 * std::log10(peak / 32768.0) : -100.0;
    const int cells = std::clamp(static_cast<int>(std::ceil(decibels / 5.0)) + 10, 0, 10);
    const std::string bar = std::string(static_cast<std::size_t>(cells), '#') +
                            std::string(static_cast<std::size_t>(10 - cells), '-');
    const std::string figure = peak > 0 ? decimal(decibels, 1, 5) + " dB" : "silent  ";
    return "  [" + bar + "] " + figure;
}

std::string batchName(const Batch& batch) {
    const std::string first = shownName(batch.files().front());
    const std::size_t others = batch.files().size() - 1;
    return others == 0 ? first : first + " + " + std::to_string(others);
}

} // namespace

Progress::Progress(const Options& options, std::string verb)
    : Plain(!options.quiet && (options.verbose || !terminal::outputIsTerminal())),
      Live(!options.quiet && !Plain),
      Verb(std::move(verb)) {
}

void Progress::begin(const Batch& batch) {
    NextDraw = {};
    Peak.reset();
    for (std::size_t i = 0; Plain && i < batch.files().size(); ++i) {
        printLine(Verb + " " + printable(batch.files()[i]) + " (" +
                  lengthText(batch.lengthMilliseconds(i)) + ")");
    }
}

void Progress::update(Batch& batch, std::optional<std::int32_t> peak) {
    const auto time = std::chrono::steady_clock::now();
    Peak = std::max(Peak, peak);
    if (!Live || time < NextDraw) {
        return;
    }
    draw(batchName(batch),
         clockText(batch.positionMilliseconds()) + " / " + lengthText(batch.lengthMilliseconds()),
         Peak ? levelText(*Peak) : "");
    NextDraw = time + DRAW_INTERVAL;
    Peak.reset();
}

void Progress::end(Batch& batch, bool stopped) {
    for (std::size_t i = 0; Plain && i < batch.files().size(); ++i) {
        printLine((stopped ? "Stopped " : "Finished ") + printable(batch.files()[i]));
    }
    if (Live) {
        const std::string length = lengthText(batch.lengthMilliseconds());
        const std::string time = stopped ? clockText(batch.positionMilliseconds()) : length;
        draw(batchName(batch), time + " / " + length, stopped ? "  stopped" : "");
        printLine("");
        DrawnColumns = 0;
    }
}

void Progress::draw(const std::string& name, const std::string& times, const std::string& extra) {
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

} // namespace player

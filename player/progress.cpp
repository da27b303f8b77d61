// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/progress.h"

#include <algorithm>

#include "player/text.h"

namespace player {
namespace {

constexpr auto DRAW_INTERVAL = std::chrono::milliseconds(100);

std::string lengthText(std::int32_t milliseconds) {
    return milliseconds < 0 ? "?" : clockText(static_cast<std::uint32_t>(milliseconds));
}

std::string batchName(const Batch& batch) {
    const std::string first = shownName(batch.files().front());
    const std::size_t others = batch.files().size() - 1;
    return others == 0 ? first : first + " + " + std::to_string(others);
}

} // namespace

Progress::Progress(const Options& options, std::string verb)
    : Line(options), Verb(std::move(verb)) {
}

void Progress::begin(const Batch& batch) {
    NextDraw = {};
    Peak.reset();
    for (std::size_t i = 0; Line.isPlain() && i < batch.files().size(); ++i) {
        printLine(Verb + " " + printable(batch.files()[i]) + " (" +
                  lengthText(batch.lengthMilliseconds(i)) + ")");
    }
}

void Progress::update(Batch& batch, std::optional<std::int32_t> peak) {
    const auto time = std::chrono::steady_clock::now();
    Peak = std::max(Peak, peak);
    if (!Line.isLive() || time < NextDraw) {
        return;
    }
    Line.draw(batchName(batch),
              clockText(batch.positionMilliseconds()) + " / " +
                  lengthText(batch.lengthMilliseconds()),
              Peak ? levelText(*Peak) : "");
    NextDraw = time + DRAW_INTERVAL;
    Peak.reset();
}

void Progress::end(Batch& batch, bool stopped) {
    for (std::size_t i = 0; Line.isPlain() && i < batch.files().size(); ++i) {
        printLine((stopped ? "Stopped " : "Finished ") + printable(batch.files()[i]));
    }
    if (Line.isLive()) {
        const std::string length = lengthText(batch.lengthMilliseconds());
        const std::string time = stopped ? clockText(batch.positionMilliseconds()) : length;
        Line.draw(batchName(batch), time + " / " + length, stopped ? "  stopped" : "");
        Line.end();
    }
}

} // namespace player

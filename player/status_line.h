// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <string>

#include "player/options.h"

namespace player {

/// How the user is told what happens. Plain: by whole lines. Live: by one line of the terminal that
/// is rewritten in place. Neither with --quiet.
class StatusLine {
public:
    explicit StatusLine(const Options& options);

    bool isPlain() const { return Plain; }
    bool isLive() const { return Live; }

    /// Rewrites the line. In a narrow terminal the extra text gives way first, then the name's
    /// beginning.
    void draw(const std::string& name, const std::string& times, const std::string& extra);

    /// Leaves the line as it is and goes to the next.
    void end();

private:
    bool Plain;
    bool Live;
    int DrawnColumns = 0;
};

/// A peak of 0..32768 as a bar of ten cells, five decibels each, and the figure.
std::string levelText(std::int32_t peak);

} // namespace player

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "player/batch.h"
#include "player/status_line.h"

namespace player {

/// Tells the user what plays. On a terminal: one line that is rewritten in place. Elsewhere: a line
/// for each file at its start and one at its end.
class Progress {
public:
    /// The verb begins the plain lines: "Playing", "Rendering".
    Progress(const Options& options, std::string verb);

    void begin(const Batch& batch);

    /// Shows position and level (0..32768); cheap when it is called often. Without a level none is
    /// shown.
    void update(Batch& batch, std::optional<std::int32_t> peak);

    /// Ends the line. stopped: by the user or by --seconds, before the sound's own end.
    void end(Batch& batch, bool stopped);

private:
    StatusLine Line;
    std::string Verb;
    std::optional<std::int32_t> Peak; ///< the largest since the line was drawn
    std::chrono::steady_clock::time_point NextDraw;
};

} // namespace player

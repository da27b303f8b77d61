// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <string>
#include <vector>

#include "player/counted.h"
#include "player/options.h"

namespace player {

/// The sounds that play at the same time: one file, or all of them with --together. Belongs to one
/// thread; the engine must outlive it.
class Batch {
public:
    /// Opens the files, paused at their start position. Prints an error for each that fails.
    Batch(sonimbra::ISoundEngine& engine, const Options& options,
          const std::vector<std::string>& files);
    /// Stops what still plays and forgets the files.
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    /// The files that could be opened.
    const std::vector<std::string>& files() const { return Files; }
    bool hasFailures() const { return Failed; }

    /// Starts all sounds in the same moment.
    void start();
    bool isFinished() const;

    /// Moves the sounds to their places on the orbit, a time in seconds after the start. Does
    /// nothing without --orbit.
    void moveTo(double seconds);

    /// Where the sound is that got furthest, in milliseconds; the last known value at the end.
    std::uint32_t positionMilliseconds();

    /// Length of the longest sound in milliseconds; -1 when it is not known.
    std::int32_t lengthMilliseconds() const;
    /// Length of one of the files().
    std::int32_t lengthMilliseconds(std::size_t index) const { return Lengths[index]; }

private:
    void add(const std::string& file);
    sonimbra::ISoundSource* registered(const std::string& file);
    std::string refusedEffect(sonimbra::ISound& sound) const;
    Counted<sonimbra::ISound> opened(sonimbra::ISoundSource* source);

    sonimbra::ISoundEngine& Engine;
    const Options& Settings;
    std::vector<std::string> Files;
    std::vector<Counted<sonimbra::ISound>> Sounds; ///< parallel to Files
    std::vector<std::int32_t> Lengths;             ///< parallel to Files, in milliseconds
    std::uint32_t LastPosition = 0;
    bool Failed = false;
};

/// How the files are grouped: each on its own, or all together.
std::vector<std::vector<std::string>> groups(const Options& options);

} // namespace player

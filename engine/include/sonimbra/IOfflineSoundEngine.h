// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/ISoundEngine.h>

namespace sonimbra {

/// A software-mixing engine without a device, for tests, tools, servers and rendering: the
/// application pulls the output as fast as it likes, bit for bit the same on every run. Always
/// single-threaded. Made by createSonimbraOfflineDevice; driver name "Offline".
class IOfflineSoundEngine : public virtual ISoundEngine {
public:
    /// Renders frameCount frames of 44100 Hz interleaved signed 16-bit stereo into target (two
    /// samples a frame). Returns the frames written: frameCount, or 0 for a null target or a count
    /// below 1.
    ///
    /// The engine works in buffers of 256 frames: for each it updates the sounds, mixes, and
    /// delivers stop events. Frames that a call does not take out of the last buffer come first in
    /// the next call, so the output does not depend on how it is cut into calls.
    virtual std::int32_t renderFrames(std::int16_t* target, std::int32_t frameCount) = 0;
};

} // namespace sonimbra

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/mixer_pair.h"

#include <map>
#include <mutex>

#include <alsa/asoundlib.h>

namespace sn_test {

using Answers = std::map<std::string, std::vector<long>>;

/// The PCM behind the functions of ALSA that this program defines. It takes what it is given into
/// its buffer, or is read from. A test may have it play, once its start is reached, or capture.
struct SScriptedPCM {
    std::string journal; ///< "call " or "call:argument " for each call
    Answers answers;     ///< the next results of calls; without one a call works
    long bufferFrames = 8192;
    long queuedFrames = 0;
    snd_pcm_uframes_t startFrames = 0;
    bool isRunning = false;
    Frames16 played;
    snd_pcm_stream_t stream = SND_PCM_STREAM_PLAYBACK;
    Frames16 captured;              ///< and not read yet
    bool isAlwaysWaking = false;    ///< also when nothing was captured
    std::size_t endlessSamples = 0; ///< captured anew whenever the frames are asked for

    void play(long frameCount);
    int clear();
    /// Without a wake it is there to be found.
    void capture(const Frames16& frames, bool isWaking = true);
};

extern SScriptedPCM Device;
extern std::recursive_mutex DeviceMutex; ///< for tests that have a capture thread

} // namespace sn_test

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/mixer_pair.h"

#include <map>
#include <string>

#include <alsa/asoundlib.h>

namespace sn_test {

using Answers = std::map<std::string, std::vector<long>>;

/// The PCM behind the functions of ALSA that the program defines. It takes what it is given into
/// its buffer; a test may have it play, once its start is reached. Or a test has it capture.
struct SScriptedPCM {
    snd_pcm_stream_t stream = SND_PCM_STREAM_PLAYBACK;
    std::string journal; ///< "call " or "call:argument " for each call
    Answers answers;     ///< the next results of calls; without one a call works
    long bufferFrames = 8192;
    long queuedFrames = 0;
    snd_pcm_uframes_t startFrames = 0;
    bool isRunning = false;
    Frames16 played;
    Bytes captured;              ///< that were not read yet
    bool isAlwaysWaking = false; ///< wakes who waits although nothing was captured
    unsigned sampleSize = 1;     ///< as set up last
    unsigned channelCount = 1;   ///< the same

    void play(long frameCount);
    int clear();
    long frameSize() const { return static_cast<long>(sampleSize * channelCount); }
};

extern SScriptedPCM Device;

/// While a capture thread uses the device. What was captured may also not be notified of.
std::string takeJournal();
void setAnswers(const Answers& answers);
void capture(const Bytes& bytes, bool notifies = true);

} // namespace sn_test

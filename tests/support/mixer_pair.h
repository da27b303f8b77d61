// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/mixer_reference.h"

#include <gtest/gtest.h>

#include <deque>

namespace sn_test {

/// Interleaved frames against what they should be; tells the first frame that differs.
testing::AssertionResult areSameFrames(const Frames16& actual, const Frames16& expected);

/// An offline engine and the plain computation side by side: whatever is done to one is done to the
/// other, and both have to render the same.
class CMixerPair {
public:
    explicit CMixerPair(int options = 0);

    /// Sounds are numbered from 0.
    void play(const SRecording& recording, bool looped, const sonimbra::vec3df* position = nullptr);

    /// Calls change(sound) for the sound and for its twin.
    template <class F>
    void change(std::size_t sound, F&& change) {
        change(*Sounds[sound].get());
        change(Voices[sound]);
    }
    void placeListener(const sonimbra::vec3df& position, const sonimbra::vec3df& look,
                       const sonimbra::vec3df& up);
    void setSoundVolume(float volume);

    /// Renders both and compares samples, play positions and ends.
    testing::AssertionResult rendersAlike(std::int32_t frames);

private:
    Frames16 expectedFrames(std::int32_t frames);

    const OfflineEngine Engine;
    SReferenceListener Listener;
    std::vector<Sound> Sounds;
    std::deque<CReferenceVoice> Voices;
    Frames16 Expected; ///< of a buffer that was not yet asked for
};

} // namespace sn_test

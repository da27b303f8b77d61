// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/mixer_pair.h"

#include <algorithm>

namespace sn_test {

using sonimbra::vec3df;

testing::AssertionResult areSameFrames(const Frames16& actual, const Frames16& expected) {
    const auto differing =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    const auto index = differing.first - actual.begin();
    if (differing.first != actual.end() && differing.second != expected.end()) {
        return testing::AssertionFailure()
               << "frame " << index / 2 << (index % 2 == 0 ? ", left: " : ", right: ")
               << *differing.first << " instead of " << *differing.second;
    }
    return (actual.size() == expected.size() ? testing::AssertionSuccess()
                                             : testing::AssertionFailure())
           << actual.size() / 2 << " frames instead of " << expected.size() / 2;
}

CMixerPair::CMixerPair(int options) : Engine(offlineEngine(options)) {
    Listener.linearRolloff = (options & sonimbra::LinearRolloff) != 0;
}

void CMixerPair::play(const SRecording& recording, bool looped, const vec3df* position) {
    Voices.emplace_back(recording, looped, position);
    Sounds.push_back(playRecording(*Engine.get(), recording, looped, position));
}

void CMixerPair::placeListener(const vec3df& position, const vec3df& look, const vec3df& up) {
    Listener.position = position;
    Listener.look = look;
    Listener.up = up;
    Engine->setListenerPosition(position, look, vec3df(), up);
}

void CMixerPair::setSoundVolume(float volume) {
    Listener.volume = volume;
    Engine->setSoundVolume(volume);
}

testing::AssertionResult CMixerPair::rendersAlike(std::int32_t frames) {
    testing::AssertionResult result =
        areSameFrames(rendered(*Engine.get(), frames), expectedFrames(frames));
    for (std::size_t i = 0; result && i < Sounds.size(); ++i) {
        const std::uint32_t position = Sounds[i]->getPlayPosition();
        if (position != Voices[i].getPlayPosition() ||
            Sounds[i]->isFinished() != Voices[i].isFinished()) {
            result = testing::AssertionFailure()
                     << "sound " << i << " is at " << position << " ms instead of "
                     << Voices[i].getPlayPosition() << " ms";
        }
    }
    return result;
}

Frames16 CMixerPair::expectedFrames(std::int32_t frames) {
    while (Expected.size() < static_cast<std::size_t>(2 * frames)) {
        Frames16 scratch(512, 0);
        std::vector<std::int32_t> sum(512, 0);
        for (CReferenceVoice& voice : Voices) {
            voice.hear(Listener);
            voice.mix(scratch, sum);
        }
        for (const std::int32_t sample : sum) {
            Expected.push_back(static_cast<std::int16_t>(std::clamp(sample, -32768, 32767)));
        }
    }
    const auto end = Expected.begin() + 2 * frames;
    const Frames16 result(Expected.begin(), end);
    Expected.erase(Expected.begin(), end);
    return result;
}

} // namespace sn_test

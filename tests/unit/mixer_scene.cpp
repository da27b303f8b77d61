// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// The offline engine against the plain computation.

#include "tests/support/mixer_pair.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <vector>

namespace {

using namespace sn_test;
using sonimbra::vec3df;

const SRecording Shapes[] = {
    {1, 44100, 16, EStorage::Pcm},         {2, 44100, 16, EStorage::Pcm},
    {1, 8000, 8, EStorage::Pcm},           {2, 11025, 8, EStorage::DecodedWav},
    {2, 22050, 16, EStorage::StreamedWav}, {1, 48000, 16, EStorage::DecodedWav},
    {2, 48000, 8, EStorage::StreamedWav},  {1, 22050, 24, EStorage::StreamedWav},
    {2, 44100, 24, EStorage::DecodedWav},
};

/// From the beginning beyond the end, once and again, across the reads of a refill.
TEST(MixerScene, EveryKindOfSoundAtEverySpeed) {
    for (std::size_t kind = 0; kind < std::size(Shapes); ++kind) {
        for (const float speed : {0.3f, 1.0f, 1.7f, 5.0f}) {
            CMixerPair pair;
            pair.play(noise(Shapes[kind], 4503, 1), false);
            pair.play(noise(Shapes[kind], 2500, 2), true);
            for (const std::size_t sound : {0u, 1u}) {
                pair.change(sound, [speed](auto& s) { s.setPlaybackSpeed(speed); });
                pair.change(sound, [](auto& s) { s.setVolume(0.4f); });
            }
            EXPECT_TRUE(pair.rendersAlike(30000)) << "kind " << kind << ", speed " << speed;
        }
    }
}

/// Changes drawn from a generator; the same for the same seed on every system.
class CRandomScene {
public:
    CRandomScene(int options, std::uint32_t seed) : Pair(options), Random(seed) {}

    testing::AssertionResult run(int steps) {
        testing::AssertionResult result = testing::AssertionSuccess();
        for (int i = 0; result && i < steps; ++i) {
            step();
            result = Pair.rendersAlike(static_cast<std::int32_t>(draw(1000)));
        }
        return result;
    }

private:
    std::uint32_t draw(std::uint32_t limit) { return static_cast<std::uint32_t>(Random()) % limit; }
    float drawFloat(float low, float high) {
        return low + (high - low) * (static_cast<float>(draw(10001)) / 10000.0f);
    }
    vec3df drawVector() { return vec3df(drawFloat(-4, 4), drawFloat(-4, 4), drawFloat(-4, 4)); }

    void step() {
        if (IsSeekable.size() < 6 || (IsSeekable.size() < 24 && draw(4) == 0)) {
            start();
        }
        switch (draw(8)) {
        case 0:
            return Pair.setSoundVolume(drawFloat(0.0f, 1.5f));
        case 1:
            return Pair.placeListener(drawVector(), drawVector(), drawVector());
        default:
            return changeSound(draw(static_cast<std::uint32_t>(IsSeekable.size())), draw(9));
        }
    }

    void start() {
        const SRecording& kind = Shapes[draw(std::size(Shapes))];
        const auto frames = static_cast<std::int32_t>(draw(draw(2) == 0 ? 300 : 9000)) + 1;
        const SRecording recording = noise(kind, frames, draw(1000000));
        const vec3df position = drawVector();
        Pair.play(recording, draw(3) == 0, draw(2) == 0 ? &position : nullptr);
        IsSeekable.push_back(kind.bits != 24); // a streamed one lands at two thirds of the way
    }

    void changeSound(std::uint32_t sound, std::uint32_t what) {
        const float value = drawFloat(-0.3f, 3.0f);
        const vec3df position = drawVector();
        Pair.change(sound, [=, seekable = IsSeekable[sound]](auto& s) {
            switch (what) {
            case 0:
                return s.setVolume(value < 0.5f ? 0.0f : value);
            case 1:
                return s.setPan(value / 10.0f);
            case 2:
                return static_cast<void>(s.setPlaybackSpeed(value * 2.0f));
            case 3:
                return s.setIsPaused(value < 1.0f);
            case 4:
                return s.setIsLooped(value < 1.5f);
            case 5:
                return s.setPosition(position);
            case 6:
                return s.setMinDistance(value);
            case 7:
                return s.setMaxDistance(value * 3.0f);
            default:
                if (value > 2.8f) {
                    s.stop();
                } else if (seekable && !s.isFinished()) {
                    s.setPlayPosition(static_cast<std::uint32_t>(value * 100.0f + 30.0f));
                }
            }
        });
    }

    CMixerPair Pair;
    std::mt19937 Random;
    std::vector<bool> IsSeekable; ///< each sound
};

TEST(MixerScene, RandomChanges) {
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        for (const int options : {0, int(sonimbra::LinearRolloff)}) {
            EXPECT_TRUE(CRandomScene(options, seed).run(150)) << "seed " << seed;
        }
    }
}

} // namespace

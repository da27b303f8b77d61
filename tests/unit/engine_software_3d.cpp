// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_test;
using namespace sonimbra;

class Software3D : public testing::TestWithParam<bool> {
protected:
    ISoundEngine& engine() { return *Driver.get(); }
    CScriptedSound& heard() { return *Driver->sounds.back(); }

    ScriptedEngine Driver = scriptedEngine(GetParam() ? LinearRolloff : 0);
    ISoundSource* Wave = addSquareWave(engine(), "w", 100);
    Sound Played = Sound::adopt(engine().play3D(Wave, vec3df(), true, false, true));
};

/// Half turns from the look direction to the place, counterclockwise in the plane that the up
/// vector's longest component leaves: when equal, y is the longest, then x.
TEST_P(Software3D, PansByTheTurn) {
    const struct {
        vec3df up, look, place;
        float pan;
    } cases[] = {
        {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}, -0.5f},    {{0, -3, 0}, {0, 0, 1}, {-1, 0, 0}, 0.5f},
        {{0, 1, 0}, {0, 0, 1}, {0, 0, 5}, 0},        {{0, 1, 0}, {0, 0, 1}, {0, 0, -1}, -1},
        {{0, 1, 0}, {0, 0, 0}, {-3, 0, 0}, -1},      {{0, 1, 0}, {0, 0, 1}, {2, 9, 2}, -0.25f},
        {{0, 1, 0}, {0, 0, -1}, {-1, 0, 1}, -0.75f}, {{1, 1, 0}, {-1, 0, 0}, {1, 0, 0}, -1},
        {{0, 5, -5}, {0, 1, 0}, {1, 0, 0}, 0},       {{7, 0, 7}, {0, 1, 0}, {1, 0, 0}, 0},
        {{-2, 1, 1}, {0, 1, 0}, {0, 0, 1}, 0.5f},    {{1, 2, -2.1f}, {1, 0, 0}, {0, 1, 0}, 0.5f},
    };
    for (const auto& c : cases) {
        engine().setListenerPosition(vec3df(3, -5, 8), c.look, vec3df(9, 9, 9), c.up);
        Played->setPosition(vec3df(3, -5, 8) + c.place);
        engine().update();
        EXPECT_FLOAT_EQ(heard().bufferPan, c.pan) << &c - cases;
    }
}

TEST_P(Software3D, MultipliesTheVolumesFirst) {
    engine().setSoundVolume(0.5f);
    Played->setMinDistance(10);
    Played->setMaxDistance(110);
    Played->setVolume(0.5f);
    const struct {
        vec3df position;
        float inverse, linear;
    } cases[] = {{{3, 4, 0}, 0.25f, 0.25f},      // nearer than the minimum
                 {{0, 0, 10}, 0.25f, 0.25f},     // at the minimum
                 {{0, 12, 0}, 1.0f, 0.245f},     // inverse: 10 / 2, clamped
                 {{30, 0, 40}, 0.0625f, 0.15f},  // inverse: 10 / 40
                 {{0, 110, 0}, 0.025f, 0.0f},    // at the maximum
                 {{0, 0, 210}, 0.025f, -0.25f}}; // beyond it
    for (const auto& c : cases) {
        Played->setPosition(c.position);
        engine().update();
        EXPECT_FLOAT_EQ(heard().bufferVolume, GetParam() ? c.linear : c.inverse);
    }
    Played->setMaxDistance(10);
    engine().update();
    EXPECT_EQ(heard().bufferVolume, 1.0f) << "an empty range discards the volumes";
}

INSTANTIATE_TEST_SUITE_P(Rolloff, Software3D, testing::Bool(),
                         [](const auto& rolloff) { return rolloff.param ? "Linear" : "Inverse"; });

} // namespace

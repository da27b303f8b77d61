// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace {

using namespace sn_test;
using namespace sonimbra;

/// The two components that the up vector's longest one leaves; y before x before z when equal.
struct SPlane {
    vec3df up;
    float vec3df::*first;
    float vec3df::*second;
};

const SPlane Planes[] = {
    {{0, 1, 0}, &vec3df::X, &vec3df::Z},     {{0, -3, 0}, &vec3df::X, &vec3df::Z},
    {{1, 1, 0}, &vec3df::X, &vec3df::Z},     {{0, 5, -5}, &vec3df::X, &vec3df::Z},
    {{0, 0, 0}, &vec3df::X, &vec3df::Z},     {{-1, 2, 1.9f}, &vec3df::X, &vec3df::Z},
    {{1, 0, 0}, &vec3df::Y, &vec3df::Z},     {{-2, 1, 1}, &vec3df::Y, &vec3df::Z},
    {{7, 0, 7}, &vec3df::Y, &vec3df::Z},     {{0, 0, 1}, &vec3df::X, &vec3df::Y},
    {{1, 2, -2.1f}, &vec3df::X, &vec3df::Y},
};

/// Half turns from the look direction to the offset, counterclockwise in the plane, -1 to below 1.
double expectedPan(const SPlane& plane, const vec3df& look, const vec3df& offset) {
    const auto angle = [&](const vec3df& v) {
        // Zero in the second component: only the sign of the first one counts, and 0 is positive.
        return v.*plane.second == 0 ? (v.*plane.first >= 0 ? 0 : std::numbers::pi)
                                    : std::atan2(v.*plane.second, v.*plane.first);
    };
    const double halfTurns = (angle(offset) - angle(look)) / std::numbers::pi;
    return halfTurns - 2 * std::floor((halfTurns + 1) / 2);
}

/// -1 and 1 are the same direction.
double panDifference(double a, double b) {
    const double difference = std::fabs(a - b);
    return std::min(difference, std::fabs(2 - difference));
}

double expectedVolume(double volume, double distance, double minimum, double maximum, bool linear) {
    if (distance < minimum) {
        return volume;
    }
    if (maximum <= minimum) {
        return 1.0;
    }
    const double beyond = distance - minimum;
    const double extent = maximum - minimum;
    double factor = 1 - beyond / extent;
    if (!linear) {
        factor = beyond == 0 ? 1 : minimum / std::min(beyond, extent);
    }
    return std::min(volume * factor, 1.0);
}

class Software3D : public testing::TestWithParam<bool> {
protected:
    ISoundEngine& engine() { return *Driver.get(); }
    CScriptedSound& heard() { return *Driver->sounds.back(); }

    ScriptedEngine Driver = scriptedEngine(GetParam() ? LinearRolloff : 0);
    ISoundSource* Wave = addSquareWave(engine(), "w", 100);
    Sound Played = Sound::adopt(engine().play3D(Wave, vec3df(), true, false, true));
};

TEST_P(Software3D, PansByTheTurn) {
    const vec3df listener(3, -5, 8);
    std::vector<vec3df> directions;
    for (const float x : {-2.0f, 0.0f, 0.5f}) {
        for (const float y : {-1.0f, 0.0f, 3.0f}) {
            for (const float z : {-0.25f, 0.0f, 1.0f}) {
                directions.emplace_back(x, y, z);
            }
        }
    }
    for (const SPlane& plane : Planes) {
        for (const vec3df& look : directions) {
            for (const vec3df& offset : directions) {
                engine().setListenerPosition(listener, look, vec3df(9, 9, 9), plane.up);
                Played->setPosition(listener + offset);
                engine().update();
                const float pan = heard().bufferPan;
                ASSERT_LT(panDifference(pan, expectedPan(plane, look, offset)), 1e-5)
                    << pan << " instead of " << expectedPan(plane, look, offset);
                ASSERT_TRUE(pan >= -1 && pan < 1) << pan;
            }
        }
    }
}

TEST_P(Software3D, PansExactlyAlongTheAxes) {
    const struct {
        vec3df look, position;
        float pan;
    } cases[] = {
        {{0, 0, 1}, {1, 0, 0}, -0.5f}, {{0, 0, 1}, {-1, 0, 0}, 0.5f}, {{0, 0, 1}, {0, 0, 5}, 0},
        {{0, 0, 1}, {0, 0, -1}, -1},   {{1, 1, 0}, {0, 0, 2}, 0.5f},  {{1, 1, 0}, {0, 7, 0}, 0},
        {{0, 0, 0}, {-3, 0, 0}, -1},   {{0, 0, -1}, {2, 9, 0}, 0.5f},
    };
    for (const auto& c : cases) {
        engine().setListenerPosition(vec3df(), c.look);
        Played->setPosition(c.position);
        engine().update();
        EXPECT_EQ(heard().bufferPan, c.pan);
    }
}

TEST_P(Software3D, FadesWithTheDistance) {
    const bool linear = GetParam();
    std::minstd_rand random(3);
    for (const float minimum : {0.0f, 0.5f, 1.0f, 20.0f}) {
        for (const float maximum : {0.0f, 1.0f, 20.0f, 21.0f, 100.0f, 1e9f}) {
            for (const float volume : {1.0f, 0.25f, 3.0f, 0.0f, -1.0f}) {
                const float distances[] = {0,       minimum,     minimum + 0.125f,
                                           maximum, 2 * maximum, 1 + float(random() % 64)};
                for (const float distance : distances) {
                    Played->setMinDistance(minimum);
                    Played->setMaxDistance(maximum);
                    Played->setVolume(volume);
                    Played->setPosition(vec3df(0, -distance, 0));
                    engine().setListenerPosition(vec3df(), vec3df(0, 0, 1));
                    engine().update();
                    const double expected =
                        expectedVolume(volume, distance, minimum, maximum, linear);
                    EXPECT_NEAR(heard().bufferVolume, expected, 1e-6 * (1 + std::fabs(expected)))
                        << minimum << ", " << maximum << ", " << volume << " at " << distance;
                }
            }
        }
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

TEST_P(Software3D, LeavesSoundsWithoutPositionAlone) {
    const Sound flat = playTracked(engine(), Wave);
    flat->setVolume(3);
    flat->setPan(-0.75f);
    flat->setPosition(vec3df(1000, 0, 0));
    engine().setSoundVolume(0.5f);
    EXPECT_EQ(heard().bufferVolume, 1.5f) << "not clamped";
    EXPECT_EQ(heard().bufferPan, -0.75f);
    Played->setPan(0.75f);
    engine().setListenerPosition(vec3df(), vec3df(0, 0, 1));
    Played->setPosition(vec3df(0, 0, 1));
    engine().update();
    EXPECT_EQ(Driver->sounds.front()->bufferPan, 0.0f) << "3D sounds have no pan of their own";
}

INSTANTIATE_TEST_SUITE_P(Rolloff, Software3D, testing::Bool(),
                         [](const auto& rolloff) { return rolloff.param ? "Linear" : "Inverse"; });

} // namespace

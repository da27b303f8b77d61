// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include <sonimbra/vec3d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using sonimbra::vec3df;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

TEST(Vec3d, ComparesExactly) {
    EXPECT_EQ(vec3df(), vec3df(0, 0, 0));
    EXPECT_EQ(vec3df(0, 0, 0), vec3df(-0.0f, 0, 0));
    EXPECT_NE(vec3df(1, 2, 3), vec3df(std::nextafter(1.0f, 2.0f), 2, 3));
    EXPECT_NE(vec3df(1, 2, 3), vec3df(1, std::nextafter(2.0f, 0.0f), 3));
    EXPECT_NE(vec3df(1, 2, 3), vec3df(1, 2, std::nextafter(3.0f, 9.0f)));
    EXPECT_FALSE(vec3df(1, NaN, 3) == vec3df(1, NaN, 3));
}

TEST(Vec3d, CalculatesByComponent) {
    EXPECT_EQ(vec3df(1, 2, 3) + vec3df(10, 20, 40), vec3df(11, 22, 43));
    EXPECT_EQ(vec3df(1, 2, 3) - vec3df(10, 20, 40), vec3df(-9, -18, -37));
    EXPECT_EQ(vec3df(1, 2, 3) * 4.0f, vec3df(4, 8, 12));
    EXPECT_EQ(4.0f * vec3df(1, 2, 3), vec3df(4, 8, 12));
    EXPECT_EQ(vec3df(1, 2, 3) / 4.0f, vec3df(0.25f, 0.5f, 0.75f));
    const vec3df divided = vec3df(1, -1, 0) / 0.0f;
    EXPECT_EQ(divided.X, Infinity);
    EXPECT_EQ(divided.Y, -Infinity);
    EXPECT_TRUE(std::isnan(divided.Z));
    vec3df v;
    v.set(5, 6, 7);
    EXPECT_EQ(v, vec3df(5, 6, 7));
    v.set(vec3df(7, 6, 5));
    v.invert();
    EXPECT_EQ(v, vec3df(-7, -6, -5));
}

TEST(Vec3d, MeasuresInDoublePrecision) {
    EXPECT_EQ(vec3df(2, 3, 6).getLength(), 7.0);
    EXPECT_EQ(vec3df(2, 3, 6).getLengthSQ(), 49.0);
    // 10000001 squared has more digits than single precision.
    EXPECT_EQ(vec3df(10000001, 0, 0).getLengthSQ(), 100000020000001.0);
    EXPECT_EQ(vec3df(1e7f, 1, 1e7f).dotProduct(vec3df(1e7f, 1, -1e7f)), 1.0f);
    EXPECT_EQ(vec3df(0, 10000001, 10000000).crossProduct(vec3df(0, 10000002, 10000001)),
              vec3df(1, 0, 0));
    EXPECT_EQ(vec3df(1, 2, 3).crossProduct(vec3df(4, 5, 7)), vec3df(-1, 5, -3));
}

TEST(Vec3d, RoundsTheDifferencesOfASquaredDistanceOnly) {
    const vec3df far(16777216, 0, 0);
    const vec3df near(-1, 0, 0);
    EXPECT_EQ(far.getDistanceFrom(near), 16777217.0);
    EXPECT_EQ(far.getDistanceFromSQ(near), 16777216.0f * 16777216.0f);
    EXPECT_EQ(vec3df(1, 2, 3).getDistanceFrom(vec3df(3, 5, 9)), 7.0);
    EXPECT_EQ(vec3df(1, 2, 3).getDistanceFromSQ(vec3df(3, 5, 9)), 49.0f);
}

TEST(Vec3d, IsBetweenPointsThatAreFartherApart) {
    const vec3df begin(0, 0, 0);
    const vec3df end(10, 0, 0);
    const struct {
        vec3df point;
        bool between;
    } cases[] = {
        {{5, 0, 0}, true},   {{5, 8, 0}, true},    {{1, -1, 1}, true},  {{0, 0, 0}, false},
        {{10, 0, 0}, false}, {{-1, 0, 0}, false},  {{5, 9, 0}, false},  {{0, 10, 0}, false},
        {{0, 9, 0}, false},  {{NaN, 0, 0}, false}, {{11, 0, 0}, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.point.isBetweenPoints(begin, end), c.between)
            << c.point.X << ", " << c.point.Y << ", " << c.point.Z;
    }
    EXPECT_FALSE(begin.isBetweenPoints(begin, begin));
    EXPECT_FALSE(begin.isBetweenPoints(vec3df(NaN, 0, 0), end));
}

TEST(Vec3d, NormalizesInPlace) {
    vec3df v(0, 3, 4);
    const vec3df returned = v.normalize();
    EXPECT_EQ(returned, v);
    EXPECT_EQ(v, vec3df(0, 3 * 0.2f, 4 * 0.2f));
    // The reciprocal is rounded before it multiplies.
    vec3df rounded(41, 0, 0);
    EXPECT_EQ(rounded.normalize().X, std::nextafter(1.0f, 0.0f));
    vec3df zero;
    EXPECT_EQ(zero.normalize(), vec3df());
    zero.setLength(5);
    EXPECT_EQ(zero, vec3df());
    // In single precision this squared length would be infinite.
    vec3df huge(1e30f, 0, 0);
    huge.setLength(5);
    EXPECT_FLOAT_EQ(huge.X, 5);
}

TEST(Vec3d, InterpolatesFromTheOther) {
    const vec3df a(4, 8, -4);
    const vec3df b(0, 4, 4);
    EXPECT_EQ(a.getInterpolated(b, 0.25f), vec3df(1, 5, 2));
    EXPECT_EQ(a.getInterpolated(b, 1), a);
    EXPECT_EQ(a.getInterpolated(b, 0), b);
    EXPECT_EQ(a.getInterpolated(b, 2), vec3df(8, 12, -12));
}

} // namespace

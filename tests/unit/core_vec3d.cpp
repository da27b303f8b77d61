// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include <sonimbra/vec3d.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using sonimbra::vec3df;

TEST(Vec3d, MeasuresInDoublePrecision) {
    // 10000001 squared has more digits than single precision.
    EXPECT_EQ(vec3df(10000001, 0, 0).getLengthSQ(), 100000020000001.0);
    EXPECT_EQ(vec3df(1e7f, 1, 1e7f).dotProduct(vec3df(1e7f, 1, -1e7f)), 1.0f);
    EXPECT_EQ(vec3df(0, 10000001, 10000000).crossProduct(vec3df(0, 10000002, 10000001)),
              vec3df(1, 0, 0));
    EXPECT_EQ(vec3df(16777216, 0, 0).getDistanceFrom(vec3df(-1, 0, 0)), 16777217.0);
    EXPECT_EQ(vec3df(16777216, 0, 0).getDistanceFromSQ(vec3df(-1, 0, 0)), 0x1p48f);
}

TEST(Vec3d, NormalizesInPlace) {
    vec3df v(0, 3, 4);
    EXPECT_EQ(v.normalize(), vec3df(0, 3 * 0.2f, 4 * 0.2f));
    EXPECT_EQ(v, vec3df(0, 3 * 0.2f, 4 * 0.2f));
    // The reciprocal is rounded before it multiplies.
    EXPECT_EQ(vec3df(41, 0, 0).normalize().X, std::nextafter(1.0f, 0.0f));
    EXPECT_EQ(vec3df().normalize(), vec3df());
}

} // namespace

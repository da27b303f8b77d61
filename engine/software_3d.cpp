// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/software_3d.h"

#include <algorithm>
#include <cmath>

namespace sn_internal {

using sonimbra::vec3df;

namespace {

/// A vector in the plane in which directions are compared.
struct SPlaneVector {
    float x;
    float y;
};

/// Chooses the two components that lie across the up vector's longest one.
class CListenerPlane {
public:
    explicit CListenerPlane(vec3df up) {
        up.normalize();
        const float x = up.X * up.X;
        const float y = up.Y * up.Y;
        const float z = up.Z * up.Z;
        if (x <= y && z <= y) {
            Across = EAxis::Y;
        } else if (y <= x && z <= x) {
            Across = EAxis::X;
        }
    }

    SPlaneVector project(const vec3df& v) const {
        switch (Across) {
        case EAxis::X:
            return {v.Y, v.Z};
        case EAxis::Y:
            return {v.X, v.Z};
        default:
            return {v.X, v.Y};
        }
    }

private:
    enum class EAxis { X, Y, Z };
    EAxis Across = EAxis::Z;
};

/// t = atan(sqrt(1 - c^2) / c) in degrees, where c = y / sqrt(x^2 + y^2).
float arcOf(const SPlaneVector& v) {
    const float c = v.y / std::sqrt(v.x * v.x + v.y * v.y);
    const float sine = std::sqrt(std::max(0.0f, 1.0f - c * c)); // c may be rounded beyond 1
    return static_cast<float>(std::atan(sine / c) * 57.29577951308232);
}

float angleOf(const SPlaneVector& v) {
    if (v.y == 0.0f) {
        return v.x >= 0.0f ? 0.0f : 180.0f;
    }
    if (v.x == 0.0f) {
        return v.y > 0.0f ? 270.0f : 90.0f;
    }
    const float t = arcOf(v);
    if (v.x > 0.0f) {
        return v.y > 0.0f ? t + 270.0f : t + 90.0f;
    }
    return v.y > 0.0f ? 270.0f - t : 90.0f - t;
}

float wrapped(float degrees) {
    return std::fmod(std::fmod(degrees, 360.0f) + 360.0f, 360.0f);
}

float inverseFactor(float d, float minimum) {
    return d == 0.0f ? 1.0f : minimum / d;
}

} // namespace

float volumeAtDistance(float volume, double exactDistance, const SDistanceRange& range,
                       bool linearRolloff) {
    const auto distance = static_cast<float>(exactDistance);
    if (distance < range.minimum) {
        return volume;
    }
    const float d = distance - range.minimum;
    const float extent = range.maximum - range.minimum;
    if (!(extent > 0.0f)) {
        return 1.0f;
    }
    const float factor =
        linearRolloff ? 1.0f - d / extent : inverseFactor(std::min(d, extent), range.minimum);
    return std::min(volume * factor, 1.0f);
}

float panTowards(const vec3df& position, const vec3df& listenerPosition,
                 const vec3df& lookDirection, const vec3df& upVector) {
    const CListenerPlane plane(upVector);
    const float look = wrapped(angleOf(plane.project(lookDirection)));
    const float offset = wrapped(angleOf(plane.project(position - listenerPosition)));
    return (std::fmod((look - offset) + 1260.0f, 360.0f) - 180.0f) / 180.0f;
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/vec3d.h>

namespace sn_internal {

/// Distances, in the application's units, between which a 3D sound fades.
struct SDistanceRange {
    float minimum;
    float maximum;
};

/// The volume of a 3D sound at a distance. Nearer than the minimum it stays; from there on it falls
/// with minimum / (distance - minimum), at most down to the maximum distance, or in a straight line
/// that reaches 0 at the maximum and goes on below it. A range without extent gives exactly 1.0.
float volumeAtDistance(float volume, double distance, const SDistanceRange& range,
                       bool linearRolloff);

/// The pan, -1.0 to 1.0, of a position as the listener hears it: half the turn in degrees from the
/// look direction to the position, in the plane that the up vector stands on most steeply.
float panTowards(const sonimbra::vec3df& position, const sonimbra::vec3df& listenerPosition,
                 const sonimbra::vec3df& lookDirection, const sonimbra::vec3df& upVector);

} // namespace sn_internal

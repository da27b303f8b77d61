// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <memory>
#include <set>

namespace sn_internal {

class CDirectSoundSound;
class CReusableDSSoundBuffers;

/// Who holds buffers of an engine's device. Sounds and sources may outlive the engine, the buffers
/// must not: the engine has all of them released before the device goes. With the engine's lock
/// held.
class CDirectSoundResources {
public:
    void add(CDirectSoundSound* sound) { Sounds.insert(sound); }
    void remove(CDirectSoundSound* sound) { Sounds.erase(sound); }
    void add(CReusableDSSoundBuffers* buffers) { Shared.insert(buffers); }
    void remove(CReusableDSSoundBuffers* buffers) { Shared.erase(buffers); }

    void releaseAll();

private:
    std::set<CDirectSoundSound*> Sounds;
    std::set<CReusableDSSoundBuffers*> Shared;
};

using CDirectSoundResourcesPtr = std::shared_ptr<CDirectSoundResources>;

} // namespace sn_internal

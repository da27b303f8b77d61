// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <dsound.h>

namespace sn_internal {

/// Locked memory of a buffer, in up to two regions.
class CBufferLock {
public:
    struct SRegion {
        unsigned char* bytes = nullptr;
        DWORD size = 0;
    };

    CBufferLock(IDirectSoundBuffer& buffer, DWORD offset, DWORD size)
        : Buffer(buffer), Result(lock(offset, size)), Locked(SUCCEEDED(Result)) {}
    CBufferLock(const CBufferLock&) = delete;
    CBufferLock& operator=(const CBufferLock&) = delete;
    ~CBufferLock() { unlock(); }

    bool isLocked() const { return Locked; }
    /// DirectSound has taken the memory away; the buffer has to be restored first.
    bool isLost() const { return Result == DSERR_BUFFERLOST; }

    /// 0 and 1. Where the second region is not needed it is empty.
    const SRegion& getRegion(int index) const { return Regions[index]; }

    /// Returns whether the memory was given back.
    bool unlock() {
        if (!Locked) {
            return true;
        }
        Locked = false;
        return SUCCEEDED(
            Buffer.Unlock(Regions[0].bytes, Regions[0].size, Regions[1].bytes, Regions[1].size));
    }

private:
    HRESULT lock(DWORD offset, DWORD size) {
        void* first = nullptr;
        void* second = nullptr;
        const HRESULT result =
            Buffer.Lock(offset, size, &first, &Regions[0].size, &second, &Regions[1].size, 0);
        Regions[0].bytes = static_cast<unsigned char*>(first);
        Regions[1].bytes = static_cast<unsigned char*>(second);
        return result;
    }

    IDirectSoundBuffer& Buffer;
    SRegion Regions[2];
    const HRESULT Result; // the regions are there before
    bool Locked;
};

} // namespace sn_internal

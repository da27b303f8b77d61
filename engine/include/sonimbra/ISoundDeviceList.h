// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>

namespace sonimbra {

/// The sound devices of an output driver, as they were when the list was made. Made by
/// createSoundDeviceList. Record 0 always stands for the default device. A list never changes, so
/// any thread may read it; its counter is a plain one (see IRefCounted).
class ISoundDeviceList : public IRefCounted {
public:
    /// Number of records, the default record included: 1 or more.
    virtual std::int32_t getDeviceCount() = 0;

    /// The identifier of a record, to be passed to createSonimbraDevice: 36 characters such as
    /// "01234567-89ab-cdef-0123-456789abcdef", the same on every run; the empty text for the
    /// default record. Null when index is below 0 or not below the count. The text belongs to the
    /// list.
    virtual const char* getDeviceID(std::int32_t index) = 0;

    /// A description to show to people, in one line, as the platform gives it: UTF-8 from ALSA, the
    /// system's code page from DirectSound; "default device" for the default record. Null when
    /// index is below 0 or not below the count. The text belongs to the list.
    virtual const char* getDeviceDescription(std::int32_t index) = 0;
};

} // namespace sonimbra

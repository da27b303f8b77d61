// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "core/counted_ptr.h"
#include "engine/CSoundDeviceList.h"

#include <windows.h>

namespace sn_internal {

/// Devices that one of DirectSound's enumeration functions reports, with their GUIDs. On a system
/// without DirectSound only the default record is there.
class CDirectSoundDeviceList : public CSoundDeviceList {
public:
    /// All zeros for the default device.
    const GUID& getGUID(std::int32_t index) const {
        return Guids[static_cast<std::uint32_t>(index)];
    }

protected:
    /// The function is looked up in dsound.dll.
    explicit CDirectSoundDeviceList(const char* enumerationFunction);

private:
    static BOOL CALLBACK onDevice(GUID* guid, const char* description, const char* module,
                                  void* list);

    sonimbra::array<GUID> Guids;
};

template <class TList>
counted_ptr<CDirectSoundDeviceList> makeDeviceList() {
    return counted_ptr<CDirectSoundDeviceList>::adopt(new TList);
}

/// The device of an identifier, which the log then tells of. All zeros, for the default device,
/// when the identifier is null, empty or in no record; the list is made only when it is needed.
GUID chooseDevice(const char* deviceID, counted_ptr<CDirectSoundDeviceList> (*makeList)());

} // namespace sn_internal

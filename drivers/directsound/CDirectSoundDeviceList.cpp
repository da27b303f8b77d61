// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CDirectSoundDeviceList.h"

#include "core/log.h"
#include "core/no_throw.h"
#include "core/shared_library.h"

#include <cstdio>
#include <string>

#include <dsound.h>

namespace sn_internal {
namespace {

static_assert(sizeof(GUID) == 16);

using FEnumerate = HRESULT(WINAPI*)(LPDSENUMCALLBACKA, void*);

std::string identifierOf(const GUID& guid) {
    char text[24];
    std::snprintf(text, sizeof(text), "%08x-%04x-%04x-", static_cast<unsigned>(guid.Data1),
                  static_cast<unsigned>(guid.Data2), static_cast<unsigned>(guid.Data3));
    std::string identifier = text;
    for (int i = 0; i < 8; ++i) {
        std::snprintf(text, sizeof(text), "%s%02x", i == 2 ? "-" : "",
                      static_cast<unsigned>(guid.Data4[i]));
        identifier += text;
    }
    return identifier;
}

} // namespace

CDirectSoundDeviceList::CDirectSoundDeviceList(const char* enumerationFunction) {
    Guids.push_back(GUID());
    SSharedLibrary* const library = loadSharedLibrary("dsound.dll");
    if (library == nullptr) {
        return;
    }
    const auto enumerate = reinterpret_cast<FEnumerate>(findFunction(library, enumerationFunction));
    if (enumerate != nullptr) {
        enumerate(onDevice, this);
    }
}

/// The platform's own primary entry has no GUID; the default record stands for it. Called from C;
/// when memory runs out, the list ends there.
BOOL CALLBACK CDirectSoundDeviceList::onDevice(GUID* guid, const char* description, const char*,
                                               void* list) {
    if (guid == nullptr) {
        return TRUE;
    }
    auto& devices = *static_cast<CDirectSoundDeviceList*>(list);
    return withoutExceptions(FALSE, [&] {
        devices.Guids.push_back(*guid);
        devices.addDevice(identifierOf(*guid).c_str(), description);
        return TRUE;
    });
}

GUID chooseDevice(const char* deviceID, counted_ptr<CDirectSoundDeviceList> (*makeList)()) {
    if (deviceID == nullptr || *deviceID == 0) {
        return {};
    }
    const auto list = makeList();
    const std::int32_t index = list->find(deviceID);
    if (index < 0) {
        return {};
    }
    logTextWithHint("Using device", list->getDeviceDescription(index));
    return list->getGUID(index);
}

} // namespace sn_internal

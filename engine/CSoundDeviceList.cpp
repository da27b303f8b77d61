// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSoundDeviceList.h"

#include <cstring>

namespace sn_internal {

CSoundDeviceList::CSoundDeviceList() {
    addDevice("", "default device");
}

void CSoundDeviceList::addDevice(const char* deviceID, const char* description) {
    Devices.push_back({deviceID, description});
}

const CSoundDeviceList::SDevice* CSoundDeviceList::getDevice(std::int32_t index) const {
    const auto count = static_cast<std::int32_t>(Devices.size());
    return index >= 0 && index < count ? &Devices[static_cast<std::uint32_t>(index)] : nullptr;
}

const char* CSoundDeviceList::getDeviceID(std::int32_t index) {
    const SDevice* device = getDevice(index);
    return device != nullptr ? device->id.c_str() : nullptr;
}

const char* CSoundDeviceList::getDeviceDescription(std::int32_t index) {
    const SDevice* device = getDevice(index);
    return device != nullptr ? device->description.c_str() : nullptr;
}

std::int32_t CSoundDeviceList::find(const char* deviceID) const {
    for (std::int32_t i = 0; getDevice(i) != nullptr; ++i) {
        if (std::strcmp(getDevice(i)->id.c_str(), deviceID) == 0) {
            return i;
        }
    }
    return -1;
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "core/string.h"

#include <sonimbra/ISoundDeviceList.h>

namespace sn_internal {

/// A list that begins with the default record. Drivers derive from it and add their devices at
/// construction.
class CSoundDeviceList : public sonimbra::ISoundDeviceList {
public:
    CSoundDeviceList();

    std::int32_t getDeviceCount() override { return static_cast<std::int32_t>(Devices.size()); }
    const char* getDeviceID(std::int32_t index) override;
    const char* getDeviceDescription(std::int32_t index) override;

    /// The first record with exactly this identifier; -1 when there is none.
    std::int32_t find(const char* deviceID) const;

protected:
    void addDevice(const char* deviceID, const char* description);

private:
    struct SDevice {
        sonimbra::string<char> id;
        sonimbra::string<char> description;
    };

    const SDevice* getDevice(std::int32_t index) const;

    sonimbra::array<SDevice> Devices;
};

} // namespace sn_internal

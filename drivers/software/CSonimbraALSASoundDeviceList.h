// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSoundDeviceList.h"

#include <string>
#include <vector>

namespace sn_internal {

/// The PCMs that ALSA's configuration names for people to choose from, real devices and plug-ins.
///
/// The identifier of a device is the name-based (SHA-1) UUID of its PCM name in a namespace of this
/// library, so that it stays the same from run to run and from computer to computer.
class CSonimbraALSASoundDeviceList final : public CSoundDeviceList {
public:
    enum class EDirection { Playback, Capture };

    explicit CSonimbraALSASoundDeviceList(EDirection direction);

    /// The PCM of a record, "default" for the default record.
    const std::string& getPCMName(std::int32_t index) const {
        return PCMNames[static_cast<std::size_t>(index)];
    }

private:
    void addHint(const void* hint, EDirection direction);

    std::vector<std::string> PCMNames; ///< one for each record
};

/// The PCM that an application means by an identifier of the list or by the PCM's own name; the
/// default one when the text is null or empty. Says in the log which device an identifier chose.
std::string toALSAPCMName(const char* deviceID, CSonimbraALSASoundDeviceList::EDirection direction);

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sn_internal {

class CSoundDeviceList;

/// Lists the devices that ALSA plays on, with one reference for the caller.
CSoundDeviceList* createALSASoundDeviceList();

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/drivers.h"

namespace sn_internal {

sonimbra::ISoundEngine* createPlatformEngine(sonimbra::E_SOUND_OUTPUT_DRIVER driver,
                                             const SEngineArguments&) {
    logUnsupportedDriver(driver);
    return nullptr;
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// The output drivers. One that does not exist on the system at hand makes createSonimbraDevice
/// return null.
enum class E_SOUND_OUTPUT_DRIVER : std::int32_t {
    AutoDetect = 0,   ///< tries DirectSound8, and nothing else
    DirectSound8 = 1, ///< Windows
    DirectSound = 2,  ///< Windows
    WinMM = 3,        ///< Windows; uses the software mixer
    ALSA = 4,         ///< Linux
    CoreAudio = 5,    ///< no engine yet
    NullDriver = 6,   ///< plays nothing, works everywhere
};

} // namespace sonimbra

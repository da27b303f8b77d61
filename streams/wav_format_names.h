// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/string.h"

#include <cstdint>

namespace sn_internal {

/// The name of a WAV format tag for messages; the tag in decimal when it has none.
sonimbra::string<char> nameOfWavFormat(std::uint16_t tag);

} // namespace sn_internal

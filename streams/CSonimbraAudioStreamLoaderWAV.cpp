// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderWAV.h"

namespace sn_internal {

bool CSonimbraAudioStreamLoaderWAV::isALoadableFileExtension(const char* fileName) {
    return contains(fileName, ".wav");
}

} // namespace sn_internal

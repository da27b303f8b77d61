// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderOGG.h"

namespace sn_internal {

bool CSonimbraAudioStreamLoaderOGG::isALoadableFileExtension(const char* fileName) {
    return contains(fileName, ".ogg");
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamLoaderMOD.h"

#include <algorithm>
#include <iterator>

namespace sn_internal {

bool CSonimbraAudioStreamLoaderMOD::isALoadableFileExtension(const char* fileName) {
    static const char* const extensions[] = {".mod", ".xm", ".s3m", ".it"};
    return std::any_of(std::begin(extensions), std::end(extensions),
                       [fileName](const char* extension) { return contains(fileName, extension); });
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/CDecoderLoader.h"
#include "streams/CSonimbraAudioStreamOGG.h"

namespace sn_internal {

/// Makes decoders for Ogg Vorbis files.
class CSonimbraAudioStreamLoaderOGG final : public CDecoderLoader<CSonimbraAudioStreamOGG> {
public:
    using CDecoderLoader::CDecoderLoader;

    bool isALoadableFileExtension(const char* fileName) override;
};

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/CDecoderLoader.h"
#include "streams/CSonimbraAudioStreamWAV.h"

namespace sn_internal {

/// Makes decoders for RIFF WAVE files.
class CSonimbraAudioStreamLoaderWAV final : public CDecoderLoader<CSonimbraAudioStreamWAV> {
public:
    using CDecoderLoader::CDecoderLoader;

    bool isALoadableFileExtension(const char* fileName) override;
};

} // namespace sn_internal

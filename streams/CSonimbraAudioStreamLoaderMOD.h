// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/CDecoderLoader.h"
#include "streams/CSonimbraAudioStreamMOD.h"

namespace sn_internal {

/// Makes decoders for tracker modules (MOD, XM, S3M, IT).
class CSonimbraAudioStreamLoaderMOD final : public CDecoderLoader<CSonimbraAudioStreamMOD> {
public:
    using CDecoderLoader::CDecoderLoader;

    bool isALoadableFileExtension(const char* fileName) override;
};

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraPurePCMSoundSource.h"

#include <algorithm>

namespace sn_internal {
namespace {

/// The format, with no more frames than the memory holds.
sonimbra::SAudioStreamFormat fitted(sonimbra::SAudioStreamFormat format, std::int32_t sizeInBytes) {
    const std::int32_t frameSize = format.getFrameSize();
    format.FrameCount =
        frameSize < 1 ? 0 : std::clamp(format.FrameCount, -1, sizeInBytes / frameSize);
    return format;
}

} // namespace

CSonimbraPurePCMSoundSource::CSonimbraPurePCMSoundSource(const CEngineLinkPtr& link,
                                                         const char* name, void* memory,
                                                         std::int32_t sizeInBytes,
                                                         const sonimbra::SAudioStreamFormat& format,
                                                         bool copyMemory)
    : CSonimbraSoundSource(link, name, sonimbra::E_STREAM_MODE::NoStreaming), OwnsCopy(copyMemory) {
    Format = fitted(format, sizeInBytes);
    const sonimbra::SAudioStreamFormat initial = OwnsCopy ? Format : sonimbra::SAudioStreamFormat();
    CachedSamples =
        counted_ptr<CSonimbraBufferedSamples>::adopt(new CSonimbraBufferedSamples(initial, memory));
    if (!OwnsCopy) {
        CachedSamples->useForeignData(Format, memory);
    }
}

CSonimbraPurePCMSoundSource::~CSonimbraPurePCMSoundSource() {
    if (!OwnsCopy) {
        const CScopedLock lock(getLock());
        CachedSamples->forgetForeignData();
    }
}

} // namespace sn_internal

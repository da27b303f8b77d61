// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraSoftwareResampler.h"

#include "streams/CSonimbraSoftwareStreamResampler.h"

namespace sn_internal {

CSonimbraSoftwareStreamResamplerBase::CSonimbraSoftwareStreamResamplerBase(
    std::int32_t outputRate, sonimbra::IAudioStream* source)
    : CSonimbraSoftwareResampler(outputRate),
      Source(counted_ptr<sonimbra::IAudioStream>::share(source)) {
    if (Source) {
        SourceFormat = Source->getFormat();
    }
    Format = SourceFormat;
    Format.ChannelCount = 2;
    Format.SampleRate = outputRate;
}

std::int32_t CSonimbraSoftwareStreamResamplerBase::read(std::int16_t* target,
                                                        std::int32_t frameCount, float) {
    return Source ? Source->readFrames(target, frameCount) : 0;
}

bool CSonimbraSoftwareStreamResamplerBase::setPosition(std::int32_t sourceFrame) {
    return Source && Source->setPosition(sourceFrame);
}

CSonimbraSoftwareStreamResamplerBase*
createStreamResampler(std::int32_t outputRate, sonimbra::IAudioStream* source,
                      CSonimbraBufferedSamplesAudioStream* samples) {
    if (source == nullptr) {
        return new CSonimbraSoftwareStreamResamplerBase(outputRate, nullptr);
    }
    return new CSonimbraSoftwareStreamResampler(outputRate, source, samples);
}

} // namespace sn_internal

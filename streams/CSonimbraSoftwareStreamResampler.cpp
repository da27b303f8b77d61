// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraSoftwareStreamResampler.h"

#include "core/integers.h"
#include "core/no_throw.h"
#include "core/prefetch.h"
#include "core/sample_kernels.h"
#include "streams/dumb_tables.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace sn_internal {
namespace {

/// Steps are handed over in 16.16 fixed point: a step that would become 0, or overflow, must not
/// reach the resampler.
constexpr float SmallestStep = 1.0f / 65536.0f;
constexpr float LargestStep = 32767.0f;

std::int32_t widened(std::uint8_t sample) {
    return (sample - 128) * 256;
}
std::int32_t widened(std::int16_t sample) {
    return sample;
}

template <class Sample>
void copyMono(const Sample* source, std::int32_t count, sample_t* left) {
    for (std::int32_t i = 0; i < count; ++i) {
        left[i] = widened(source[i]);
    }
}

template <class Sample>
void splitStereo(const Sample* source, std::int32_t count, sample_t* left, sample_t* right) {
    for (std::int32_t i = 0; i < count; ++i) {
        left[i] = widened(source[2 * i]);
        right[i] = widened(source[2 * i + 1]);
    }
}

} // namespace

void CSonimbraSoftwareStreamResampler::SChannel::reset(std::int32_t count) {
    std::fill(std::begin(guard), std::end(guard), 0);
    dumb_reset_resampler(&resampler, samples, 1, 0, 0, count);
}

void CSonimbraSoftwareStreamResampler::SChannel::continueWith(std::int32_t count) {
    resampler.pos = 0;
    resampler.subpos = 0;
    resampler.start = 0;
    resampler.end = count;
    resampler.dir = 1;
}

void CSonimbraSoftwareStreamResampler::SChannel::keepLastSamples(std::int32_t count) {
    sample_t last[GuardSamples];
    for (std::int32_t i = 0; i < GuardSamples; ++i) {
        const std::int32_t index = count - GuardSamples + i;
        last[i] = index < 0 ? guard[GuardSamples + index] : samples[index];
    }
    std::copy(std::begin(last), std::end(last), guard);
}

CSonimbraSoftwareStreamResampler::CSonimbraSoftwareStreamResampler(std::int32_t outputRate,
                                                                   sonimbra::IAudioStream* source)
    : CSonimbraSoftwareStreamResamplerBase(outputRate, source), Left(), Right() {
    static_assert(offsetof(SChannel, samples) ==
                  offsetof(SChannel, guard) + sizeof(SChannel::guard));
    fillDumbTables();
    restart();
}

void CSonimbraSoftwareStreamResampler::restart() {
    BufferedFrames = fillBuffers();
    Left.reset(BufferedFrames);
    Right.reset(BufferedFrames);
}

bool CSonimbraSoftwareStreamResampler::refill() {
    Left.keepLastSamples(BufferedFrames);
    Right.keepLastSamples(BufferedFrames);
    BufferedFrames = fillBuffers();
    if (BufferedFrames == 0) {
        return false;
    }
    Left.continueWith(BufferedFrames);
    Right.continueWith(BufferedFrames);
    return true;
}

std::int32_t CSonimbraSoftwareStreamResampler::fillBuffers() {
    constexpr std::int32_t scratchSize = BufferFrames * 2 * sizeof(std::int16_t);
    alignas(std::int16_t) unsigned char scratch[scratchSize];
    const std::int32_t frameSize = SourceFormat.getFrameSize();
    if (frameSize < 1 || frameSize > scratchSize) {
        return 0;
    }
    // One piece, unless the stream has more channels than the scratch buffer was made for.
    const std::int32_t pieceFrames = std::min(BufferFrames, scratchSize / frameSize);
    std::int32_t total = 0;
    while (total < BufferFrames) {
        const std::int32_t asked = std::min(pieceFrames, BufferFrames - total);
        const std::int32_t got = readPiece(scratch, asked);
        convert(scratch, total, got);
        total += got;
        if (got < asked) {
            break;
        }
    }
    return total;
}

/// Trusts no stream to keep to what it was asked.
std::int32_t CSonimbraSoftwareStreamResampler::readPiece(void* scratch, std::int32_t frameCount) {
    return withoutExceptions(
        0, [&] { return std::clamp(Source->readFrames(scratch, frameCount), 0, frameCount); });
}

void CSonimbraSoftwareStreamResampler::convert(const void* scratch, std::int32_t firstFrame,
                                               std::int32_t frameCount) {
    sample_t* left = Left.samples + firstFrame;
    sample_t* right = Right.samples + firstFrame;
    const bool is8Bit = SourceFormat.SampleFormat == sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit;
    const auto* bytes = static_cast<const std::uint8_t*>(scratch);
    const auto* words = static_cast<const std::int16_t*>(scratch);
    if (isStereo()) {
        is8Bit ? splitStereo(bytes, frameCount, left, right)
               : splitStereo(words, frameCount, left, right);
    } else if (SourceFormat.ChannelCount == 1) {
        is8Bit ? copyMono(bytes, frameCount, left) : copyMono(words, frameCount, left);
    }
}

float CSonimbraSoftwareStreamResampler::getStep(float speed) const {
    return static_cast<float>(SourceFormat.SampleRate) * speed / static_cast<float>(OutputRate);
}

std::int32_t CSonimbraSoftwareStreamResampler::read(std::int16_t* target, std::int32_t frameCount,
                                                    float speed) {
    float step = getStep(speed);
    if (!(step > 0.0f)) {
        return 0;
    }
    step = limited(step, SmallestStep, LargestStep);
    std::int32_t remaining = frameCount;
    while (remaining > 0) {
        const std::int32_t produced = readBlock(target, std::min(remaining, BufferFrames), step);
        target += 2 * produced;
        remaining -= produced;
        if (produced == 0 && !refill()) {
            break;
        }
    }
    return frameCount - remaining;
}

std::int32_t CSonimbraSoftwareStreamResampler::readBlock(std::int16_t* target,
                                                         std::int32_t frameCount, float step) {
    sample_t left[BufferFrames];
    std::fill_n(left, frameCount, 0); // the resampler adds to what it finds
    const auto produced =
        static_cast<std::int32_t>(dumb_resample_1_1(&Left.resampler, left, frameCount, 1.0f, step));
    if (!isStereo()) {
        spreadMono(left, produced, target);
        return produced;
    }
    if (produced > 0) {
        sample_t right[BufferFrames];
        std::fill_n(right, frameCount, 0);
        dumb_resample_1_1(&Right.resampler, right, frameCount, 1.0f, step);
        interleave(left, right, produced, target);
    }
    return produced;
}

void CSonimbraSoftwareStreamResampler::prefetchState() const {
    prefetch(this, offsetof(SChannel, guard) + sizeof(CSonimbraSoftwareStreamResamplerBase));
    prefetch(&Right.resampler, sizeof(Right.resampler));
}

void CSonimbraSoftwareStreamResampler::prefetchSamples(std::int32_t frameCount, float speed) const {
    const long begin = Left.resampler.pos;
    const float sourceFrames = limited(static_cast<float>(frameCount) * getStep(speed), 0.0f,
                                       static_cast<float>(BufferFrames));
    const long end = std::min<long>(BufferedFrames, begin + static_cast<long>(sourceFrames) + 1);
    if (begin >= end) {
        return;
    }
    const std::size_t byteCount = static_cast<std::size_t>(end - begin) * sizeof(sample_t);
    prefetch(Left.samples + begin, byteCount);
    if (isStereo()) {
        prefetch(Right.samples + begin, byteCount);
    }
}

bool CSonimbraSoftwareStreamResampler::setPosition(std::int32_t sourceFrame) {
    if (!withoutExceptions(false, [&] { return Source->setPosition(sourceFrame); })) {
        return false;
    }
    restart();
    return true;
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraSoftwareStreamResampler.h"

#include "core/integers.h"
#include "core/no_throw.h"
#include "core/prefetch.h"
#include "core/sample_kernels.h"
#include "streams/dumb_tables.h"

#include <algorithm>

namespace sn_internal {
namespace {

/// Steps are handed over in 16.16 fixed point: a step that would become 0, or overflow, must not
/// reach the resampler.
constexpr float SmallestStep = 1.0f / 65536.0f;
constexpr float LargestStep = 32767.0f;

constexpr std::int32_t ScratchSize =
    CCubicChannels::BufferFrames * 2 * static_cast<std::int32_t>(sizeof(std::int16_t));

void widen(const std::uint8_t* source, std::int32_t count, std::int16_t* target) {
    for (std::int32_t i = 0; i < count; ++i) {
        target[i] = static_cast<std::int16_t>((source[i] - 128) * 256);
    }
}

/// What the channels take as it is.
bool isSixteenBit(const sonimbra::SAudioStreamFormat& format) {
    return format.getSampleSize() == 2 && (format.ChannelCount == 1 || format.ChannelCount == 2);
}

} // namespace

CSonimbraSoftwareStreamResampler::CSonimbraSoftwareStreamResampler(
    std::int32_t outputRate, sonimbra::IAudioStream* source,
    CSonimbraBufferedSamplesAudioStream* samples)
    : CSonimbraSoftwareStreamResamplerBase(outputRate, source),
      Channels(SourceFormat.ChannelCount == 2) {
    fillDumbTables();
    if (samples != nullptr && isSixteenBit(SourceFormat) && samples->isAlignedFor16Bit()) {
        View = samples;
    } else {
        Buffer = std::make_unique<std::int16_t[]>(2 * BufferFrames);
    }
    restart();
}

void CSonimbraSoftwareStreamResampler::restart() {
    const SPortion portion = nextPortion();
    Channels.restart(portion.frames, portion.frameCount);
}

bool CSonimbraSoftwareStreamResampler::refill() {
    const SPortion portion = nextPortion();
    if (portion.frameCount == 0) {
        return false;
    }
    Channels.continueWith(portion.frames, portion.frameCount);
    return true;
}

CSonimbraSoftwareStreamResampler::SPortion CSonimbraSoftwareStreamResampler::nextPortion() {
    Channels.endPortion();
    if (View != nullptr) {
        return viewPortion();
    }
    return {Buffer.get(), fillBuffer()};
}
CSonimbraSoftwareStreamResampler::SPortion CSonimbraSoftwareStreamResampler::viewPortion() {
    const CSonimbraBufferedSamplesAudioStream::SView view = View->viewFrames(BufferFrames);
    return {static_cast<const std::int16_t*>(view.frames), view.frameCount};
}

std::int32_t CSonimbraSoftwareStreamResampler::fillBuffer() {
    return isSixteenBit(SourceFormat) ? readPiece(Buffer.get(), BufferFrames) : fillInPieces();
}

/// One piece, unless the stream has more channels than the scratch buffer was made for. Those are
/// read, and not heard.
std::int32_t CSonimbraSoftwareStreamResampler::fillInPieces() {
    alignas(std::int16_t) unsigned char scratch[ScratchSize];
    const std::int32_t frameSize = SourceFormat.getFrameSize();
    if (frameSize < 1 || frameSize > ScratchSize) {
        return 0;
    }
    const std::int32_t channels = SourceFormat.ChannelCount;
    const std::int32_t pieceFrames = std::min(BufferFrames, ScratchSize / frameSize);
    std::int32_t total = 0;
    while (total < BufferFrames) {
        const std::int32_t asked = std::min(pieceFrames, BufferFrames - total);
        const std::int32_t got = readPiece(scratch, asked);
        if (channels <= 2) {
            widen(scratch, channels * got, Buffer.get() + channels * total);
        }
        total += got;
        if (got < asked) {
            break;
        }
    }
    return total;
}

/// Trusts no stream to keep to what it was asked.
std::int32_t CSonimbraSoftwareStreamResampler::readPiece(void* target, std::int32_t frameCount) {
    return withoutExceptions(
        0, [&] { return std::clamp(Source->readFrames(target, frameCount), 0, frameCount); });
}

void CSonimbraSoftwareStreamResampler::setSpeed(float speed) {
    Speed = speed;
    Step = static_cast<float>(SourceFormat.SampleRate) * speed / static_cast<float>(OutputRate);
}

/// A mono source's frames begin in the middle of the target: each is read before its place is
/// written.
std::int32_t CSonimbraSoftwareStreamResampler::read(std::int16_t* target, std::int32_t frameCount,
                                                    float speed) {
    if (target == nullptr || Channels.getChannelCount() == 2) {
        return readChannels(target, frameCount, speed);
    }
    std::int16_t* const mono = target + frameCount;
    const std::int32_t done = readChannels(mono, frameCount, speed);
    spread(mono, done, target);
    return done;
}

std::int32_t CSonimbraSoftwareStreamResampler::readChannels(std::int16_t* target,
                                                            std::int32_t frameCount, float speed) {
    if (speed != Speed) {
        setSpeed(speed);
    }
    if (!(Step > 0.0f)) {
        return 0;
    }
    const float step = limited(Step, SmallestStep, LargestStep);
    std::int32_t done = 0;
    while (done < frameCount) {
        std::int16_t* const at =
            target != nullptr ? target + Channels.getChannelCount() * done : nullptr;
        const std::int32_t produced =
            Channels.read(at, std::min(frameCount - done, BufferFrames), step);
        done += produced;
        if (produced == 0 && !refill()) {
            break;
        }
    }
    return done;
}

void CSonimbraSoftwareStreamResampler::prefetchState() const {
    prefetch(this, sizeof(CSonimbraSoftwareStreamResamplerBase));
    Channels.prefetchState();
}

/// As far as at the speed of the last read.
void CSonimbraSoftwareStreamResampler::prefetchSamples(std::int32_t frameCount) const {
    Channels.prefetchFrames(
        limited(static_cast<float>(frameCount) * Step, 0.0f, static_cast<float>(BufferFrames)));
}

bool CSonimbraSoftwareStreamResampler::setPosition(std::int32_t sourceFrame) {
    if (!withoutExceptions(false, [&] { return Source->setPosition(sourceFrame); })) {
        return false;
    }
    restart();
    return true;
}

} // namespace sn_internal

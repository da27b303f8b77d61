// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CCubicChannels.h"

#include "core/prefetch.h"
#include "core/sample_kernels.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <iterator>

namespace sn_internal {
namespace {

constexpr std::int32_t One = 1 << 16; ///< a step of one frame

std::atomic<const SCubicKernels*> Kernels = SONIMBRA_DUMB_ALONE ? nullptr : *getCubicKernels();

/// As DUMB rounds it.
std::int32_t fixed(float step) {
    return static_cast<std::int32_t>(step * 65536.0 + 0.5);
}

} // namespace

void CCubicChannels::useKernels(const SCubicKernels* kernels) {
    Kernels.store(kernels, std::memory_order_relaxed);
}

void CCubicChannels::endPortion() {
    for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
        keepLastSamples(channel);
    }
    FrameCount = 0;
}

void CCubicChannels::keepLastSamples(std::int32_t channel) {
    sample_t* const guard = Lines[channel].guard;
    for (std::int32_t i = 0; i < GuardSamples; ++i) {
        const std::int32_t frame = FrameCount - GuardSamples + i;
        guard[i] = frame < 0 ? guard[GuardSamples + frame] : Frames[ChannelCount * frame + channel];
    }
}

void CCubicChannels::restart(const std::int16_t* frames, std::int32_t frameCount) {
    Frames = frames;
    FrameCount = frameCount;
    for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
        SLine& line = Lines[channel];
        std::fill(std::begin(line.guard), std::end(line.guard), 0);
        dumb_reset_resampler(&States[channel], line.samples, 1, 0, 0, frameCount);
    }
}

void CCubicChannels::continueWith(const std::int16_t* frames, std::int32_t frameCount) {
    Frames = frames;
    FrameCount = frameCount;
    for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
        DUMB_RESAMPLER& state = States[channel];
        state.pos = 0;
        state.subpos = 0;
        state.start = 0;
        state.end = frameCount;
        state.dir = 1;
    }
}

std::int32_t CCubicChannels::read(std::int16_t* target, std::int32_t frameCount, float step) {
    const SCubicKernels* const kernels = Kernels.load(std::memory_order_relaxed);
    if (kernels == nullptr) {
        return readByDumb(target, frameCount, step, false);
    }
    const std::int32_t fixedStep = fixed(step);
    if (isForKernels() && fitsKernels(frameCount, fixedStep)) {
        readByKernels(*kernels, target, frameCount, fixedStep);
        return frameCount;
    }
    return readInParts(*kernels, target, frameCount, step);
}

/// The right channel moves only in reads in which the left one gave something.
std::int32_t CCubicChannels::readInParts(const SCubicKernels& kernels, std::int16_t* target,
                                         std::int32_t frameCount, float step) {
    const std::int32_t fixedStep = fixed(step);
    std::int32_t done = 0;
    while (done < frameCount) {
        const std::int32_t remaining = frameCount - done;
        std::int16_t* const at = target != nullptr ? target + ChannelCount * done : nullptr;
        const std::int32_t fitting = isForKernels() ? countForKernels(remaining, fixedStep) : 0;
        if (fitting > 0) {
            readByKernels(kernels, at, fitting, fixedStep);
            done += fitting;
            continue;
        }
        const std::int32_t asked = countForDumb(remaining, fixedStep);
        const std::int32_t got = readByDumb(at, asked, step, done > 0);
        done += got;
        if (got < asked) {
            break;
        }
    }
    return done;
}

/// From position 3 on, what DUMB remembers of the past is what stands in the portion.
bool CCubicChannels::isForKernels() const {
    const DUMB_RESAMPLER& left = States[0];
    const DUMB_RESAMPLER& right = States[ChannelCount - 1];
    return left.pos >= GuardSamples && left.pos < left.end && left.dir == 1 && right.dir == 1 &&
           left.overshot == 0 && right.overshot == 0 && left.pos == right.pos &&
           left.subpos == right.subpos;
}

/// How far the position may move without leaving the portion, with 16 bits of fraction.
std::int32_t CCubicChannels::getReach() const {
    return static_cast<std::int32_t>(States[0].end - States[0].pos) * One - States[0].subpos - 1;
}

/// Whether that many outputs have all their taps in the portion, with a position behind them that
/// is in it as well.
bool CCubicChannels::fitsKernels(std::int32_t count, std::int32_t step) const {
    return std::int64_t(count) * step <= getReach();
}
std::int32_t CCubicChannels::countForKernels(std::int32_t remaining, std::int32_t step) const {
    return std::min(remaining, getReach() / step);
}

/// To where the kernels can go on, or all the rest. A state that was reset begins with two frames
/// that nobody hears.
std::int32_t CCubicChannels::countForDumb(std::int32_t remaining, std::int32_t step) const {
    const DUMB_RESAMPLER& state = States[0];
    const long position = state.overshot < 0 ? state.pos + 2 : state.pos;
    if (position >= GuardSamples) {
        return remaining;
    }
    const auto missing = static_cast<std::int32_t>(GuardSamples - position) * One - state.subpos;
    return std::min(remaining, (missing - 1) / step + 1);
}

/// With a step of one, from a frame, an output is the frame two before its position: the other
/// taps' factors are zero, that one's is one.
void CCubicChannels::readByKernels(const SCubicKernels& kernels, std::int16_t* target,
                                   std::int32_t count, std::int32_t step) {
    const DUMB_RESAMPLER& state = States[0];
    const std::int16_t* const frames = Frames + ChannelCount * state.pos;
    const SCubicRun run = {frames, static_cast<std::uint32_t>(state.subpos),
                           static_cast<std::uint32_t>(step), count};
    if (target == nullptr) {
        // nobody listens
    } else if (step == One && state.subpos == 0) {
        std::copy_n(frames - 2 * ChannelCount, ChannelCount * count, target);
    } else if (isStereo()) {
        kernels.resampleStereo(run, target);
    } else {
        kernels.resampleMono(run, target);
    }
    for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
        advance(channel, count, step);
    }
}

void CCubicChannels::advance(std::int32_t channel, std::int32_t count, std::int32_t step) {
    DUMB_RESAMPLER& state = States[channel];
    const std::int32_t offset = state.subpos + count * step;
    state.pos += offset / One;
    state.subpos = offset % One;
    const std::int16_t* const past = Frames + ChannelCount * (state.pos - GuardSamples) + channel;
    for (std::int32_t i = 0; i < GuardSamples; ++i) {
        state.x.x24[i] = past[ChannelCount * i];
    }
}

/// Returns what the left channel gave. `both` moves the right one even if that is nothing, because
/// the left one has given something in this read already.
std::int32_t CCubicChannels::readByDumb(std::int16_t* target, std::int32_t count, float step,
                                        bool both) {
    sample_t left[BufferFrames];
    const std::int32_t got = callDumb(0, left, count, step);
    if (!isStereo()) {
        if (target != nullptr) {
            narrow(left, got, target);
        }
    } else if (got > 0 || both) {
        sample_t right[BufferFrames];
        callDumb(1, right, count, step);
        if (target != nullptr) {
            interleave(left, right, got, target);
        }
    }
    return got;
}

std::int32_t CCubicChannels::callDumb(std::int32_t channel, sample_t* target, std::int32_t count,
                                      float step) {
    widenAhead(channel, count, step);
    std::fill_n(target, count, 0); // DUMB adds to what it finds
    return static_cast<std::int32_t>(
        dumb_resample_1_1(&States[channel], target, count, 1.0f, step));
}

/// DUMB looks at up to three samples before its position, two behind it, and moves two more at
/// first.
void CCubicChannels::widenAhead(std::int32_t channel, std::int32_t count, float step) {
    const DUMB_RESAMPLER& state = States[channel];
    const std::int64_t reach = std::int64_t(count) * fixed(step) / One + 6;
    const long end = static_cast<long>(std::min<std::int64_t>(state.end, state.pos + reach));
    sample_t* const samples = Lines[channel].samples;
    for (long i = std::max(0l, state.pos - GuardSamples); i < end; ++i) {
        samples[i] = Frames[ChannelCount * i + channel];
    }
}

void CCubicChannels::prefetchState() const {
    prefetch(this, offsetof(CCubicChannels, Lines));
}

void CCubicChannels::prefetchFrames(float sourceFrames) const {
    const long begin = States[0].pos;
    const long end = std::min<long>(FrameCount, begin + static_cast<long>(sourceFrames) + 1);
    if (begin < end) {
        prefetch(Frames + ChannelCount * begin,
                 static_cast<std::size_t>(ChannelCount * (end - begin)) * sizeof(std::int16_t));
    }
}

} // namespace sn_internal

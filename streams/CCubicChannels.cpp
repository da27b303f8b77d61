// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CCubicChannels.h"

#include "core/prefetch.h"
#include "core/sample_kernels.h"

#include <algorithm>
#include <atomic>
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
    std::int16_t* const past = Past[channel];
    for (std::int32_t i = 0; i < GuardSamples; ++i) {
        const std::int32_t frame = FrameCount - GuardSamples + i;
        past[i] = frame < 0 ? past[GuardSamples + frame] : Frames[ChannelCount * frame + channel];
    }
}

void CCubicChannels::restart(const std::int16_t* frames, std::int32_t frameCount) {
    Frames = frames;
    FrameCount = frameCount;
    for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
        std::fill(std::begin(Past[channel]), std::end(Past[channel]), std::int16_t(0));
        dumb_reset_resampler(&States[channel], nullptr, 1, 0, 0, frameCount);
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
    if (isForKernels(fixedStep) && std::int64_t(frameCount) * fixedStep <= getReach(fixedStep)) {
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
        const std::int32_t fitting =
            isForKernels(fixedStep) ? std::min(remaining, getReach(fixedStep) / fixedStep) : 0;
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

/// From position 3 on, what DUMB remembers of the past is what stands in the portion. A copy needs
/// no portion for that, only that DUMB remembers the right past: steps above one may have skipped
/// some of it.
bool CCubicChannels::isForKernels(std::int32_t step) const {
    const DUMB_RESAMPLER& left = States[0];
    const DUMB_RESAMPLER& right = States[ChannelCount - 1];
    if (left.pos >= left.end || left.dir != 1 || right.dir != 1 || left.overshot != 0 ||
        right.overshot != 0 || left.pos != right.pos || left.subpos != right.subpos) {
        return false;
    }
    return left.pos >= GuardSamples ||
           (isCopy(step) && remembersPast(0) && remembersPast(ChannelCount - 1));
}

/// With a step of one, from a frame, an output is the frame two before its position: the other
/// taps' factors are zero, that one's is one.
bool CCubicChannels::isCopy(std::int32_t step) const {
    return step == One && States[0].subpos == 0;
}

bool CCubicChannels::remembersPast(std::int32_t channel) const {
    const DUMB_RESAMPLER& state = States[channel];
    for (std::int32_t i = 0; i < GuardSamples; ++i) {
        if (state.x.x24[i] != sampleAt(channel, state.pos - GuardSamples + i)) {
            return false;
        }
    }
    return true;
}

/// In front of the portion stands the end of the one before.
std::int16_t CCubicChannels::sampleAt(std::int32_t channel, long frame) const {
    return frame < 0 ? Past[channel][GuardSamples + frame] : Frames[ChannelCount * frame + channel];
}

/// How far the position may move, with 16 bits of fraction: not out of the portion, or in a copy to
/// its end.
std::int32_t CCubicChannels::getReach(std::int32_t step) const {
    const auto ahead = static_cast<std::int32_t>(States[0].end - States[0].pos) * One;
    return isCopy(step) ? ahead : ahead - States[0].subpos - 1;
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

void CCubicChannels::readByKernels(const SCubicKernels& kernels, std::int16_t* target,
                                   std::int32_t count, std::int32_t step) {
    const DUMB_RESAMPLER& state = States[0];
    const SCubicRun run = {Frames + ChannelCount * state.pos,
                           static_cast<std::uint32_t>(state.subpos),
                           static_cast<std::uint32_t>(step), count};
    if (target == nullptr) {
        // nobody listens
    } else if (isCopy(step)) {
        copy(target, count);
    } else if (isStereo()) {
        kernels.resampleStereo(run, target);
    } else {
        kernels.resampleMono(run, target);
    }
    for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
        advance(channel, count, step);
    }
}

void CCubicChannels::copy(std::int16_t* target, std::int32_t count) const {
    constexpr std::int32_t delay = 2;
    long frame = States[0].pos - delay;
    for (; frame < 0 && count > 0; ++frame, --count) {
        for (std::int32_t channel = 0; channel < ChannelCount; ++channel) {
            *target++ = sampleAt(channel, frame);
        }
    }
    std::copy_n(Frames + ChannelCount * std::max(0l, frame), ChannelCount * count, target);
}

void CCubicChannels::advance(std::int32_t channel, std::int32_t count, std::int32_t step) {
    DUMB_RESAMPLER& state = States[channel];
    const std::int32_t offset = state.subpos + count * step;
    state.pos += offset / One;
    state.subpos = offset % One;
    for (std::int32_t i = 0; i < GuardSamples; ++i) {
        state.x.x24[i] = sampleAt(channel, state.pos - GuardSamples + i);
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

/// DUMB takes samples of 32 bits. It gets those that it looks at: up to three before its position,
/// two behind it, and two more on its first way. Positions count from the first of them.
std::int32_t CCubicChannels::callDumb(std::int32_t channel, sample_t* target, std::int32_t count,
                                      float step) {
    DUMB_RESAMPLER& state = States[channel];
    const std::int64_t reach = std::int64_t(count) * fixed(step) / One + 6;
    const long end = static_cast<long>(std::min<std::int64_t>(state.end, state.pos + reach));
    const long begin = std::clamp(state.pos - GuardSamples, 0l, std::max(0l, end));
    sample_t samples[GuardSamples + BufferFrames];
    sample_t* const first = samples + GuardSamples;
    // In front of the portion stands what came before: there it looks with a step above one.
    std::copy(std::begin(Past[channel]), std::end(Past[channel]), samples);
    for (long i = begin; i < end; ++i) {
        first[i - begin] = Frames[ChannelCount * i + channel];
    }
    std::fill_n(target, count, 0); // DUMB adds to what it finds
    state.src = first;
    state.pos -= begin;
    state.end -= begin;
    const long done = dumb_resample_1_1(&state, target, count, 1.0f, step);
    state.src = nullptr;
    state.pos += begin;
    state.end += begin;
    return static_cast<std::int32_t>(done);
}

void CCubicChannels::prefetchState() const {
    prefetch(this, sizeof(*this));
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

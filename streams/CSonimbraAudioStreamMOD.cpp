// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamMOD.h"

#include "core/integers.h"

#include <algorithm>

namespace sn_internal {
namespace {

constexpr std::int32_t OutputRate = 44100;
constexpr std::int32_t OutputChannels = 2;
constexpr std::int64_t UnitsPerSecond = 65536;

/// Six minutes. DUMB makes a buffer of eight bytes for every frame that it is asked for, and counts
/// them in 32 bits on some systems.
constexpr std::int32_t MostFramesAtOnce = 1 << 24;

int endAtLoop(void*) {
    return -1;
}

} // namespace

CSonimbraAudioStreamMOD::CSonimbraAudioStreamMOD(sonimbra::IFileReader* file)
    : File(counted_ptr<sonimbra::IFileReader>::share(file)) {
    Format.ChannelCount = OutputChannels;
    Format.FrameCount = -1;
    Format.SampleRate = OutputRate;
    Format.SampleFormat = sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
    if (!File) {
        return;
    }
    Module = readModule(*File.get());
    if (isOpen()) {
        Format.FrameCount = wrap32(Module.length);
        startRenderer();
    }
}

/// A module whose first row stops the song has no speed from the start and would stand still.
void CSonimbraAudioStreamMOD::startRenderer() {
    Renderer.reset(duh_start_sigrenderer(Module.duh.get(), 0, OutputChannels, 0));
    DUMB_IT_SIGRENDERER* player = duh_get_it_sigrenderer(Renderer.get());
    if (player != nullptr && dumb_it_sr_get_speed(player) == 0) {
        Renderer.reset();
        return;
    }
    dumb_it_set_loop_callback(player, endAtLoop, nullptr);
    dumb_it_set_xm_speed_zero_callback(player, endAtLoop, nullptr);
    FramesLeft =
        Module.ends ? INT64_MAX : std::int64_t(Module.length) * OutputRate / UnitsPerSecond;
}

bool CSonimbraAudioStreamMOD::setPosition(std::int32_t frame) {
    if (frame > 0) {
        return false;
    }
    if (isOpen()) {
        startRenderer();
    }
    return true;
}

std::int32_t CSonimbraAudioStreamMOD::readFrames(void* target, std::int32_t frameCountToRead) {
    constexpr float fullVolume = 1.0f;
    constexpr float step = static_cast<float>(UnitsPerSecond) / OutputRate;
    auto* write = static_cast<std::int16_t*>(target);
    std::int32_t total = 0;
    while (Renderer && total < frameCountToRead && FramesLeft > 0) {
        const std::int32_t wanted = static_cast<std::int32_t>(
            std::min<std::int64_t>({frameCountToRead - total, MostFramesAtOnce, FramesLeft}));
        const long got = duh_render(Renderer.get(), 16, 0, fullVolume, step, wanted,
                                    write + std::int64_t(total) * OutputChannels);
        total += static_cast<std::int32_t>(got);
        FramesLeft -= got;
        if (got < wanted) {
            break;
        }
    }
    return total;
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CMixBlock.h"

#include "drivers/software/mixing.h"

#include <algorithm>

namespace sn_internal {

CMixBlock::CMixBlock(std::int32_t frameCount) : FrameCount(frameCount) {
    std::fill_n(Left, frameCount, 0);
    std::fill_n(Right, frameCount, 0);
}

std::int16_t* CMixBlock::beginVoice() {
    Room = 1 - VoiceRoom;
    return Rooms[Room];
}

void CMixBlock::addVoice(std::int32_t channels, const SGains& gains) {
    Content = EScratch::Voice;
    VoiceRoom = Room;
    VoiceChannels = channels;
    VoiceGains = gains;
    const SGains* const factors = areOne(VoiceGains) ? nullptr : &VoiceGains;
    const SSums sums = {Left, Right};
    if (channels == 1) {
        addMono(Rooms[Room], FrameCount, factors, sums);
    } else {
        addStereo(Rooms[Room], FrameCount, factors, sums);
    }
}

void CMixBlock::addSilence() {
    Content = EScratch::Zero;
}

/// Never what some other function left on the stack.
std::int16_t* CMixBlock::getScratch() {
    if (Content == EScratch::Zero) {
        std::fill_n(Scratch, 2 * FrameCount, std::int16_t(0));
    } else if (Content == EScratch::Voice) {
        const std::int16_t* const frames = Rooms[VoiceRoom];
        if (VoiceChannels == 1) {
            spread(frames, FrameCount, Scratch);
        } else {
            std::copy_n(frames, 2 * FrameCount, Scratch);
        }
        applyGains(Scratch, FrameCount, VoiceGains);
    }
    Content = EScratch::Written;
    return Scratch;
}

void CMixBlock::addScratch() {
    addStereo(Scratch, FrameCount, nullptr, {Left, Right});
}

void CMixBlock::finish(std::int16_t* target) const {
    interleave(Left, Right, FrameCount, target);
}

} // namespace sn_internal

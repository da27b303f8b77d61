// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/sample_kernels.h"

namespace sn_internal {

/// One block of the output while its voices are added up. Stands on the stack.
///
/// By rule each voice is written, scaled, to one scratch buffer and added from there, and a voice
/// that ends may leave a part of the scratch buffer as the voice before it did. Only then is it
/// made up: a voice that fills its block is scaled and added in one pass, and remembered.
class CMixBlock {
public:
    static constexpr std::int32_t LargestBlock = 2048;

    explicit CMixBlock(std::int32_t frameCount);
    CMixBlock(const CMixBlock&) = delete;
    CMixBlock& operator=(const CMixBlock&) = delete;

    std::int32_t getFrameCount() const { return FrameCount; }

    /// Room for a voice's frames, mono or stereo. What the last voice wrote there is kept.
    std::int16_t* beginVoice();

    /// Adds a voice that has filled the block in its room.
    void addVoice(std::int32_t channels, const SGains& gains);

    /// Counts a voice that filled the block with silence.
    void addSilence();

    /// For a voice that has not filled the block: the scratch buffer, of stereo frames, as the
    /// voices before have left it; then what it has become is added.
    std::int16_t* getScratch();
    void addScratch();

    /// Clips the sums to 16 bits.
    void finish(std::int16_t* target) const;

private:
    enum class EScratch { Zero, Voice, Written };

    const std::int32_t FrameCount;
    EScratch Content = EScratch::Zero; ///< what the scratch buffer would hold
    std::int32_t Room = 0;             ///< of the voice that has begun, or was added last
    std::int32_t VoiceChannels = 0;    ///< of the voice that was added last
    SGains VoiceGains = {};
    std::int32_t VoiceRoom = 0;
    std::int32_t Left[LargestBlock];
    std::int32_t Right[LargestBlock];
    std::int16_t Rooms[2][2 * LargestBlock];
    std::int16_t Scratch[2 * LargestBlock];
};

} // namespace sn_internal

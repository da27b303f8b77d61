// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/mixer_reference.h"

#include "engine/software_3d.h"
#include "tests/support/ramp.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace sn_test {
namespace {

constexpr std::int32_t BufferFrames = 256;
constexpr double OutputRate = 44100.0;

} // namespace

CReferenceVoice::CReferenceVoice(const SRecording& recording, bool looped,
                                 const sonimbra::vec3df* position)
    : Recording(recording), Looped(looped), Is3D(position != nullptr) {
    if (Is3D) {
        Position = *position;
    }
    moveTo(0);
}

void CReferenceVoice::setPlaybackSpeed(float speed) {
    Speed = std::clamp(speed, 0.01f, 5.0f);
}

void CReferenceVoice::setPlayPosition(std::uint32_t milliseconds) {
    const double wanted = std::trunc(milliseconds * double(Recording.rate) / 1000.0);
    const double frame = std::min(wanted, double(Recording.frames()));
    moveTo(static_cast<std::int32_t>(frame));
    PlayedFrames = static_cast<std::uint32_t>(OutputRate / Recording.rate * frame);
}

std::uint32_t CReferenceVoice::getPlayPosition() const {
    return Finished ? 0xFFFFFFFFu : static_cast<std::uint32_t>(PlayedFrames * 1000.0 / OutputRate);
}

/// The engine's 3D functions have tests of their own.
void CReferenceVoice::hear(const SReferenceListener& listener) {
    HeardVolume = Volume * listener.volume;
    HeardPan = Pan;
    if (Is3D) {
        HeardVolume =
            sn_internal::volumeAtDistance(HeardVolume, listener.position.getDistanceFrom(Position),
                                          {MinDistance, MaxDistance}, listener.linearRolloff);
        HeardPan = sn_internal::panTowards(Position, listener.position, listener.look, listener.up);
    }
}

void CReferenceVoice::mix(Frames16& scratch, std::vector<std::int32_t>& sum) {
    if (Finished || Paused) {
        return;
    }
    render(scratch);
    for (std::size_t i = 0; i < sum.size(); ++i) {
        sum[i] += scratch[i];
    }
}

void CReferenceVoice::moveTo(std::int32_t frame) {
    const bool is8Bit = Recording.bits == 8;
    const Bytes bytes = is8Bit ? Recording.bytes() : packed16(Recording.samples);
    const std::int32_t frameSize = Recording.channels * (is8Bit ? 1 : 2);
    Source.emplace(streamFormat(Recording.channels, Recording.frames() - frame, Recording.rate,
                                is8Bit ? 8 : 16),
                   Bytes(bytes.begin() + frame * frameSize, bytes.end()), 2048);
}

std::int32_t CReferenceVoice::renderPart(std::int16_t* target, std::int32_t frames) {
    const float step = static_cast<float>(Recording.rate) * Speed / static_cast<float>(OutputRate);
    const Frames16 part = Source->read(frames, step);
    std::copy(part.begin(), part.end(), target);

    float gains[2] = {1.0f, 1.0f};
    gains[HeardPan > 0.0f ? 1 : 0] = std::clamp(1.0f - 10.0f * std::fabs(HeardPan), 0.0f, 1.0f);
    gains[0] *= HeardVolume;
    gains[1] *= HeardVolume;
    const bool isUntouched =
        std::fabs(gains[0] - 1.0f) <= 0.000001f && std::fabs(gains[1] - 1.0f) <= 0.000001f;
    for (std::int32_t i = 0; i < 2 * frames && !isUntouched; ++i) {
        const float scaled = std::trunc(static_cast<float>(target[i]) * gains[i % 2]);
        target[i] = static_cast<std::int16_t>(std::clamp(scaled, -32768.0f, 32767.0f));
    }
    return static_cast<std::int32_t>(part.size()) / 2;
}

void CReferenceVoice::render(Frames16& buffer) {
    std::int32_t total = renderPart(buffer.data(), BufferFrames);
    PlayedFrames += static_cast<std::uint32_t>(static_cast<float>(total) * Speed);
    if (total == BufferFrames) {
        return;
    }
    if (Looped) {
        moveTo(0);
        total += renderPart(buffer.data() + 2 * total, BufferFrames - total);
        std::fill(buffer.begin() + 2 * total, buffer.end(), std::int16_t(0));
        PlayedFrames = static_cast<std::uint32_t>(static_cast<float>(total) * Speed);
        return;
    }
    const std::int32_t frameSize = Recording.bits == 8 ? 2 : 4;
    std::memset(reinterpret_cast<char*>(buffer.data()) + total * frameSize, 0,
                static_cast<std::size_t>((BufferFrames - total) * frameSize));
    Finished = true;
}

} // namespace sn_test

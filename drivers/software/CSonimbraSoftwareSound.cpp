// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraSoftwareSound.h"

#include "core/integers.h"
#include "drivers/software/CMixBlock.h"
#include "drivers/software/mixing.h"

#include <algorithm>
#include <cstring>

namespace sn_internal {

/// Keeps the resampler while it is in use: a decoder or a file of the application may stop its own
/// sound from inside.
class CSonimbraSoftwareSound::CReading {
public:
    explicit CReading(CSonimbraSoftwareSound& sound) : Sound(sound) { Sound.IsReading = true; }
    ~CReading() {
        Sound.IsReading = false;
        if (Sound.IsReleased) {
            Sound.releaseBuffer();
        }
    }
    CReading(const CReading&) = delete;
    CReading& operator=(const CReading&) = delete;

private:
    CSonimbraSoftwareSound& Sound;
};

CSonimbraSoftwareSound::CSonimbraSoftwareSound(const CEngineLinkPtr& link,
                                               CSonimbraSoundSource* source,
                                               sonimbra::IAudioStream* stream,
                                               CSonimbraBufferedSamplesAudioStream* samples,
                                               std::int32_t outputRate, bool looped,
                                               float minDistance, float maxDistance)
    : CSonimbraSound(link, source, looped, minDistance, maxDistance),
      Resampler(counted_ptr<CSonimbraSoftwareStreamResamplerBase>::adopt(
          createStreamResampler(outputRate, stream, samples))) {
}

CSonimbraSoftwareSound::~CSonimbraSoftwareSound() {
    // Streams and samples count without atomics: they are let go under the lock only.
    const CScopedLock lock(getLock());
    Resampler.reset();
}

bool CSonimbraSoftwareSound::setPlaybackSpeed(float speed) {
    const CScopedLock lock(getLock());
    if (!isActive()) {
        return false;
    }
    PlaybackSpeed = limited(speed, 0.01f, 5.0f);
    return true;
}

float CSonimbraSoftwareSound::getPlaybackSpeed() {
    const CScopedLock lock(getLock());
    return PlaybackSpeed;
}

std::uint32_t CSonimbraSoftwareSound::getPlayPosition() {
    const CScopedLock lock(getLock());
    if (!isActive()) {
        return UINT32_MAX;
    }
    const auto rate = static_cast<std::uint64_t>(Resampler->getFormat().SampleRate);
    return static_cast<std::uint32_t>(std::uint64_t(PlayedFrames) * 1000 / rate);
}

bool CSonimbraSoftwareSound::setPlayPosition(std::uint32_t milliseconds) {
    // The decoder may call the application, which may end and drop the sound.
    const auto held = counted_ptr<CSonimbraSound>::share(this);
    const CScopedLock lock(getLock());
    if (!isActive() || IsReading || Resampler->getSourceFormat().FrameCount < 1) {
        return false;
    }
    const CReading reading(*this);
    const sonimbra::SAudioStreamFormat& source = Resampler->getSourceFormat();
    const double wanted = milliseconds * static_cast<double>(source.SampleRate) / 1000.0;
    const std::int32_t frame = std::min(truncatedToInt32(wanted), source.FrameCount);
    if (!Resampler->setPosition(frame)) {
        return false;
    }
    const double ratio = static_cast<double>(Resampler->getFormat().SampleRate) / source.SampleRate;
    PlayedFrames = truncatedToUint32(ratio * frame);
    return true;
}

void CSonimbraSoftwareSound::updateListenerRelation(float globalVolume,
                                                    const sonimbra::vec3df& listenerPosition,
                                                    const sonimbra::vec3df& listenerLookDirection,
                                                    const sonimbra::vec3df& listenerUpVector,
                                                    bool linearRolloff, float) {
    if (Resampler) {
        apply3DInSoftware(globalVolume, listenerPosition, listenerLookDirection, listenerUpVector,
                          linearRolloff);
    }
}

void CSonimbraSoftwareSound::releaseBuffer() {
    IsReleased = IsReading;
    if (IsReading) {
        return;
    }
    PlayedFrames = 0;
    Resampler.reset();
}

void CSonimbraSoftwareSound::prefetchState() const {
    if (Resampler) {
        Resampler->prefetchState();
    }
}

void CSonimbraSoftwareSound::prefetchSamples(std::int32_t frameCount) const {
    if (Resampler) {
        Resampler->prefetchSamples(frameCount);
    }
}

void CSonimbraSoftwareSound::render(CMixBlock& block) {
    const CReading reading(*this);
    renderFrames(block);
}

void CSonimbraSoftwareSound::renderFrames(CMixBlock& block) {
    std::int16_t* const frames = block.beginVoice();
    const std::int32_t channels = Resampler->getReadChannelCount();
    const bool isHeard = isAudible(); // which reading may change
    const std::int32_t rendered =
        Resampler->readChannels(isHeard ? frames : nullptr, block.getFrameCount(), PlaybackSpeed);
    PlayedFrames += truncatedToUint32(static_cast<float>(rendered) * PlaybackSpeed);
    if (rendered < block.getFrameCount()) {
        renderEnd(block, isHeard ? frames : nullptr, rendered);
    } else if (isHeard) {
        block.addVoice(channels, getGains());
    } else {
        block.addSilence();
    }
}

/// Frames of null are silence.
void CSonimbraSoftwareSound::renderEnd(CMixBlock& block, const std::int16_t* frames,
                                       std::int32_t rendered) {
    std::int16_t* const scratch = block.getScratch();
    if (frames == nullptr) {
        std::fill_n(scratch, 2 * block.getFrameCount(), std::int16_t(0));
    } else if (Resampler->getReadChannelCount() == 1) {
        spread(frames, rendered, scratch);
    } else {
        std::copy_n(frames, 2 * rendered, scratch);
    }
    applyGains(scratch, block.getFrameCount(), getGains());
    if (isLoopedFlagSet()) {
        startOver(scratch, block.getFrameCount(), rendered);
    } else {
        finish(scratch, block.getFrameCount(), rendered);
    }
    if (frames != nullptr) {
        block.addScratch();
    }
}

SGains CSonimbraSoftwareSound::getGains() const {
    return gainsOf(BufferVolume, BufferPan);
}

/// One restart completes the block; what a shorter sound leaves of it is silent.
void CSonimbraSoftwareSound::startOver(std::int16_t* target, std::int32_t frameCount,
                                       std::int32_t rendered) {
    std::int32_t total = rendered;
    if (Resampler->setPosition(0)) {
        std::int16_t* const rest = target + 2 * rendered;
        total += Resampler->read(rest, frameCount - rendered, PlaybackSpeed);
        applyGains(rest, frameCount - rendered, getGains());
    }
    std::fill(target + 2 * total, target + 2 * frameCount, std::int16_t(0));
    PlayedFrames = truncatedToUint32(static_cast<float>(total) * PlaybackSpeed);
}

/// The silence behind the last frame is reckoned in frames of the source's sample size. For 8-bit
/// sources it covers bytes 2r to 2n, half of where the frames stand: the second half of what was
/// rendered falls silent, and the end of the block keeps what stood there. It is meant to be so.
void CSonimbraSoftwareSound::finish(std::int16_t* target, std::int32_t frameCount,
                                    std::int32_t rendered) {
    const std::int32_t frameSize = Resampler->getFormat().getFrameSize();
    auto* bytes = reinterpret_cast<unsigned char*>(target);
    std::memset(bytes + rendered * frameSize, 0,
                static_cast<std::size_t>((frameCount - rendered) * frameSize));
    releaseBuffer();
}

} // namespace sn_internal

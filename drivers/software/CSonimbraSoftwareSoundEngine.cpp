// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraSoftwareSoundEngine.h"

#include "core/CVirtualUnknown.h"
#include "core/no_throw.h"
#include "drivers/software/CMixBlock.h"
#include "drivers/software/CSonimbraSoftwareSound.h"
#include "streams/CSonimbraBufferedSamplesAudioStream.h"

#include <algorithm>

namespace sn_internal {
namespace {

/// Every sound of these engines was made by them.
CSonimbraSoftwareSound& toSoftwareSound(CSonimbraSound* sound) {
    return static_cast<CSonimbraSoftwareSound&>(*sound);
}

/// Walks a few sounds ahead of the mixer and has the processor fetch what they will need. With
/// thousands of sounds their buffers do not stay in the cache from one output buffer to the next.
class CLookahead {
public:
    CLookahead(const CPlayingSounds::CList& sounds, std::int32_t frameCount)
        : End(sounds.end()),
          Sound(sounds.begin()),
          State(Sound),
          Samples(Sound),
          FrameCount(frameCount) {
        while (Distance < SamplesAhead + 2 * StageDistance) {
            advance();
        }
    }

    void advance() {
        ++Distance;
        if (Sound != End) {
            toSoftwareSound(*Sound).prefetchSound();
            ++Sound;
        }
        if (Distance > StageDistance && State != End) {
            toSoftwareSound(*State).prefetchState();
            ++State;
        }
        if (Distance > 2 * StageDistance && Samples != End) {
            toSoftwareSound(*Samples).prefetchSamples(FrameCount);
            ++Samples;
        }
    }

private:
    /// How many sounds one stage runs ahead of the next, and the last one ahead of the mixer.
    static constexpr std::int32_t StageDistance = 4;
    static constexpr std::int32_t SamplesAhead = 3;

    const CPlayingSounds::CList::iterator End;
    CPlayingSounds::CList::iterator Sound;
    CPlayingSounds::CList::iterator State;
    CPlayingSounds::CList::iterator Samples;
    const std::int32_t FrameCount;
    std::int32_t Distance = 0;
};

} // namespace

bool CSonimbraSoftwareSoundEngine::setMixedDataOutputReceiver(
    sonimbra::ISoundMixedOutputReceiver* receiver) {
    const CScopedLock lock(getLock());
    Receiver = receiver;
    return true;
}

sonimbra::ISound* CSonimbraSoftwareSoundEngine::createDriverSound(CSonimbraBufferedSamples* samples,
                                                                  sonimbra::ISoundSource* source,
                                                                  bool looped, bool,
                                                                  float minDistance,
                                                                  float maxDistance, bool) {
    if (samples == nullptr) {
        return nullptr;
    }
    const CScopedLock lock(getLock());
    const auto stream = counted_ptr<CSonimbraBufferedSamplesAudioStream>::adopt(
        new CSonimbraBufferedSamplesAudioStream(samples));
    return createSound(stream.get(), stream.get(), source, looped, minDistance, maxDistance);
}

sonimbra::ISound* CSonimbraSoftwareSoundEngine::createDriverStream(sonimbra::IAudioStream* stream,
                                                                   sonimbra::ISoundSource* source,
                                                                   bool looped, bool,
                                                                   float minDistance,
                                                                   float maxDistance, bool) {
    const CScopedLock lock(getLock());
    return createSound(stream, nullptr, source, looped, minDistance, maxDistance);
}

/// Of what kind a stream is cannot be asked: it may be the application's, made without type
/// information.
sonimbra::ISound* CSonimbraSoftwareSoundEngine::createSound(
    sonimbra::IAudioStream* stream, CSonimbraBufferedSamplesAudioStream* samples,
    sonimbra::ISoundSource* source, bool looped, float minDistance, float maxDistance) {
    auto* own = dynamic_cast<CSonimbraSoundSource*>(source);
    if (own == nullptr || !own->belongsTo(getLink())) {
        return nullptr;
    }
    return new sonimbra::CVirtualUnknown<CSonimbraSoftwareSound>(
        getLink(), own, stream, samples, getOutputRate(), looped, minDistance, maxDistance);
}

bool CSonimbraSoftwareSoundEngine::hasActiveSound() const {
    for (CSonimbraSound* sound : getSounds().getPlaying()) {
        if (toSoftwareSound(sound).isActive()) {
            return true;
        }
    }
    return false;
}

void CSonimbraSoftwareSoundEngine::mix(std::int16_t* target, std::int32_t frameCount) {
    if (hasActiveSound()) {
        for (std::int32_t done = 0; done < frameCount; done += CMixBlock::LargestBlock) {
            mixBlock(target + OutputChannels * done,
                     std::min(frameCount - done, CMixBlock::LargestBlock));
        }
    } else {
        std::fill_n(target, OutputChannels * frameCount, std::int16_t(0));
    }
    if (Receiver != nullptr) {
        const auto byteCount =
            static_cast<std::int32_t>(OutputChannels * sizeof(std::int16_t)) * frameCount;
        withoutExceptions([&] { Receiver->OnAudioDataReady(target, byteCount, getOutputRate()); });
    }
}

void CSonimbraSoftwareSoundEngine::mixBlock(std::int16_t* target, std::int32_t frameCount) {
    const CPlayingSounds::CWalk walk(getSounds());
    CMixBlock block(frameCount);
    CLookahead lookahead(getSounds().getPlaying(), frameCount);
    // Sounds that are started from inside come at the end: they begin with the next block.
    auto playing = getSounds().getPlaying().begin();
    for (std::uint32_t i = getSounds().getPlaying().getSize(); i > 0; --i, ++playing) {
        lookahead.advance();
        CSonimbraSoftwareSound& sound = toSoftwareSound(*playing);
        if (sound.isActive() && !sound.isPaused()) {
            sound.render(block);
        }
    }
    block.finish(target);
}

} // namespace sn_internal

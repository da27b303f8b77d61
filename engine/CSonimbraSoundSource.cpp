// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSonimbraSoundSource.h"

#include "core/integers.h"
#include "core/log.h"
#include "core/no_throw.h"
#include "engine/CSonimbraSound.h"
#include "engine/CSonimbraSoundEngine.h"
#include "io/IFileSystem.h"

#include <algorithm>

namespace sn_internal {

using sonimbra::E_STREAM_MODE;

namespace {

/// Sounds of at most so many bytes of samples are decoded into memory in automatic mode.
constexpr std::int32_t LargestAutomaticSize = 512000;

} // namespace

/// Locks a source, and holds it: opening its file may call the application, which may remove it.
class CSonimbraSoundSource::CUse {
public:
    explicit CUse(CSonimbraSoundSource& source)
        : Held(counted_ptr<CSonimbraSoundSource>::share(&source)), Lock(source.getLock()) {}

private:
    const counted_ptr<CSonimbraSoundSource> Held; // let go after the lock
    const CScopedLock Lock;
};

class CSonimbraSoundSource::COpening {
public:
    explicit COpening(CSonimbraSoundSource& source) : Source(source) { Source.IsOpening = true; }
    ~COpening() { Source.IsOpening = false; }
    COpening(const COpening&) = delete;
    COpening& operator=(const COpening&) = delete;

private:
    CSonimbraSoundSource& Source;
};

CSonimbraSoundSource::CSonimbraSoundSource(const CEngineLinkPtr& link, const char* name,
                                           E_STREAM_MODE mode)
    : Link(link), Name(name), StreamMode(mode) {
}

CSonimbraSoundSource::~CSonimbraSoundSource() {
    // The application may drop its own last reference on any thread.
    const CScopedLock lock(getLock());
    detachAllSounds();
    CachedSamples.reset();
    DriverData.reset();
}

std::int32_t CSonimbraSoundSource::getPlayLength() {
    const CUse use(*this);
    makeSureFormatIsKnown();
    if (Format.ChannelCount == 0 || Format.SampleRate == 0 || Format.FrameCount < 0) {
        return -1;
    }
    return truncatedToInt32(static_cast<float>(Format.FrameCount * 1000.0 / Format.SampleRate));
}

sonimbra::SAudioStreamFormat CSonimbraSoundSource::getAudioFormat() {
    const CUse use(*this);
    makeSureFormatIsKnown();
    return Format;
}

bool CSonimbraSoundSource::getIsSeekingSupported() {
    const CUse use(*this);
    makeSureFormatIsKnown();
    return SeekingSupported;
}

void CSonimbraSoundSource::setDefaultVolume(float volume) {
    DefaultVolume = limited(volume, 0.0f, 1.0f);
}

float CSonimbraSoundSource::getDefaultMinDistance() {
    const float own = DefaultMinDistance;
    if (own > 0.0f) {
        return own;
    }
    const CScopedLock lock(getLock());
    return getEngine() != nullptr ? getEngine()->getDefault3DSoundMinDistance() : 1.0f;
}

float CSonimbraSoundSource::getDefaultMaxDistance() {
    const float own = DefaultMaxDistance;
    if (own > 0.0f) {
        return own;
    }
    const CScopedLock lock(getLock());
    return getEngine() != nullptr ? getEngine()->getDefault3DSoundMaxDistance() : 1000000000.0f;
}

void CSonimbraSoundSource::forceReloadAtNextUse() {
    const CScopedLock lock(getLock());
    CachedSamples.reset();
    DriverData.reset();
}

void* CSonimbraSoundSource::getSampleData() {
    const CUse use(*this);
    makeSureFormatIsKnown();
    return CachedSamples ? CachedSamples->getData() : nullptr;
}

void CSonimbraSoundSource::loadNow(io::IFileSystem* fileSystem) {
    const CUse use(*this);
    withoutExceptions([&] { play(fileSystem, nullptr); });
}

sonimbra::ISound* CSonimbraSoundSource::createSound(io::IFileSystem* fileSystem, bool looped,
                                                    bool is3D, bool enableSoundEffects,
                                                    float minDistance, float maxDistance) {
    const CScopedLock lock(getLock());
    const SSoundRequest request = {looped, is3D, enableSoundEffects, minDistance, maxDistance};
    return withoutExceptions(static_cast<sonimbra::ISound*>(nullptr),
                             [&] { return play(fileSystem, &request); });
}

sonimbra::IFileReader* CSonimbraSoundSource::openFile(io::IFileSystem* fileSystem) {
    return fileSystem == nullptr ? nullptr : fileSystem->createAndOpenFile(Name.c_str());
}

/// Whoever is asked for the file may ask the source in turn.
sonimbra::ISound* CSonimbraSoundSource::play(io::IFileSystem* fileSystem,
                                             const SSoundRequest* request) {
    if (getEngine() == nullptr || IsOpening) {
        return nullptr;
    }
    const COpening opening(*this);
    if (CachedSamples) {
        return makeSoundFromSamples(request);
    }
    const auto file = counted_ptr<sonimbra::IFileReader>::adopt(openFile(fileSystem));
    if (!file) {
        logTextWithHint("Could not open sound file", Name.c_str());
        return nullptr;
    }
    const auto stream = counted_ptr<sonimbra::IAudioStream>::adopt(
        getEngine()->createAudioStreamForFile(*file.get()));
    return stream ? playStream(*stream.get(), request) : nullptr;
}

sonimbra::ISound* CSonimbraSoundSource::playStream(sonimbra::IAudioStream& stream,
                                                   const SSoundRequest* request) {
    Format = stream.getFormat();
    SeekingSupported = stream.getIsSeekingSupported();
    decideStreamMode();
    if (StreamMode != E_STREAM_MODE::Streaming) {
        decode(stream);
        return makeSoundFromSamples(request);
    }
    if (request == nullptr) {
        return nullptr;
    }
    return getEngine()->createDriverStream(&stream, this, request->looped, request->is3D,
                                           request->minDistance, request->maxDistance,
                                           request->enableSoundEffects);
}

sonimbra::ISound* CSonimbraSoundSource::makeSoundFromSamples(const SSoundRequest* request) {
    if (request == nullptr) {
        return nullptr;
    }
    return getEngine()->createDriverSound(CachedSamples.get(), this, request->looped, request->is3D,
                                          request->minDistance, request->maxDistance,
                                          request->enableSoundEffects);
}

void CSonimbraSoundSource::decideStreamMode() {
    const bool isLengthKnown = Format.FrameCount >= 0;
    const std::int32_t size = Format.getSampleDataSize();
    const E_STREAM_MODE mode = StreamMode;
    if (mode == E_STREAM_MODE::AutoDetect) {
        StreamMode = isLengthKnown && size <= LargestAutomaticSize ? E_STREAM_MODE::NoStreaming
                                                                   : E_STREAM_MODE::Streaming;
    } else if (mode != E_STREAM_MODE::Streaming) {
        const std::int32_t threshold = ForcedStreamingThreshold;
        if (!isLengthKnown || (threshold >= 1 && size > threshold)) {
            logTextWithHint("No streaming was specified, but forcing to play sound streamed (See "
                            "ISoundSource::setForcedStreamingThreshold)",
                            Name.c_str());
            StreamMode = E_STREAM_MODE::Streaming;
        }
    }
}

/// Into samples that nobody else can let go of meanwhile.
void CSonimbraSoundSource::decode(sonimbra::IAudioStream& stream) {
    const sonimbra::SAudioStreamFormat format = Format;
    auto samples =
        counted_ptr<CSonimbraBufferedSamples>::adopt(new CSonimbraBufferedSamples(format, nullptr));
    // A length that lies can wrap around: never read more than the buffer holds.
    std::int32_t readable = 0;
    if (samples->getData() != nullptr) {
        readable = std::min(format.FrameCount, format.getSampleDataSize() / format.getFrameSize());
    }
    std::int32_t arrived = 0;
    if (readable > 0) {
        arrived = std::clamp(stream.readFrames(samples->getData(), readable), 0, readable);
    }
    if (arrived < format.FrameCount) {
        samples->shortenTo(arrived);
    }
    CachedSamples = std::move(samples);
}

/// Playing a source once, paused, opens it: that fills the format and settles the stream mode.
void CSonimbraSoundSource::makeSureFormatIsKnown() {
    if (Format.ChannelCount != 0 || getEngine() == nullptr) {
        return;
    }
    if (sonimbra::ISound* sound = getEngine()->play2D(this, false, true, false, false)) {
        sound->stop();
        sound->drop();
    }
}

void CSonimbraSoundSource::attachSound(CSonimbraSound& sound) {
    sound.SourceLinks = {nullptr, FirstSound};
    if (FirstSound != nullptr) {
        FirstSound->SourceLinks.previous = &sound;
    }
    FirstSound = &sound;
}

void CSonimbraSoundSource::detachSound(CSonimbraSound& sound) {
    const auto [previous, next] = sound.SourceLinks;
    (previous != nullptr ? previous->SourceLinks.next : FirstSound) = next;
    if (next != nullptr) {
        next->SourceLinks.previous = previous;
    }
    sound.SourceLinks = {};
    sound.Source = nullptr;
}

void CSonimbraSoundSource::detachAllSounds() {
    while (FirstSound != nullptr) {
        detachSound(*FirstSound);
    }
}

} // namespace sn_internal

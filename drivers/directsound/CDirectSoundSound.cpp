// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CDirectSoundSound.h"

#include "core/integers.h"
#include "core/log.h"
#include "drivers/directsound/CBufferLock.h"
#include "drivers/directsound/first_channel.h"
#include "drivers/directsound/volume.h"
#include "engine/CSonimbraSoundSource.h"

#include <algorithm>
#include <cstring>

namespace sn_internal {
namespace {

constexpr DWORD CommonFlags =
    DSBCAPS_GETCURRENTPOSITION2 | DSBCAPS_CTRLVOLUME | DSBCAPS_CTRLFREQUENCY;

static_assert(sizeof(WAVEFORMATEX) == 18);

/// The extra size is no extra size: it is kept at the record's own one, which PCM ignores.
WAVEFORMATEX waveFormatOf(const sonimbra::SAudioStreamFormat& format) {
    const auto sampleSize = static_cast<std::uint32_t>(format.getSampleSize());
    const auto channels = static_cast<std::uint32_t>(format.ChannelCount);
    WAVEFORMATEX wave = {};
    wave.wFormatTag = WAVE_FORMAT_PCM;
    wave.nChannels = static_cast<WORD>(channels);
    wave.nSamplesPerSec = static_cast<DWORD>(format.SampleRate);
    wave.wBitsPerSample = static_cast<WORD>(sampleSize * 8);
    wave.nBlockAlign = static_cast<WORD>(sampleSize * channels);
    wave.nAvgBytesPerSec = wave.nBlockAlign * wave.nSamplesPerSec;
    wave.cbSize = 18;
    return wave;
}

} // namespace

CDirectSoundSound::CDirectSoundSound(const SDirectSoundGeneration& generation,
                                     const SDirectSoundSoundArguments& arguments)
    : CSonimbraSound(arguments.link, arguments.source, arguments.looped, arguments.minDistance,
                     arguments.maxDistance),
      Generation(generation),
      Resources(arguments.resources),
      Device(arguments.device),
      GlobalFocus(arguments.globalFocus),
      Wants3DBuffer(arguments.wants3DBuffer),
      WantsEffects(arguments.wantsEffects && generation.hasEffects) {
    const CScopedLock lock(getLock());
    Resources->add(this);
}

CDirectSoundSound::CDirectSoundSound(const SDirectSoundGeneration& generation,
                                     const SDirectSoundSoundArguments& arguments,
                                     CSonimbraBufferedSamples* samples)
    : CDirectSoundSound(generation, arguments) {
    Samples = counted_ptr<CSonimbraBufferedSamples>::share(samples);
    computeBytesPerSecond(samples->getFormat());
    if (shareBuffer()) {
        return;
    }
    createBuffer(samples->getFormat(), false);
    if (Buffer) {
        fill(*samples);
    }
    if (Buffer) {
        offerBuffer();
    }
}

CDirectSoundSound::~CDirectSoundSound() {
    // What is let go here counts without atomics, and the engine could release it as well.
    const CScopedLock lock(getLock());
    CDirectSoundSound::releaseBuffer();
    Samples.reset();
    Resources->remove(this);
}

/// Of the source: where only the first channel is held, positions in time are half of what is
/// heard.
void CDirectSoundSound::computeBytesPerSecond(const sonimbra::SAudioStreamFormat& format) {
    BytesPerSecond =
        static_cast<std::uint32_t>(wrappingProduct(format.getFrameSize(), format.SampleRate));
}

com_ptr<IDirectSoundBuffer> CDirectSoundSound::usable(com_ptr<IDirectSoundBuffer> created) const {
    if (!created || Generation.bufferInterface == nullptr) {
        return created;
    }
    com_ptr<IDirectSoundBuffer> wanted; // IDirectSoundBuffer8 begins like the older one
    if (FAILED(created->QueryInterface(*Generation.bufferInterface, wanted.putVoid()))) {
        wanted.reset();
    }
    return wanted;
}

bool CDirectSoundSound::shareBuffer() {
    if (WantsEffects || Wants3DBuffer) {
        return false;
    }
    auto* reusable = static_cast<CReusableDSSoundBuffers*>(getAttachedSource()->getDriverData());
    if (reusable == nullptr || reusable->getBuffer() == nullptr) {
        return false;
    }
    com_ptr<IDirectSoundBuffer> duplicate;
    if (FAILED(Device->DuplicateSoundBuffer(reusable->getBuffer(), duplicate.put()))) {
        return false;
    }
    Buffer = usable(std::move(duplicate));
    if (!Buffer) {
        return false;
    }
    IsDownmixed = reusable->isDownmixed();
    Reusable = counted_ptr<CReusableDSSoundBuffers>::share(reusable);
    return true;
}

void CDirectSoundSound::offerBuffer() {
    if (WantsEffects) {
        return;
    }
    CSonimbraSoundSource& source = *getAttachedSource();
    if (source.getDriverData() == nullptr) {
        source.setDriverData(
            counted_ptr<sonimbra::IRefCounted>::adopt(new CReusableDSSoundBuffers(Resources)));
    }
    Reusable = counted_ptr<CReusableDSSoundBuffers>::share(
        static_cast<CReusableDSSoundBuffers*>(source.getDriverData()));
    if (Buffer3D) {
        Reusable->setBuffer3D(Buffer.get());
    } else {
        Reusable->setBuffer(Buffer.get(), IsDownmixed);
    }
}

DWORD CDirectSoundSound::getBufferFlags(bool isStream) const {
    DWORD flags = CommonFlags | (Wants3DBuffer ? DSBCAPS_CTRL3D : DSBCAPS_CTRLPAN);
    if (GlobalFocus) {
        flags |= DSBCAPS_GLOBALFOCUS;
    }
    if (WantsEffects) {
        flags |= DSBCAPS_CTRLFX;
    } else if (!isStream) {
        flags |= DSBCAPS_STATIC;
    }
    return flags;
}

void CDirectSoundSound::createBuffer(const sonimbra::SAudioStreamFormat& format, bool isStream) {
    computeBytesPerSecond(format);
    sonimbra::SAudioStreamFormat held = format;
    IsDownmixed = Wants3DBuffer && format.ChannelCount > 1;
    if (IsDownmixed) {
        held.ChannelCount = 1;
    }
    WAVEFORMATEX wave = waveFormatOf(held);
    DSBUFFERDESC description = {};
    description.dwSize = sizeof(description);
    description.dwFlags = getBufferFlags(isStream);
    description.dwBufferBytes = static_cast<DWORD>(held.getSampleDataSize());
    description.lpwfxFormat = &wave;
    com_ptr<IDirectSoundBuffer> created;
    if (FAILED(Device->CreateSoundBuffer(&description, created.put(), nullptr))) {
        created.reset();
    }
    Buffer = usable(std::move(created));
    if (!Buffer) {
        logText("Could not create sound buffer");
        return;
    }
    if (Wants3DBuffer &&
        (FAILED(Buffer->QueryInterface(IID_IDirectSound3DBuffer, Buffer3D.putVoid())) ||
         !Buffer3D)) {
        Buffer3D.reset();
        logText("Could not create 3d sound buffer, now emulating using software");
    }
}

void CDirectSoundSound::fill(const CSonimbraBufferedSamples& samples) {
    const sonimbra::SAudioStreamFormat& format = samples.getFormat();
    const auto wholeSize = static_cast<DWORD>(format.getSampleDataSize());
    const DWORD size =
        IsDownmixed ? wholeSize / static_cast<DWORD>(format.ChannelCount) : wholeSize;
    for (const bool isFirst : {true, false}) {
        const CBufferLock memory(*Buffer.get(), 0, size);
        if (memory.isLocked()) {
            copyInto(memory, samples);
            return;
        }
        if (!isFirst || !memory.isLost() || FAILED(Buffer->Restore())) {
            break;
        }
    }
    logText("Could not lock sound buffer");
    Buffer.reset();
    Buffer3D.reset();
}

void CDirectSoundSound::copyInto(const CBufferLock& memory,
                                 const CSonimbraBufferedSamples& samples) const {
    const sonimbra::SAudioStreamFormat& format = samples.getFormat();
    const auto* data = static_cast<const unsigned char*>(samples.getData());
    const CBufferLock::SRegion& region = memory.getRegion(0);
    const auto wholeSize = static_cast<DWORD>(format.getSampleDataSize());
    if (data == nullptr || region.bytes == nullptr) {
        return;
    }
    if (IsDownmixed) {
        const DWORD frameCount = std::min(region.size / static_cast<DWORD>(format.getSampleSize()),
                                          wholeSize / static_cast<DWORD>(format.getFrameSize()));
        copyFirstChannel(data, frameCount, format, region.bytes);
    } else {
        std::memcpy(region.bytes, data, std::min(region.size, wholeSize));
    }
}

void CDirectSoundSound::refillLostBuffer() {
    if (Samples) {
        fill(*Samples.get());
    }
}

bool CDirectSoundSound::startBuffer(DWORD flags) {
    HRESULT result = Buffer->Play(0, 0, flags);
    if (result == DSERR_BUFFERLOST && SUCCEEDED(Buffer->Restore())) {
        refillLostBuffer();
        if (!Buffer) {
            releaseBuffer(); // and what belongs to it
            return false;
        }
        result = Buffer->Play(0, 0, flags);
    }
    return SUCCEEDED(result);
}

void CDirectSoundSound::stopBuffer() {
    if (Buffer) {
        Buffer->Stop();
    }
}

void CDirectSoundSound::playBuffer() {
    if (Buffer) {
        startBuffer(isLoopedFlagSet() ? DSBPLAY_LOOPING : 0);
    }
}

bool CDirectSoundSound::isBufferFinished() {
    if (!Buffer) {
        return true;
    }
    if (isPaused()) {
        return false;
    }
    DWORD status = 0;
    return FAILED(Buffer->GetStatus(&status)) || (status & DSBSTATUS_PLAYING) == 0;
}

/// The sign is turned round on purpose, as in the software mixer.
void CDirectSoundSound::setBufferPan(float pan) {
    if (Buffer) {
        Buffer->SetPan(truncatedToInt32(static_cast<double>(pan) * -10000.0));
    }
}

void CDirectSoundSound::setBufferVolume(float volume) {
    if (Buffer) {
        Buffer->SetVolume(toHundredthsOfDecibel(volume));
    }
}

void CDirectSoundSound::releaseBuffer() {
    if (Buffer) {
        Buffer->Stop();
    }
    Buffer.reset();
    Buffer3D.reset();
    Reusable.reset();
}

void CDirectSoundSound::updateListenerRelation(float globalVolume,
                                               const sonimbra::vec3df& listenerPosition,
                                               const sonimbra::vec3df& listenerLookDirection,
                                               const sonimbra::vec3df& listenerUpVector,
                                               bool linearRolloff, float) {
    if (!Buffer3D) {
        apply3DInSoftware(globalVolume, listenerPosition, listenerLookDirection, listenerUpVector,
                          linearRolloff);
        return;
    }
    const sonimbra::vec3df position = getPosition();
    const sonimbra::vec3df velocity = getVelocity();
    Buffer3D->SetMinDistance(getMinDistance(), DS3D_IMMEDIATE);
    Buffer3D->SetMaxDistance(getMaxDistance(), DS3D_IMMEDIATE);
    Buffer3D->SetPosition(position.X, position.Y, position.Z, DS3D_IMMEDIATE);
    Buffer3D->SetVelocity(velocity.X, velocity.Y, velocity.Z, DS3D_IMMEDIATE);
    setBufferVolume(getVolume() * globalVolume);
}

void CDirectSoundSound::setIsLooped(bool looped) {
    const CScopedLock lock(getLock());
    if (!isPlayable()) {
        return;
    }
    CSonimbraSound::setIsLooped(looped);
    if (!isPaused()) {
        playBuffer();
    }
}

std::uint32_t CDirectSoundSound::getPlayPosition() {
    const CScopedLock lock(getLock());
    DWORD cursor = 0;
    if (BytesPerSecond == 0 || !isPlayable() ||
        FAILED(Buffer->GetCurrentPosition(&cursor, nullptr))) {
        return UINT32_MAX;
    }
    return static_cast<std::uint32_t>(std::uint64_t(cursor) * 1000 / BytesPerSecond);
}

bool CDirectSoundSound::setPlayPosition(std::uint32_t milliseconds) {
    const CScopedLock lock(getLock());
    return isPlayable() && SUCCEEDED(Buffer->SetCurrentPosition(
                               truncatedToUint32(milliseconds / 1000.0 * BytesPerSecond)));
}

bool CDirectSoundSound::knowsCreationFrequency() {
    DWORD frequency = 0;
    if (CreationFrequency == -1 && SUCCEEDED(Buffer->GetFrequency(&frequency))) {
        CreationFrequency = wrap32(frequency);
    }
    return CreationFrequency != -1;
}

bool CDirectSoundSound::setPlaybackSpeed(float speed) {
    const CScopedLock lock(getLock());
    return speed >= 0.0f && isPlayable() && knowsCreationFrequency() &&
           SUCCEEDED(Buffer->SetFrequency(
               truncatedToUint32(static_cast<float>(CreationFrequency) * speed)));
}

float CDirectSoundSound::getPlaybackSpeed() {
    const CScopedLock lock(getLock());
    DWORD frequency = 0;
    if (!isPlayable() || !knowsCreationFrequency() || CreationFrequency == 0 ||
        FAILED(Buffer->GetFrequency(&frequency))) {
        return 1.0f;
    }
    return static_cast<float>(frequency) /
           static_cast<float>(static_cast<std::uint32_t>(CreationFrequency));
}

} // namespace sn_internal

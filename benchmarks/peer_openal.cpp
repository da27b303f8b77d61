// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// OpenAL Soft's rows in the comparison: its loopback device, rendered as fast as it goes.

#include "benchmarks/tone.h"
#include "benchmarks/voices.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <cmath>
#include <cstring>

namespace benchmarks {
namespace {

/// Stereo, 44100 Hz, 16 bits, and no work beside mixing: neither virtual ears nor a limiter.
class CLoopback {
public:
    CLoopback()
        : Device(function<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT")(nullptr)) {
        const ALCint attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                                     ALC_STEREO_SOFT,
                                     ALC_FORMAT_TYPE_SOFT,
                                     ALC_SHORT_SOFT,
                                     ALC_FREQUENCY,
                                     OutputRate,
                                     ALC_MONO_SOURCES,
                                     4096,
                                     ALC_STEREO_SOURCES,
                                     4096,
                                     ALC_HRTF_SOFT,
                                     ALC_FALSE,
                                     ALC_OUTPUT_LIMITER_SOFT,
                                     ALC_FALSE,
                                     0};
        Context = Device == nullptr ? nullptr : alcCreateContext(Device, attributes);
        alcMakeContextCurrent(Context);
    }
    ~CLoopback() {
        alcMakeContextCurrent(nullptr);
        alcDestroyContext(Context);
        alcCloseDevice(Device);
    }
    CLoopback(const CLoopback&) = delete;
    CLoopback& operator=(const CLoopback&) = delete;

    bool isOpen() const { return Context != nullptr; }
    void render(std::int16_t* target) { Render(Device, target, BlockFrames); }

private:
    template <class T>
    static T function(const char* name) {
        return reinterpret_cast<T>(alcGetProcAddress(nullptr, name));
    }

    ALCdevice* const Device;
    ALCcontext* Context;
    const LPALCRENDERSAMPLESSOFT Render = function<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
};

/// The number of the resampler of this name, -1 if there is none.
ALint findResampler(const char* name) {
    const auto getName = reinterpret_cast<LPALGETSTRINGISOFT>(alGetProcAddress("alGetStringiSOFT"));
    for (ALint i = alGetInteger(AL_NUM_RESAMPLERS_SOFT) - 1; i >= 0; --i) {
        if (std::strcmp(getName(AL_RESAMPLER_NAME_SOFT, i), name) == 0) {
            return i;
        }
    }
    return -1;
}

/// Mono sounds are panned by their place, stereo ones by turning their two channels.
void panSource(ALuint source, float pan) {
    const ALfloat angles[] = {0.52f + pan, -0.52f + pan};
    alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
    alSource3f(source, AL_POSITION, pan, 0.0f, -std::sqrt(1.0f - pan * pan));
    alSourcefv(source, AL_STEREO_ANGLES, angles);
}

void startSource(ALuint source, ALuint buffer, const SVoice& voice, float speed, ALint resampler) {
    alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
    alSourcei(source, AL_LOOPING, AL_TRUE);
    alSourcei(source, AL_SOURCE_RESAMPLER_SOFT, resampler);
    alSourcei(source, AL_SAMPLE_OFFSET, voice.startFrame);
    alSourcef(source, AL_GAIN, voice.volume);
    alSourcef(source, AL_PITCH, speed);
    panSource(source, voice.pan);
    alSourcePlay(source);
}

ALuint makeBuffer(const SVoices& voices) {
    const auto samples = makeSweep(voices.channels, voices.rate);
    ALuint buffer = 0;
    alGenBuffers(1, &buffer);
    alBufferData(buffer, voices.channels == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16,
                 samples.data(), static_cast<ALsizei>(samples.size() * sizeof(std::int16_t)),
                 voices.rate);
    return buffer;
}

std::vector<ALuint> startSources(const SVoices& voices, ALuint buffer, ALint resampler) {
    std::vector<ALuint> sources(static_cast<std::size_t>(voices.count));
    alGenSources(voices.count, sources.data());
    for (std::int32_t i = 0; i < voices.count; ++i) {
        startSource(sources[static_cast<std::size_t>(i)], buffer, voices.get(i), voices.speed,
                    resampler);
    }
    return sources;
}

void mixByOpenAL(benchmark::State& state, const char* resamplerName) {
    const SVoices voices(state, true);
    CLoopback loopback;
    const ALint resampler = loopback.isOpen() ? findResampler(resamplerName) : -1;
    if (resampler < 0) {
        state.SkipWithError("no loopback device with this resampler");
        return;
    }
    ALuint buffer = makeBuffer(voices);
    const auto sources = startSources(voices, buffer, resampler);
    if (alGetError() != AL_NO_ERROR) {
        state.SkipWithError("some source does not play");
        return;
    }
    std::int16_t target[2 * BlockFrames];
    for (auto _ : state) {
        loopback.render(target);
        benchmark::DoNotOptimize(target);
    }
    reportVoiceCost(state, voices);
    alDeleteSources(voices.count, sources.data());
    alDeleteBuffers(1, &buffer);
}

BENCHMARK_CAPTURE(mixByOpenAL, linear, "Linear")->Name("peers/OpenAL_linear")->Apply(compareVoices);
BENCHMARK_CAPTURE(mixByOpenAL, cubic, "Cubic")->Name("peers/OpenAL_cubic")->Apply(compareVoices);

} // namespace
} // namespace benchmarks

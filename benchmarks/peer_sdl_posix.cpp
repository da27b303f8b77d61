// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// SDL2_mixer's rows in the comparison. It converts a sound to the output's rate and channels when
// it is loaded; what it does later is to mix, and only that is measured.

#include "benchmarks/tone.h"
#include "benchmarks/voices.h"
#include "tests/support/wav.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <atomic>
#include <semaphore>

#include <time.h>

namespace benchmarks {
namespace {

double threadSeconds() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// SDL's own audio thread mixes. This holds it between two blocks, at its two hooks, and takes its
/// processor time from the one at the beginning of a block to the one at the end. A thread that is
/// held has the device's lock: make one after everything that needs the device.
class CSteppedMixer {
public:
    CSteppedMixer() {
        Mix_SetPostMix(&CSteppedMixer::endBlock, this);
        Mix_HookMusic(&CSteppedMixer::beginBlock, this);
    }
    ~CSteppedMixer() {
        IsClosing = true;
        Begin.release();
        Mix_CloseAudio(); // keeps the hooks for the next device
        Mix_HookMusic(nullptr, nullptr);
        Mix_SetPostMix(nullptr, nullptr);
    }
    CSteppedMixer(const CSteppedMixer&) = delete;
    CSteppedMixer& operator=(const CSteppedMixer&) = delete;

    /// Mixes a block; returns the processor time that it took, in seconds.
    double mix() {
        Begin.release();
        End.acquire();
        return Seconds;
    }

private:
    static void beginBlock(void* self, Uint8* block, int byteCount) {
        SDL_memset(block, 0, static_cast<std::size_t>(byteCount));
        static_cast<CSteppedMixer*>(self)->begin();
    }
    static void endBlock(void* self, Uint8*, int) { static_cast<CSteppedMixer*>(self)->end(); }

    void begin() {
        if (!IsClosing) {
            Begin.acquire();
        }
        Seconds = threadSeconds();
        HasBegun = true;
    }
    void end() {
        Seconds = threadSeconds() - Seconds;
        if (HasBegun && !IsClosing) {
            End.release();
        }
    }

    std::binary_semaphore Begin{0};
    std::binary_semaphore End{0};
    std::atomic<bool> IsClosing = false;
    bool HasBegun = false; ///< the first block may have begun without the hook
    double Seconds = 0.0;
};

/// SDL's device that writes to a file without waiting.
bool openFastDevice() {
    SDL_setenv("SDL_AUDIODRIVER", "disk", 1);
    SDL_setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    SDL_setenv("SDL_DISKAUDIODELAY", "0", 1);
    SDL_setenv("SDL_NO_SIGNAL_HANDLERS", "1", 1); // who interrupts the benchmarks means it
    SDL_LogSetAllPriority(SDL_LOG_PRIORITY_CRITICAL);
    return SDL_InitSubSystem(SDL_INIT_AUDIO) == 0 &&
           Mix_OpenAudioDevice(OutputRate, AUDIO_S16SYS, 2, BlockFrames, nullptr, 0) == 0;
}

/// Loaded as a file, which converts it. SDL cuts a chunk to whole blocks of conversion.
Mix_Chunk* loadChunk(const SVoices& voices) {
    const auto file = sn_test::wavFile({.channels = static_cast<std::uint16_t>(voices.channels),
                                        .sampleRate = static_cast<std::uint32_t>(voices.rate)},
                                       sn_test::packed16(makeSweep(voices.channels, voices.rate)));
    return Mix_LoadWAV_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())), 1);
}

/// All start at the beginning: there is no other way.
void startChannels(const SVoices& voices, Mix_Chunk* chunk) {
    Mix_AllocateChannels(voices.count);
    for (std::int32_t i = 0; i < voices.count; ++i) {
        const SVoice voice = voices.get(i);
        const auto right = static_cast<Uint8>(127.5f * (1.0f + voice.pan));
        Mix_Volume(i, static_cast<int>(voice.volume * MIX_MAX_VOLUME));
        Mix_SetPanning(i, static_cast<Uint8>(255 - right), right);
        Mix_PlayChannel(i, chunk, -1);
    }
}

void mixBySDL(benchmark::State& state) {
    const SVoices voices(state, true);
    Mix_Chunk* chunk = openFastDevice() ? loadChunk(voices) : nullptr;
    if (chunk == nullptr) {
        state.SkipWithError(SDL_GetError());
        return;
    }
    startChannels(voices, chunk);
    {
        CSteppedMixer mixer;
        for (auto _ : state) {
            state.SetIterationTime(mixer.mix());
        }
    }
    reportVoiceCost(state, voices);
    Mix_FreeChunk(chunk);
}

BENCHMARK(mixBySDL)->Name("peers/SDL_mixer")->Apply(compareVoicesAtNormalSpeed)->UseManualTime();

} // namespace
} // namespace benchmarks

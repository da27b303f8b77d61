// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// What it saves that sounds of one source share a DirectSound buffer: memory and time of a hundred
// sounds that do, and of a hundred that may take effects and therefore have buffers of their own.

#include "benchmarks/tone.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include <windows.h>

#include <psapi.h>

namespace {

using CClock = std::chrono::steady_clock;

constexpr int SoundCount = 100;
constexpr int Repetitions = 8;

struct SCost {
    double bytes;
    double seconds;
};

double residentBytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return static_cast<double>(counters.WorkingSetSize);
}

SCost startSounds(sonimbra::ISoundEngine& engine, bool shared) {
    auto samples = benchmarks::makeSweep(2, 44100);
    sonimbra::ISoundSource* const source =
        benchmarks::addSamples(engine, "sweep", samples, 2, 44100);
    std::vector<benchmarks::TOwned<sonimbra::ISound>> sounds;
    const double before = residentBytes();
    const CClock::time_point start = CClock::now();
    for (int i = 0; i < SoundCount; ++i) {
        sounds.emplace_back(engine.play2D(source, false, true, true, !shared));
    }
    const std::chrono::duration<double> passed = CClock::now() - start;
    const double bytes = residentBytes() - before;
    const bool hasAll = std::all_of(sounds.begin(), sounds.end(), [](const auto& sound) {
        return sound && sound->getPlayPosition() == 0;
    });
    engine.removeAllSoundSources();
    return hasAll ? SCost{bytes, passed.count()} : SCost{};
}

/// The memory of the first time, because later ones get what it has freed; the least time.
bool measure(const char* what, bool shared) {
    SCost cost = {};
    for (int i = 0; i < Repetitions; ++i) {
        const benchmarks::TOwned<sonimbra::ISoundEngine> engine(
            sonimbra::createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::DirectSound8, 0));
        const SCost now = engine ? startSounds(*engine, shared) : SCost{};
        if (now.seconds <= 0) {
            std::fprintf(stderr, "DirectSound 8 does not play here\n");
            return false;
        }
        cost = {i == 0 ? now.bytes : cost.bytes,
                i == 0 ? now.seconds : std::min(cost.seconds, now.seconds)};
    }
    std::printf("%-12s %6.2f MB %7.2f ms\n", what, cost.bytes / 1e6, cost.seconds * 1e3);
    return true;
}

} // namespace

int main() {
    return measure("shared", true) && measure("not shared", false) ? 0 : 1;
}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// How long a call can be kept waiting by the mixer, which holds the engine's lock while it mixes: a
// thread renders at the pace of a device, and the application sets a volume at random times.

#include "benchmarks/kernels.h"
#include "benchmarks/tone.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <random>
#include <thread>

namespace benchmarks {
namespace {

using CClock = std::chrono::steady_clock;
using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::nanoseconds;

constexpr std::int32_t CallCount = 10000;
constexpr std::chrono::duration<double, std::micro> LongestPause{1000};

/// A block every 5.8 ms, like a driver.
class CPacedRenderer {
public:
    explicit CPacedRenderer(sonimbra::IOfflineSoundEngine& engine)
        : Engine(engine), Thread([this] { run(); }) {}
    ~CPacedRenderer() {
        IsStopping = true;
        Thread.join();
    }
    CPacedRenderer(const CPacedRenderer&) = delete;
    CPacedRenderer& operator=(const CPacedRenderer&) = delete;

    /// The processor's share that mixing took, and the longest block.
    double getBusyShare() const { return Busy / (Blocks * BlockSeconds); }
    double getLongestBlock() const { return Longest; }

private:
    static constexpr double BlockSeconds = static_cast<double>(BlockFrames) / OutputRate;

    void run() {
        const auto begin = CClock::now();
        std::int16_t target[2 * BlockFrames];
        while (!IsStopping) {
            const auto blockBegin = CClock::now();
            Engine.renderFrames(target, BlockFrames);
            const std::chrono::duration<double> taken = CClock::now() - blockBegin;
            Busy = Busy + taken.count();
            Longest = std::max<double>(Longest, taken.count());
            Blocks = Blocks + 1;
            std::this_thread::sleep_until(
                begin +
                duration_cast<nanoseconds>(std::chrono::duration<double>(Blocks * BlockSeconds)));
        }
    }

    sonimbra::IOfflineSoundEngine& Engine;
    std::atomic<bool> IsStopping = false;
    std::atomic<std::int32_t> Blocks = 0;
    std::atomic<double> Busy = 0.0;
    std::atomic<double> Longest = 0.0;
    std::thread Thread; ///< the last member: it uses the others
};

/// How long each call of setVolume took, in microseconds, sorted.
std::vector<double> measureCalls(sonimbra::ISound& sound) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> pause(0.0, LongestPause.count());
    std::vector<double> taken;
    taken.reserve(CallCount);
    for (std::int32_t i = 0; i < CallCount; ++i) {
        std::this_thread::sleep_for(std::chrono::duration<double, std::micro>(pause(random)));
        const auto begin = CClock::now();
        sound.setVolume(static_cast<float>(i % 7) * 0.1f);
        taken.push_back(std::chrono::duration<double, std::micro>(CClock::now() - begin).count());
    }
    std::sort(taken.begin(), taken.end());
    return taken;
}

double percentile(const std::vector<double>& sorted, double percent) {
    const auto last = static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(0.01 * percent * last)];
}

void reportWaits(benchmark::State& state, const std::vector<double>& waits) {
    state.counters["wait_us_p50"] = percentile(waits, 50.0);
    state.counters["wait_us_p90"] = percentile(waits, 90.0);
    state.counters["wait_us_p99"] = percentile(waits, 99.0);
    state.counters["wait_us_p99_9"] = percentile(waits, 99.9);
    state.counters["wait_us_max"] = waits.back();
}

void waitForMixer(benchmark::State& state, const std::string& kernels) {
    const CKernelChoice choice(kernels);
    const SVoices voices(state);
    const auto engine = playVoices(voices);
    const TOwned<sonimbra::ISound> sound(
        engine->play2D(engine->getSoundSource(0), true, true, true));
    for (auto _ : state) {
        const CPacedRenderer renderer(*engine);
        reportWaits(state, measureCalls(*sound));
        state.counters["mixing_percent"] = 100.0 * renderer.getBusyShare();
        state.counters["block_us_max"] = 1e6 * renderer.getLongestBlock();
    }
}

[[maybe_unused]] const bool Registered = [] {
    for (const std::string& name : getKernelNames()) {
        benchmark::RegisterBenchmark(("lock/setVolume_while_" + name).c_str(), waitForMixer, name)
            ->ArgNames({"voices", "channels", "rate"})
            ->Args({1024, 1, 22050})
            ->Args({1024, 2, 22050})
            ->Iterations(1)
            ->UseRealTime()
            ->Unit(benchmark::kSecond);
    }
    return true;
}();

} // namespace
} // namespace benchmarks

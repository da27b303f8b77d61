// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// What a voice costs: microseconds of processor time for one voice and one second of output, for
// the whole mixing path and for the raw resampler on the same input, in the same run.

#include "benchmarks/tone.h"
#include "benchmarks/voices.h"

#include <benchmark/benchmark.h>
#include <dumb.h>

#include <algorithm>

namespace benchmarks {
namespace {

constexpr std::int32_t RefillFrames = 2048;

void mixVoices(benchmark::State& state, float volume, float pan) {
    const SVoices voices(state);
    const auto engine = makeEngine();
    auto samples = makeSweep(voices.channels, voices.rate);
    sonimbra::ISoundSource* source =
        addSamples(*engine, "sweep", samples, voices.channels, voices.rate);
    for (std::int32_t i = 0; i < voices.count; ++i) {
        const TOwned<sonimbra::ISound> sound(engine->play2D(source, true, true, true));
        sound->setVolume(volume);
        sound->setPan(pan);
        sound->setPlayPosition(static_cast<std::uint32_t>(i * 7 % 1900)); // refill at other times
        sound->setIsPaused(false);
    }
    std::int16_t target[2 * BlockFrames];
    for (auto _ : state) {
        engine->renderFrames(target, BlockFrames);
        benchmark::DoNotOptimize(target);
    }
    reportVoiceCost(state, voices);
}

void mixAtGainsOfOne(benchmark::State& state) {
    mixVoices(state, 1.0f, 0.0f);
}
void mixAtOtherGains(benchmark::State& state) {
    mixVoices(state, 0.5f, 0.05f);
}

/// One channel of one voice, resampled by the bare calls that no mixer on this resampler can avoid.
class CRawChannel {
public:
    CRawChannel(const std::vector<sample_t>& samples, std::size_t start)
        : Samples(samples), Next(start) {
        dumb_reset_resampler(&Resampler, const_cast<sample_t*>(Samples.data()) + Next, 1, 0, 0,
                             RefillFrames);
        advance();
    }

    void render(sample_t* target, float step) {
        long done = 0;
        while (done < BlockFrames) {
            const long got =
                dumb_resample_1_1(&Resampler, target + done, BlockFrames - done, 1.0f, step);
            done += got;
            if (got == 0) {
                refill();
            }
        }
    }

private:
    void refill() {
        Resampler.src = const_cast<sample_t*>(Samples.data()) + Next;
        Resampler.pos = 0;
        Resampler.subpos = 0;
        Resampler.dir = 1;
        advance();
    }
    void advance() {
        Next += RefillFrames;
        if (Next + RefillFrames > Samples.size()) {
            Next = RefillFrames;
        }
    }

    const std::vector<sample_t>& Samples;
    std::size_t Next;
    DUMB_RESAMPLER Resampler;
};

void resampleOnly(benchmark::State& state) {
    const SVoices voices(state);
    const auto sweep = makeSweep(1, voices.rate);
    const std::vector<sample_t> samples(sweep.begin(), sweep.end());
    const float step = static_cast<float>(voices.rate) / OutputRate;
    std::vector<CRawChannel> channels;
    for (std::int32_t i = 0; i < voices.count * voices.channels; ++i) {
        channels.emplace_back(samples, static_cast<std::size_t>(RefillFrames + i % 8 * 1000));
    }
    sample_t target[BlockFrames];
    for (auto _ : state) {
        for (CRawChannel& channel : channels) {
            std::fill_n(target, BlockFrames, 0);
            channel.render(target, step);
            benchmark::DoNotOptimize(target);
        }
    }
    reportVoiceCost(state, voices);
}

void voiceArguments(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"voices", "channels", "rate"});
    benchmark->ArgsProduct({{1, 64, 256, 1024, 4096}, {1, 2}, {22050, 44100}});
    benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(resampleOnly)->Apply(voiceArguments);
BENCHMARK(mixAtGainsOfOne)->Apply(voiceArguments);
BENCHMARK(mixAtOtherGains)->Apply(voiceArguments);

} // namespace
} // namespace benchmarks

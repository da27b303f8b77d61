// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "benchmarks/tone.h"

#include <cmath>

namespace benchmarks {

using namespace sonimbra;

std::vector<std::int16_t> makeSweep(std::int32_t channelCount, std::int32_t sampleRate) {
    const std::int32_t frameCount = 2 * sampleRate;
    std::vector<std::int16_t> samples;
    samples.reserve(static_cast<std::size_t>(frameCount * channelCount));
    double phase = 0.0;
    for (std::int32_t i = 0; i < frameCount; ++i) {
        phase += 0.01 + 0.5 * i / frameCount;
        for (std::int32_t c = 0; c < channelCount; ++c) {
            samples.push_back(static_cast<std::int16_t>(32000.0 * std::sin(phase + c)));
        }
    }
    return samples;
}

SAudioStreamFormat formatOf(const std::vector<std::int16_t>& samples, std::int32_t channelCount,
                            std::int32_t sampleRate) {
    SAudioStreamFormat format;
    format.ChannelCount = channelCount;
    format.FrameCount = static_cast<std::int32_t>(samples.size()) / channelCount;
    format.SampleRate = sampleRate;
    format.SampleFormat = E_SAMPLE_FORMAT::Signed16Bit;
    return format;
}

TOwned<IOfflineSoundEngine> makeEngine() {
    const int silent = 0;
    return TOwned<IOfflineSoundEngine>(createSonimbraOfflineDevice(silent));
}

ISoundSource* addSamples(ISoundEngine& engine, const char* name, std::vector<std::int16_t>& samples,
                         std::int32_t channelCount, std::int32_t sampleRate) {
    const auto byteCount = static_cast<std::int32_t>(samples.size() * sizeof(std::int16_t));
    return engine.addSoundSourceFromPCMData(samples.data(), byteCount, name,
                                            formatOf(samples, channelCount, sampleRate), true);
}

namespace {

void startVoice(ISoundEngine& engine, ISoundSource* source, const SVoices& voices, std::int32_t i) {
    const SVoice voice = voices.get(i);
    const TOwned<ISound> sound(engine.play2D(source, true, true, true));
    sound->setVolume(voice.volume);
    sound->setPan(voice.pan);
    sound->setPlaybackSpeed(voices.speed);
    sound->setPlayPosition(static_cast<std::uint32_t>(voice.startFrame));
    sound->setIsPaused(false);
}

} // namespace

TOwned<IOfflineSoundEngine> playVoices(const SVoices& voices) {
    auto engine = makeEngine();
    auto samples = makeSweep(voices.channels, voices.rate);
    ISoundSource* source = addSamples(*engine, "sweep", samples, voices.channels, voices.rate);
    for (std::int32_t i = 0; i < voices.count; ++i) {
        startVoice(*engine, source, voices, i);
    }
    return engine;
}

void mixVoices(benchmark::State& state, const SVoices& voices) {
    const auto engine = playVoices(voices);
    std::int16_t target[2 * BlockFrames];
    for (auto _ : state) {
        engine->renderFrames(target, BlockFrames);
        benchmark::DoNotOptimize(target);
    }
    reportVoiceCost(state, voices);
}

} // namespace benchmarks

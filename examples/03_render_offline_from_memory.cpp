// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Computes a tone, plays it two seconds long on an engine without a device, and shows the peak:
//
//     example_03_render_offline_from_memory [OUT.raw]
//
// It shows sounds that are no files, and the offline engine: the application itself pulls the mixed
// output, faster than real time and the same on every run. Tools and tests work like this.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <sonimbra/sonimbra.h>

using namespace sonimbra;

// One second of 440 Hz at half of full scale, one channel, 22050 frames a second.
static std::vector<std::int16_t> makeTone() {
    std::vector<std::int16_t> samples(22050);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double phase = 2.0 * 3.14159265358979 * 440.0 * static_cast<double>(i) / 22050.0;
        samples[i] = static_cast<std::int16_t>(16384.0 * std::sin(phase));
    }
    return samples;
}

// Gives the engine raw samples under a name; files in memory go through addSoundSourceFromMemory.
static ISoundSource* addTone(ISoundEngine* engine) {
    std::vector<std::int16_t> samples = makeTone();
    SAudioStreamFormat format;
    format.ChannelCount = 1;
    format.FrameCount = static_cast<std::int32_t>(samples.size());
    format.SampleRate = 22050;
    format.SampleFormat = E_SAMPLE_FORMAT::Signed16Bit;
    // The engine copies the samples, so they may go when this function returns. The source belongs
    // to the engine: there is nothing to drop.
    return engine->addSoundSourceFromPCMData(samples.data(), format.getSampleDataSize(), "tone",
                                             format);
}

static bool save(const char* fileName, const std::vector<std::int16_t>& output) {
    std::FILE* file = std::fopen(fileName, "wb");
    if (file == nullptr) {
        return false;
    }
    const bool written =
        std::fwrite(output.data(), sizeof(std::int16_t), output.size(), file) == output.size();
    return std::fclose(file) == 0 && written;
}

int main(int argc, char** argv) {
    // No option bits: no thread, no messages.
    IOfflineSoundEngine* engine = createSonimbraOfflineDevice(0);
    if (engine == nullptr) {
        std::fputs("The offline engine could not be made.\n", stderr);
        return EXIT_FAILURE;
    }
    const bool looped = true; // the tone is one second long, we want two
    engine->play2D(addTone(engine), looped);

    // The output is always 44100 frames a second, each a left and a right 16-bit sample.
    const std::int32_t frameCount = 2 * 44100;
    std::vector<std::int16_t> output(std::size_t{2} * frameCount);
    const bool rendered = engine->renderFrames(output.data(), frameCount) == frameCount;
    engine->drop();

    int peak = 0;
    for (const std::int16_t sample : output) {
        peak = std::max(peak, std::abs(int{sample}));
    }
    std::printf("Rendered 2 seconds, peak %.1f %%\n", peak * 100.0 / 32768.0);
    if (argc > 1 && !save(argv[1], output)) {
        std::fprintf(stderr, "Cannot write %s\n", argv[1]);
        return EXIT_FAILURE;
    }
    // Silence would mean that the tone was not played.
    return rendered && peak > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Recordings and modules that people made, from the folder that SONIMBRA_REAL_FILES names.

#include "streams/CSonimbraAudioStreamLoaderMOD.h"
#include "streams/CSonimbraAudioStreamLoaderOGG.h"
#include "tests/support/decoder_reference.h"
#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>

namespace {

using namespace sn_test;
using namespace sn_internal;
namespace fs = std::filesystem;

constexpr std::int32_t BlockFrames = 4096;

std::string extensionOf(const fs::path& path) {
    return path.extension() == ".oga" ? ".ogg" : path.extension().string();
}

/// By extension; every kind has to be there.
std::map<std::string, std::vector<fs::path>> realFiles() {
    std::map<std::string, std::vector<fs::path>> files;
    for (const char* kind : {".wav", ".ogg", ".mod", ".xm", ".s3m", ".it"}) {
        files[kind];
    }
    const char* const folder = std::getenv("SONIMBRA_REAL_FILES");
    if (folder != nullptr) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.is_regular_file() && files.count(extensionOf(entry.path())) != 0) {
                files[extensionOf(entry.path())].push_back(entry.path());
            }
        }
    }
    return files;
}

Bytes contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

TEST(RealFiles, DecodeAsTheirLibrariesDo) {
    for (const auto& [kind, paths] : realFiles()) {
        EXPECT_FALSE(paths.empty()) << "no " << kind << " in SONIMBRA_REAL_FILES";
        for (const fs::path& path : kind == ".wav" ? std::vector<fs::path>() : paths) {
            const Bytes file = contentOf(path);
            long length = 0;
            const bool isOgg = kind == ".ogg";
            const auto stream = isOgg ? openedBy<CSonimbraAudioStreamLoaderOGG>(file)
                                      : openedBy<CSonimbraAudioStreamLoaderMOD>(file);
            ASSERT_TRUE(stream) << path;
            const Samples expected =
                isOgg ? decodedByVorbisfile(file) : decodedByDumb(file, BlockFrames, length);
            EXPECT_EQ(readToEnd(*stream.get(), BlockFrames), expected) << path;
            if (!isOgg) {
                EXPECT_EQ(stream->getFormat().FrameCount, length) << path;
            }
        }
    }
}

/// The first seconds of a file, played by name, as the engine mixes them.
Samples played(const fs::path& path, sonimbra::E_STREAM_MODE mode) {
    const OfflineEngine engine = offlineEngine();
    sonimbra::ISoundSource* const source =
        engine->addSoundSourceFromFile(path.string().c_str(), mode);
    source->setForcedStreamingThreshold(0);
    engine->play2D(source);
    Samples output(2 * 3 * 44100);
    engine->renderFrames(output.data(), 3 * 44100);
    return output;
}

double energyOf(const Samples& samples) {
    return std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
}

/// DUMB smoothes clicks for each block that it is asked for, so modules differ in a few samples.
TEST(RealFiles, SoundTheSameFromMemoryAndStreamed) {
    for (const auto& [kind, paths] : realFiles()) {
        for (std::size_t i = 0; i < std::min<std::size_t>(paths.size(), 3); ++i) {
            const Samples streamed = played(paths[i], sonimbra::E_STREAM_MODE::Streaming);
            const Samples inMemory = played(paths[i], sonimbra::E_STREAM_MODE::NoStreaming);
            EXPECT_GT(energyOf(streamed), 1e9) << paths[i];
            EXPECT_NEAR(energyOf(inMemory) / energyOf(streamed), 1.0, 0.05) << paths[i];
            if (kind == ".wav" || kind == ".ogg") {
                EXPECT_EQ(inMemory, streamed) << paths[i];
            }
        }
    }
}

} // namespace

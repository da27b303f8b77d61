// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// make_corpus FOLDER: writes the seeds of the fuzz targets, a folder for each.

#include "tests/support/wav.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace {

using namespace sn_test;
namespace fs = std::filesystem;

struct SSeed {
    const char* name;
    Bytes file;
};

std::vector<SSeed> wavSeeds() {
    const Bytes samples = countingBytes(96);
    return {
        {"mono8", wavFile({1, 11025, 8}, samples)},
        {"stereo8", wavFile({2, 22050, 8}, samples)},
        {"mono16", wavFile({1, 44100, 16}, samples)},
        {"stereo16", wavFile({2, 48000, 16}, samples)},
        {"mono24", wavFile({1, 44100, 24}, samples)},
        {"stereo24", wavFile({2, 96000, 24}, samples)},
        {"long_format", riffFile({formatChunk({}, 24), dataChunk(samples)})},
        {"data_first", riffFile({dataChunk(samples), formatChunk({})})},
        {"list_between", riffFile({formatChunk({}), {"LIST", Bytes(26)}, dataChunk(samples)})},
        {"data_too_long", riffFile({formatChunk({}), dataChunk(samples, 0x7fffff00)})},
        {"data_wraps", riffFile({formatChunk({}), dataChunk(samples, 0xffffffff)})},
        {"seeks_backward", riffFile({formatChunk({}), {"LIST", {}, 0xfffffff8}})},
        {"float", wavFile({2, 44100, 32, 3}, samples)},
        {"no_channels", wavFile({0, 44100, 16}, samples)},
    };
}

/// Reads of several lengths, seeks, and reads again; see the fuzz target.
Bytes wavScript() {
    return {1, 9, 0x88, 30, 0x80, 12, 0xa0, 12, 0xbf, 127, 0xdf, 5, 0xc3, 40, 0x81, 127};
}

bool write(const fs::path& path, Bytes bytes, const Bytes& file) {
    bytes.insert(bytes.end(), file.begin(), file.end());
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
    out.close();
    return static_cast<bool>(out);
}

bool writeWavSeeds(const fs::path& folder) {
    fs::create_directories(folder);
    bool ok = true;
    for (const SSeed& seed : wavSeeds()) {
        ok = write(folder / seed.name, wavScript(), seed.file) && ok;
    }
    return ok;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_corpus FOLDER\n");
        return 2;
    }
    return writeWavSeeds(fs::path(argv[1]) / "wav") ? 0 : 1;
}

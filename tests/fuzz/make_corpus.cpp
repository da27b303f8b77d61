// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// make_corpus FOLDER: writes the seeds of the fuzz targets, a folder for each.

#include "tests/support/wav.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace {

using namespace sn_test;
namespace fs = std::filesystem;

std::map<std::string, Bytes> wavSeeds() {
    const Bytes samples = countingBytes(96);
    return {
        {"mono8", wavFile({1, 11025, 8}, samples)},
        {"stereo16", wavFile({2, 48000, 16}, samples)},
        {"stereo24", wavFile({2, 96000, 24}, samples)},
        {"data_first", riffFile({dataChunk(samples), formatChunk({})})},
        {"list_between", riffFile({formatChunk({}), {"LIST", Bytes(26)}, dataChunk(samples)})},
        {"data_too_long", riffFile({formatChunk({}), dataChunk(samples, 0x7fffff00)})},
        {"data_wraps", riffFile({formatChunk({}), dataChunk(samples, 0xffffffff)})},
        {"seeks_backward", riffFile({formatChunk({}), {"LIST", {}, 0xfffffff8}})},
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
    return static_cast<bool>(out.flush());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    const fs::path folder = fs::path(argv[1]) / "wav";
    fs::create_directories(folder);
    bool ok = true;
    for (const auto& [name, file] : wavSeeds()) {
        ok = write(folder / name, wavScript(), file) && ok;
    }
    return ok ? 0 : 1;
}

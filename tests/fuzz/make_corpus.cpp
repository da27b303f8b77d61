// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// make_corpus FOLDER: writes the seeds of the fuzz targets, a folder for each.

#include "tests/support/modules.h"
#include "tests/support/ogg.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace {

using namespace sn_test;
namespace fs = std::filesystem;

using TSeeds = std::map<std::string, Bytes>;

Bytes joined(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TSeeds wavSeeds() {
    const Bytes samples = countingBytes(96);
    TSeeds seeds = {
        {"mono8", wavFile({1, 11025, 8}, samples)},
        {"stereo16", wavFile({2, 48000, 16}, samples)},
        {"stereo24", wavFile({2, 96000, 24}, samples)},
        {"data_first", riffFile({dataChunk(samples), formatChunk({})})},
        {"list_between", riffFile({formatChunk({}), {"LIST", Bytes(26)}, dataChunk(samples)})},
        {"data_too_long", riffFile({formatChunk({}), dataChunk(samples, 0x7fffff00)})},
        {"data_wraps", riffFile({formatChunk({}), dataChunk(samples, 0xffffffff)})},
        {"seeks_backward", riffFile({formatChunk({}), {"LIST", {}, 0xfffffff8}})},
    };
    // Reads of several lengths, seeks, and reads again; see the fuzz target.
    const Bytes script = {1,    9,   0x88, 30, 0x80, 12, 0xa0, 12,
                          0xbf, 127, 0xdf, 5,  0xc3, 40, 0x81, 127};
    for (auto& [name, file] : seeds) {
        file = joined(script, file);
    }
    return seeds;
}

TSeeds oggSeeds() {
    const Bytes mono = oggFile({.channels = 1, .rate = 8000, .frames = 3000, .noise = 0.2f});
    return {
        {"mono", mono},
        {"stereo", oggFile({.frames = 2000})},
        {"empty", oggFile({.frames = 0})},
        {"chained",
         joined(mono, oggFile({.channels = 1, .rate = 8000, .frames = 900, .serial = 2}))},
    };
}

TSeeds moduleSeeds(Bytes (*write)(const SModule&)) {
    using enum E_MODULE_EFFECT;
    return {
        {"plain", write({.envelopeNodes = 3})},
        {"looped", write({.effects = {{2, PatternLoop, 0}, {5, PatternLoop, 2}}})},
        {"jumps", write({.orders = 3, .effects = {{3, JumpToOrder, 2}, {9, BreakToRow, 5}}})},
        {"timed", write({.effects = {{1, Speed, 1}, {2, Tempo, 200}}, .sampleFrames = 200})},
    };
}

bool write(const fs::path& folder, const TSeeds& seeds) {
    fs::create_directories(folder);
    bool ok = true;
    for (const auto& [name, bytes] : seeds) {
        std::ofstream out(folder / name, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
        ok = static_cast<bool>(out.flush()) && ok;
    }
    return ok;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    const std::map<std::string, TSeeds> seeds = {
        {"wav", wavSeeds()},         {"ogg", oggSeeds()},           {"mod", moduleSeeds(modFile)},
        {"xm", moduleSeeds(xmFile)}, {"s3m", moduleSeeds(s3mFile)}, {"it", moduleSeeds(itFile)},
    };
    bool ok = true;
    for (const auto& [name, files] : seeds) {
        ok = write(fs::path(argv[1]) / name, files) && ok;
    }
    return ok ? 0 : 1;
}

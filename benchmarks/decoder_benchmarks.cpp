// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// What the streams cost beside the libraries that decode: a minute of sound through the stream and
// by the library's own calls, in blocks of the same size; what the way to its first block costs;
// and how often opening a module reaches the application's file reader.

#include "benchmarks/tone.h"
#include "io/CMemoryReadFile.h"
#include "streams/CSonimbraAudioStreamLoaderMOD.h"
#include "streams/CSonimbraAudioStreamLoaderOGG.h"
#include "tests/support/CScriptedFile.h"
#include "tests/support/modules.h"
#include "tests/support/ogg.h"

#include <benchmark/benchmark.h>
#include <dumb.h>
#include <vorbis/vorbisfile.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace benchmarks {
namespace {

using sn_test::Bytes;

constexpr std::int32_t Rate = 44100;

const Bytes& oggMinute() {
    static const Bytes file = sn_test::oggFile({.frames = 60 * Rate, .noise = 0.1f});
    return file;
}

/// Eight passes through the pattern: 61 seconds.
const Bytes& moduleMinute() {
    static const Bytes file = sn_test::itFile({.orders = 8});
    return file;
}

/// Decodes all again and again: rewind() prepares for it, and read(target, frames) returns frames.
template <class TRewind, class TRead>
void decodeAll(benchmark::State& state, TRewind rewind, TRead read) {
    const auto blockFrames = static_cast<std::int32_t>(state.range(0));
    std::vector<std::int16_t> target(2 * static_cast<std::size_t>(blockFrames));
    for (auto _ : state) {
        rewind();
        while (read(target.data(), blockFrames) == blockFrames) {
            benchmark::DoNotOptimize(target.data());
        }
    }
}

template <class TLoader>
void decodeByStream(benchmark::State& state, const Bytes& bytes) {
    TLoader loader(nullptr);
    const TOwned<sonimbra::IFileReader> file(new sn_internal::io::CMemoryReadFile(
        bytes.data(), static_cast<std::int32_t>(bytes.size()), "minute", false));
    const TOwned<sonimbra::IAudioStream> stream(loader.createAudioStream(file.get()));
    decodeAll(
        state, [&] { stream->setPosition(0); },
        [&](std::int16_t* target, std::int32_t frames) {
            return stream->readFrames(target, frames);
        });
}

void oggByStream(benchmark::State& state) {
    decodeByStream<sn_internal::CSonimbraAudioStreamLoaderOGG>(state, oggMinute());
}

void moduleByStream(benchmark::State& state) {
    decodeByStream<sn_internal::CSonimbraAudioStreamLoaderMOD>(state, moduleMinute());
}

struct SMemory {
    const Bytes& bytes;
    std::size_t position = 0;
};

std::size_t readMemory(void* target, std::size_t size, std::size_t count, void* source) {
    auto& memory = *static_cast<SMemory*>(source);
    const std::size_t got = std::min(size * count, memory.bytes.size() - memory.position);
    std::memcpy(target, memory.bytes.data() + memory.position, got);
    memory.position += got;
    return got / size;
}

int seekMemory(void* source, ogg_int64_t offset, int whence) {
    auto& memory = *static_cast<SMemory*>(source);
    const std::size_t base = whence == SEEK_SET   ? 0
                             : whence == SEEK_CUR ? memory.position
                                                  : memory.bytes.size();
    memory.position = base + static_cast<std::size_t>(offset);
    return 0;
}

long tellMemory(void* source) {
    return static_cast<long>(static_cast<SMemory*>(source)->position);
}

ov_callbacks memoryCallbacks() {
    return {readMemory, seekMemory, nullptr, tellMemory};
}

std::int32_t readOgg(OggVorbis_File& file, std::int16_t* target, std::int32_t frames) {
    const std::int32_t wanted = 4 * frames;
    std::int32_t done = 0;
    int link = 0;
    while (done < wanted) {
        const long got =
            ov_read(&file, reinterpret_cast<char*>(target) + done, wanted - done, 0, 2, 1, &link);
        if (got <= 0) {
            break;
        }
        done += static_cast<std::int32_t>(got);
    }
    return done / 4;
}

void oggByLibrary(benchmark::State& state) {
    SMemory memory{oggMinute()};
    OggVorbis_File file;
    ov_open_callbacks(&memory, &file, nullptr, 0, memoryCallbacks());
    decodeAll(
        state, [&] { ov_pcm_seek(&file, 0); },
        [&](std::int16_t* target, std::int32_t frames) { return readOgg(file, target, frames); });
    ov_clear(&file);
}

DUH* readModule(const Bytes& bytes) {
    DUMBFILE* const file = dumbfile_open_memory(reinterpret_cast<const char*>(bytes.data()),
                                                static_cast<long>(bytes.size()));
    DUH* const duh = dumb_read_it(file);
    dumbfile_close(file);
    return duh;
}

DUH_SIGRENDERER* startModule(DUH* duh) {
    DUH_SIGRENDERER* const renderer = duh_start_sigrenderer(duh, 0, 2, 0);
    dumb_it_set_loop_callback(
        duh_get_it_sigrenderer(renderer), [](void*) { return -1; }, nullptr);
    return renderer;
}

std::int32_t renderModule(DUH_SIGRENDERER* renderer, std::int16_t* target, std::int32_t frames) {
    return static_cast<std::int32_t>(
        duh_render(renderer, 16, 0, 1.0f, 65536.0f / Rate, frames, target));
}

void moduleByLibrary(benchmark::State& state) {
    DUH* const duh = readModule(moduleMinute());
    DUH_SIGRENDERER* renderer = nullptr;
    const auto rewind = [&] {
        duh_end_sigrenderer(renderer);
        renderer = startModule(duh);
    };
    decodeAll(state, rewind, [&](std::int16_t* target, std::int32_t frames) {
        return renderModule(renderer, target, frames);
    });
    duh_end_sigrenderer(renderer);
    unload_duh(duh);
}

void blockSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("frames")->Arg(4096)->Arg(32768)->Unit(benchmark::kMillisecond);
}
BENCHMARK(oggByLibrary)->Apply(blockSizes);
BENCHMARK(oggByStream)->Apply(blockSizes);
BENCHMARK(moduleByLibrary)->Apply(blockSizes);
BENCHMARK(moduleByStream)->Apply(blockSizes);

constexpr std::int32_t FirstBlock = 4096;

/// Opens a minute and reads its first block.
template <class TLoader>
void openByStream(benchmark::State& state, const Bytes& bytes) {
    TLoader loader(nullptr);
    std::vector<std::int16_t> target(2 * FirstBlock);
    for (auto _ : state) {
        const TOwned<sonimbra::IFileReader> file(new sn_internal::io::CMemoryReadFile(
            bytes.data(), static_cast<std::int32_t>(bytes.size()), "minute", false));
        const TOwned<sonimbra::IAudioStream> stream(loader.createAudioStream(file.get()));
        benchmark::DoNotOptimize(stream->readFrames(target.data(), FirstBlock));
    }
}

void openOggByStream(benchmark::State& state) {
    openByStream<sn_internal::CSonimbraAudioStreamLoaderOGG>(state, oggMinute());
}

void openOggByLibrary(benchmark::State& state) {
    const Bytes& bytes = oggMinute();
    std::vector<std::int16_t> target(2 * FirstBlock);
    for (auto _ : state) {
        SMemory memory{bytes};
        OggVorbis_File file;
        ov_open_callbacks(&memory, &file, nullptr, 0, memoryCallbacks());
        benchmark::DoNotOptimize(readOgg(file, target.data(), FirstBlock));
        ov_clear(&file);
    }
}

void openModuleByStream(benchmark::State& state) {
    openByStream<sn_internal::CSonimbraAudioStreamLoaderMOD>(state, moduleMinute());
}

/// DUMB reads the module and runs through it once, for its length.
void openModuleByLibrary(benchmark::State& state) {
    const Bytes& bytes = moduleMinute();
    std::vector<std::int16_t> target(2 * FirstBlock);
    for (auto _ : state) {
        DUH* const duh = readModule(bytes);
        DUH_SIGRENDERER* const renderer = startModule(duh);
        benchmark::DoNotOptimize(renderModule(renderer, target.data(), FirstBlock));
        duh_end_sigrenderer(renderer);
        unload_duh(duh);
    }
}

BENCHMARK(openOggByLibrary);
BENCHMARK(openOggByStream);
BENCHMARK(openModuleByLibrary);
BENCHMARK(openModuleByStream);

/// Opens a module with a long sample, 64 KiB, and counts what reaches the application's reader.
void openModule(benchmark::State& state, Bytes (*write)(const sn_test::SModule&)) {
    const Bytes bytes = write({.sampleFrames = 65000});
    sn_internal::CSonimbraAudioStreamLoaderMOD loader(nullptr);
    for (auto _ : state) {
        const TOwned<sn_test::CScriptedFile> file(new sn_test::CScriptedFile(bytes));
        const TOwned<sonimbra::IAudioStream> stream(loader.createAudioStream(file.get()));
        state.counters["reads_per_2KiB"] = 2048.0 * file->reads / static_cast<double>(bytes.size());
    }
}
BENCHMARK_CAPTURE(openModule, mod, sn_test::modFile);
BENCHMARK_CAPTURE(openModule, xm, sn_test::xmFile);
BENCHMARK_CAPTURE(openModule, s3m, sn_test::s3mFile);
BENCHMARK_CAPTURE(openModule, it, sn_test::itFile);

} // namespace
} // namespace benchmarks

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/decoder_reference.h"

#define OV_EXCLUDE_STATIC_CALLBACKS
#include <dumb.h>
#include <vorbis/vorbisfile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace sn_test {
namespace {

struct SMemory {
    const Bytes& bytes;
    std::size_t position = 0;
};
std::size_t readMemory(void* target, std::size_t, std::size_t count, void* source) {
    auto& memory = *static_cast<SMemory*>(source);
    count = std::min(count, memory.bytes.size() - memory.position);
    std::memcpy(target, memory.bytes.data() + memory.position, count);
    memory.position += count;
    return count;
}
int seekMemory(void* source, ogg_int64_t offset, int whence) {
    auto& memory = *static_cast<SMemory*>(source);
    const std::size_t from[] = {0, memory.position, memory.bytes.size()};
    memory.position = from[whence] + static_cast<std::size_t>(offset);
    return 0;
}
long tellMemory(void* source) {
    return static_cast<long>(static_cast<SMemory*>(source)->position);
}

int stopAtLoop(void*) {
    return 1;
}

DUH* readModuleFrom(const Bytes& file) {
    for (DUH* (*const read)(DUMBFILE*) :
         {dumb_read_mod, dumb_read_xm, dumb_read_s3m, dumb_read_it}) {
        DUMBFILE* source = dumbfile_open_memory(reinterpret_cast<const char*>(file.data()),
                                                static_cast<long>(file.size()));
        DUH* const module = read(source);
        dumbfile_close(source);
        if (module != nullptr) {
            return module;
        }
    }
    return nullptr;
}

} // namespace

Samples decodedByVorbisfile(const Bytes& file) {
    OggVorbis_File vorbis;
    SMemory memory = {file};
    EXPECT_EQ(ov_open_callbacks(&memory, &vorbis, nullptr, 0,
                                {readMemory, seekMemory, nullptr, tellMemory}),
              0);
    Samples samples;
    char block[4096];
    int link = 0;
    for (long got = 1; got > 0;) {
        got = ov_read(&vorbis, block, sizeof(block), 0, 2, 1, &link);
        const auto* first = reinterpret_cast<const std::int16_t*>(block);
        samples.insert(samples.end(), first, first + std::max(got, 0L) / 2);
    }
    ov_clear(&vorbis);
    return samples;
}

Samples decodedByDumb(const Bytes& file, std::int32_t blockFrames, long& length) {
    DUH* const module = readModuleFrom(file);
    EXPECT_NE(module, nullptr);
    length = duh_get_length(module);
    DUH_SIGRENDERER* const renderer = duh_start_sigrenderer(module, 0, 2, 0);
    dumb_it_set_loop_callback(duh_get_it_sigrenderer(renderer), stopAtLoop, nullptr);
    dumb_it_set_xm_speed_zero_callback(duh_get_it_sigrenderer(renderer), stopAtLoop, nullptr);
    Samples samples;
    Samples block(2 * static_cast<std::size_t>(blockFrames));
    for (long got = blockFrames; got == blockFrames;) {
        got = duh_render(renderer, 16, 0, 1.0f, 65536.0f / 44100, blockFrames, block.data());
        samples.insert(samples.end(), block.begin(), block.begin() + 2 * got);
    }
    duh_end_sigrenderer(renderer);
    unload_duh(module);
    return samples;
}

Samples readToEnd(sonimbra::IAudioStream& stream, std::int32_t blockFrames,
                  std::int32_t mostFrames) {
    const auto channels = static_cast<std::size_t>(stream.getFormat().ChannelCount);
    Samples samples;
    Samples block(channels * static_cast<std::size_t>(blockFrames));
    std::int32_t got = blockFrames;
    for (std::int32_t total = 0; got == blockFrames && total < mostFrames; total += got) {
        got = stream.readFrames(block.data(), blockFrames);
        samples.insert(samples.end(), block.begin(),
                       block.begin() + static_cast<std::ptrdiff_t>(channels) * got);
    }
    return samples;
}

} // namespace sn_test

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamOGG.h"

#include "core/integers.h"
#include "core/no_throw.h"

#include <algorithm>
#include <cstddef>

namespace sn_internal {
namespace {

/// The current link of a chained file, or the whole file.
constexpr int Current = -1;

sonimbra::IFileReader& readerBehind(void* source) {
    return *static_cast<sonimbra::IFileReader*>(source);
}

// The decoder is C: no exception of an application's reader may pass through it.

std::size_t readFile(void* buffer, std::size_t size, std::size_t count, void* source) {
    if (size == 0 || count == 0) {
        return 0;
    }
    const auto byteCount =
        static_cast<std::uint32_t>(std::min<std::size_t>(count, INT32_MAX / size) * size);
    const std::int32_t got = withoutExceptions(
        std::int32_t(0), [&] { return readerBehind(source).read(buffer, byteCount); });
    return got <= 0 ? 0 : std::min(static_cast<std::uint32_t>(got), byteCount) / size;
}

/// Never answers -1: the decoder takes every file as seekable.
int seekFile(void* source, ogg_int64_t offset, int whence) {
    const std::int32_t distance = wrap32(offset);
    return withoutExceptions(0, [&]() -> int {
        sonimbra::IFileReader& file = readerBehind(source);
        switch (whence) {
        case SEEK_SET:
            return file.seek(distance, false);
        case SEEK_CUR:
            return file.seek(distance, true);
        default:
            return file.seek(wrappingSum(file.getSize(), distance), false);
        }
    });
}

int closeFile(void*) {
    return 0; // the stream drops the file
}

long tellFile(void* source) {
    return withoutExceptions(0L, [&]() -> long { return readerBehind(source).getPos(); });
}

/// Whether every link's decoder can be started. Where one cannot, the decoder library says so once,
/// takes the half-built code books for good ones the next time, and divides by zero.
bool canDecodeAllLinks(OggVorbis_File& vorbis) {
    for (int link = 0; link < ov_streams(&vorbis); ++link) {
        vorbis_dsp_state state;
        if (vorbis_synthesis_init(&state, ov_info(&vorbis, link)) != 0) {
            return false;
        }
        vorbis_dsp_clear(&state);
    }
    return true;
}

} // namespace

CSonimbraAudioStreamOGG::CSonimbraAudioStreamOGG(sonimbra::IFileReader* file)
    : File(counted_ptr<sonimbra::IFileReader>::share(file)) {
    if (File && !open()) {
        File.reset();
    }
}

CSonimbraAudioStreamOGG::~CSonimbraAudioStreamOGG() {
    if (File) {
        ov_clear(&Vorbis);
    }
}

bool CSonimbraAudioStreamOGG::open() {
    const ov_callbacks callbacks = {readFile, seekFile, closeFile, tellFile};
    if (ov_open_callbacks(File.get(), &Vorbis, nullptr, 0, callbacks) != 0) {
        return false;
    }
    const vorbis_info* info = ov_info(&Vorbis, Current);
    if (info == nullptr || !canDecodeAllLinks(Vorbis)) {
        ov_clear(&Vorbis);
        return false;
    }
    Format.ChannelCount = info->channels;
    Format.SampleRate = wrap32(info->rate);
    Format.FrameCount = wrap32(ov_pcm_total(&Vorbis, Current));
    Format.SampleFormat = sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
    return true;
}

bool CSonimbraAudioStreamOGG::continuesFormat() {
    const vorbis_info* info = ov_info(&Vorbis, Current);
    return info == nullptr ||
           (wrap32(info->rate) == Format.SampleRate && info->channels == Format.ChannelCount);
}

std::int32_t CSonimbraAudioStreamOGG::readFrames(void* target, std::int32_t frameCountToRead) {
    constexpr int littleEndian = 0;
    constexpr int wordSize = 2;
    constexpr int signedSamples = 1;
    if (!File) {
        return 0;
    }
    const std::int32_t frameSize = Format.getFrameSize();
    char* write = static_cast<char*>(target);
    std::int32_t remaining = frameCountToRead;
    std::int32_t holes = 0;
    while (remaining > 0 && continuesFormat()) {
        int link = 0;
        const auto wanted = std::min<std::int64_t>(std::int64_t(frameSize) * remaining, INT32_MAX);
        const long got = ov_read(&Vorbis, write, static_cast<int>(wanted), littleEndian, wordSize,
                                 signedSamples, &link);
        if (got == 0) {
            break;
        }
        if (got < 0) {
            if (++holes >= remaining) {
                break;
            }
            continue;
        }
        write += got;
        remaining -= static_cast<std::int32_t>(got / frameSize);
    }
    return std::max(frameCountToRead, 0) - std::max(remaining, 0);
}

bool CSonimbraAudioStreamOGG::setPosition(std::int32_t frame) {
    return File && ov_seekable(&Vorbis) != 0 && ov_pcm_seek(&Vorbis, frame) == 0;
}

} // namespace sn_internal

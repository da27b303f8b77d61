// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/wav_writer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <vector>

#include "player/terminal.h"

namespace player {
namespace {

constexpr std::uint32_t HEADER_BYTES = 44;
constexpr std::uint32_t FRAME_BYTES = 4;
constexpr std::uint32_t SAMPLE_RATE = 44100;
/// The size field of the outer chunk counts all bytes after itself, 36 of them header.
constexpr std::uint32_t MAX_DATA_BYTES = 0xFFFFFFFFu - (HEADER_BYTES - 8u);

using Header = std::array<unsigned char, HEADER_BYTES>;

void putText(Header& header, std::size_t offset, const char* text) {
    std::memcpy(header.data() + offset, text, 4);
}

/// Stores a little-endian number of the given size.
void putNumber(Header& header, std::size_t offset, std::uint32_t value, unsigned bytes) {
    for (unsigned i = 0; i < bytes; ++i) {
        header[offset + i] = static_cast<unsigned char>(value >> (8u * i));
    }
}

Header makeHeader(std::uint32_t dataBytes) {
    Header header = {};
    putText(header, 0, "RIFF");
    putNumber(header, 4, dataBytes + HEADER_BYTES - 8u, 4);
    putText(header, 8, "WAVE");
    putText(header, 12, "fmt ");
    putNumber(header, 16, 16, 4);                        // bytes of the format
    putNumber(header, 20, 1, 2);                         // PCM
    putNumber(header, 22, 2, 2);                         // channels
    putNumber(header, 24, SAMPLE_RATE, 4);               // frames a second
    putNumber(header, 28, SAMPLE_RATE * FRAME_BYTES, 4); // bytes a second
    putNumber(header, 32, FRAME_BYTES, 2);               // bytes in a frame
    putNumber(header, 34, 16, 2);                        // bits in a sample
    putText(header, 36, "data");
    putNumber(header, 40, dataBytes, 4);
    return header;
}

} // namespace

bool WavWriter::open(const std::string& utf8Name) {
    errno = 0;
    File.reset(terminal::openForWriting(utf8Name));
    return File ? writeHeader() : failFromErrno();
}

bool WavWriter::write(const std::int16_t* frames, std::uint32_t frameCount) {
    if (failed()) {
        return false;
    }
    if (frameCount > (MAX_DATA_BYTES - DataBytes) / FRAME_BYTES) {
        return fail("a WAV file holds at most 4 GiB; make it shorter with --seconds");
    }
    errno = 0;
    if (std::fwrite(frames, FRAME_BYTES, frameCount, File.get()) != frameCount) {
        return failFromErrno();
    }
    DataBytes += frameCount * FRAME_BYTES;
    return true;
}

bool WavWriter::writeSilence(std::uint32_t frameCount) {
    static const std::int16_t silence[2 * 1024] = {};
    while (frameCount > 0) {
        const std::uint32_t part = std::min<std::uint32_t>(frameCount, 1024);
        if (!write(silence, part)) {
            return false;
        }
        frameCount -= part;
    }
    return true;
}

bool WavWriter::finish() {
    if (!File) {
        return !failed();
    }
    errno = 0;
    const bool patched = std::fseek(File.get(), 0, SEEK_SET) == 0;
    const bool complete = (patched || failFromErrno()) && writeHeader();
    const bool closed = std::fclose(File.release()) == 0 || failFromErrno();
    return complete && closed && !failed();
}

bool WavWriter::writeHeader() {
    const Header header = makeHeader(DataBytes);
    errno = 0;
    const bool written = std::fwrite(header.data(), 1, HEADER_BYTES, File.get()) == HEADER_BYTES;
    return written || failFromErrno();
}

bool WavWriter::fail(const std::string& reason) {
    Error = Error.empty() ? reason : Error;
    return false;
}

bool WavWriter::failFromErrno() {
    return fail(errno != 0 ? std::generic_category().message(errno) : "the system gave no reason");
}

} // namespace player

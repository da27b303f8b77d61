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
/// The size field of the outer chunk counts all bytes after itself: 36 of the header, and the byte
/// that makes an odd count even.
constexpr std::uint32_t MAX_DATA_BYTES = 0xFFFFFFFFu - (HEADER_BYTES - 8u) - 1u;

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

Header makeHeader(const WavFormat& format, std::uint32_t dataBytes) {
    const std::uint32_t frameBytes = format.frameBytes();
    Header header = {};
    putText(header, 0, "RIFF");
    putNumber(header, 4, dataBytes + dataBytes % 2u + HEADER_BYTES - 8u, 4);
    putText(header, 8, "WAVE");
    putText(header, 12, "fmt ");
    putNumber(header, 16, 16, 4); // bytes of the format
    putNumber(header, 20, 1, 2);  // PCM
    putNumber(header, 22, format.channels, 2);
    putNumber(header, 24, format.sampleRate, 4);
    putNumber(header, 28, format.sampleRate * frameBytes, 4); // bytes a second
    putNumber(header, 32, frameBytes, 2);
    putNumber(header, 34, format.bits, 2);
    putText(header, 36, "data");
    putNumber(header, 40, dataBytes, 4);
    return header;
}

} // namespace

bool WavWriter::open(const std::string& utf8Name, const WavFormat& format) {
    Format = format;
    errno = 0;
    File.reset(terminal::openForWriting(utf8Name));
    if (!File) {
        return failFromErrno();
    }
    // Without a buffer a full disk refuses what does not fit, and nothing else: the header can
    // still be completed.
    std::setvbuf(File.get(), nullptr, _IONBF, 0);
    const bool known = std::fgetpos(File.get(), &Begin) == 0 || failFromErrno();
    return known && writeHeader();
}

bool WavWriter::write(const void* frames, std::uint32_t frameCount) {
    if (failed()) {
        return false;
    }
    const std::uint32_t frameBytes = Format.frameBytes();
    if (frameCount > (MAX_DATA_BYTES - DataBytes) / frameBytes) {
        return fail("a WAV file holds at most 4 GiB; make it shorter with --seconds");
    }
    errno = 0;
    const std::size_t written = std::fwrite(frames, frameBytes, frameCount, File.get());
    DataBytes += static_cast<std::uint32_t>(written) * frameBytes;
    return written == frameCount || failFromErrno();
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

bool WavWriter::updateHeader() {
    std::fpos_t end = {};
    errno = 0;
    const bool known = std::fgetpos(File.get(), &end) == 0 || failFromErrno();
    return known && rewriteHeader() && (std::fsetpos(File.get(), &end) == 0 || failFromErrno());
}

bool WavWriter::finish() {
    if (!File) {
        return !failed();
    }
    padToEvenSize();
    const bool complete = rewriteHeader();
    errno = 0;
    const bool closed = std::fclose(File.release()) == 0 || failFromErrno();
    return complete && closed && !failed();
}

/// The byte behind an odd count, which keeps chunks at even places. Where the disk is full, the
/// last sample has to be it.
void WavWriter::padToEvenSize() {
    const bool odd = DataBytes % 2u != 0;
    if (odd && (failed() || std::fputc(0, File.get()) == EOF)) {
        --DataBytes;
    }
}

bool WavWriter::rewriteHeader() {
    errno = 0;
    const bool back = std::fsetpos(File.get(), &Begin) == 0 || failFromErrno();
    return back && writeHeader();
}

bool WavWriter::writeHeader() {
    const Header header = makeHeader(Format, DataBytes);
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

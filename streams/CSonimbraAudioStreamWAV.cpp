// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/CSonimbraAudioStreamWAV.h"

#include "core/integers.h"
#include "core/log.h"
#include "core/string.h"
#include "streams/wav_format_names.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace sn_internal {
namespace {

constexpr std::int32_t RiffHeaderSize = 12;
constexpr std::uint32_t FormatFieldsSize = 16;

std::uint16_t readUint16(const unsigned char* bytes) {
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

std::uint32_t readUint32(const unsigned char* bytes) {
    return static_cast<std::uint32_t>(readUint16(bytes)) |
           static_cast<std::uint32_t>(readUint16(bytes + 2)) << 16;
}

bool hasId(const unsigned char* bytes, const char* id) {
    return std::memcmp(bytes, id, 4) == 0;
}

/// Steps from chunk to chunk. A file fits 31 bits, so a walk that has covered more than that (sizes
/// that would seek backward, or a reader that never ends) has failed.
class CChunkWalker {
public:
    explicit CChunkWalker(sonimbra::IFileReader& file) : File(file) {}

    bool readHeader() {
        unsigned char header[8] = {};
        if (!cover(sizeof(header)) || File.read(header, 4) != 4 || File.read(header + 4, 4) != 4) {
            return false;
        }
        std::memcpy(Id, header, sizeof(Id));
        Size = readUint32(header + 4);
        return true;
    }

    bool skip(std::uint32_t byteCount) {
        return cover(byteCount) && File.seek(static_cast<std::int32_t>(byteCount), true);
    }

    bool is(const char* id) const { return hasId(Id, id); }
    std::uint32_t getSize() const { return Size; }

private:
    bool cover(std::uint32_t byteCount) {
        Covered += byteCount;
        return Covered <= INT32_MAX;
    }

    sonimbra::IFileReader& File;
    std::uint64_t Covered = 0;
    unsigned char Id[4] = {};
    std::uint32_t Size = 0;
};

void logParts(const char* begin, const char* middle, const char* end) {
    sonimbra::string<char> message(begin);
    message.append(middle);
    message.append(end);
    logText(message.c_str());
}

} // namespace

CSonimbraAudioStreamWAV::CSonimbraAudioStreamWAV(sonimbra::IFileReader* file)
    : File(counted_ptr<sonimbra::IFileReader>::share(file)) {
    if (File && !parse()) {
        File.reset();
    }
}

bool CSonimbraAudioStreamWAV::parse() {
    const char* failure = nullptr;
    if (!readRiffHeader()) {
        failure = "Unknown wave header in file";
    } else if (!findFormat()) {
        failure = "Wave file has unknown or not supported format.";
    } else if (!findData()) {
        failure = "Wave file has no data chunk.";
    }
    if (failure != nullptr) {
        logText(failure);
    }
    return failure == nullptr;
}

bool CSonimbraAudioStreamWAV::readRiffHeader() {
    unsigned char header[RiffHeaderSize] = {};
    File->read(header, 4);
    File->read(header + 4, 4);
    File->read(header + 8, 4);
    return readUint32(header + 4) != 0 && hasId(header, "RIFF") && hasId(header + 8, "WAVE");
}

bool CSonimbraAudioStreamWAV::findFormat() {
    CChunkWalker chunk(*File.get());
    while (chunk.readHeader()) {
        if (chunk.is("fmt ") && chunk.getSize() >= FormatFieldsSize) {
            return readFormat() && chunk.skip(chunk.getSize() - FormatFieldsSize) &&
                   File->seek(RiffHeaderSize, false);
        }
        if (!chunk.skip(chunk.getSize())) {
            return false;
        }
    }
    return false;
}

bool CSonimbraAudioStreamWAV::readFormat() {
    unsigned char fields[FormatFieldsSize];
    return File->read(fields, sizeof(fields)) == sizeof(fields) && judgeFormat(fields);
}

bool CSonimbraAudioStreamWAV::judgeFormat(const unsigned char* fields) {
    const std::uint16_t tag = readUint16(fields);
    const std::uint16_t channels = readUint16(fields + 2);
    std::uint16_t bits = readUint16(fields + 14);
    if (tag != 1) {
        logParts("Wave file has an unsupported format: ", nameOfWavFormat(tag).c_str(),
                 " (only PCM supported currently)");
        return false;
    }
    if (channels >= 3) {
        logParts("Wave file has an unsupported amount of channels 2 channels: ",
                 std::to_string(channels).c_str(), nullptr);
        return false;
    }
    if (bits == 24) {
        Is24Bit = true;
        bits = 16;
    }
    if (bits != 8 && bits != 16) {
        logParts("Wave file has an unsupported bits per sample size: ",
                 std::to_string(bits).c_str(), nullptr);
        return false;
    }
    Format.ChannelCount = channels;
    Format.FrameCount = 0;
    Format.SampleRate = wrap32(readUint32(fields + 4));
    Format.SampleFormat = bits == 8 ? sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit
                                    : sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
    return channels != 0; // no frame could be counted
}

bool CSonimbraAudioStreamWAV::findData() {
    CChunkWalker chunk(*File.get());
    while (chunk.readHeader()) {
        if (chunk.is("data")) {
            setDataChunk(chunk.getSize());
            return true;
        }
        if (!chunk.skip(chunk.getSize())) {
            return false;
        }
    }
    return false;
}

void CSonimbraAudioStreamWAV::setDataChunk(std::uint32_t chunkSize) {
    DataStart = File->getPos();
    Format.FrameCount = wrap32(chunkSize / static_cast<std::uint32_t>(getStoredFrameSize()));
}

std::int32_t CSonimbraAudioStreamWAV::getStoredFrameSize() const {
    return Is24Bit ? 3 * Format.ChannelCount : Format.getFrameSize();
}

bool CSonimbraAudioStreamWAV::setPosition(std::int32_t frame) {
    if (!File) {
        return false;
    }
    if (frame <= 0) {
        return File->seek(DataStart, false);
    }
    return File->seek(wrappingSum(DataStart, wrappingProduct(frame, Format.getFrameSize())), false);
}

std::int32_t CSonimbraAudioStreamWAV::readFrames(void* target, std::int32_t frameCountToRead) {
    if (!File || frameCountToRead <= 0) {
        return 0;
    }
    const std::int32_t frameSize = getStoredFrameSize();
    const std::int32_t end = wrappingSum(DataStart, wrappingProduct(Format.FrameCount, frameSize));
    const std::int64_t wanted =
        std::min(std::int64_t(frameSize) * frameCountToRead, std::int64_t(end) - File->getPos());
    if (wanted <= 0) {
        return 0;
    }
    const auto byteCount = static_cast<std::uint32_t>(wanted);
    const std::uint32_t got = Is24Bit ? read24Bit(static_cast<unsigned char*>(target), byteCount)
                                      : readBytes(target, byteCount);
    return static_cast<std::int32_t>(got) / frameSize;
}

/// Trusts no reader to keep to what it was asked.
std::uint32_t CSonimbraAudioStreamWAV::readBytes(void* target, std::uint32_t byteCount) {
    const std::int32_t got = File->read(target, byteCount);
    return got < 0 ? 0 : std::min(static_cast<std::uint32_t>(got), byteCount);
}

/// Reads in pieces of whole frames, so that nothing needs to be allocated.
std::uint32_t CSonimbraAudioStreamWAV::read24Bit(unsigned char* target, std::uint32_t byteCount) {
    unsigned char piece[3 * 1024];
    std::uint32_t total = 0;
    while (total < byteCount) {
        const std::uint32_t asked = std::min<std::uint32_t>(sizeof(piece), byteCount - total);
        const std::uint32_t got = readBytes(piece, asked);
        for (std::uint32_t i = 0; i + 2 < got; i += 3) {
            *target++ = piece[i + 1];
            *target++ = piece[i + 2];
        }
        total += got;
        if (got < asked) {
            break;
        }
    }
    return total;
}

} // namespace sn_internal

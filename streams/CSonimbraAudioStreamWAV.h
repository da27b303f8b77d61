// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"

#include <sonimbra/IAudioStream.h>
#include <sonimbra/IFileReader.h>

namespace sn_internal {

/// Decodes RIFF WAVE files with uncompressed PCM in 8, 16 or 24 bits and one or two channels. The
/// lowest byte of 24-bit samples is dropped while reading. Failures are logged; the stream then
/// holds no file and reads nothing.
class CSonimbraAudioStreamWAV final : public sonimbra::IAudioStream {
public:
    /// Parses the header at once. A null file gives a failed stream.
    explicit CSonimbraAudioStreamWAV(sonimbra::IFileReader* file);

    bool isOpen() const { return static_cast<bool>(File); }

    sonimbra::SAudioStreamFormat getFormat() override { return Format; }

    /// Does not compare frame with the length. For 24-bit files the offset is reckoned in samples
    /// of two bytes, although three are stored: only position 0 is exact for them.
    bool setPosition(std::int32_t frame) override;
    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override;

private:
    bool parse();
    bool readRiffHeader();
    bool findFormat();
    bool readFormat();
    bool judgeFormat(const unsigned char* fields);
    bool findData();
    void setDataChunk(std::uint32_t chunkSize);

    std::int32_t getStoredFrameSize() const;
    std::uint32_t readBytes(void* target, std::uint32_t byteCount);
    std::uint32_t read24Bit(unsigned char* target, std::uint32_t byteCount);

    counted_ptr<sonimbra::IFileReader> File;
    sonimbra::SAudioStreamFormat Format;
    std::int32_t DataStart = 0;
    bool Is24Bit = false;
};

} // namespace sn_internal

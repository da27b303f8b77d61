// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace player {

/// What a WAV file holds: PCM, unsigned in 8 bits and signed in 16.
struct WavFormat {
    std::uint32_t sampleRate = 44100; ///< frames a second
    std::uint32_t channels = 2;
    std::uint32_t bits = 16; ///< of a sample, 8 or 16

    std::uint32_t frameBytes() const { return channels * bits / 8u; }
};

/// Writes a WAV file. After the first failure every operation returns false and errorText() says
/// what happened.
class WavWriter {
public:
    /// Creates the file, or empties the existing one.
    bool open(const std::string& utf8Name, const WavFormat& format = {});
    bool isOpen() const { return File != nullptr; }

    /// Appends interleaved frames. Fails when the file would pass 4 GiB. Of a disk that gets full
    /// the file takes what fits.
    bool write(const void* frames, std::uint32_t frameCount);

    /// Appends frames of silence to a file of 16 bits.
    bool writeSilence(std::uint32_t frameCount);

    /// Brings the header up to date, so that the file is complete whatever happens to the process.
    bool updateHeader();

    /// Completes the header and closes the file; what was written before a failure stays readable
    /// where possible.
    bool finish();

    std::uint32_t frameCount() const { return DataBytes / Format.frameBytes(); }
    const std::string& errorText() const { return Error; }

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool fail(const std::string& reason);
    bool failFromErrno();
    bool writeHeader();
    bool rewriteHeader();
    void padToEvenSize();
    bool failed() const { return !Error.empty(); }

    std::unique_ptr<std::FILE, Closer> File;
    std::fpos_t Begin = {};
    WavFormat Format;
    std::uint32_t DataBytes = 0;
    std::string Error;
};

} // namespace player

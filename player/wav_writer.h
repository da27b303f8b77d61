// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace player {

/// Writes a WAV file of 44100 Hz, 16-bit stereo. After the first failure every operation returns
/// false and errorText() says what happened.
class WavWriter {
public:
    /// Creates the file, or empties the existing one.
    bool open(const std::string& utf8Name);
    bool isOpen() const { return File != nullptr; }

    /// Appends interleaved frames (two samples each). Fails when the file would pass 4 GiB.
    bool write(const std::int16_t* frames, std::uint32_t frameCount);

    /// Appends frames of silence.
    bool writeSilence(std::uint32_t frameCount);

    /// Completes the header and closes the file; what was written before a failure stays readable
    /// where possible.
    bool finish();

    std::uint32_t frameCount() const { return DataBytes / 4u; }
    const std::string& errorText() const { return Error; }

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool fail(const std::string& reason);
    bool failFromErrno();
    bool writeHeader();
    bool failed() const { return !Error.empty(); }

    std::unique_ptr<std::FILE, Closer> File;
    std::uint32_t DataBytes = 0;
    std::string Error;
};

} // namespace player

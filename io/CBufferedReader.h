// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IFileReader.h>

#include <cstdint>

namespace sn_internal::io {

/// Reads a file through a window, for consumers that ask for a byte at a time. The file may be an
/// application's: nothing that it returns or throws does harm, and it is asked for whole windows
/// only. Multi-byte numbers that reach over the end read as 0 and set hasFailed().
class CBufferedReader {
public:
    /// Starts at the beginning of the file. Holds no reference; the file must not be used by others
    /// in between.
    explicit CBufferedReader(sonimbra::IFileReader& file) : File(file) { seek(0); }
    CBufferedReader(const CBufferedReader&) = delete;
    CBufferedReader& operator=(const CBufferedReader&) = delete;

    /// The next byte, or -1 at the end.
    int readByte() { return At < Held || fill() ? Window[At++] : -1; }

    /// Copies up to byteCount bytes; returns how many.
    std::int32_t read(void* target, std::int32_t byteCount);

    /// Moves to a position from the start. Returns false where the file refuses.
    bool seek(std::int32_t position);
    bool skip(std::int64_t byteCount);

    std::int32_t getPosition() const { return WindowStart + At; }

    std::uint8_t readUint8();
    std::uint16_t readUint16(); ///< little-endian
    std::uint32_t readUint32(); ///< little-endian

    /// Whether a read has met the end, or a seek was refused, since the construction.
    bool hasFailed() const { return Failed; }

private:
    static constexpr std::int32_t WindowSize = 8192;

    bool fill();
    std::int32_t readFile(void* target, std::int32_t byteCount);

    sonimbra::IFileReader& File;
    std::int32_t WindowStart = 0; ///< position in the file of the window's first byte
    std::int32_t Held = 0;        ///< bytes in the window; the file stands behind them
    std::int32_t At = 0;          ///< next byte of the window
    bool Failed = false;
    std::uint8_t Window[WindowSize];
};

} // namespace sn_internal::io

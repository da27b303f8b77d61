// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CBufferedReader.h"

#include "core/no_throw.h"

#include <algorithm>
#include <cstring>

namespace sn_internal::io {

std::int32_t CBufferedReader::readFile(void* target, std::int32_t byteCount) {
    const std::int32_t got = withoutExceptions(
        std::int32_t(0), [&] { return File.read(target, static_cast<std::uint32_t>(byteCount)); });
    return std::clamp(got, 0, byteCount);
}

bool CBufferedReader::fill() {
    if (WindowStart > INT32_MAX - 2 * WindowSize) { // positions stay within 31 bits
        return false;
    }
    WindowStart += Held;
    Held = readFile(Window, WindowSize);
    At = 0;
    return Held > 0;
}

std::int32_t CBufferedReader::read(void* target, std::int32_t byteCount) {
    auto* write = static_cast<std::uint8_t*>(target);
    std::int32_t total = 0;
    while (total < byteCount && (At < Held || fill())) {
        const std::int32_t piece = std::min(byteCount - total, Held - At);
        std::memcpy(write + total, Window + At, static_cast<std::size_t>(piece));
        At += piece;
        total += piece;
    }
    Failed = Failed || total < byteCount;
    return total;
}

bool CBufferedReader::seek(std::int32_t position) {
    if (position >= WindowStart && position <= WindowStart + Held && Held > 0) {
        At = position - WindowStart;
        return true;
    }
    if (position < 0 || !withoutExceptions(false, [&] { return File.seek(position, false); })) {
        Failed = true;
        return false;
    }
    WindowStart = position;
    Held = 0;
    At = 0;
    return true;
}

bool CBufferedReader::skip(std::int64_t byteCount) {
    const std::int64_t target = getPosition() + byteCount;
    if (target < 0 || target > INT32_MAX) {
        Failed = true;
        return false;
    }
    return seek(static_cast<std::int32_t>(target));
}

std::uint8_t CBufferedReader::readUint8() {
    const int byte = readByte();
    Failed = Failed || byte < 0;
    return static_cast<std::uint8_t>(std::max(byte, 0));
}

std::uint16_t CBufferedReader::readUint16() {
    const std::uint8_t low = readUint8();
    return static_cast<std::uint16_t>(low | readUint8() << 8);
}

std::uint32_t CBufferedReader::readUint32() {
    const std::uint16_t low = readUint16();
    return low | static_cast<std::uint32_t>(readUint16()) << 16;
}

} // namespace sn_internal::io

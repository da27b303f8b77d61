// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sn_internal {

/// The bytes of a recording. Every block that is appended reallocates them to exactly what is
/// needed, which the C library does without copying where the system can move pages: a block costs
/// about the same after an hour as at the beginning.
class CRecordedData {
public:
    /// Blocks that would go beyond it are left out.
    static constexpr std::uint32_t MaxBytes = 524288000;

    CRecordedData() = default;
    CRecordedData(const CRecordedData&) = delete;
    CRecordedData& operator=(const CRecordedData&) = delete;
    ~CRecordedData() { clear(); }

    /// Returns false, and leaves the block out, when it does not fit or memory does not suffice.
    bool append(const void* block, std::uint32_t byteCount);

    /// Frees the memory.
    void clear();

    void* data() const { return Data; } ///< null when empty
    std::uint32_t size() const { return Size; }
    std::uint32_t capacity() const { return Capacity; }

private:
    bool reserve(std::uint32_t byteCount);

    void* Data = nullptr;
    std::uint32_t Capacity = 0;
    std::uint32_t Size = 0;
};

} // namespace sn_internal

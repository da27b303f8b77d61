// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CRecordedData.h"

#include <cstdlib>
#include <cstring>

namespace sn_internal {

bool CRecordedData::append(const void* block, std::uint32_t byteCount) {
    if (byteCount > MaxBytes - Size || !reserve(Size + byteCount)) {
        return false;
    }
    if (byteCount > 0) {
        std::memcpy(static_cast<std::uint8_t*>(Data) + Size, block, byteCount);
        Size += byteCount;
    }
    return true;
}

bool CRecordedData::reserve(std::uint32_t byteCount) {
    if (Capacity >= byteCount) {
        return true;
    }
    void* const moved = std::realloc(Data, byteCount);
    if (moved == nullptr) {
        return false;
    }
    Data = moved;
    Capacity = byteCount;
    return true;
}

void CRecordedData::clear() {
    std::free(Data);
    Data = nullptr;
    Capacity = 0;
    Size = 0;
}

} // namespace sn_internal

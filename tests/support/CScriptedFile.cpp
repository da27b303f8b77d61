// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sn_test {

std::int32_t CScriptedFile::alive = 0;

CScriptedFile::CScriptedFile(Bytes bytes, std::string name)
    : Content(std::move(bytes)), Name(std::move(name)) {
    ++alive;
}

CScriptedFile::~CScriptedFile() {
    --alive;
}

std::int32_t CScriptedFile::read(void* buffer, std::uint32_t sizeToRead) {
    ++reads;
    const std::int64_t left = static_cast<std::int64_t>(Content.size()) - Position;
    const std::int64_t allowed = std::min(sizeToRead, bytesPerRead);
    const std::int64_t n = std::max<std::int64_t>(0, std::min(left, allowed));
    if (n > 0) {
        std::memcpy(buffer, Content.data() + Position, static_cast<std::size_t>(n));
    }
    Position += n;
    return static_cast<std::int32_t>(n);
}

bool CScriptedFile::seek(std::int32_t finalPos, bool relativeMovement) {
    ++seeks;
    const std::int64_t target = finalPos + (relativeMovement ? Position : 0);
    if (target < 0) {
        return false;
    }
    Position = target;
    return true;
}

} // namespace sn_test

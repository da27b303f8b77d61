// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <sonimbra/IFileReader.h>

#include <cstdint>
#include <string>

namespace sn_test {

/// A file in memory that counts what is asked of it and delivers in the portions that a test wants.
/// Like a file on disk it can be positioned behind its end.
class CScriptedFile : public sonimbra::IFileReader {
public:
    explicit CScriptedFile(Bytes bytes, std::string name = "scripted.wav");
    ~CScriptedFile() override;

    std::int32_t read(void* buffer, std::uint32_t sizeToRead) override;
    bool seek(std::int32_t finalPos, bool relativeMovement) override;
    std::int32_t getSize() override { return static_cast<std::int32_t>(Content.size()); }
    std::int32_t getPos() override { return static_cast<std::int32_t>(Position); }
    const char* getFileName() override { return Name.c_str(); }

    std::uint32_t bytesPerRead = UINT32_MAX; ///< one read gives at most so many

    std::int32_t reads = 0;
    std::int32_t seeks = 0;

    /// How many of these exist: back at its old value when nothing was leaked.
    static std::int32_t alive;

private:
    Bytes Content;
    std::string Name;
    std::int64_t Position = 0;
};

} // namespace sn_test

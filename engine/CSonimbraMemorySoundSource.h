// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSoundSource.h"

namespace sn_internal {

/// An encoded file that stands in memory. Without a copy the bytes stay the caller's.
class CSonimbraMemorySoundSource : public CSonimbraSoundSource {
public:
    CSonimbraMemorySoundSource(const CEngineLinkPtr& link, const char* name, const void* memory,
                               std::int32_t sizeInBytes, bool copyMemory);
    ~CSonimbraMemorySoundSource() override;

    sonimbra::IFileReader* openFile(io::IFileSystem* fileSystem) override;

private:
    const char* Data;
    const std::int32_t SizeInBytes;
    const bool OwnsCopy;
};

} // namespace sn_internal

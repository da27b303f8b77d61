// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSoundSource.h"

#include <memory>

namespace sn_internal {

/// An encoded file that stands in memory. Without a copy the bytes stay the caller's.
class CSonimbraMemorySoundSource : public CSonimbraSoundSource {
public:
    CSonimbraMemorySoundSource(const CEngineLinkPtr& link, const char* name, const void* memory,
                               std::int32_t sizeInBytes, bool copyMemory);
    sonimbra::IFileReader* openFile(io::IFileSystem* fileSystem) override;

private:
    const std::shared_ptr<const char[]> Data; ///< which decoders may use longer than the source
    const std::int32_t SizeInBytes;
};

} // namespace sn_internal

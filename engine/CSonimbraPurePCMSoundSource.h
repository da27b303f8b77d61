// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSoundSource.h"

namespace sn_internal {

/// Raw samples. Without a copy they stay the caller's. The samples are always cached; there is no
/// file to reload.
class CSonimbraPurePCMSoundSource : public CSonimbraSoundSource {
public:
    /// Frames beyond sizeInBytes are left out.
    CSonimbraPurePCMSoundSource(const CEngineLinkPtr& link, const char* name, void* memory,
                                std::int32_t sizeInBytes,
                                const sonimbra::SAudioStreamFormat& format, bool copyMemory);
    ~CSonimbraPurePCMSoundSource() override;

    void forceReloadAtNextUse() override {}
    sonimbra::IFileReader* openFile(io::IFileSystem*) override { return nullptr; }

private:
    const bool OwnsCopy;
};

} // namespace sn_internal

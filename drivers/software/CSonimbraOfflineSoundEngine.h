// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "drivers/software/CSonimbraSoftwareSoundEngine.h"

#include <sonimbra/IOfflineSoundEngine.h>

namespace sn_internal {

/// The software mixer without a device: the application pulls the output.
class CSonimbraOfflineSoundEngine final : public CSonimbraSoftwareSoundEngine,
                                          public sonimbra::IOfflineSoundEngine {
public:
    CSonimbraOfflineSoundEngine(io::IFileSystem* fileSystem, int options);
    ~CSonimbraOfflineSoundEngine() override;

    const char* getDriverName() override { return "Offline"; }
    std::int32_t renderFrames(std::int16_t* target, std::int32_t frameCount) override;

private:
    std::int32_t renderPiece(std::int16_t* target, std::int32_t frameCount);
    void renderBuffer();

    std::int16_t Buffer[OutputChannels * OutputBufferFrames] = {};
    std::int32_t TakenFrames = OutputBufferFrames; ///< of the buffer; all: it must be rendered
};

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "engine/CSonimbraSoundEngine.h"

namespace sn_internal {

/// Outputs nothing: sources can be added, loaded and queried, but no sound is ever made.
class CSonimbraNULLSoundEngine final : public CSonimbraSoundEngine {
public:
    CSonimbraNULLSoundEngine(io::IFileSystem* fileSystem, int options);
    ~CSonimbraNULLSoundEngine() override;

    const char* getDriverName() override { return "NULL"; }
};

} // namespace sn_internal

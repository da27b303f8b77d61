// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sonimbra {
class IOfflineSoundEngine;
}
namespace sn_internal::io {
class IFileSystem;
}

namespace sn_internal {

/// Makes the engine that the application renders itself, with one reference for the caller. The
/// options must not hold MultiThreaded.
sonimbra::IOfflineSoundEngine* createOfflineEngine(io::IFileSystem* fileSystem, int options);

} // namespace sn_internal

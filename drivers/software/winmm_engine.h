// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sonimbra {
class ISoundEngine;
}
namespace sn_internal::io {
class IFileSystem;
}

namespace sn_internal {

/// Makes the engine of the WinMM driver, with one reference for the caller; isDriverInitialized
/// tells whether its device was opened.
sonimbra::ISoundEngine* createWinMMEngine(io::IFileSystem* fileSystem, int options);

} // namespace sn_internal

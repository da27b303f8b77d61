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

/// Makes the engine that plays nothing, with one reference for the caller.
sonimbra::ISoundEngine* createNullEngine(io::IFileSystem* fileSystem, int options);

} // namespace sn_internal

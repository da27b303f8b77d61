// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/module_check.h"

#include <sonimbra/IFileReader.h>

#include <dumb.h>

#include <cstdint>
#include <memory>

namespace sn_internal {

struct SModuleDeleter {
    void operator()(DUH* module) const { unload_duh(module); }
};

/// A module that may be played, or none.
struct SModule {
    std::unique_ptr<DUH, SModuleDeleter> duh;
    long length = 0;  ///< in 1/65536 of a second
    bool ends = true; ///< false: a renderer does not stop by itself at the length
};

/// Reads a module from a file: tries the kinds in the order MOD, XM, S3M, IT, each from the file's
/// beginning. MOD is the least strict: without a known signature a file counts as one with 15
/// samples and four channels, so it may take files that are meant for a later kind.
///
/// One thread at a time reads, because DUMB unpacks samples in static memory; a file reader that
/// reads another module from inside gets none.
SModule readModule(sonimbra::IFileReader& file);

} // namespace sn_internal

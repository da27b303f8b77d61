// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/module_check.h"

#include <dumb.h>

namespace sn_internal {

/// What playing a module once, without computing sound, has shown.
struct SRehearsal {
    bool isSafe = true; ///< false: no renderer may play the module
    bool ends = true;   ///< false: given up; the module repeats in itself, or takes very long
    long length = 0;    ///< in 1/65536 of a second: up to its end, or up to where it was given up
};

/// Plays a module silently and watches its voices. DUMB's renderer divides by zero when a voice
/// becomes too slow and never comes back when one becomes too fast, and its measuring of the length
/// waits for an end that not every module has; so a module is neither measured nor played before it
/// has passed here. The traits come from mayBeRead(). The work is bounded; it takes milliseconds
/// for usual modules.
SRehearsal rehearse(DUH* module, const SModuleTraits& traits);

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/ICriticalSection.h"

#include <sonimbra/sonimbra.h>

namespace sn_internal {

/// The recursive lock of an object's engine, valid as long as the object; null for objects that are
/// not the library's own.
ICriticalSection* lockOf(sonimbra::ISoundEngine& engine);
ICriticalSection* lockOf(sonimbra::ISoundSource& source);
ICriticalSection* lockOf(sonimbra::ISound& sound);

} // namespace sn_internal

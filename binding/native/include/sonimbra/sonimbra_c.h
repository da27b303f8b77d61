// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// The flat interface, for C and for the bindings of other languages: an entry point for every
/// operation of the C++ interfaces, named after it, with nothing but C types.
///
/// - Calls: the C convention, SONIMBRA_CALL, for entry points and callbacks. No exception leaves an
///   entry point, and one that a callback throws ends at the library.
/// - Objects: a null object is accepted everywhere; the call then does nothing, returns 0 or null
///   and hands out zeros. Unless said otherwise any thread may make any call, but on no object
///   whose last reference is gone; only an engine or a recorder that is ending may still be called,
///   from its own callbacks and releases.
/// - Callbacks may call the engine that calls them, its sounds and its sources, unless said
///   otherwise, and drop every object: what would have to wait for the callback itself then ends on
///   another thread, soon after. Another engine's calls may wait for its lock, and two engines
///   whose callbacks call each other wait for ever.
/// - Truth values are int32_t: 0 is false, everything else true; results are 0 or 1.
/// - Texts are zero-terminated UTF-8. One that is passed in is copied; one that comes out belongs
///   to the object asked, and is valid as long as that.
/// - Vectors and formats go by pointer. Null for one that goes in stands for zeros, unless another
///   default is named; null for one that comes out is ignored.

#include <sonimbra/sonimbra_c_callbacks.h>
#include <sonimbra/sonimbra_c_effects.h>
#include <sonimbra/sonimbra_c_engine.h>
#include <sonimbra/sonimbra_c_recorder.h>
#include <sonimbra/sonimbra_c_sound.h>
#include <sonimbra/sonimbra_c_types.h>

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/dumb_tables.h"

#include <dumb.h>

namespace sn_internal {
namespace {

bool resampleOnce() {
    sample_t source[8] = {};
    sample_t target[1] = {};
    DUMB_RESAMPLER resampler;
    dumb_reset_resampler(&resampler, source, 1, 0, 0, 8);
    dumb_resample_1_1(&resampler, target, 1, 1.0f, 1.0f);
    return true;
}

} // namespace

void fillDumbTables() {
    static const bool ready = resampleOnce();
    static_cast<void>(ready);
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "streams/cubic_kernels.h"

namespace sn_internal {

extern const SCubicKernels SSE2CubicKernels;
extern const SCubicKernels AVX2CubicKernels; ///< only for a processor that has it

} // namespace sn_internal

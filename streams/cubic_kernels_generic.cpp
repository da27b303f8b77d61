// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/cubic_kernels.h"

namespace sn_internal {

const SCubicKernels* const* getCubicKernels() {
    static const SCubicKernels* const kernels[] = {&PortableCubicKernels, nullptr};
    return kernels;
}

} // namespace sn_internal

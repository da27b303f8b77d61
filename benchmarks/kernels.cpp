// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "benchmarks/kernels.h"

#include "streams/CCubicChannels.h"

namespace benchmarks {

using sn_internal::CCubicChannels;
using sn_internal::getCubicKernels;

std::vector<std::string> getKernelNames() {
    std::vector<std::string> names;
    for (auto kernels = getCubicKernels(); *kernels != nullptr; ++kernels) {
        names.emplace_back((*kernels)->name);
    }
    names.emplace_back("DUMB");
    return names;
}

CKernelChoice::CKernelChoice(const std::string& name) {
    auto kernels = getCubicKernels();
    while (*kernels != nullptr && name != (*kernels)->name) {
        ++kernels;
    }
    CCubicChannels::useKernels(*kernels);
}

CKernelChoice::~CKernelChoice() {
    CCubicChannels::useKernels(*getCubicKernels());
}

} // namespace benchmarks

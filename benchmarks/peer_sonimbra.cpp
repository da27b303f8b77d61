// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The library's own rows in the comparison with other mixers: one for each set of kernels.

#include "benchmarks/kernels.h"
#include "benchmarks/tone.h"
#include "benchmarks/voices.h"

namespace benchmarks {
namespace {

void mixBySonimbra(benchmark::State& state, const std::string& kernels) {
    const CKernelChoice choice(kernels);
    mixVoices(state, SVoices(state, true));
}

[[maybe_unused]] const bool Registered = [] {
    for (const std::string& name : getKernelNames()) {
        benchmark::RegisterBenchmark(("peers/Sonimbra_" + name).c_str(), mixBySonimbra, name)
            ->Apply(compareVoices);
    }
    return true;
}();

} // namespace
} // namespace benchmarks

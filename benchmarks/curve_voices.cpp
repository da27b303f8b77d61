// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// How the cost of a voice goes with the number of voices: the fastest kernels, and DUMB alone.

#include "benchmarks/kernels.h"
#include "benchmarks/tone.h"

namespace benchmarks {
namespace {

void mixMoreVoices(benchmark::State& state, const std::string& kernels) {
    const CKernelChoice choice(kernels);
    mixVoices(state, SVoices(state));
}

[[maybe_unused]] const bool Registered = [] {
    for (const std::string& name : {getKernelNames().front(), getKernelNames().back()}) {
        benchmark::RegisterBenchmark(("curve/voices/mix_by_" + name).c_str(), mixMoreVoices, name)
            ->ArgNames({"n", "channels", "rate"})
            ->ArgsProduct({{1, 4, 16, 64, 256, 1024, 2048, 4096}, {1, 2}, {22050}})
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

} // namespace
} // namespace benchmarks

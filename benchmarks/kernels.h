// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <string>
#include <vector>

namespace benchmarks {

/// The ways to resample that this processor offers, the fastest first; the last one is "DUMB":
/// nothing but DUMB's own calls.
std::vector<std::string> getKernelNames();

/// Has the library resample in one of these ways until the end of the scope, and then by the
/// fastest again.
class CKernelChoice {
public:
    explicit CKernelChoice(const std::string& name);
    ~CKernelChoice();
    CKernelChoice(const CKernelChoice&) = delete;
    CKernelChoice& operator=(const CKernelChoice&) = delete;
};

} // namespace benchmarks

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/processor.h"

#if defined(_MSC_VER) && !defined(__clang__)
#include <immintrin.h>
#include <intrin.h>
#endif

namespace sn_internal {

bool hasAVX2() {
#if defined(_MSC_VER) && !defined(__clang__)
    int words[4];
    __cpuidex(words, 0, 0);
    if (words[0] < 7) {
        return false;
    }
    __cpuidex(words, 1, 0);
    const bool systemSavesRegisters = (words[2] >> 27 & 1) != 0 && (_xgetbv(0) & 6) == 6;
    __cpuidex(words, 7, 0);
    return systemSavesRegisters && (words[1] >> 5 & 1) != 0;
#else
    return __builtin_cpu_supports("avx2") != 0;
#endif
}

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstddef>

// The hint exists only for x86 compilers in a common form; elsewhere nothing is lost but time.
#if defined(__SSE__) || defined(_M_X64)
#include <xmmintrin.h>
#endif

namespace sn_internal {

/// Asks the processor to have memory at hand that will be read soon. Never faults.
inline void prefetch(const void* begin, std::size_t byteCount) {
#if defined(__SSE__) || defined(_M_X64)
    constexpr std::size_t cacheLine = 64;
    const auto* bytes = static_cast<const char*>(begin);
    for (std::size_t i = 0; i < byteCount; i += cacheLine) {
        _mm_prefetch(bytes + i, _MM_HINT_T0);
    }
#else
    static_cast<void>(begin);
    static_cast<void>(byteCount);
#endif
}

} // namespace sn_internal

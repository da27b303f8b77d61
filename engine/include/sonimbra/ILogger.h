// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>

namespace sonimbra {

/// The process-wide logger: the library writes its messages through it to standard output and to
/// the debugger's channel, as the engine options say. It has no lock; lines of different threads
/// may interleave.
class ILogger : public virtual IRefCounted {
public:
    /// The least level that is written. Default: 0, so every message passes.
    virtual std::int32_t getLogLevel() = 0;

    /// Sets the least level that is written.
    virtual void setLogLevel(std::int32_t level) = 0;

    /// Writes text, ": " and hint (left out when null), and a line end when newLine is set.
    virtual void logWithHint(const char* text, const char* hint, std::int32_t level,
                             bool newLine) = 0;

    /// Writes text, and a line end when newLine is set.
    virtual void log(const char* text, std::int32_t level, bool newLine) = 0;
};

} // namespace sonimbra

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdarg>

namespace sn_internal {

/// While it lives, ALSA does not print its messages to standard error for this thread: the library
/// says in its log what fails. Other threads are left alone, and so is a handler that the
/// application installed for the whole process.
class CSonimbraALSAErrors {
public:
    CSonimbraALSAErrors();
    ~CSonimbraALSAErrors();
    CSonimbraALSAErrors(const CSonimbraALSAErrors&) = delete;
    CSonimbraALSAErrors& operator=(const CSonimbraALSAErrors&) = delete;

private:
    using CHandler = void (*)(const char*, int, const char*, int, const char*, va_list);

    const CHandler Previous;
};

} // namespace sn_internal

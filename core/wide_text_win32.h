// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <string>

namespace sn_internal {

/// UTF-8 in the encoding of Windows, into a buffer of twice the text's length plus one; a text that
/// cannot be converted is empty.
std::wstring widened(const char* text);

/// Converts to UTF-8; false (and an empty text) when the buffer of size bytes is too small.
bool narrow(const wchar_t* text, char* buffer, std::uint32_t size);

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/wide_text_win32.h"

#include <cstring>

#include <windows.h>

namespace sn_internal {

std::wstring widened(const char* text) {
    std::wstring wide(2 * std::strlen(text) + 1, L'\0');
    if (MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), static_cast<int>(wide.size())) ==
        0) {
        return std::wstring();
    }
    return wide.c_str();
}

bool narrow(const wchar_t* text, char* buffer, std::uint32_t size) {
    if (WideCharToMultiByte(CP_UTF8, 0, text, -1, buffer, static_cast<int>(size), nullptr,
                            nullptr) != 0) {
        return true;
    }
    buffer[0] = 0;
    return false;
}

} // namespace sn_internal

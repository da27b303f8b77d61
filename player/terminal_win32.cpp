// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/terminal.h"

#include <atomic>
#include <cstdlib>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace player::terminal {
namespace {

std::atomic<bool> g_stopRequested{false};
UINT g_codePageBefore = 0;

/// Runs on a thread of the system.
BOOL WINAPI onControl(DWORD event) {
    g_stopRequested = true;
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
        // The window closes, and the process ends with this function: leave time to end cleanly.
        Sleep(4000);
    }
    return TRUE;
}

void restoreCodePage() {
    SetConsoleOutputCP(g_codePageBefore);
}

std::string toUtf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size < 1) {
        return {};
    }
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.pop_back(); // the terminating zero
    return result;
}

std::wstring toWide(const std::string& text) {
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    if (size < 1) {
        return {};
    }
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, result.data(), size);
    result.pop_back();
    return result;
}

/// In text mode some C libraries translate what goes to a console from the process's own code page,
/// which is not UTF-8.
void passBytesToConsole(int descriptor) {
    if (_isatty(descriptor)) {
        _setmode(descriptor, _O_BINARY);
    }
}

} // namespace

void prepare() {
    SetConsoleCtrlHandler(onControl, TRUE);
    // Without a buffer the C library hands a console single bytes, which tears UTF-8 apart.
    for (std::FILE* stream : {stdout, stderr}) {
        std::setvbuf(stream, nullptr, _IOFBF, 4096);
        passBytesToConsole(_fileno(stream));
    }
    g_codePageBefore = GetConsoleOutputCP();
    if (g_codePageBefore != 0 && SetConsoleOutputCP(CP_UTF8)) {
        std::atexit(restoreCodePage);
    }
}

std::vector<std::string> arguments(int, char**) {
    std::vector<std::string> result;
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; wide != nullptr && i < count; ++i) {
        result.push_back(toUtf8(wide[i]));
    }
    LocalFree(wide);
    return result;
}

bool outputIsTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
}

int columns() {
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)) {
        return 80;
    }
    return info.srWindow.Right - info.srWindow.Left + 1;
}

bool stopRequested() {
    return g_stopRequested;
}

std::FILE* openForWriting(const std::string& utf8Name) {
    return _wfopen(toWide(utf8Name).c_str(), L"wb");
}

} // namespace player::terminal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/text.h"

#include <cstdio>

namespace player {
namespace {

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

/// Columns of the character that begins with this byte. East Asian characters and pictures take
/// two; all of them begin with 0xE1 or above, and so do some narrow ones, which only wastes room.
int columnsOfLeadByte(char byte) {
    if (continuesCharacter(byte)) {
        return 0;
    }
    return static_cast<unsigned char>(byte) >= 0xE1u ? 2 : 1;
}

} // namespace

void printError(const std::string& text) {
    const std::string line = "sonimbra-player: " + text + "\n";
    std::fflush(stdout);
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr); // it has a buffer where the console needs one
}

void printLine(const std::string& text) {
    const std::string line = text + "\n";
    std::fputs(line.c_str(), stdout);
    std::fflush(stdout);
}

std::string decimal(double number, int places, int width) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%*.*f", width, places, number);
    return buffer;
}

std::string clockText(std::uint32_t milliseconds) {
    const std::uint32_t tenths = milliseconds / 100;
    const std::string seconds = decimal((tenths % 600) / 10.0, 1);
    return std::to_string(tenths / 600) + (seconds.size() < 4 ? ":0" : ":") + seconds;
}

std::string fileCountText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " file" : " files");
}

std::string printable(const std::string& text) {
    std::string result = text;
    for (char& c : result) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (byte < 0x20u || byte == 0x7Fu) {
            c = '?';
        }
    }
    return result;
}

int columnsOf(const std::string& text) {
    int columns = 0;
    for (const char byte : text) {
        columns += columnsOfLeadByte(byte);
    }
    return columns;
}

std::string fitted(const std::string& text, int columns) {
    static const std::string mark = "..";
    if (columnsOf(text) <= columns) {
        return text;
    }
    std::size_t begin = text.size();
    int used = static_cast<int>(mark.size());
    for (std::size_t i = text.size(); i-- > 0;) {
        used += columnsOfLeadByte(text[i]);
        if (used > columns) {
            break;
        }
        begin = continuesCharacter(text[i]) ? begin : i;
    }
    return mark + text.substr(begin);
}

std::filesystem::path toPath(const std::string& utf8Name) {
    return std::filesystem::path(std::u8string(utf8Name.begin(), utf8Name.end()));
}

std::string shownName(const std::string& file) {
    const std::u8string name = toPath(file).filename().u8string();
    return printable(std::string(name.begin(), name.end()));
}

} // namespace player

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace player {

/// Writes "sonimbra-player: " and the text as one line to standard error.
void printError(const std::string& text);

/// Writes one line to standard output at once.
void printLine(const std::string& text);

/// A number with the given count of digits after the point, filled with blanks to the width.
std::string decimal(double number, int places, int width = 0);

/// A time in milliseconds as m:ss.t.
std::string clockText(std::uint32_t milliseconds);

/// "1 file", "2 files".
std::string fileCountText(std::size_t count);

/// A file name or other text of the user that is safe to show: control characters, which could
/// steer a terminal, become question marks.
std::string printable(const std::string& text);

/// Shortens a UTF-8 text to the given number of terminal columns, its end kept, because that is
/// where the names of recordings differ.
std::string fitted(const std::string& text, int columns);

/// Terminal columns that a UTF-8 text takes at most.
int columnsOf(const std::string& text);

/// The path of a UTF-8 name.
std::filesystem::path toPath(const std::string& utf8Name);

/// The last component of a UTF-8 file name, safe to show.
std::string shownName(const std::string& file);

} // namespace player

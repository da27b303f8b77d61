// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdio>
#include <string>
#include <vector>

/// Everything that the player needs from the operating system. One file for each system.
namespace player::terminal {

/// Makes the console take UTF-8 and turns Ctrl-C into stopRequested(). Call it first, once.
void prepare();

/// The command line in UTF-8, without the program's name.
std::vector<std::string> arguments(int argc, char** argv);

/// True when standard output is seen by a person on a terminal.
bool outputIsTerminal();

/// Width of that terminal in characters; 80 when it is not known.
int columns();

/// True from the first Ctrl-C (or request to terminate) on; further ones change nothing.
bool stopRequested();

/// Opens a file for binary writing, empty. Returns null, with errno set, on failure.
std::FILE* openForWriting(const std::string& utf8Name);

} // namespace player::terminal

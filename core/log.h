// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {
class ILogger;
}

namespace sn_internal {

/// Levels of the library's own messages. Unknown drivers and plug-ins that fail are errors; all the
/// rest is information.
constexpr std::int32_t LogLevelInformation = 0;
constexpr std::int32_t LogLevelError = 1;

/// None of the three lets an exception out: a message that finds no memory is lost, and what it
/// tells of goes on.

/// Writes a message through the installed logger; nothing happens when there is none.
void logText(const char* text, std::int32_t level = LogLevelInformation, bool newLine = true);

/// Writes text, ": " and hint.
void logTextWithHint(const char* text, const char* hint, std::int32_t level = LogLevelInformation,
                     bool newLine = true);

/// Writes directly to the enabled targets, whether a logger is installed or not.
void printText(const char* text, bool newLine);

/// Grabs the installed logger, or installs a new one, and sets the targets from an engine's option
/// bits: the debugger is only ever switched on, standard output follows every new engine.
sonimbra::ILogger* acquireLogger(int engineOptions);

/// Gives back what acquireLogger returned; the last one uninstalls the logger.
void releaseLogger(sonimbra::ILogger* logger);

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/log.h"

#include "core/CLogger.h"
#include "core/debugger.h"
#include "core/no_throw.h"
#include "core/string.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>

#include <atomic>
#include <cstdio>
#include <string>

namespace sn_internal {
namespace {

std::atomic<sonimbra::ILogger*> InstalledLogger{nullptr};
std::atomic<bool> PrintIntoDebugger{false};
std::atomic<bool> PrintToStandardOutput{true};

/// Prints text the way a formatter without arguments does: "%%" is one percent sign. A conversion
/// that would need an argument prints as it stands.
void printAsFormat(const char* text) {
    std::string formatted;
    for (const char* in = text; *in != 0; ++in) {
        if (in[0] == '%' && in[1] == '%') {
            ++in;
        }
        formatted += *in;
    }
    std::fwrite(formatted.data(), 1, formatted.size(), stdout);
}

void print(const char* text, bool newLine) {
    const bool toStandardOutput = PrintToStandardOutput.load();
    if (PrintIntoDebugger.load()) {
        sonimbra::string<char> line(text);
        line.append(newLine ? "\n" : nullptr);
        writeToDebugger(line.c_str());
        if (toStandardOutput) {
            printAsFormat(line.c_str());
        }
    } else if (toStandardOutput && newLine) {
        std::printf("%s\n", text);
    } else if (toStandardOutput) {
        printAsFormat(text);
    }
}

} // namespace

void logText(const char* text, std::int32_t level, bool newLine) {
    if (sonimbra::ILogger* logger = InstalledLogger.load()) {
        withoutExceptions([&] { logger->log(text, level, newLine); });
    }
}

void logTextWithHint(const char* text, const char* hint, std::int32_t level, bool newLine) {
    if (sonimbra::ILogger* logger = InstalledLogger.load()) {
        withoutExceptions([&] { logger->logWithHint(text, hint, level, newLine); });
    }
}

void printText(const char* text, bool newLine) {
    withoutExceptions([&] { print(text, newLine); });
}

sonimbra::ILogger* acquireLogger(int engineOptions) {
    sonimbra::ILogger* logger = InstalledLogger.load();
    if (logger != nullptr) {
        logger->grab();
    } else {
        logger = new CLogger;
        InstalledLogger.store(logger);
    }
    if ((engineOptions & sonimbra::PrintDebugInfoIntoDebugger) != 0) {
        PrintIntoDebugger.store(true);
    }
    PrintToStandardOutput.store((engineOptions & sonimbra::PrintDebugInfoToStdOut) != 0);
    return logger;
}

void releaseLogger(sonimbra::ILogger* logger) {
    if (logger != nullptr && logger->drop()) {
        InstalledLogger.store(nullptr);
    }
}

} // namespace sn_internal

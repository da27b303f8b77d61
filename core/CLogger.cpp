// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/CLogger.h"

#include "core/log.h"
#include "core/string.h"

namespace sn_internal {

std::int32_t CLogger::getLogLevel() {
    return LogLevel.load(std::memory_order_relaxed);
}

void CLogger::setLogLevel(std::int32_t level) {
    LogLevel.store(level, std::memory_order_relaxed);
}

void CLogger::logWithHint(const char* text, const char* hint, std::int32_t level, bool newLine) {
    if (level < getLogLevel()) {
        return;
    }
    sonimbra::string<char> message(text);
    message.append(": ");
    message.append(hint);
    log(message.c_str(), level, newLine);
}

void CLogger::log(const char* text, std::int32_t level, bool newLine) {
    if (level >= getLogLevel()) {
        printText(text, newLine);
    }
}

} // namespace sn_internal

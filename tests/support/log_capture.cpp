// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/log_capture.h"

#include "core/log.h"

#include <sonimbra/E_SOUND_ENGINE_OPTIONS.h>

#include <sstream>

namespace sn_test {

Lines linesOf(const std::string& text) {
    Lines lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

CInstalledLogger::CInstalledLogger() : CInstalledLogger(sonimbra::PrintDebugInfoToStdOut) {
}

CInstalledLogger::CInstalledLogger(int engineOptions)
    : Logger(sn_internal::acquireLogger(engineOptions)) {
}

CInstalledLogger::~CInstalledLogger() {
    sn_internal::releaseLogger(Logger);
}

} // namespace sn_test

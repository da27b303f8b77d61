// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/ILogger.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sn_test {

using Lines = std::vector<std::string>;

/// What an operation writes to standard output, which this process must not capture already.
template <class F>
std::string standardOutputOf(F&& operation) {
    testing::internal::CaptureStdout();
    operation();
    return testing::internal::GetCapturedStdout();
}

Lines linesOf(const std::string& text);

/// Installs the library's logger for a scope, with standard output switched on.
class CInstalledLogger {
public:
    CInstalledLogger();
    explicit CInstalledLogger(int engineOptions);
    ~CInstalledLogger();
    CInstalledLogger(const CInstalledLogger&) = delete;
    CInstalledLogger& operator=(const CInstalledLogger&) = delete;

    sonimbra::ILogger* operator->() const { return Logger; }

private:
    sonimbra::ILogger* Logger;
};

/// The lines that the library logs during an operation, with a logger installed around it.
template <class F>
Lines loggedLinesOf(F&& operation) {
    const CInstalledLogger logger;
    return linesOf(standardOutputOf(operation));
}

} // namespace sn_test

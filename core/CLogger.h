// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/ILogger.h>

#include <atomic>

namespace sn_internal {

class CLogger final : public sonimbra::ILogger {
public:
    std::int32_t getLogLevel() override;
    void setLogLevel(std::int32_t level) override;
    void logWithHint(const char* text, const char* hint, std::int32_t level, bool newLine) override;
    void log(const char* text, std::int32_t level, bool newLine) override;

private:
    std::atomic<std::int32_t> LogLevel{0};
};

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/IThread.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <atomic>

#include <windows.h>

namespace {

class CPriorityProbe final : public sn_internal::IThread {
public:
    void run(const sn_internal::SThreadStart&) override {
        priority = GetThreadPriority(GetCurrentThread());
        done = true;
    }

    int priority = THREAD_PRIORITY_ERROR_RETURN;
    std::atomic<bool> done{false};
};

TEST(ThreadPriorities, MapToTheSystemsSteps) {
    const struct {
        std::uint32_t asked;
        int given;
    } cases[] = {{0, -2}, {1, -1}, {2, 0}, {3, 1}, {4, 2}, {5, 0}, {7, 0}, {UINT32_MAX, 0}};
    for (const auto& c : cases) {
        CPriorityProbe probe;
        ASSERT_TRUE(sn_internal::startThread(&probe, 0, c.asked));
        ASSERT_TRUE(sn_test::waitFor([&] { return probe.done.load(); }));
        EXPECT_EQ(probe.priority, c.given) << c.asked;
    }
}

} // namespace

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/IThread.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

#include <sys/resource.h>

namespace {

class CNiceProbe final : public sn_internal::IThread {
public:
    void run(const sn_internal::SThreadStart&) override {
        nice = getpriority(PRIO_PROCESS, 0);
        done = true;
    }

    int nice = 0;
    std::atomic<bool> done{false};
};

int niceOfThread(std::uint32_t priority) {
    CNiceProbe probe;
    EXPECT_TRUE(sn_internal::startThread(&probe, 0, priority));
    EXPECT_TRUE(sn_test::waitFor([&] { return probe.done.load(); }));
    return probe.nice;
}

TEST(ThreadPriorities, LowerOnesGiveWay) {
    const int here = getpriority(PRIO_PROCESS, 0);
    EXPECT_EQ(niceOfThread(0), std::min(here + 10, 19));
    EXPECT_EQ(niceOfThread(1), std::min(here + 5, 19));
    for (const std::uint32_t normal : {2u, 5u, 7u, UINT32_MAX}) {
        EXPECT_EQ(niceOfThread(normal), here) << normal;
    }
    EXPECT_EQ(getpriority(PRIO_PROCESS, 0), here) << "a thread changed the whole process";
}

TEST(ThreadPriorities, HigherOnesNeverSlowAThreadDown) {
    const int here = getpriority(PRIO_PROCESS, 0);
    EXPECT_LE(niceOfThread(3), here);
    EXPECT_LE(niceOfThread(4), niceOfThread(3));
}

} // namespace

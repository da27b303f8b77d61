// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/ICriticalSection.h"
#include "core/IThread.h"
#include "core/counted_ptr.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

using namespace sn_internal;
using sn_test::waitFor;

class CProbe final : public IThread {
public:
    void run(const SThreadStart& start) override {
        ranOn = std::this_thread::get_id();
        seen = start;
        done = true;
    }

    std::thread::id ranOn;
    SThreadStart seen;
    std::atomic<bool> done{false};
};

TEST(Threads, RunOnAThreadOfTheirOwn) {
    for (std::uint32_t priority = 0; priority < 8; ++priority) {
        CProbe probe;
        const std::uintptr_t userData = UINTPTR_MAX - priority;
        ASSERT_TRUE(startThread(&probe, userData, priority)) << priority;
        ASSERT_TRUE(waitFor([&] { return probe.done.load(); })) << priority;
        EXPECT_EQ(probe.seen.userData, userData);
        EXPECT_EQ(probe.seen.thread, &probe);
        EXPECT_NE(probe.ranOn, std::this_thread::get_id());
    }
}

TEST(Threads, RefuseToStartNothing) {
    EXPECT_FALSE(startThread(nullptr, 0, 2));
}

class CriticalSection : public testing::Test {
protected:
    counted_ptr<ICriticalSection> section =
        counted_ptr<ICriticalSection>::adopt(createCriticalSection());
};

TEST_F(CriticalSection, KeepsOthersOut) {
    constexpr int threadCount = 4;
    constexpr int rounds = 20000;
    int counter = 0; // plain on purpose
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                const CScopedLock lock(*section.get());
                ++counter;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counter, threadCount * rounds);
}

TEST_F(CriticalSection, IsFreeAfterAsManyUnlocksAsLocks) {
    section->lock();
    section->lock();
    std::atomic<bool> entered{false};
    std::thread other([&] {
        const CScopedLock lock(*section.get());
        entered = true;
    });
    section->unlock();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(entered) << "one unlock freed a lock that was taken twice";
    section->unlock();
    EXPECT_TRUE(waitFor([&] { return entered.load(); }));
    other.join();
}

} // namespace

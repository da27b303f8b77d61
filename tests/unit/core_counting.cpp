// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/CVirtualUnknown.h"
#include "core/counted_ptr.h"

#include <sonimbra/IRefCounted.h>
#include <sonimbra/IVirtualRefCounted.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

namespace {

using sn_internal::counted_ptr;

class CPlain : public sonimbra::IRefCounted {
public:
    explicit CPlain(int& destroyedCounter) : Destroyed(destroyedCounter) {}
    ~CPlain() override { ++Destroyed; }

private:
    int& Destroyed;
};

/// The concrete class of a sound or a source: its counter comes from the template.
class CShared : public sonimbra::IVirtualRefCounted {
public:
    CShared(std::atomic<int>& destroyedCounter, int someValue, std::vector<int> moved)
        : value(someValue), content(std::move(moved)), Destroyed(destroyedCounter) {}
    ~CShared() override { ++Destroyed; }

    const int value;
    const std::vector<int> content;

private:
    std::atomic<int>& Destroyed;
};

TEST(RefCounted, LivesUntilTheLastReferenceGoes) {
    int destroyed = 0;
    auto* object = new CPlain(destroyed);
    object->grab();
    object->grab();
    EXPECT_FALSE(object->drop());
    EXPECT_FALSE(object->drop());
    EXPECT_EQ(destroyed, 0);
    EXPECT_TRUE(object->drop());
    EXPECT_EQ(destroyed, 1);
}

class ILeft : public virtual sonimbra::IRefCounted {};
class IRight : public virtual sonimbra::IRefCounted {};
class CBoth : public ILeft, public IRight {};

TEST(RefCounted, CombinedInterfacesShareOneCounter) {
    auto* object = new CBoth;
    static_cast<ILeft*>(object)->grab();
    EXPECT_FALSE(static_cast<IRight*>(object)->drop());
    EXPECT_TRUE(static_cast<ILeft*>(object)->drop());
}

TEST(VirtualRefCounted, CountsFromOneAndForwardsItsArguments) {
    std::atomic<int> destroyed{0};
    auto* object = new sonimbra::CVirtualUnknown<CShared>(destroyed, 7, std::vector<int>{1, 2, 3});
    EXPECT_EQ(object->value, 7);
    EXPECT_EQ(object->content.size(), 3u);
    sonimbra::IVirtualRefCounted* base = object;
    EXPECT_EQ(base->grab(), 2);
    EXPECT_EQ(base->grab(), 3);
    EXPECT_FALSE(base->drop());
    EXPECT_FALSE(base->drop());
    EXPECT_EQ(destroyed, 0);
    EXPECT_TRUE(base->drop());
    EXPECT_EQ(destroyed, 1);
}

TEST(VirtualRefCounted, IsDestroyedOnceWhenManyThreadsCount) {
    constexpr int threadCount = 4;
    std::atomic<int> destroyed{0};
    std::atomic<int> lastDrops{0};
    sonimbra::IVirtualRefCounted* object =
        new sonimbra::CVirtualUnknown<CShared>(destroyed, 0, std::vector<int>());
    for (int i = 1; i < threadCount; ++i) {
        object->grab();
    }
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50000; ++round) {
                object->grab();
                lastDrops += object->drop() ? 1 : 0;
            }
            lastDrops += object->drop() ? 1 : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(lastDrops, 1);
}

TEST(CountedPtr, HoldsExactlyOneReference) {
    int destroyed = 0;
    auto* object = new CPlain(destroyed);
    {
        auto shared = counted_ptr<CPlain>::share(object);
        auto moved = std::move(shared);
        EXPECT_FALSE(shared);
        EXPECT_EQ(moved.get(), object);
    }
    EXPECT_EQ(destroyed, 0);
    {
        auto adopted = counted_ptr<CPlain>::adopt(object);
        EXPECT_EQ(adopted.release(), object);
        EXPECT_FALSE(adopted);
    }
    EXPECT_EQ(destroyed, 0);
    counted_ptr<CPlain>::adopt(object).reset();
    EXPECT_EQ(destroyed, 1);
    EXPECT_FALSE(counted_ptr<CPlain>::share(nullptr));
}

TEST(CountedPtr, AssignmentReleasesWhatWasHeld) {
    int destroyed = 0;
    auto first = counted_ptr<CPlain>::adopt(new CPlain(destroyed));
    first = counted_ptr<CPlain>::adopt(new CPlain(destroyed));
    EXPECT_EQ(destroyed, 1);
    first = counted_ptr<CPlain>();
    EXPECT_EQ(destroyed, 2);
}

} // namespace

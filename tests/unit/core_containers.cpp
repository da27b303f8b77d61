// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/array.h"
#include "core/list.h"
#include "core/string.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

/// Knows how many of its kind exist, and destroys its value so that a stale read shows.
struct STracked {
    explicit STracked(int v) : value(v) { ++alive; }
    STracked(const STracked& other) : value(other.value) { ++alive; }
    STracked& operator=(const STracked&) = default;
    ~STracked() {
        value = -1;
        --alive;
    }
    bool operator<(const STracked& other) const { return value < other.value; }

    int value;
    static int alive;
};
int STracked::alive = 0;

int BlocksInUse = 0;

/// Sees what a container asks of the allocator object that it carries.
template <class T>
class CCountingAllocator final : public sonimbra::snAllocator<T> {
protected:
    void* internal_new(std::size_t byteCount) override {
        ++BlocksInUse;
        return sonimbra::snAllocator<T>::internal_new(byteCount);
    }
    void internal_delete(void* pointer) override {
        BlocksInUse -= pointer != nullptr ? 1 : 0;
        sonimbra::snAllocator<T>::internal_delete(pointer);
    }
};

using TrackedArray = sonimbra::array<STracked, CCountingAllocator<STracked>>;

std::vector<int> valuesOf(TrackedArray& array) {
    std::vector<int> values;
    for (const STracked& element : array) {
        values.push_back(element.value);
    }
    return values;
}

class Containers : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(STracked::alive, 0);
        EXPECT_EQ(BlocksInUse, 0);
    }
};

TEST_F(Containers, ArrayGrowsToTwiceItsUseAndOne) {
    TrackedArray array;
    EXPECT_EQ(array.capacity(), 0u);
    const std::uint32_t expected[] = {1, 3, 3, 7, 7, 7, 7, 15, 15};
    for (const std::uint32_t capacity : expected) {
        array.push_back(STracked(static_cast<int>(array.size())));
        EXPECT_EQ(array.capacity(), capacity) << "with " << array.size() << " elements";
    }
    EXPECT_EQ(valuesOf(array), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(Containers, ArrayAcceptsAnElementOfItsOwn) {
    TrackedArray array;
    array.push_back(STracked(5));
    for (int i = 0; i < 20; ++i) {
        array.push_back(array[0]); // also at the moments at which the array moves
    }
    EXPECT_EQ(valuesOf(array), std::vector<int>(21, 5));
}

TEST_F(Containers, ArrayReallocatesErasesAndClears) {
    TrackedArray array;
    for (int i = 0; i < 6; ++i) {
        array.push_back(STracked(i));
    }
    array.reallocate(20);
    EXPECT_EQ(array.capacity(), 20u);
    EXPECT_EQ(array.size(), 6u);
    array.erase(5);
    array.erase(0);
    array.erase(1);
    EXPECT_EQ(valuesOf(array), (std::vector<int>{1, 3, 4}));
    array.reallocate(2);
    EXPECT_EQ(valuesOf(array), (std::vector<int>{1, 3}));
    array.clear();
    EXPECT_EQ(array.size() + array.capacity(), 0u);
    EXPECT_EQ(BlocksInUse, 0);
    array.push_back(STracked(9));
    EXPECT_EQ(valuesOf(array), (std::vector<int>{9}));
}

TEST_F(Containers, ArrayLeavesElementsThatItMustNotFree) {
    STracked* kept = nullptr;
    {
        TrackedArray array;
        array.push_back(STracked(3));
        array.set_free_when_destroyed(false);
        kept = &array[0];
    }
    EXPECT_EQ(BlocksInUse, 1);
    EXPECT_EQ(kept->value, 3);
    kept->~STracked();
    CCountingAllocator<STracked>().deallocate(kept);
}

TEST_F(Containers, ArraySortsAndSearchesLikeTheStandardLibrary) {
    std::mt19937 random(1);
    for (int count = 0; count < 70; ++count) {
        std::uniform_int_distribution<int> values(0, count); // with equal elements
        TrackedArray array;
        std::vector<int> expected;
        for (int i = 0; i < count; ++i) {
            expected.push_back(values(random));
            array.push_back(STracked(expected.back()));
        }
        std::sort(expected.begin(), expected.end());
        for (int wanted = -1; wanted <= count + 1; ++wanted) {
            const std::int32_t found = array.binary_search(STracked(wanted));
            if (std::binary_search(expected.begin(), expected.end(), wanted)) {
                ASSERT_GE(found, 0) << wanted << " of " << count;
                ASSERT_EQ(array[static_cast<std::uint32_t>(found)].value, wanted);
            } else {
                ASSERT_EQ(found, -1) << wanted << " of " << count;
            }
        }
        ASSERT_TRUE(count == 0 || valuesOf(array) == expected) << count;
    }
}

TEST_F(Containers, ArraySearchStaysWithinItsBounds) {
    TrackedArray array;
    for (const int value : {50, 10, 40, 20, 30}) {
        array.push_back(STracked(value));
    }
    EXPECT_EQ(array.binary_search(STracked(20), 0, 4), 1);
    EXPECT_EQ(array.binary_search(STracked(20), 2, 4), -1);
    EXPECT_EQ(array.binary_search(STracked(40), 2, 4), 3);
    array.push_back(STracked(5)); // sorts again
    EXPECT_EQ(array.binary_search(STracked(10)), 1);
}

/// Bytes as signed numbers, shorter texts first: the order written out once more.
bool isNameLess(const std::string& a, const std::string& b) {
    const auto lessByte = [](char x, char y) {
        return static_cast<signed char>(x) < static_cast<signed char>(y);
    };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), lessByte);
}

TEST_F(Containers, ArrayOfNamesSortsBySignedBytes) {
    std::mt19937 random(2);
    const std::string alphabet = "AZaz09_\x7f\x80\xc3\xa4\xff";
    sonimbra::array<sonimbra::string<char>> names;
    std::vector<std::string> expected;
    for (int i = 0; i < 500; ++i) {
        std::string name;
        for (std::size_t length = random() % 5; length > 0; --length) {
            name += alphabet[random() % alphabet.size()];
        }
        expected.push_back(name);
        names.push_back(sonimbra::string<char>(name.c_str()));
    }
    std::sort(expected.begin(), expected.end(), isNameLess);
    names.sort();
    for (std::uint32_t i = 0; i < names.size(); ++i) {
        ASSERT_STREQ(names[i].c_str(), expected[i].c_str()) << i;
    }
}

std::vector<int> valuesOf(const sonimbra::list<STracked>& list) {
    std::vector<int> values;
    for (const STracked& element : list) {
        values.push_back(element.value);
    }
    EXPECT_EQ(list.getSize(), values.size());
    EXPECT_EQ(list.empty(), values.empty());
    return values;
}

TEST_F(Containers, ListErasesAtEveryPlace) {
    sonimbra::list<STracked> list;
    for (int i = 0; i < 5; ++i) {
        list.push_back(STracked(i));
    }
    auto it = list.erase(list.begin());
    EXPECT_EQ((*it).value, 1);
    ++it;
    it = list.erase(it);
    EXPECT_EQ((*it).value, 3);
    ++it;
    EXPECT_EQ(list.erase(it), list.end());
    EXPECT_EQ(valuesOf(list), (std::vector<int>{1, 3}));
    list.push_back(STracked(6)); // the last node was replaced
    EXPECT_EQ(valuesOf(list), (std::vector<int>{1, 3, 6}));
    for (it = list.begin(); it != list.end();) {
        it = list.erase(it);
    }
    EXPECT_EQ(valuesOf(list), std::vector<int>());
    list.push_back(STracked(7));
    EXPECT_EQ(valuesOf(list), (std::vector<int>{7}));
}

TEST_F(Containers, ListMovesNodesToAnother) {
    sonimbra::list<STracked> from;
    sonimbra::list<STracked> to;
    for (int i = 0; i < 3; ++i) {
        from.push_back(STracked(i));
    }
    auto it = from.begin();
    ++it;
    const STracked* moved = &*it;
    it = from.moveToEndOf(to, it);
    EXPECT_EQ((*it).value, 2);
    EXPECT_EQ(&*to.begin(), moved);
    EXPECT_EQ(from.moveToEndOf(to, it), from.end());
    EXPECT_EQ(valuesOf(from), (std::vector<int>{0}));
    EXPECT_EQ(valuesOf(to), (std::vector<int>{1, 2}));
    from.moveToEndOf(to, from.begin());
    EXPECT_EQ(valuesOf(from), std::vector<int>());
    EXPECT_EQ(valuesOf(to), (std::vector<int>{1, 2, 0}));
}

} // namespace

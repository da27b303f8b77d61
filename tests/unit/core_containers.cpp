// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

TEST(Array, GrowsAndErases) {
    // Longer than what a text keeps in itself: the address sanitizer sees a stale element.
    const std::string text(40, 'a');
    sonimbra::array<std::string> array;
    array.push_back(text);
    for (const std::uint32_t capacity : {3u, 3u, 7u, 7u, 7u, 7u, 15u}) {
        array.push_back(array[0]); // its own element, also when the array moves
        EXPECT_EQ(array.capacity(), capacity) << "with " << array.size() << " elements";
    }
    array.erase(0);
    array.erase(6);
    EXPECT_EQ(std::count(array.begin(), array.end(), text), 6);
}

TEST(Array, SortsAndSearchesLikeTheStandardLibrary) {
    std::mt19937 random(1);
    for (int count = 1; count < 70; ++count) {
        std::uniform_int_distribution<int> values(0, count); // with equal elements
        sonimbra::array<int> array;
        std::vector<int> expected;
        for (int i = 0; i < count; ++i) {
            expected.push_back(values(random));
            array.push_back(expected.back());
        }
        std::sort(expected.begin(), expected.end());
        for (int wanted = -1; wanted <= count + 1; ++wanted) {
            const std::int32_t found = array.binary_search(wanted);
            const bool exists = std::binary_search(expected.begin(), expected.end(), wanted);
            ASSERT_EQ(found >= 0, exists) << wanted << " of " << count;
            ASSERT_TRUE(!exists || array[static_cast<std::uint32_t>(found)] == wanted);
        }
        ASSERT_TRUE(std::equal(array.begin(), array.end(), expected.begin(), expected.end()));
    }
}

} // namespace

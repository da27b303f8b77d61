// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/string.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Text = sonimbra::string<char>;

TEST(Text, AssignsFromAllKindsOfText) {
    Text text;
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_EQ(text.size(), 0u);
    text = "drum.wav";
    EXPECT_STREQ(text.c_str(), "drum.wav");
    EXPECT_EQ(text.size(), 8u);
    text = text.c_str(); // its own characters
    EXPECT_STREQ(text.c_str(), "drum.wav");
    text = text.c_str() + 5; // inside its own characters
    EXPECT_STREQ(text.c_str(), "wav");
    const Text copy(text);
    text = static_cast<const char*>(nullptr);
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_EQ(text.size(), 0u);
    EXPECT_STREQ(copy.c_str(), "wav");
    text = copy;
    EXPECT_STREQ(text.c_str(), "wav");
    EXPECT_STREQ(Text(Text()).c_str(), "");
}

TEST(Text, NarrowsWideTextByTruncation) {
    const char16_t wide[] = {u'a', 0x00e9, 0x0142, 0xff41, 0};
    Text text(wide);
    EXPECT_STREQ(text.c_str(), "a\xe9\x42\x41");
    text = L"bc";
    EXPECT_STREQ(text.c_str(), "bc");
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_STREQ(text.c_str(), "");
}

TEST(Text, Appends) {
    Text text;
    text.append(nullptr);
    EXPECT_STREQ(text.c_str(), "");
    text.append("ab");
    text.append("");
    text.append(text.c_str()); // its own characters
    EXPECT_STREQ(text.c_str(), "abab");
    EXPECT_EQ(text.size(), 4u);
}

TEST(Text, LowersAsciiLettersOnly) {
    Text text("AZ[@az{09 \xc3\x84\xc0\xff");
    text.make_lower();
    EXPECT_STREQ(text.c_str(), "az[@az{09 \xc3\x84\xc0\xff");
}

TEST(Text, FindsTheFirstPlace) {
    const struct {
        const char* text;
        const char* wanted;
        std::int32_t position;
    } cases[] = {
        {"song.wav", ".wav", 4},
        {"song.wav.wav", ".wav", 4},
        {"take.wav.bak", ".wav", 4},
        {".wav", ".wav", 0}, // equal
        {"aaab", "aab", 1},
        {"song.WAV", ".wav", -1},
        {"wav", ".wav", -1}, // longer than the text
        {"song.wa", ".wav", -1},
        {"song", "", -1},
        {"song", nullptr, -1},
        {"", "a", -1},
        {"", "", -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Text(c.text).find(c.wanted), c.position)
            << c.text << " / " << (c.wanted != nullptr ? c.wanted : "null");
    }
    EXPECT_EQ(Text().find("a"), -1);
    EXPECT_EQ(Text().find(""), -1);
}

TEST(Text, OrdersAndComparesNames) {
    // Each sorts before the one that follows it.
    const char* const ascending[] = {"",      "\x80", "\xc3\xa4.wav", "\xff",  "0", "A", "Z",
                                     "Z.wav", "a",    "a.",           "a.wav", "aa"};
    const std::size_t count = std::size(ascending);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) {
            const Text a(ascending[i]);
            const Text b(ascending[j]);
            EXPECT_EQ(a < b, i < j) << ascending[i] << " < " << ascending[j];
            EXPECT_EQ(a == b, i == j) << ascending[i] << " == " << ascending[j];
        }
    }
}

} // namespace

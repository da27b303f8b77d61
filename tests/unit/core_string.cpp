// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/string.h"

#include <gtest/gtest.h>

namespace {

using Text = sonimbra::string<char>;

TEST(Text, TakesAllKindsOfText) {
    Text text("drum.wav");
    text = text.c_str() + 5; // inside its own characters
    text.append(text.c_str());
    text.append(nullptr);
    EXPECT_STREQ(text.c_str(), "wavwav");
    EXPECT_EQ(text.size(), 6u);
    const Text copy(text);
    text = static_cast<const char*>(nullptr);
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_STREQ(copy.c_str(), "wavwav");
    const char16_t wide[] = {u'a', 0x00e9, 0x0142, 0xff41, 0};
    EXPECT_STREQ(Text(wide).c_str(), "a\xe9\x42\x41");
    text = "AZ[@az{09 \xc3\x84\xc0\xff";
    text.make_lower();
    EXPECT_STREQ(text.c_str(), "az[@az{09 \xc3\x84\xc0\xff");
}

TEST(Text, FindsTheFirstPlace) {
    EXPECT_EQ(Text("song.wav.wav").find(".wav"), 4);
    EXPECT_EQ(Text("aaab").find("aab"), 1);
    EXPECT_EQ(Text("song.WAV").find(".wav"), -1);
    EXPECT_EQ(Text("song").find(""), -1);
}

TEST(Text, OrdersNamesBySignedBytes) {
    const char* const ascending[] = {"", "\x80", "\xc3\xa4.wav", "\xff", "0", "Z", "Z.wav", "aa"};
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_EQ(Text(ascending[i]) < Text(ascending[j]), i < j) << i << " < " << j;
            EXPECT_EQ(Text(ascending[i]) == Text(ascending[j]), i == j) << i << " == " << j;
        }
    }
}

} // namespace

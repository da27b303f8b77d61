// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CMemoryReadFile.h"
#include "io/CReadFile.h"
#include "tests/support/CTemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace sn_internal;
using sn_test::Bytes;

Bytes readUpTo(sonimbra::IFileReader& file, std::uint32_t size) {
    Bytes bytes(size);
    bytes.resize(static_cast<std::size_t>(file.read(bytes.data(), size)));
    return bytes;
}

/// What holds for every kind of reader over the bytes 10, 26, ..., 154.
void expectReadingAndSeeking(sonimbra::IFileReader& file) {
    EXPECT_EQ(file.getSize(), 10);
    EXPECT_EQ(readUpTo(file, 3), (Bytes{10, 26, 42}));
    EXPECT_EQ(file.getPos(), 3);
    EXPECT_EQ(readUpTo(file, 20), (Bytes{58, 74, 90, 106, 122, 138, 154}));
    EXPECT_EQ(readUpTo(file, 20), Bytes());
    EXPECT_TRUE(file.seek(-8, true));
    EXPECT_EQ(readUpTo(file, 1), (Bytes{42}));
    EXPECT_TRUE(file.seek(8, false));
    EXPECT_FALSE(file.seek(-9, true));
    EXPECT_FALSE(file.seek(INT32_MIN, false));
    EXPECT_EQ(readUpTo(file, 1), (Bytes{138})) << "a refused seek moved the position";
}

TEST(Readers, ReadAndSeek) {
    Bytes bytes; // a line end and an end of text among them
    for (std::uint8_t i = 0; i < 10; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(10 + 16 * i));
    }
    const sn_test::CTemporaryFolder folder;
    io::CReadFile onDisk(folder.write("ten", bytes).c_str());
    expectReadingAndSeeking(onDisk);
    io::CMemoryReadFile inMemory(bytes.data(), 10, "ten", false);
    expectReadingAndSeeking(inMemory);
    EXPECT_FALSE(inMemory.seek(11, false));
    EXPECT_FALSE(inMemory.seek(INT32_MAX, true));
    EXPECT_EQ(inMemory.getPos(), 9);
    io::CMemoryReadFile noBlock(nullptr, 100, nullptr, false);
    EXPECT_EQ(readUpTo(noBlock, 1), Bytes());
}

} // namespace

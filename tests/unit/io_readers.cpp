// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "io/CMemoryReadFile.h"
#include "io/CReadFile.h"
#include "tests/support/CTemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

namespace {

using namespace sn_internal;
using sn_test::Bytes;

/// Both kinds of reader over the same bytes: what follows holds for either.
class Readers : public testing::TestWithParam<bool> {
protected:
    counted_ptr<sonimbra::IFileReader> open(const Bytes& bytes) {
        Content = bytes;
        sonimbra::IFileReader* reader = nullptr;
        if (GetParam()) {
            reader = new io::CMemoryReadFile(
                Content.data(), static_cast<std::int32_t>(Content.size()), "block", false);
        } else {
            reader = new io::CReadFile(Folder.write("block", bytes).c_str());
        }
        return counted_ptr<sonimbra::IFileReader>::adopt(reader);
    }

    static Bytes readUpTo(sonimbra::IFileReader& file, std::uint32_t size) {
        Bytes bytes(size, 0xee);
        const std::int32_t got = file.read(bytes.data(), size);
        EXPECT_GE(got, 0);
        bytes.resize(static_cast<std::size_t>(got));
        return bytes;
    }

private:
    sn_test::CTemporaryFolder Folder;
    Bytes Content;
};

TEST_P(Readers, ReadToTheEndAndNoFurther) {
    const auto file = open({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(file->getSize(), 10);
    EXPECT_EQ(file->getPos(), 0);
    EXPECT_EQ(readUpTo(*file.get(), 3), (Bytes{0, 1, 2}));
    EXPECT_EQ(readUpTo(*file.get(), 0), Bytes());
    EXPECT_EQ(file->getPos(), 3);
    EXPECT_EQ(readUpTo(*file.get(), 20), (Bytes{3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(readUpTo(*file.get(), 20), Bytes());
    EXPECT_EQ(file->getPos(), 10);
    EXPECT_EQ(file->getSize(), 10);
}

TEST_P(Readers, Seek) {
    const auto file = open({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_TRUE(file->seek(8, false));
    EXPECT_EQ(readUpTo(*file.get(), 1), (Bytes{8}));
    EXPECT_TRUE(file->seek(-7, true));
    EXPECT_EQ(readUpTo(*file.get(), 2), (Bytes{2, 3}));
    EXPECT_TRUE(file->seek(3, true));
    EXPECT_EQ(readUpTo(*file.get(), 1), (Bytes{7}));
    EXPECT_FALSE(file->seek(-9, true));
    EXPECT_FALSE(file->seek(-1, false));
    EXPECT_FALSE(file->seek(INT32_MIN, false));
    EXPECT_TRUE(file->seek(10, false));
    EXPECT_EQ(readUpTo(*file.get(), 1), Bytes());
    EXPECT_TRUE(file->seek(0, false));
    EXPECT_EQ(readUpTo(*file.get(), 1), (Bytes{0}));
}

TEST_P(Readers, KeepEveryByteValue) {
    Bytes all(70000);
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = static_cast<std::uint8_t>(i * 7); // line ends and ends of text among them
    }
    const auto file = open(all);
    Bytes got;
    for (std::uint32_t step = 1; got.size() < all.size(); step = step * 3 % 1021) {
        const Bytes piece = readUpTo(*file.get(), step);
        ASSERT_FALSE(piece.empty());
        got.insert(got.end(), piece.begin(), piece.end());
    }
    EXPECT_EQ(got, all);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Readers, testing::Bool(), [](const auto& kind) {
    return std::string(kind.param ? "Memory" : "Disk");
});

TEST(MemoryReader, RefusesPositionsBehindItsEnd) {
    const std::array<char, 10> block = {};
    const auto file = counted_ptr<io::CMemoryReadFile>::adopt(
        new io::CMemoryReadFile(block.data(), 10, nullptr, false));
    EXPECT_STREQ(file->getFileName(), "");
    EXPECT_FALSE(file->seek(11, false));
    EXPECT_TRUE(file->seek(4, false));
    EXPECT_FALSE(file->seek(7, true));
    EXPECT_FALSE(file->seek(INT32_MAX, true));
    EXPECT_FALSE(file->seek(-5, true));
    EXPECT_EQ(file->getPos(), 4) << "a refused seek moved the position";
}

TEST(MemoryReader, ReleasesItsBlockOnlyWhenAsked) {
    // The address sanitizer sees a block that is released twice or never.
    io::CMemoryReadFile(new char[100], 100, "owned", true);
    const std::array<char, 3> block = {1, 2, 3};
    io::CMemoryReadFile(block.data(), 3, "foreign", false);
}

TEST(MemoryReader, HoldsNothingWithoutABlock) {
    const std::array<char, 3> block = {};
    for (const auto& [memory, length] : {std::pair<const char*, std::int32_t>{nullptr, 100},
                                         {block.data(), -1},
                                         {block.data(), 0}}) {
        io::CMemoryReadFile file(memory, length, "none", false);
        char target = 0;
        EXPECT_EQ(file.read(&target, 1), 0);
        EXPECT_FALSE(file.seek(1, false));
        EXPECT_EQ(file.getSize(), 0);
    }
}

TEST(DiskReader, KeepsTheNameAsItWasPassed) {
    const sn_test::CTemporaryFolder folder;
    const std::string name = folder.write("a.bin", {1});
    const io::CReadFile file(name.c_str());
    EXPECT_TRUE(file.isOpen());
    EXPECT_EQ(const_cast<io::CReadFile&>(file).getFileName(), name);
}

TEST(DiskReader, WithoutAFileReadsNothing) {
    const sn_test::CTemporaryFolder folder;
    for (const std::string& name : {std::string(), folder.nameOf("missing"), folder.nameOf("")}) {
        io::CReadFile file(name.c_str());
        char target = 0;
        EXPECT_FALSE(file.isOpen()) << name;
        EXPECT_EQ(file.read(&target, 1), 0);
        EXPECT_FALSE(file.seek(0, false));
        EXPECT_EQ(file.getSize(), 0);
        EXPECT_EQ(file.getPos(), 0);
    }
}

} // namespace

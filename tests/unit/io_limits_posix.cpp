// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "io/CFileSystem.h"
#include "tests/support/CTemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>

namespace {

using namespace sn_internal;
using Reader = counted_ptr<sonimbra::IFileReader>;

class FileLimits : public testing::Test {
protected:
    Reader open(const std::string& name) {
        return Reader::adopt(fileSystem.createAndOpenFile(name.c_str()));
    }

    io::CFileSystem fileSystem;
    sn_test::CTemporaryFolder folder;
};

TEST_F(FileLimits, FilesFrom2GiBOnAreRefused) {
    constexpr std::uintmax_t gib = 1u << 30;
    const std::string name = folder.write("sparse", {7});
    std::filesystem::resize_file(name, 2 * gib - 1);
    {
        const Reader largest = open(name);
        ASSERT_TRUE(largest);
        EXPECT_EQ(largest->getSize(), INT32_MAX);
        EXPECT_EQ(largest->getPos(), 0);
        EXPECT_TRUE(largest->seek(INT32_MAX - 1, false));
        char last[2] = {};
        EXPECT_EQ(largest->read(last, 2), 1);
    }
    for (const std::uintmax_t size : {2 * gib, 4 * gib, 4 * gib + 100}) {
        std::filesystem::resize_file(name, size);
        EXPECT_FALSE(open(name)) << size;
    }
}

TEST_F(FileLimits, APipeIsNoFile) {
    const std::string name = folder.nameOf("pipe");
    ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
    EXPECT_FALSE(open(name)); // and does not wait for somebody to write into it
    EXPECT_FALSE(fileSystem.existFile(name.c_str()));
}

TEST_F(FileLimits, AWorkingDirectoryThatIsTooLongIsEmpty) {
    const sn_test::CWorkingDirectory here(folder.path());
    const std::string part(200, 'd');
    for (int depth = 0; depth < 6; ++depth) {
        ASSERT_TRUE(fileSystem.createDirectory(part.c_str()));
        ASSERT_TRUE(fileSystem.changeWorkingDirectoryTo(part.c_str()));
    }
    EXPECT_STREQ(fileSystem.getWorkingDirectory(), "");
    const auto list = counted_ptr<io::IFileList>::adopt(fileSystem.createFileList());
    ASSERT_EQ(list->getFileCount(), 2);
    EXPECT_STREQ(list->getFullFileName(0), list->getFileName(0));
}

} // namespace

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CReadFile.h"
#include "io/disk.h"
#include "tests/support/CTemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using sn_internal::io::CReadFile;

TEST(FileLimits, FilesFrom2GiBOnAndPipesAreRefused) {
    constexpr std::uintmax_t gib = 1u << 30;
    const sn_test::CTemporaryFolder folder;
    const std::string name = folder.write("sparse", {7});
    std::filesystem::resize_file(name, 2 * gib - 1);
    EXPECT_EQ(CReadFile(name.c_str()).getSize(), INT32_MAX);
    for (const std::uintmax_t size : {2 * gib, 4 * gib + 100}) {
        std::filesystem::resize_file(name, size);
        EXPECT_FALSE(CReadFile(name.c_str()).isOpen()) << size;
    }
    const std::string pipe = folder.nameOf("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(CReadFile(pipe.c_str()).isOpen()); // and does not wait for a writer
}

TEST(FileLimits, AFolderThatWasRenamedIsFoundAgain) {
    const auto start = sn_internal::io::rememberWorkingDirectory();
    const sn_test::CTemporaryFolder folder;
    const std::string old = folder.nameOf("old"), renamed = folder.nameOf("new");
    std::filesystem::create_directory(old);
    std::filesystem::current_path(old);
    const auto remembered = sn_internal::io::rememberWorkingDirectory();
    std::filesystem::rename(old, renamed);
    EXPECT_TRUE(start->enter() && !remembered->isCurrent() && remembered->enter());
    EXPECT_EQ(std::filesystem::current_path(), renamed);
    EXPECT_TRUE(start->enter());
}

} // namespace

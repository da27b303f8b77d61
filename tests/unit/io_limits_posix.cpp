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
    const std::filesystem::path before = std::filesystem::current_path();
    const sn_test::CTemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "old");
    std::filesystem::current_path(folder.path() / "old");
    const auto remembered = sn_internal::io::rememberWorkingDirectory();
    std::filesystem::rename(folder.path() / "old", folder.path() / "new");
    EXPECT_TRUE(remembered->isCurrent());
    std::filesystem::current_path(folder.path());
    EXPECT_FALSE(remembered->isCurrent());
    EXPECT_TRUE(remembered->enter());
    EXPECT_EQ(std::filesystem::current_path(), folder.path() / "new");
    std::filesystem::current_path(before);
}

} // namespace

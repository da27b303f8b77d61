// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CFileSystem.h"

#include <gtest/gtest.h>

namespace {

TEST(WindowsPaths, AreSplitAtBothSeparatorsAndTheDrive) {
    const struct {
        const char* path;
        const char* directory;
        const char* name;
    } cases[] = {
        {"C:\\sounds\\song.wav", "C:\\sounds\\", "song.wav"},
        {"C:song.wav", "C:", "song.wav"},
        {"a\\b/song", "a\\b/", "song"},
        {"\\\\server\\share\\song.ogg", "\\\\server\\share\\", "song.ogg"},
    };
    sn_internal::io::CFileSystem fileSystem;
    for (const auto& c : cases) {
        EXPECT_STREQ(fileSystem.getFileDir(c.path).c_str(), c.directory) << c.path;
        EXPECT_STREQ(fileSystem.getFileBasename(c.path).c_str(), c.name) << c.path;
    }
}

} // namespace

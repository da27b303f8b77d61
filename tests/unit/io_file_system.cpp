// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "io/CFileSystem.h"
#include "tests/support/CTemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using namespace sn_internal;
using sn_test::Bytes;
using sn_test::utf8Of;

class FileSystem : public testing::Test {
protected:
    ~FileSystem() override { std::filesystem::current_path(before); }

    counted_ptr<sonimbra::IFileReader> open(const std::string& name) {
        return counted_ptr<sonimbra::IFileReader>::adopt(
            fileSystem.createAndOpenFile(name.c_str()));
    }

    const std::filesystem::path before = std::filesystem::current_path();
    sn_test::CTemporaryFolder folder;
    io::CFileSystem fileSystem;
};

TEST_F(FileSystem, OpensFilesByTheirUtf8Names) {
    const std::string names[] = {"two words.bin", "\xc3\xa4\xc3\xb6.bin", "\xf0\x9f\x8e\xb5.bin"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const std::string name = folder.write(names[i], Bytes(i));
        const auto file = open(name);
        ASSERT_TRUE(file) << name;
        EXPECT_EQ(file->getSize(), static_cast<std::int32_t>(i)) << name;
        EXPECT_EQ(file->getFileName(), name);
        EXPECT_TRUE(fileSystem.existFile(name.c_str())) << name;
    }
    const std::string longName = "\xe8\xa1\xa8" + std::string(500, 'x') + ".a.wav";
    EXPECT_EQ(fileSystem.getFileDir(("b/" + longName).c_str()).c_str(), std::string("b/"));
    EXPECT_EQ(fileSystem.getFileBasename(("b/" + longName).c_str()).c_str(), longName);
    for (const std::string& bad : {std::string(), folder.nameOf("missing"), utf8Of(folder.path()),
                                   std::string("\xff\xfe\x80"), std::string(5000, 'x')}) {
        EXPECT_FALSE(open(bad)) << bad;
    }
}

TEST_F(FileSystem, MakesEntersAndListsFolders) {
    ASSERT_TRUE(fileSystem.changeWorkingDirectoryTo(utf8Of(folder.path()).c_str()));
    for (int i = 0; i < 2; ++i) { // the second time it exists already
        EXPECT_TRUE(fileSystem.createDirectory("f\xc3\xb6lder"));
    }
    EXPECT_FALSE(fileSystem.createDirectory("missing/inside"));
    EXPECT_FALSE(fileSystem.changeWorkingDirectoryTo("missing"));
    ASSERT_TRUE(fileSystem.changeWorkingDirectoryTo("f\xc3\xb6lder"));
    folder.write("f\xc3\xb6lder/b\xc3\xa4r.wav", {1});
    EXPECT_TRUE(fileSystem.createDirectory("inside"));

    const std::string directory = fileSystem.getWorkingDirectory();
    EXPECT_EQ(directory, utf8Of(std::filesystem::current_path()));
    const auto list = counted_ptr<io::IFileList>::adopt(fileSystem.createFileList());
    std::map<std::string, bool> listed;
    for (std::int32_t i = 0; i < list->getFileCount(); ++i) {
        listed[list->getFileName(i)] = list->isDirectory(i);
        EXPECT_EQ(list->getFullFileName(i), directory + "/" + list->getFileName(i));
    }
    EXPECT_EQ(listed, (std::map<std::string, bool>{
                          {".", true}, {"..", true}, {"inside", true}, {"b\xc3\xa4r.wav", false}}));
    EXPECT_EQ(list->getFileName(-1), nullptr);
    // One past the end is let through, and must not reach memory that is not the list's.
    EXPECT_NE(list->getFullFileName(4), nullptr);
    EXPECT_EQ(list->getFullFileName(5), nullptr);
}

} // namespace

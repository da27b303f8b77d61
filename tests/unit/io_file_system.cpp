// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "core/counted_ptr.h"
#include "io/CFileSystem.h"
#include "tests/support/CScriptedFile.h"
#include "tests/support/CTemporaryFolder.h"

#include <sonimbra/IFileFactory.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace sn_internal;
using sn_test::Bytes;
using sn_test::CScriptedFile;
using sn_test::CTemporaryFolder;
using sn_test::CWorkingDirectory;
using sn_test::utf8Of;

using Reader = counted_ptr<sonimbra::IFileReader>;

/// Handles the names that begin with its prefix.
class CPrefixFactory : public sonimbra::IFileFactory {
public:
    CPrefixFactory(std::string prefix, std::vector<std::string>& askedNames)
        : Prefix(std::move(prefix)), Asked(askedNames) {}
    ~CPrefixFactory() override { Asked.push_back("end of " + Prefix); }

    sonimbra::IFileReader* createFileReader(const char* filename) override {
        Asked.push_back(Prefix + ": " + filename);
        const bool handled = std::string(filename).compare(0, Prefix.size(), Prefix) == 0;
        return handled ? new CScriptedFile(Bytes(1), "from " + Prefix) : nullptr;
    }

private:
    std::string Prefix;
    std::vector<std::string>& Asked;
};

class FileSystem : public testing::Test {
protected:
    Reader open(const std::string& name) {
        return Reader::adopt(fileSystem->createAndOpenFile(name.c_str()));
    }
    void addFactory(const std::string& prefix) {
        const auto factory =
            counted_ptr<sonimbra::IFileFactory>::adopt(new CPrefixFactory(prefix, asked));
        fileSystem->addFileFactory(factory.get());
    }

    CTemporaryFolder folder;
    std::vector<std::string> asked;
    counted_ptr<io::IFileSystem> fileSystem =
        counted_ptr<io::IFileSystem>::adopt(new io::CFileSystem);
};

TEST_F(FileSystem, OpensFilesByTheirUtf8Names) {
    const std::string names[] = {"plain.bin", "two words.bin", "\xc3\xa4\xc3\xb6 \xc3\x9f.bin",
                                 "\xe9\x9f\xb3\xe6\xa5\xbd.bin", "\xf0\x9f\x8e\xb5.bin"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const std::string name = folder.write(names[i], Bytes(i + 1));
        const Reader file = open(name);
        ASSERT_TRUE(file) << name;
        EXPECT_EQ(file->getSize(), static_cast<std::int32_t>(i + 1)) << name;
        EXPECT_EQ(file->getFileName(), name);
        EXPECT_TRUE(fileSystem->existFile(name.c_str())) << name;
    }
}

TEST_F(FileSystem, OpensNoFileWhereNoneIs) {
    const std::string name = folder.write("file", {1});
    for (const std::string& bad :
         {std::string(), folder.nameOf("missing"), utf8Of(folder.path()), name + "/inside",
          std::string("\xff\xfe\x80"), std::string(5000, 'x')}) {
        EXPECT_FALSE(open(bad)) << bad;
        EXPECT_FALSE(fileSystem->existFile(bad.c_str())) << bad;
    }
    EXPECT_EQ(fileSystem->createAndOpenFile(nullptr), nullptr);
    EXPECT_FALSE(fileSystem->existFile(nullptr));
}

TEST_F(FileSystem, OpensAnEmptyFile) {
    const Reader file = open(folder.write("empty", {}));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->getSize(), 0);
}

TEST_F(FileSystem, AsksFactoriesInTheirOrderBeforeTheDisk) {
    const std::string onDisk = folder.write("disk", {1, 2, 3});
    addFactory("ab");
    addFactory("a");
    fileSystem->addFileFactory(nullptr);
    EXPECT_STREQ(open("abc")->getFileName(), "from ab");
    EXPECT_STREQ(open("acc")->getFileName(), "from a");
    EXPECT_EQ(open(onDisk)->getSize(), 3);
    EXPECT_EQ(asked, (std::vector<std::string>{"ab: abc", "ab: acc", "a: acc", "ab: " + onDisk,
                                               "a: " + onDisk}));
    asked.clear();
    EXPECT_FALSE(fileSystem->existFile("abc")) << "factories are none of existFile's business";
    EXPECT_TRUE(asked.empty());
    fileSystem.reset();
    EXPECT_EQ(asked, (std::vector<std::string>{"end of ab", "end of a"}));
}

TEST_F(FileSystem, SplitsPaths) {
    const struct {
        const char* path;
        const char* directory;
        const char* name;
    } cases[] = {
        {"song.wav", "", "song.wav"},
        {"a/song.wav", "a/", "song.wav"},
        {"/song", "/", "song"},
        {"/a.b/c/song.tar.gz", "/a.b/c/", "song.tar.gz"},
        {"../x", "../", "x"},
        {"a/b/", "a/b/", ""},
        {".hidden", "", ".hidden"},
        {"", "", ""},
        {"\xc3\xa4/\xc3\xb6.wav", "\xc3\xa4/", "\xc3\xb6.wav"},
    };
    for (const auto& c : cases) {
        EXPECT_STREQ(fileSystem->getFileDir(c.path).c_str(), c.directory) << c.path;
        EXPECT_STREQ(fileSystem->getFileBasename(c.path).c_str(), c.name) << c.path;
    }
    EXPECT_STREQ(fileSystem->getFileDir(nullptr).c_str(), "");
    EXPECT_STREQ(fileSystem->getFileBasename(nullptr).c_str(), "");
}

TEST_F(FileSystem, MakesAndEntersFolders) {
    const CWorkingDirectory here(folder.path());
    const std::string name = "f\xc3\xb6lder";
    EXPECT_TRUE(fileSystem->createDirectory(name.c_str()));
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / sn_test::pathOf(name)));
    EXPECT_TRUE(fileSystem->createDirectory(name.c_str())) << "it exists already";
    EXPECT_FALSE(fileSystem->createDirectory("missing/inside"));
    EXPECT_FALSE(fileSystem->createDirectory(""));
    EXPECT_FALSE(fileSystem->createDirectory(nullptr));

    const auto before = std::filesystem::current_path();
    EXPECT_EQ(fileSystem->getWorkingDirectory(), utf8Of(before));
    EXPECT_TRUE(fileSystem->changeWorkingDirectoryTo(name.c_str()));
    EXPECT_EQ(fileSystem->getWorkingDirectory(), utf8Of(before / sn_test::pathOf(name)));
    EXPECT_FALSE(fileSystem->changeWorkingDirectoryTo("missing"));
    EXPECT_FALSE(fileSystem->changeWorkingDirectoryTo(nullptr));
    EXPECT_TRUE(fileSystem->changeWorkingDirectoryTo(".."));
    EXPECT_EQ(fileSystem->getWorkingDirectory(), utf8Of(before));
}

/// The index of an entry, -1 when the list has none of the name.
std::int32_t indexOf(io::IFileList& list, const std::string& name) {
    for (std::int32_t i = 0; i < list.getFileCount(); ++i) {
        if (name == list.getFileName(i)) {
            return i;
        }
    }
    return -1;
}

TEST_F(FileSystem, ListsTheWorkingDirectory) {
    const CWorkingDirectory here(folder.path());
    folder.write("b\xc3\xa4r.wav", {1});
    folder.write("a.wav", {1, 2});
    fileSystem->createDirectory("inside");
    const auto list = counted_ptr<io::IFileList>::adopt(fileSystem->createFileList());
    folder.write("later.wav", {});
    const std::string directory = fileSystem->getWorkingDirectory();
    ASSERT_EQ(list->getFileCount(), 5);
    for (const auto& [name, isFolder] : {std::pair<std::string, bool>{".", true},
                                         {"..", true},
                                         {"inside", true},
                                         {"a.wav", false},
                                         {"b\xc3\xa4r.wav", false}}) {
        const std::int32_t index = indexOf(*list.get(), name);
        ASSERT_GE(index, 0) << name;
        EXPECT_EQ(list->isDirectory(index), isFolder) << name;
        EXPECT_EQ(list->getFullFileName(index), directory + "/" + name);
        EXPECT_EQ(list->getFullFileName(index), directory + "/" + name) << "asked again";
    }
    for (const std::int32_t bad : {-1, 6, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(list->getFileName(bad), nullptr) << bad;
        EXPECT_EQ(list->getFullFileName(bad), nullptr) << bad;
        EXPECT_FALSE(list->isDirectory(bad)) << bad;
    }
    // One past the end is let through, and must not reach memory that is not the list's.
    EXPECT_NE(list->getFileName(5), nullptr);
    EXPECT_NE(list->getFullFileName(5), nullptr);
    EXPECT_FALSE(list->isDirectory(5));
}

TEST_F(FileSystem, ListsARootWithoutASecondSeparator) {
    const CWorkingDirectory here(folder.path().root_path());
    const std::string root = fileSystem->getWorkingDirectory();
    ASSERT_LE(root.size(), 3u);
    const auto list = counted_ptr<io::IFileList>::adopt(fileSystem->createFileList());
    ASSERT_GT(list->getFileCount(), 0);
    EXPECT_EQ(list->getFullFileName(0), root + list->getFileName(0));
}

} // namespace

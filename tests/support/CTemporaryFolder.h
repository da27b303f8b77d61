// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wav.h"

#include <filesystem>
#include <string>

namespace sn_test {

/// An empty folder of its own, removed with all that is in it at the end of the scope.
class CTemporaryFolder {
public:
    CTemporaryFolder();
    ~CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return Path; }

    /// The name of something in the folder, in UTF-8 as the library takes it.
    std::string nameOf(const std::string& utf8Name) const;

    /// Writes a file (its name in UTF-8) and returns its full name in UTF-8.
    std::string write(const std::string& utf8Name, const Bytes& bytes) const;

private:
    std::filesystem::path Path;
};

/// A path's name in UTF-8.
std::string utf8Of(const std::filesystem::path& path);

} // namespace sn_test

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CTemporaryFolder.h"

#include <fstream>
#include <random>

namespace sn_test {

namespace fs = std::filesystem;

namespace {

fs::path pathOf(const std::string& utf8Name) {
    return fs::path(std::u8string(utf8Name.begin(), utf8Name.end()));
}

} // namespace

std::string utf8Of(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

CTemporaryFolder::CTemporaryFolder() {
    std::random_device random;
    do {
        Path = fs::temp_directory_path() / ("sonimbra-test-" + std::to_string(random()));
    } while (!fs::create_directory(Path));
}

CTemporaryFolder::~CTemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(Path, ignored);
}

std::string CTemporaryFolder::nameOf(const std::string& utf8Name) const {
    return utf8Of(Path / pathOf(utf8Name));
}

std::string CTemporaryFolder::write(const std::string& utf8Name, const Bytes& bytes) const {
    std::ofstream file(Path / pathOf(utf8Name), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return nameOf(utf8Name);
}

} // namespace sn_test

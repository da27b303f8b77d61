// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "io/CReadFile.h"

#include "io/disk.h"

namespace sn_internal::io {

CReadFile::CReadFile(const char* fileName) : Filename(fileName) {
    if (Filename.size() > 0) {
        openFile();
    }
}

CReadFile::~CReadFile() {
    if (File != nullptr) {
        std::fclose(File);
    }
}

void CReadFile::openFile() {
    File = openDiskFile(Filename.c_str());
    if (File == nullptr) {
        return;
    }
    FileSize = measureDiskFile(File);
    if (FileSize < 0) { // too large for 32-bit positions
        std::fclose(File);
        File = nullptr;
        FileSize = 0;
    }
}

std::int32_t CReadFile::read(void* buffer, std::uint32_t sizeToRead) {
    if (File == nullptr) {
        return 0;
    }
    return static_cast<std::int32_t>(std::fread(buffer, 1, sizeToRead, File));
}

bool CReadFile::seek(std::int32_t finalPos, bool relativeMovement) {
    return File != nullptr &&
           std::fseek(File, finalPos, relativeMovement ? SEEK_CUR : SEEK_SET) == 0;
}

std::int32_t CReadFile::getPos() {
    return File == nullptr ? 0 : static_cast<std::int32_t>(std::ftell(File));
}

} // namespace sn_internal::io

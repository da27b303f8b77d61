// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Plays a sound that lies in a ZIP archive, and shows its peak:
//
//     example_05_sounds_from_a_zip ARCHIVE.zip SOUND
//
// It shows file factories: the engine asks them for every file before it looks on disk, so that
// sounds may lie in archives, resources or databases. libzip reads the archive.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <sonimbra/sonimbra.h>
#include <zip.h>

using namespace sonimbra;

// A file that was unpacked into memory.
class UnpackedFile : public IFileReader {
public:
    UnpackedFile(const char* name, std::vector<char> bytes) : Name(name), Bytes(std::move(bytes)) {}

    std::int32_t read(void* buffer, std::uint32_t sizeToRead) override {
        const std::size_t count = std::min<std::size_t>(sizeToRead, Bytes.size() - Position);
        std::copy_n(Bytes.data() + Position, count, static_cast<char*>(buffer));
        Position += count;
        return static_cast<std::int32_t>(count);
    }
    bool seek(std::int32_t finalPos, bool relativeMovement) override {
        const std::int64_t goal = finalPos + std::int64_t{relativeMovement ? getPos() : 0};
        if (goal < 0 || goal > getSize()) {
            return false;
        }
        Position = static_cast<std::size_t>(goal);
        return true;
    }
    std::int32_t getSize() override { return static_cast<std::int32_t>(Bytes.size()); }
    std::int32_t getPos() override { return static_cast<std::int32_t>(Position); }
    const char* getFileName() override { return Name.c_str(); }

private:
    const std::string Name;
    const std::vector<char> Bytes;
    std::size_t Position = 0;
};

class ZipFactory : public IFileFactory {
public:
    explicit ZipFactory(zip_t* archive) : Archive(archive) {}
    ~ZipFactory() override { zip_discard(Archive); }

    // Null means: not mine, look elsewhere.
    IFileReader* createFileReader(const char* filename) override {
        const zip_uint64_t largest = 256u << 20; // the archive may lie about what it unpacks to
        zip_stat_t about;
        if (zip_stat(Archive, filename, 0, &about) != 0 || (about.valid & ZIP_STAT_SIZE) == 0 ||
            about.size > largest) {
            return nullptr;
        }
        std::vector<char> bytes(static_cast<std::size_t>(about.size));
        zip_file_t* packed = zip_fopen(Archive, filename, 0);
        if (packed == nullptr) {
            return nullptr;
        }
        const zip_int64_t count = zip_fread(packed, bytes.data(), bytes.size());
        zip_fclose(packed);
        bytes.resize(static_cast<std::size_t>(std::max<zip_int64_t>(count, 0)));
        return new UnpackedFile(filename, std::move(bytes));
    }

private:
    zip_t* const Archive;
};

int main(int argc, char** argv) {
    zip_t* archive = argc == 3 ? zip_open(argv[1], ZIP_RDONLY, nullptr) : nullptr;
    IOfflineSoundEngine* engine =
        archive == nullptr ? nullptr : createSonimbraOfflineDevice(PrintDebugInfoToStdOut);
    if (engine == nullptr) {
        zip_discard(archive); // nothing happens to null
        std::fputs("Name a ZIP archive and a sound in it.\n", stderr);
        return EXIT_FAILURE;
    }
    auto* factory = new ZipFactory(archive);
    engine->addFileFactory(factory);
    factory->drop(); // the engine keeps it until it ends itself

    engine->play2D(argv[2]);
    std::vector<std::int16_t> output(2 * 44100);
    engine->renderFrames(output.data(), 44100);
    engine->drop();
    const int peak = *std::max_element(output.begin(), output.end());
    std::printf("First second of %s, peak %.1f %%\n", argv[2], peak * 100.0 / 32768.0);
    return peak > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

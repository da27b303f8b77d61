// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Plays a file format that the library does not know, by a decoder of the application's own:
//
//     example_04_your_own_decoder
//
// The format is the simplest there is: bytes without a header, each a sample. A decoder consists of
// a loader, which the engine asks whether a file is its own, and of a stream for each playing file.

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <sonimbra/sonimbra.h>

using namespace sonimbra;

// Hands out the frames of one file. Frames are bytes here, so that positions are the file's.
class RawStream : public IAudioStream {
public:
    explicit RawStream(IFileReader* file) : File(file) { File->grab(); }
    ~RawStream() override { File->drop(); }

    SAudioStreamFormat getFormat() override {
        SAudioStreamFormat format;
        format.ChannelCount = 1;
        format.FrameCount = File->getSize();
        format.SampleRate = 11025;
        format.SampleFormat = E_SAMPLE_FORMAT::Unsigned8Bit;
        return format;
    }
    bool setPosition(std::int32_t frame) override { return frame >= 0 && File->seek(frame); }
    std::int32_t readFrames(void* target, std::int32_t count) override {
        return count < 1 ? 0 : File->read(target, static_cast<std::uint32_t>(count));
    }

private:
    IFileReader* File;
};

class RawLoader : public IAudioStreamLoader {
public:
    bool isALoadableFileExtension(const char* fileName) override {
        return std::strstr(fileName, ".raw8") != nullptr; // the engine has made it lower case
    }
    // The engine also comes here with files of any other name, when nobody else knows them. With a
    // header we would look into the file; without one, its name is all there is, as it was given.
    IAudioStream* createAudioStream(IFileReader* file) override {
        std::string name = file->getFileName();
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return isALoadableFileExtension(name.c_str()) ? new RawStream(file) : nullptr;
    }
};

// One second of a 441 Hz square wave at half of full scale; silence is 128.
static std::vector<unsigned char> makeFile() {
    std::vector<unsigned char> bytes(11025);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = i % 25 < 12 ? 192 : 64;
    }
    return bytes;
}

int main() {
    IOfflineSoundEngine* engine = createSonimbraOfflineDevice(0);
    if (engine == nullptr) {
        std::fputs("The offline engine could not be made.\n", stderr);
        return EXIT_FAILURE;
    }
    auto* loader = new RawLoader;
    engine->registerAudioStreamLoader(loader);
    loader->drop(); // the engine keeps a reference of its own

    // A file on disk is played by its name alone; this one exists in memory only.
    std::vector<unsigned char> file = makeFile();
    engine->addSoundSourceFromMemory(file.data(), static_cast<std::int32_t>(file.size()),
                                     "Square.RAW8");
    ISound* sound = engine->play2D("Square.RAW8", false, false, true);
    if (sound == nullptr) {
        std::fputs("The engine did not use the decoder.\n", stderr);
        engine->drop();
        return EXIT_FAILURE;
    }
    std::vector<std::int16_t> output(2 * 22050);
    engine->renderFrames(output.data(), 22050);
    const int peak = *std::max_element(output.begin(), output.end());
    std::printf("Decoded %d ms, peak %.1f %%\n", static_cast<int>(sound->getPlayLength()),
                peak * 100.0 / 32768.0);
    sound->drop();
    engine->drop();
    return peak > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

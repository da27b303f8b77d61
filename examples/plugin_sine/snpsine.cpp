// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// A plug-in: teaches every engine that loads it to play descriptions of sine tones. Such a file,
// for example a.sine, is one line of text:
//
//     sine 440 1000 50 44100
//
// that is 440 Hz for 1000 ms at 50 % of full scale, 44100 frames a second. Copy the library beside
// a program that uses default options, or call loadPlugins with its folder.

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include <sonimbra/plugin.h>
#include <sonimbra/sonimbra.h>

using namespace sonimbra;

namespace {

struct Tone {
    std::int32_t frequency = 0;
    std::int32_t milliseconds = 0;
    std::int32_t percent = 0;
    std::int32_t rate = 0;
};

// Reads a number and moves behind it; false when there is none, or one outside the range.
bool readNumber(const char*& text, long lowest, long highest, std::int32_t& number) {
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10); // one that is too large becomes the largest
    if (end == text || value < lowest || value > highest) {
        return false;
    }
    text = end;
    number = static_cast<std::int32_t>(value);
    return true;
}

// The engine shows us files of every kind when their names lead nowhere, and damaged ones as well:
// trust nothing. With these limits no computation below can overflow.
bool parse(const char* text, Tone& tone) {
    const char word[] = "sine ";
    if (std::strncmp(text, word, std::strlen(word)) != 0) {
        return false;
    }
    text += std::strlen(word);
    if (!readNumber(text, 1, 20000, tone.frequency) ||
        !readNumber(text, 1, 600000, tone.milliseconds) ||
        !readNumber(text, 0, 100, tone.percent) || !readNumber(text, 8000, 192000, tone.rate)) {
        return false;
    }
    while (std::isspace(static_cast<unsigned char>(*text)) != 0) {
        ++text;
    }
    return *text == 0;
}

bool readTone(IFileReader& file, Tone& tone) {
    char text[64] = "";
    const std::int32_t size = file.getSize();
    if (size < 0 || size >= static_cast<std::int32_t>(sizeof(text))) {
        return false; // no description is that long
    }
    return file.read(text, static_cast<std::uint32_t>(size)) == size && parse(text, tone);
}

class SineStream : public IAudioStream {
public:
    explicit SineStream(const Tone& tone) : Description(tone) {
        Format.ChannelCount = 1;
        Format.FrameCount =
            static_cast<std::int32_t>(std::int64_t{tone.rate} * tone.milliseconds / 1000);
        Format.SampleRate = tone.rate;
        Format.SampleFormat = E_SAMPLE_FORMAT::Signed16Bit;
    }

    SAudioStreamFormat getFormat() override { return Format; }

    bool setPosition(std::int32_t frame) override {
        if (frame < 0 || frame > Format.FrameCount) {
            return false;
        }
        Position = frame;
        return true;
    }

    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override {
        auto* samples = static_cast<std::int16_t*>(target);
        std::int32_t count = 0;
        for (; count < frameCountToRead && Position < Format.FrameCount; ++count) {
            samples[count] = sampleAt(Position++);
        }
        return count;
    }

private:
    std::int16_t sampleAt(std::int32_t frame) const {
        const double turns = double(Description.frequency) * frame / Description.rate;
        const double height = 32767.0 * Description.percent / 100.0;
        return static_cast<std::int16_t>(height * std::sin(2.0 * 3.14159265358979 * turns));
    }

    const Tone Description;
    SAudioStreamFormat Format;
    std::int32_t Position = 0;
};

class SineLoader : public IAudioStreamLoader {
public:
    bool isALoadableFileExtension(const char* fileName) override {
        return std::strstr(fileName, ".sine") != nullptr;
    }

    // The stream has all that it needs when this returns, so nobody keeps the file.
    IAudioStream* createAudioStream(IFileReader* file) override {
        Tone tone;
        return readTone(*file, tone) ? new SineStream(tone) : nullptr;
    }
};

} // namespace

SONIMBRA_PLUGIN_INIT(engine, version) {
    auto* loader = new SineLoader;
    engine->registerAudioStreamLoader(loader);
    loader->drop(); // the engine has its own reference
}

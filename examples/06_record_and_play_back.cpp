// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Records three seconds from the default capture device and plays them back:
//
//     example_06_record_and_play_back
//
// It shows a recorder that records into memory, and the sound source that is made from that.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <sonimbra/sonimbra.h>

using namespace sonimbra;

// Records through one driver. A driver that does not exist on this system, or has no capture
// device, gives no recorder.
static bool record(ISoundEngine* engine, E_SOUND_OUTPUT_DRIVER driver, const char* soundName) {
    IAudioRecorder* recorder = createSonimbraAudioRecorder(engine, driver);
    if (recorder == nullptr) {
        return false;
    }
    // 44100 frames a second, one channel: plenty for a voice. The recorder keeps up to 500 MiB; who
    // needs more passes a receiver to startRecordingWithReceiver and takes block by block.
    const bool started =
        recorder->startRecordingBufferedAudio(44100, E_SAMPLE_FORMAT::Signed16Bit, 1);
    if (started) {
        std::puts("Recording for three seconds: say something.");
        std::this_thread::sleep_for(std::chrono::seconds(3)); // it goes on in a thread of its own
        recorder->stopRecordingAudio();
        const SAudioStreamFormat format = recorder->getAudioFormat();
        std::printf("Recorded %d frames through %s.\n", static_cast<int>(format.FrameCount),
                    recorder->getDriverName());
    }
    // The source gets a copy, belongs to the engine, and outlives the recorder.
    const bool added = started && recorder->addSoundSourceFromRecordedAudio(soundName) != nullptr;
    recorder->drop();
    return added;
}

static void playToTheEnd(ISoundEngine* engine, const char* soundName) {
    const bool looped = false;
    const bool startPaused = false;
    const bool track = true;
    ISound* sound = engine->play2D(soundName, looped, startPaused, track);
    while (sound != nullptr && !sound->isFinished()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    if (sound != nullptr) {
        sound->drop();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(300)); // what the device has queued
}

int main() {
    // AutoDetect is for Windows, ALSA for Linux.
    auto driver = E_SOUND_OUTPUT_DRIVER::AutoDetect;
    ISoundEngine* engine = createSonimbraDevice(driver, MultiThreaded);
    if (engine == nullptr) {
        driver = E_SOUND_OUTPUT_DRIVER::ALSA;
        engine = createSonimbraDevice(driver, MultiThreaded);
    }
    if (engine == nullptr) {
        std::fputs("No sound driver works on this machine, so nothing can be heard.\n"
                   "The player records to a file: sonimbra-player --record OUT.wav\n",
                   stderr);
        return EXIT_FAILURE;
    }
    const bool recorded = record(engine, driver, "recording");
    if (recorded) {
        std::puts("Playing it.");
        playToTheEnd(engine, "recording");
    } else {
        std::fputs("Nothing was recorded: is a microphone connected, and allowed to be used?\n",
                   stderr);
    }
    engine->drop();
    return recorded ? EXIT_SUCCESS : EXIT_FAILURE;
}

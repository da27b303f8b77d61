// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Plays one sound file from its beginning to its end:
//
//     example_01_play_a_file FILE
//
// It shows the life of an engine and of a sound: create, play, look whether it has finished, drop.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <sonimbra/sonimbra.h>

using namespace sonimbra;

// An engine plays through one output driver. AutoDetect tries the driver that the library prefers
// on Windows, and nothing else; WinMM is there on every Windows. A driver that does not exist on
// this system, or does not start, gives null.
static ISoundEngine* createEngine() {
    // MultiThreaded: the engine feeds its device on a thread of its own. Without DefaultOptions'
    // PrintDebugInfoToStdOut the library keeps its messages to itself.
    const int options = MultiThreaded;
    ISoundEngine* engine = createSonimbraDevice(E_SOUND_OUTPUT_DRIVER::AutoDetect, options);
    return engine != nullptr ? engine : createSonimbraDevice(E_SOUND_OUTPUT_DRIVER::WinMM, options);
}

static bool playToTheEnd(ISoundEngine* engine, const char* fileName) {
    // Names are UTF-8. (Windows hands main() another encoding: this small program takes ASCII
    // there.) With "track" set, play2D returns the sound, so that we can look after it. Without,
    // the engine would play it just the same and forget it afterwards.
    const bool looped = false;
    const bool startPaused = false;
    const bool track = true;
    ISound* sound = engine->play2D(fileName, looped, startPaused, track);
    if (sound == nullptr) {
        return false;
    }
    std::printf("Playing %s, %d ms\n", fileName, static_cast<int>(sound->getPlayLength()));
    while (!sound->isFinished()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    sound->drop(); // what play2D returned was ours

    // A sound has finished when its last sample was mixed. The device still plays what is in its
    // queue, at most 186 ms, and an engine that is dropped takes the queue with it.
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    return true;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: example_01_play_a_file FILE\n", stderr);
        return EXIT_FAILURE;
    }
    ISoundEngine* engine = createEngine();
    if (engine == nullptr) {
        std::fputs("No sound driver works on this machine, so nothing can be heard.\n"
                   "example_03_render_offline_from_memory works without one.\n",
                   stderr);
        return EXIT_FAILURE;
    }
    const bool played = playToTheEnd(engine, argv[1]);
    if (!played) {
        std::fprintf(stderr, "Cannot play %s: is it there, and is it a sound?\n", argv[1]);
    }
    engine->drop(); // stops everything and closes the device
    return played ? EXIT_SUCCESS : EXIT_FAILURE;
}

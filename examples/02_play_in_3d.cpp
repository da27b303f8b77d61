// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Lets a sound circle around the listener for eight seconds:
//
//     example_02_play_in_3d FILE
//
// It shows where things are in 3D: the listener has a place and looks somewhere, every sound has a
// place, and the engine makes volume and direction out of both.

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <sonimbra/sonimbra.h>

using namespace sonimbra;

// A point on the circle around the listener. Coordinates are in units of your choice; here one unit
// is a metre. X points to the right, Y up and Z to where the listener looks.
static vec3df pointOnCircle(double seconds) {
    const double radius = 2.0;
    const double secondsPerTurn = 4.0;
    const double angle = 2.0 * 3.14159265358979 * seconds / secondsPerTurn;
    return vec3df(static_cast<float>(radius * std::sin(angle)), 0.0f,
                  static_cast<float>(radius * std::cos(angle)));
}

static bool playCircling(ISoundEngine* engine, const char* fileName) {
    // The listener stands in the origin and looks along Z. (Up is Y unless you say otherwise.)
    engine->setListenerPosition(vec3df(0, 0, 0), vec3df(0, 0, 1));

    const bool looped = true;
    const bool startPaused = true; // nothing is heard before we have set everything up
    ISound* sound = engine->play3D(fileName, pointOnCircle(0.0), looped, startPaused);
    if (sound == nullptr) {
        return false;
    }
    // Up to the minimum distance a sound keeps its full volume; beyond it, it fades.
    sound->setMinDistance(1.0f);
    sound->setIsPaused(false);

    std::printf("%s goes once around you in four seconds, to the right at first.\n", fileName);
    for (double seconds = 0.0; seconds < 8.0; seconds += 0.02) {
        sound->setPosition(pointOnCircle(seconds));
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    sound->stop();
    sound->drop();
    return true;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: example_02_play_in_3d FILE\n", stderr);
        return EXIT_FAILURE;
    }
    ISoundEngine* engine = createSonimbraDevice(E_SOUND_OUTPUT_DRIVER::AutoDetect, MultiThreaded);
    if (engine == nullptr) {
        engine = createSonimbraDevice(E_SOUND_OUTPUT_DRIVER::WinMM, MultiThreaded);
    }
    if (engine == nullptr) {
        std::fputs("No sound driver works on this machine, so nothing can be heard.\n"
                   "The player renders the same to a file: sonimbra-player --orbit --loop "
                   "--seconds 8 --render OUT.wav FILE\n",
                   stderr);
        return EXIT_FAILURE;
    }
    const bool played = playCircling(engine, argv[1]);
    if (!played) {
        std::fprintf(stderr, "Cannot play %s: is it there, and is it a sound?\n", argv[1]);
    }
    engine->drop();
    return played ? EXIT_SUCCESS : EXIT_FAILURE;
}

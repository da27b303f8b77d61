// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Loops a sound file, and changes its effects every three seconds:
//
//     example_07_sound_effects FILE
//
// It shows effects that are switched on and off while a sound plays. DirectSound 8 computes them,
// so they exist on Windows, with the driver of that name, and nowhere else.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <sonimbra/sonimbra.h>

using namespace sonimbra;

static void listen(const char* what) {
    std::puts(what);
    std::this_thread::sleep_for(std::chrono::seconds(3));
}

static void changeEffects(ISoundEffectControl* effects) {
    listen("As it is.");

    // The parameters have defaults; those of the echo are 50 % of it mixed in, and half a second of
    // delay on both sides. Enabling an effect once more changes its parameters.
    effects->enableEchoSoundEffect();
    listen("With an echo after half a second.");
    const float mix = 50.0f;           // percent
    const float feedback = 30.0f;      // percent
    const float milliseconds = 120.0f; // of delay
    effects->enableEchoSoundEffect(mix, feedback, milliseconds, milliseconds);
    listen("With a shorter echo.");

    effects->enableDistortionSoundEffect(); // comes after the echo
    listen("With echo and distortion.");
    effects->disableAllEffects();
    listen("As it is, again.");
}

static bool playWithEffects(ISoundEngine* engine, const char* fileName) {
    // A sound takes effects only when it was made for them: the last argument. (It costs memory,
    // and the sound must be at least 150 ms long.) Such a sound is always returned, so drop it.
    const bool looped = true;
    const bool startPaused = false;
    const bool track = true;
    const bool enableSoundEffects = true;
    ISound* sound = engine->play2D(fileName, looped, startPaused, track, E_STREAM_MODE::AutoDetect,
                                   enableSoundEffects);
    if (sound == nullptr) {
        std::fprintf(stderr, "Cannot play %s: is it there, and is it a sound?\n", fileName);
        return false;
    }
    // It belongs to the sound. Drivers without effects give null.
    ISoundEffectControl* effects = sound->getSoundEffectControl();
    if (effects != nullptr) {
        changeEffects(effects);
    } else {
        std::fprintf(stderr, "The driver %s has no effects.\n", engine->getDriverName());
    }
    sound->stop();
    sound->drop();
    return effects != nullptr;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: example_07_sound_effects FILE\n", stderr);
        return EXIT_FAILURE;
    }
    // Asked for by name: AutoDetect would be content with the older DirectSound.
    ISoundEngine* engine = createSonimbraDevice(E_SOUND_OUTPUT_DRIVER::DirectSound8, MultiThreaded);
    if (engine == nullptr) {
        std::fputs("Effects need the driver DirectSound 8, which is there on Windows only, and a\n"
                   "sound device. No other driver has effects.\n",
                   stderr);
        return EXIT_FAILURE;
    }
    const bool played = playWithEffects(engine, argv[1]);
    engine->drop();
    return played ? EXIT_SUCCESS : EXIT_FAILURE;
}

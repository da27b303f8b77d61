// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <optional>
#include <string>
#include <vector>

#include <sonimbra/sonimbra.h>

#include "player/wav_writer.h"

namespace player {

/// The command line, checked.
struct Options {
    std::vector<std::string> files; ///< UTF-8, at least one unless it records or lists devices
    bool together = false;          ///< all files at once

    float volume = 1.0f;
    float pan = 0.0f;
    float speed = 1.0f;
    bool loop = false;
    bool orbit = false;
    double startSeconds = 0.0;
    sonimbra::E_STREAM_MODE streamMode = sonimbra::E_STREAM_MODE::AutoDetect;
    std::vector<std::string> effects; ///< names that effects.h knows

    sonimbra::E_SOUND_OUTPUT_DRIVER driver = sonimbra::E_SOUND_OUTPUT_DRIVER::AutoDetect;
    std::string driverName = "auto"; ///< as the user knows it
    std::string device;              ///< identifier or name; empty: the default device
    bool listDevices = false;        ///< print the devices and play nothing
    std::string renderTo;            ///< the WAV file to render to; empty: play in real time
    int gapMilliseconds = 250;       ///< silence between rendered files
    std::string recordTo;            ///< the WAV file to record to; empty: do not record
    WavFormat recordFormat;
    std::optional<double> seconds; ///< ends the output after so many seconds

    bool verbose = false;
    bool quiet = false;
};

/// What the command line asks for: options, or to end at once with an exit code (the help or an
/// error was then printed).
struct CommandLine {
    std::optional<Options> options;
    int exitCode = 0;
};

CommandLine parseCommandLine(std::vector<std::string> arguments);

/// Whether the library can record by a driver, on a system that has it.
bool recordsAudio(sonimbra::E_SOUND_OUTPUT_DRIVER driver);

/// The bits for creating the engine.
int engineOptions(const Options& options);

} // namespace player

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/options.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <memory>
#include <sstream>
#include <system_error>

#include <CLI/CLI.hpp>

#include "player/effects.h"
#include "player/exit_codes.h"
#include "player/text.h"

namespace player {
namespace {

using sonimbra::E_SOUND_OUTPUT_DRIVER;

const std::map<std::string, E_SOUND_OUTPUT_DRIVER> DRIVERS = {
    {"auto", E_SOUND_OUTPUT_DRIVER::AutoDetect},
    {"winmm", E_SOUND_OUTPUT_DRIVER::WinMM},
    {"null", E_SOUND_OUTPUT_DRIVER::NullDriver},
    {"directsound8", E_SOUND_OUTPUT_DRIVER::DirectSound8},
    {"directsound", E_SOUND_OUTPUT_DRIVER::DirectSound},
    {"alsa", E_SOUND_OUTPUT_DRIVER::ALSA},
    {"coreaudio", E_SOUND_OUTPUT_DRIVER::CoreAudio},
};

const char* const FOOTER = "Exit codes:\n"
                           "  0  all files were played, or the recording is complete\n"
                           "  1  the command line is wrong\n"
                           "  2  a file could not be played (the others were)\n"
                           "  3  no sound driver or capture device works\n"
                           "  4  the output file cannot be written";

/// Shows of each option its names, what it takes and its description; which options exclude each
/// other is told when it happens.
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() { column_width(21); }

    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_type_name().empty() ? "" : " " + option->get_type_name();
    }
};

/// Accepts finite numbers of a range. (CLI::Range lets "nan" pass.)
CLI::Validator between(double low, double high) {
    std::ostringstream range;
    range << "must be from " << std::setprecision(8) << low << " to " << high;
    const auto check = [low, high, error = range.str()](std::string& input) {
        double value = 0.0;
        const bool valid = CLI::detail::lexical_cast(input, value) && value >= low && value <= high;
        return valid ? std::string() : error;
    };
    return CLI::Validator(check, "");
}

CLI::Validator notEmpty() {
    return CLI::Validator(
        [](std::string& input) {
            return input.empty() ? std::string("needs the name of a file") : std::string();
        },
        "");
}

void addNumber(CLI::App& app, const char* name, float& target, double low, double high,
               const char* description) {
    app.add_option(name, target, description)->check(between(low, high))->type_name("X");
}

void addSoundOptions(CLI::App& app, Options& options) {
    addNumber(app, "--volume", options.volume, 0.0, 1000.0,
              "Gain of every sound (default 1: as it is)");
    addNumber(app, "--pan", options.pan, -1.0, 1.0,
              "Pan of every sound, -1 to 1, passed to the library as\n"
              "it is: above 0 is heard on the left, below 0 on the\n"
              "right; from 0.1 on the other side is silent");
    addNumber(app, "--speed", options.speed, 0.01, 5.0,
              "Playback speed, 0.01 to 5; changes the pitch too");
    app.add_flag("--loop", options.loop, "Start over at the end, until --seconds or Ctrl-C");
    app.add_flag("--orbit", options.orbit,
                 "Let the sound circle the listener in 3D, once in 4 seconds")
        ->excludes("--pan");
}

void addReadingOptions(CLI::App& app, Options& options) {
    using sonimbra::E_STREAM_MODE;
    const auto set = [&options](E_STREAM_MODE mode) {
        return [&options, mode](std::int64_t) { options.streamMode = mode; };
    };
    app.add_option("--start", options.startSeconds, "Start so many seconds into each file")
        ->check(between(0.0, 4000000.0))
        ->type_name("SECONDS");
    CLI::Option* stream = app.add_flag_function("--stream", set(E_STREAM_MODE::Streaming),
                                                "Decode the files while they play");
    app.add_flag_function("--no-stream", set(E_STREAM_MODE::NoStreaming),
                          "Decode the files into memory first")
        ->excludes(stream);
}

void addOutputOptions(CLI::App& app, Options& options) {
    CLI::Option* driver = app.add_option("--driver", options.driverName,
                                         "Output driver: auto (default), winmm, null,\n"
                                         "directsound8, directsound, alsa or coreaudio");
    driver->transform(CLI::IsMember(&DRIVERS, CLI::ignore_case).description(""));
    driver->type_name("NAME");
    CLI::Option* device = app.add_option("--device", options.device,
                                         "Output or capture device: an identifier that\n"
                                         "--list-devices prints, or with alsa the name of a\n"
                                         "PCM; winmm and null have no choice");
    device->type_name("ID");
    app.add_flag("--list-devices", options.listDevices,
                 "Print identifier and description of the driver's\n"
                 "output and capture devices, one per line, and end");
    CLI::Option* render = app.add_option("--render", options.renderTo,
                                         "Render to a WAV file instead of playing (44100 Hz,\n"
                                         "stereo, 16 bit), as fast as possible");
    render->check(notEmpty())->excludes(driver)->excludes(device)->type_name("OUT.wav");
    app.add_option("--gap", options.gapMilliseconds,
                   "Milliseconds of silence between rendered files\n(default 250)")
        ->check(between(0.0, 600000.0))
        ->needs(render)
        ->type_name("MS");
}

void addRecordOptions(CLI::App& app, Options& options) {
    WavFormat& format = options.recordFormat;
    CLI::Option* record = app.add_option("--record", options.recordTo,
                                         "Record from a capture device to a WAV file, until\n"
                                         "--seconds or Ctrl-C; takes no FILE");
    record->check(notEmpty())->type_name("OUT.wav");
    app.add_option("--rate", format.sampleRate, "Frames a second of the recording (default 44100)")
        ->check(between(1000.0, 384000.0))
        ->needs(record)
        ->type_name("HZ");
    app.add_option("--channels", format.channels, "Its channels, 1 or 2 (default 2)")
        ->check(CLI::IsMember({1, 2}).description(""))
        ->needs(record)
        ->type_name("N");
    app.add_option("--bits", format.bits, "Bits of its samples, 8 or 16 (default 16)")
        ->check(CLI::IsMember({8, 16}).description(""))
        ->needs(record)
        ->type_name("N");
}

void addEffectOption(CLI::App& app, Options& options) {
    CLI::Option* effect = app.add_option("--effect", options.effects,
                                         "Sound effect of the driver directsound8: chorus,\n"
                                         "compressor, distortion, echo, flanger, gargle,\n"
                                         "i3dl2reverb, parameq or wavesreverb; may be given\n"
                                         "several times");
    effect->transform(CLI::IsMember(effectNames(), CLI::ignore_case).description(""));
    effect->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->allow_extra_args(false);
    effect->excludes(app.get_option("--render"))->type_name("NAME");
}

/// What has no meaning while recording.
void excludePlaying(CLI::App& app) {
    for (const char* name : {"--render", "--volume", "--pan", "--speed", "--loop", "--orbit",
                             "--effect", "--start", "--stream", "--no-stream", "--together"}) {
        app.get_option("--record")->excludes(app.get_option(name));
    }
}

void addCourseOptions(CLI::App& app, Options& options) {
    app.add_flag("--together", options.together, "All files at once, not one after the other");
    app.add_option("--seconds", options.seconds, "Stop after so many seconds")
        ->check(between(0.001, 4000000.0))
        ->type_name("N");
    CLI::Option* verbose =
        app.add_flag("--verbose", options.verbose, "Show the library's messages");
    app.add_flag("-q,--quiet", options.quiet, "Print errors only")->excludes(verbose);
    app.set_version_flag("--version", "sonimbra-player " SONIMBRA_VERSION, "Print the version");
    app.set_help_flag("-h,--help", "Print this help");
}

void addAll(CLI::App& app, Options& options) {
    app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    app.add_option("FILE", options.files, "Sound files")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("");
    addOutputOptions(app, options);
    addRecordOptions(app, options);
    addSoundOptions(app, options);
    addEffectOption(app, options);
    addReadingOptions(app, options);
    addCourseOptions(app, options);
    excludePlaying(app);
    app.allow_windows_style_options(false); // a name that begins with a slash is a file
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(FOOTER);
}

/// Drivers that play on the default device, whatever they are told.
bool hasOneDevice(E_SOUND_OUTPUT_DRIVER driver) {
    return driver == E_SOUND_OUTPUT_DRIVER::WinMM || driver == E_SOUND_OUTPUT_DRIVER::NullDriver;
}

bool hasEffects(E_SOUND_OUTPUT_DRIVER driver) {
    return driver == E_SOUND_OUTPUT_DRIVER::AutoDetect ||
           driver == E_SOUND_OUTPUT_DRIVER::DirectSound8;
}

/// What is wrong about a driver that cannot do what it is told; empty when nothing is.
std::string wrongDriver(const Options& options) {
    const std::string driver = "the driver \"" + options.driverName + "\" ";
    if (!options.recordTo.empty() && !recordsAudio(options.driver)) {
        return driver + "does not record; choose directsound8, directsound or alsa, or leave "
                        "--driver out";
    }
    if (!options.device.empty() && hasOneDevice(options.driver)) {
        return driver + "has no choice of devices; leave --device out";
    }
    if (!options.effects.empty() && !hasEffects(options.driver)) {
        return driver + "has no effects; choose directsound8 (Windows), or leave --effect out";
    }
    return {};
}

/// Checks what concerns several options at once. Returns the error, empty when there is none.
std::string contradiction(const Options& options) {
    if (options.files.empty() && options.recordTo.empty() && !options.listDevices) {
        return "FILE is required; see sonimbra-player --help";
    }
    if (!options.files.empty() && !options.recordTo.empty()) {
        return "--record plays nothing; leave " + printable(options.files.front()) + " out";
    }
    if (options.loop && !options.renderTo.empty() && !options.seconds) {
        return "--loop with --render never ends; say where to stop with --seconds N";
    }
    const auto isOutput = [&options](const std::string& file) {
        std::error_code ignored;
        return std::filesystem::equivalent(toPath(file), toPath(options.renderTo), ignored);
    };
    if (std::any_of(options.files.begin(), options.files.end(), isOutput)) {
        return "the file to render to is among the files to play; choose another name";
    }
    return wrongDriver(options);
}

CommandLine usageError(const std::string& text) {
    printError(text);
    return {std::nullopt, UsageError};
}

} // namespace

CommandLine parseCommandLine(std::vector<std::string> arguments) {
    Options options;
    CLI::App app("Plays sound files, renders them to a WAV file, or records one.",
                 "sonimbra-player");
    addAll(app, options);
    std::reverse(arguments.begin(), arguments.end()); // the order that the parser wants
    try {
        app.parse(arguments);
    } catch (const CLI::CallForHelp&) {
        printLine(app.help());
        return {std::nullopt, AllPlayed};
    } catch (const CLI::CallForVersion& version) {
        printLine(version.what());
        return {std::nullopt, AllPlayed};
    } catch (const CLI::ParseError& error) {
        return usageError(printable(error.what()) + "; see sonimbra-player --help");
    }
    options.driver = DRIVERS.at(options.driverName);
    const std::string error = contradiction(options);
    return error.empty() ? CommandLine{options, AllPlayed} : usageError(error);
}

bool recordsAudio(E_SOUND_OUTPUT_DRIVER driver) {
    return !hasOneDevice(driver) && driver != E_SOUND_OUTPUT_DRIVER::CoreAudio;
}

int engineOptions(const Options& options) {
    using namespace sonimbra;
    return MultiThreaded | Use3DBuffers | (options.verbose ? PrintDebugInfoToStdOut : 0);
}

} // namespace player

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/record.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

#include "player/counted.h"
#include "player/exit_codes.h"
#include "player/recording_file.h"
#include "player/status_line.h"
#include "player/terminal.h"
#include "player/text.h"

namespace player {
namespace {

using Clock = std::chrono::steady_clock;
using sonimbra::E_SOUND_OUTPUT_DRIVER;

constexpr auto POLL_INTERVAL = std::chrono::milliseconds(20);
/// Blocks come twice a second; some devices take two seconds to wake up.
constexpr auto STALL_LIMIT = std::chrono::seconds(5);
constexpr double NO_LIMIT = 4294967295.0; ///< more frames than a file holds

/// Automatic choice: what the library prefers, or the driver of systems that do not have that one.
Counted<sonimbra::IAudioRecorder> createRecorder(sonimbra::ISoundEngine& engine,
                                                 const Options& options) {
    const char* const device = options.device.c_str();
    Counted<sonimbra::IAudioRecorder> recorder(
        sonimbra::createSonimbraAudioRecorder(&engine, options.driver, device));
    if (!recorder && options.driver == E_SOUND_OUTPUT_DRIVER::AutoDetect) {
        recorder.reset(
            sonimbra::createSonimbraAudioRecorder(&engine, E_SOUND_OUTPUT_DRIVER::ALSA, device));
    }
    return recorder;
}

std::string formatText(const WavFormat& format) {
    return std::to_string(format.sampleRate) + " Hz, " +
           (format.channels == 1 ? "mono" : "stereo") + ", " + std::to_string(format.bits) + " bit";
}

/// In frames; never 0.
std::uint32_t frameLimit(const Options& options) {
    const double frames =
        options.seconds ? std::round(*options.seconds * options.recordFormat.sampleRate) : NO_LIMIT;
    return static_cast<std::uint32_t>(std::clamp(frames, 1.0, NO_LIMIT));
}

int reportNoDevice(const Options& options) {
    const std::string what =
        options.device.empty()
            ? "no capture device works here"
            : "the capture device " + printable(options.device) + " does not work";
    printError(what + "; connect one, or choose another with --device or --driver (see "
                      "--list-devices)");
    return NoDriver;
}

class RecordingSession {
public:
    RecordingSession(sonimbra::IAudioRecorder& recorder, const Options& options)
        : Recorder(recorder),
          Settings(options),
          Line(options),
          File(new RecordingFile(options.recordTo, options.recordFormat, frameLimit(options))) {}

    int run() {
        const WavFormat& format = Settings.recordFormat;
        const auto sampleFormat = format.bits == 8 ? sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit
                                                   : sonimbra::E_SAMPLE_FORMAT::Signed16Bit;
        if (!Recorder.startRecordingWithReceiver(
                File.get(), static_cast<std::int32_t>(format.sampleRate), sampleFormat,
                static_cast<std::int32_t>(format.channels))) {
            printError("the capture device does not record " + formatText(format) +
                       "; try another --rate, --channels or --bits");
            return NoDriver;
        }
        begin();
        const bool stalled = !watch();
        Recorder.stopRecordingAudio();
        return end(stalled);
    }

private:
    void begin() {
        if (Line.isPlain()) {
            printLine("Recording " + printable(Settings.recordTo) + " (" +
                      formatText(Settings.recordFormat) + ", " + Recorder.getDriverName() + ")");
        }
        draw(Settings.seconds ? "" : "  Ctrl-C ends it");
    }

    /// Waits for the end of the recording. Returns false when the device delivers nothing more.
    bool watch() {
        std::uint32_t frames = 0;
        Clock::time_point lastBlock = Clock::now();
        while (!terminal::stopRequested() && !File->isClosed()) {
            if (File->frames() != frames) {
                frames = File->frames();
                lastBlock = Clock::now();
                draw(levelText(File->takePeak()));
            } else if (Clock::now() - lastBlock > STALL_LIMIT) {
                return false;
            }
            std::this_thread::sleep_for(POLL_INTERVAL);
        }
        return true;
    }

    int end(bool stalled) {
        if (Line.isLive()) {
            draw(terminal::stopRequested() ? "  stopped" : "");
            Line.end();
        }
        const bool complete = File->finish();
        if (!Settings.quiet && (complete || File->frames() > 0)) {
            printSummary();
        }
        if (!complete) {
            printError("cannot write " + printable(Settings.recordTo) + ": " + File->errorText());
            return OutputNotWritable;
        }
        if (stalled) {
            printError("the capture device delivers nothing any more; choose another with "
                       "--device or --driver (see --list-devices)");
            return NoDriver;
        }
        return AllPlayed;
    }

    void printSummary() const {
        if (File->frames() == 0) {
            printLine("Recorded nothing, and left " + printable(Settings.recordTo) + " as it is");
            return;
        }
        printLine("Recorded " + decimal(seconds(), 3) + " s, peak " +
                  decimal(File->highestPeak() * 100.0 / 32768.0, 1) + " % to " +
                  printable(Settings.recordTo));
    }

    void draw(const std::string& extra) {
        if (Line.isLive()) {
            const std::string length =
                Settings.seconds ? " / " + clockText(milliseconds(*Settings.seconds)) : "";
            Line.draw("Recording " + shownName(Settings.recordTo),
                      clockText(milliseconds(seconds())) + length, extra);
        }
    }

    static std::uint32_t milliseconds(double seconds) {
        return static_cast<std::uint32_t>(std::min(seconds * 1000.0, 4e9));
    }

    double seconds() const {
        return static_cast<double>(File->frames()) / Settings.recordFormat.sampleRate;
    }

    sonimbra::IAudioRecorder& Recorder;
    const Options& Settings;
    StatusLine Line;
    Counted<RecordingFile> File;
};

} // namespace

int recordFile(const Options& options) {
    // A recorder belongs to an engine; none has to play.
    const Counted<sonimbra::ISoundEngine> engine(sonimbra::createSonimbraDevice(
        E_SOUND_OUTPUT_DRIVER::NullDriver, options.verbose ? sonimbra::PrintDebugInfoToStdOut : 0));
    const auto recorder = engine ? createRecorder(*engine, options) : nullptr;
    return recorder ? RecordingSession(*recorder, options).run() : reportNoDevice(options);
}

} // namespace player

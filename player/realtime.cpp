// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/realtime.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "player/batch.h"
#include "player/exit_codes.h"
#include "player/level_meter.h"
#include "player/progress.h"
#include "player/terminal.h"
#include "player/text.h"

namespace player {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using sonimbra::E_SOUND_OUTPUT_DRIVER;

constexpr auto POLL_INTERVAL = std::chrono::milliseconds(20);
constexpr auto STALL_LIMIT = std::chrono::seconds(1); ///< devices take something far more often
constexpr double MIX_RATE = 44100.0;
constexpr std::uint64_t QUEUE_FRAMES = 8192; ///< what the drivers keep queued

/// Automatic choice: what the library prefers, then the drivers that every Windows and every Linux
/// has. WinMM would not play on the device that was asked for, and only one driver has effects.
std::vector<E_SOUND_OUTPUT_DRIVER> driversToTry(const Options& options) {
    if (options.driver != E_SOUND_OUTPUT_DRIVER::AutoDetect) {
        return {options.driver};
    }
    if (!options.effects.empty()) {
        return {E_SOUND_OUTPUT_DRIVER::DirectSound8};
    }
    if (!options.device.empty()) {
        return {E_SOUND_OUTPUT_DRIVER::AutoDetect, E_SOUND_OUTPUT_DRIVER::ALSA};
    }
    return {E_SOUND_OUTPUT_DRIVER::AutoDetect, E_SOUND_OUTPUT_DRIVER::WinMM,
            E_SOUND_OUTPUT_DRIVER::ALSA};
}

Counted<sonimbra::ISoundEngine> createEngine(const Options& options) {
    Counted<sonimbra::ISoundEngine> engine;
    for (const E_SOUND_OUTPUT_DRIVER driver : driversToTry(options)) {
        engine.reset(
            sonimbra::createSonimbraDevice(driver, engineOptions(options), options.device.c_str()));
        if (engine) {
            break;
        }
    }
    return engine;
}

std::string whatFailed(const Options& options) {
    if (!options.device.empty()) {
        return "the device " + printable(options.device) + " does not work";
    }
    return options.driver == E_SOUND_OUTPUT_DRIVER::AutoDetect
               ? "no sound driver works"
               : "the driver \"" + options.driverName + "\" does not work";
}

int reportNoDriver(const Options& options) {
    if (!options.effects.empty()) {
        printError("the driver \"directsound8\" (Windows), which has the effects, does not work "
                   "here; leave --effect out");
        return NoDriver;
    }
    printError(whatFailed(options) + " here; choose another with --driver or --device (see "
                                     "--list-devices), or render to a file with --render OUT.wav");
    return NoDriver;
}

class RealtimePlayer {
public:
    RealtimePlayer(sonimbra::ISoundEngine& engine, LevelMeter& meter, const Options& options)
        : Engine(engine),
          Meter(meter),
          Settings(options),
          Lines(options, "Playing"),
          HasMeter(engine.setMixedDataOutputReceiver(&meter)) {}

    int run() {
        Engine.setListenerPosition({0, 0, 0}, {0, 0, 1});
        fillQueue();
        int result = AllPlayed;
        for (const auto& files : groups(Settings)) {
            if (stopped()) {
                break;
            }
            Batch batch(Engine, Settings, files);
            result = batch.hasFailures() ? FileNotPlayable : result;
            if (!batch.files().empty()) {
                play(batch);
            }
        }
        if (Started && !terminal::stopRequested()) {
            drain();
        }
        return result;
    }

private:
    /// Lets silence fill the device's queue before the first sound: some systems leave a hole in
    /// what they play while it fills.
    void fillQueue() const {
        const auto deadline = Clock::now() + std::chrono::milliseconds(300);
        while (HasMeter && Meter.frames() < QUEUE_FRAMES && Clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    void play(Batch& batch) {
        Lines.begin(batch);
        batch.start();
        startClock();
        const double begin = seconds();
        while (!stopped() && !batch.isFinished()) {
            batch.moveTo(seconds() - begin);
            Lines.update(batch, HasMeter ? std::optional(Meter.takePeak()) : std::nullopt);
            std::this_thread::sleep_for(POLL_INTERVAL);
        }
        Lines.end(batch, !batch.isFinished());
    }

    void startClock() {
        if (!Started) {
            Started = true;
            FirstFrame = LastFrame = Meter.frames();
            FirstTime = LastTime = Clock::now();
        }
    }

    /// Seconds of output since the first sound: what was mixed, where that can be watched, and the
    /// time for which a device took nothing.
    double seconds() {
        if (HasMeter) {
            watchForStall();
            return static_cast<double>(LastFrame - FirstFrame) / MIX_RATE + Stalled.count();
        }
        return Seconds(Clock::now() - FirstTime).count();
    }

    void watchForStall() {
        const Clock::time_point now = Clock::now();
        const std::uint64_t frame = Meter.frames();
        if (now - LastTime >= STALL_LIMIT) {
            const Seconds mixed(static_cast<double>(frame - LastFrame) / MIX_RATE);
            Stalled += std::max<Seconds>(now - LastTime - mixed, Seconds::zero());
        } else if (frame == LastFrame) {
            return;
        }
        LastFrame = frame;
        LastTime = now;
    }

    bool stopped() {
        return terminal::stopRequested() ||
               (Started && Settings.seconds && seconds() >= *Settings.seconds);
    }

    /// Mixed sound stands in the device's queue for a while, and dropping the engine discards it.
    /// The queue is 8192 frames long; the rest is for buffers of the system behind it.
    void drain() {
        const std::uint64_t end = Meter.frames() + QUEUE_FRAMES + 4410;
        const Clock::time_point limit = Clock::now() + std::chrono::seconds(1);
        while (HasMeter && Meter.frames() < end && Clock::now() < limit) {
            std::this_thread::sleep_for(POLL_INTERVAL);
        }
    }

    sonimbra::ISoundEngine& Engine;
    LevelMeter& Meter;
    const Options& Settings;
    Progress Lines;
    bool HasMeter;
    bool Started = false;
    std::uint64_t FirstFrame = 0;
    Clock::time_point FirstTime;
    std::uint64_t LastFrame = 0; ///< when frames were last seen to be mixed
    Clock::time_point LastTime;
    Seconds Stalled{};
};

} // namespace

int playFiles(const Options& options) {
    LevelMeter meter; // outlives the engine, which calls it
    const Counted<sonimbra::ISoundEngine> engine = createEngine(options);
    return engine ? RealtimePlayer(*engine, meter, options).run() : reportNoDriver(options);
}

} // namespace player

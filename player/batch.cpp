// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/batch.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string_view>

#include "player/effects.h"
#include "player/text.h"

namespace player {
namespace {

using sonimbra::vec3df;

constexpr double PI = 3.14159265358979323846;
constexpr double ORBIT_SECONDS = 4.0;
constexpr double ORBIT_DISTANCE = 2.0;
constexpr std::uint32_t UNKNOWN_POSITION = 0xFFFFFFFFu;

/// A point of the orbit; turns are counted clockwise from the front, seen from above.
vec3df orbitPoint(double turns) {
    const double angle = 2.0 * PI * turns;
    return vec3df(static_cast<float>(ORBIT_DISTANCE * std::sin(angle)), 0.0f,
                  static_cast<float>(ORBIT_DISTANCE * std::cos(angle)));
}

/// What keeps a file from being read at all; empty when nothing does.
std::string whyUnreadable(const std::string& file) {
    std::error_code ignored;
    const std::filesystem::path path = toPath(file);
    if (!std::filesystem::exists(path, ignored)) {
        return "no such file";
    }
    if (std::filesystem::is_directory(path, ignored)) {
        return "it is a folder";
    }
    return std::ifstream(path) ? "" : "it cannot be opened";
}

std::string whyNotPlayable(sonimbra::ISoundEngine& engine, sonimbra::ISoundSource* source,
                           const std::string& file, bool withEffects) {
    const std::string unreadable = whyUnreadable(file);
    if (!unreadable.empty()) {
        return unreadable;
    }
    if (source == nullptr || source->getAudioFormat().ChannelCount == 0) {
        return "it is not a sound that this library reads";
    }
    const std::string driver = std::string("the driver \"") + engine.getDriverName() + "\" ";
    if (withEffects) {
        return driver + "refuses it with effects (they need at least 0.15 s of sound); leave "
                        "--effect out";
    }
    return driver + "plays nothing; choose another one with --driver, or use --render OUT.wav";
}

} // namespace

Batch::Batch(sonimbra::ISoundEngine& engine, const Options& options,
             const std::vector<std::string>& files)
    : Engine(engine), Settings(options) {
    for (const std::string& file : files) {
        add(file);
    }
}

Batch::~Batch() {
    for (const std::string& file : Files) {
        Engine.removeSoundSource(file.c_str());
    }
}

void Batch::add(const std::string& file) {
    sonimbra::ISoundSource* source = registered(file);
    Counted<sonimbra::ISound> sound = opened(source);
    const auto start = static_cast<std::uint32_t>(Settings.startSeconds * 1000.0);
    std::string error;
    if (!sound) {
        error = whyNotPlayable(Engine, source, file, !Settings.effects.empty());
    } else if (start > 0 && !sound->setPlayPosition(start)) {
        error = "--start does not work with it, only playing from the beginning";
    } else {
        error = refusedEffect(*sound);
    }
    if (error.empty()) {
        Lengths.push_back(sound->getPlayLength());
        Sounds.push_back(std::move(sound));
        Files.push_back(file);
        return;
    }
    if (sound) {
        sound->stop();
    }
    printError("cannot play " + printable(file) + ": " + error);
    Failed = true;
}

/// Switches the effects on. Returns what is wrong; empty when nothing is.
std::string Batch::refusedEffect(sonimbra::ISound& sound) const {
    sonimbra::ISoundEffectControl* const control = sound.getSoundEffectControl();
    if (control == nullptr && !Settings.effects.empty()) {
        return std::string("the driver \"") + Engine.getDriverName() +
               "\" has no effects; choose directsound8 (Windows), or leave --effect out";
    }
    for (const std::string& name : Settings.effects) {
        if (!enableEffect(*control, name)) {
            return "the effect \"" + name + "\" does not work with it; leave it out";
        }
    }
    return {};
}

sonimbra::ISoundSource* Batch::registered(const std::string& file) {
    sonimbra::ISoundSource* known = Engine.getSoundSource(file.c_str(), false);
    return known != nullptr ? known
                            : Engine.addSoundSourceFromFile(file.c_str(), Settings.streamMode);
}

Counted<sonimbra::ISound> Batch::opened(sonimbra::ISoundSource* source) {
    const bool paused = true;
    const bool track = true;
    const bool effects = !Settings.effects.empty();
    Counted<sonimbra::ISound> sound(
        Settings.orbit
            ? Engine.play3D(source, orbitPoint(0.0), Settings.loop, paused, track, effects)
            : Engine.play2D(source, Settings.loop, paused, track, effects));
    if (sound) {
        sound->setVolume(Settings.volume);
        sound->setPan(Settings.pan);
        sound->setPlaybackSpeed(Settings.speed);
    }
    return sound;
}

void Batch::start() {
    moveTo(0.0);
    Engine.setAllSoundsPaused(false);
}

bool Batch::isFinished() const {
    return std::all_of(Sounds.begin(), Sounds.end(),
                       [](const auto& sound) { return sound->isFinished(); });
}

void Batch::moveTo(double seconds) {
    if (!Settings.orbit) {
        return;
    }
    for (std::size_t i = 0; i < Sounds.size(); ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(Sounds.size());
        Sounds[i]->setPosition(orbitPoint(seconds / ORBIT_SECONDS + share));
    }
}

std::uint32_t Batch::positionMilliseconds() {
    std::uint32_t furthest = 0;
    for (const auto& sound : Sounds) {
        const std::uint32_t position = sound->getPlayPosition();
        furthest = position == UNKNOWN_POSITION ? furthest : std::max(furthest, position);
    }
    LastPosition = furthest > 0 ? furthest : LastPosition;
    return LastPosition;
}

std::int32_t Batch::lengthMilliseconds() const {
    return Lengths.empty() ? -1 : *std::max_element(Lengths.begin(), Lengths.end());
}

std::vector<std::vector<std::string>> groups(const Options& options) {
    if (options.together) {
        return {options.files};
    }
    std::vector<std::vector<std::string>> result;
    for (const std::string& file : options.files) {
        result.push_back({file});
    }
    return result;
}

} // namespace player

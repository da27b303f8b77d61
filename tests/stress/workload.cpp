// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/stress/workload.h"

#include <chrono>
#include <random>
#include <thread>

namespace sn_test {

using sonimbra::ISound;
using sonimbra::ISoundEngine;
using sonimbra::vec3df;

const char* const SharedNames[3] = {"decoded.wav", "automatic.wav", "streamed.wav"};

namespace {

void addSharedSources(ISoundEngine& engine) {
    using sonimbra::E_STREAM_MODE;
    engine.addSoundSourceFromFile(SharedNames[0], E_STREAM_MODE::NoStreaming, true);
    engine.addSoundSourceFromFile(SharedNames[2], E_STREAM_MODE::Streaming);
}

} // namespace

void addSharedFiles(ISoundEngine& engine) {
    const Bytes samples(4 * 9000, 0x35);
    addFactory(engine, SharedNames[0], wavFile({1, 44100, 16}, samples));
    addFactory(engine, SharedNames[1], wavFile({2, 22050, 8}, samples));
    addFactory(engine, SharedNames[2], wavFile({2, 48000, 24}, samples));
    addSharedSources(engine);
}

/// Sources go by name only, since any of the threads may remove them at any time.
class CWorkload::CWorker {
public:
    CWorker(CWorkload& load, std::uint32_t seed) : Load(load), Engine(load.Engine), Random(seed) {}

    void operator()() {
        while (!Load.IsOver) {
            step();
        }
    }

private:
    std::uint32_t draw(std::uint32_t limit) { return static_cast<std::uint32_t>(Random()) % limit; }
    float drawFloat() { return static_cast<float>(draw(4000)) / 1000.0f; }
    vec3df drawVector() { return {drawFloat(), drawFloat(), drawFloat()}; }
    const char* drawName() { return SharedNames[draw(3)]; }

    void step() {
        switch (draw(128)) {
        case 0:
            return Engine.removeAllSoundSources();
        case 1:
            return Engine.removeSoundSource(drawName());
        case 2:
            return Engine.stopAllSounds();
        case 3:
            return Engine.setAllSoundsPaused(draw(2) == 0);
        default:
            return draw(4) == 0 ? changeEngine() : changeSound();
        }
    }

    void changeEngine() {
        addSharedSources(Engine);
        Engine.setListenerPosition(drawVector(), drawVector(), drawVector(), drawVector());
        Engine.setSoundVolume(drawFloat());
        Engine.setRolloffFactor(drawFloat());
        Engine.setDefault3DSoundMinDistance(drawFloat());
        Engine.setDefault3DSoundMaxDistance(drawFloat());
        Engine.isCurrentlyPlaying(drawName());
        Engine.getSoundSource(static_cast<std::int32_t>(draw(4)));
        Engine.update();
    }

    void changeSound() {
        Sound& kept = Kept[draw(8)];
        if (!kept || draw(4) == 0) {
            play(kept);
        } else if (draw(8) == 0) {
            kept->stop();
        } else {
            change(*kept.get());
        }
    }

    /// Drops the sound that was kept, whether it still plays or not.
    void play(Sound& kept) {
        Engine.play2D(drawName(), draw(2) == 0);
        kept = Sound::adopt(Engine.play3D(drawName(), drawVector(), draw(2) == 0, true));
        if (kept) {
            ++Load.soundsPlayed;
            kept->setSoundStopEventReceiver(&Load, &Load);
            kept->setIsPaused(false);
        }
    }

    void change(ISound& sound) {
        sound.setVolume(sound.getVolume() + 0.1f);
        sound.setPan(drawFloat() / 10.0f);
        sound.setPlaybackSpeed(drawFloat());
        sound.setIsLooped(!sound.isLooped());
        sound.setIsPaused(draw(4) == 0);
        sound.setPosition(sound.getPosition() + drawVector());
        sound.setMinDistance(drawFloat());
        sound.setMaxDistance(drawFloat());
        sound.setPlayPosition(sound.getPlayPosition() + draw(100));
        sound.getPlayLength();
    }

    CWorkload& Load;
    ISoundEngine& Engine;
    std::mt19937 Random;
    Sound Kept[8];
};

CWorkload::CWorkload(ISoundEngine& engine) : Engine(engine) {
    addSharedFiles(engine);
}

void CWorkload::OnSoundStopped(ISound* sound, sonimbra::E_STOP_EVENT_CAUSE, void*) {
    sound->setIsPaused(true);
    if (++events % 64 == 0) {
        Engine.stopAllSounds();
    }
    Engine.play2D(SharedNames[events % 3]);
    Engine.update();
}

void CWorkload::run(const std::function<void()>& meanwhile) {
    std::vector<std::thread> threads;
    for (std::uint32_t seed = 1; seed <= 4; ++seed) {
        threads.emplace_back(CWorker(*this, seed));
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(2500);
    while (std::chrono::steady_clock::now() < end) {
        meanwhile();
    }
    IsOver = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace sn_test

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/stress/workload.h"

#include "io/CFileSystem.h"
#include "tests/support/mixer_recording.h"

#include <random>
#include <thread>

namespace sn_test {

using sonimbra::ISound;
using sonimbra::ISoundEngine;
using sonimbra::vec3df;

CThreadedEngine::CThreadedEngine(sn_internal::io::IFileSystem* fileSystem)
    : CSonimbraSoftwareSoundEngine(fileSystem, sonimbra::MultiThreaded) {
    startEngineThread();
}

CThreadedEngine::~CThreadedEngine() {
    shutDown();
}

void CThreadedEngine::updateDriver() {
    const sn_internal::CScopedLock lock(getLock());
    updateSounds();
    std::int16_t buffer[OutputChannels * OutputBufferFrames];
    for (int i = 0; i < 8; ++i) {
        mix(buffer, OutputBufferFrames);
    }
    deliverStopEvents();
    ++updates;
}

sn_internal::counted_ptr<CThreadedEngine> threadedEngine() {
    using sn_internal::io::CFileSystem;
    const auto fileSystem = sn_internal::counted_ptr<CFileSystem>::adopt(new CFileSystem);
    return sn_internal::counted_ptr<CThreadedEngine>::adopt(new CThreadedEngine(fileSystem.get()));
}

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

CWorkload::~CWorkload() {
    for (ISound* sound : Expected) {
        sound->drop();
    }
}

void CWorkload::OnSoundStopped(ISound* sound, sonimbra::E_STOP_EVENT_CAUSE, void* userData) {
    {
        const std::lock_guard<std::mutex> lock(Mutex);
        if (userData != this || Expected.erase(sound) != 1 || !sound->isFinished()) {
            ++wrongEvents;
            return;
        }
    }
    sound->setIsPaused(true);
    sound->drop();
    if (++events % 64 == 0) {
        Engine.stopAllSounds();
    }
    Engine.play2D(SharedNames[events % 3]);
    Engine.update();
}

class CWorkload::CWorker {
public:
    CWorker(CWorkload& load, std::uint32_t seed)
        : Load(load), Engine(load.Engine), Random(seed), OwnName(std::to_string(seed)) {}

    void operator()() {
        while (!Load.IsOver) {
            step();
        }
    }

private:
    std::uint32_t draw(std::uint32_t limit) { return static_cast<std::uint32_t>(Random()) % limit; }
    float drawFloat() { return static_cast<float>(draw(4000)) / 1000.0f; }
    vec3df drawVector() { return {drawFloat(), drawFloat(), drawFloat()}; }
    const char* drawName() { return draw(4) == 0 ? OwnName.c_str() : SharedNames[draw(3)]; }

    void step() {
        switch (draw(8)) {
        case 0:
            return play();
        case 1:
            return playForEvent();
        case 2:
            return changeRegistry();
        case 3:
            return changeEngine();
        default:
            const Sound& kept = Kept[draw(8)];
            return kept ? useSound(*kept.get()) : play();
        }
    }

    void play() {
        Engine.play2D(drawName(), draw(2) == 0);
        Sound sound =
            Sound::adopt(Engine.play3D(drawName(), drawVector(), draw(2) == 0, false, true));
        Load.soundsPlayed += sound ? 1 : 0;
        Kept[draw(8)] = std::move(sound);
    }

    void playForEvent() {
        const Sound sound = Sound::adopt(Engine.play2D(drawName(), false, true));
        if (!sound) {
            return;
        }
        {
            const std::lock_guard<std::mutex> lock(Load.Mutex);
            Load.Expected.insert(sound.get());
            sound->grab();
        }
        sound->setSoundStopEventReceiver(&Load, &Load);
        sound->setIsPaused(false);
        if (draw(2) == 0) {
            sound->stop();
        }
    }

    void changeRegistry() {
        switch (draw(16)) {
        case 0:
            return Engine.removeAllSoundSources();
        case 1:
            return Engine.removeSoundSource(drawName());
        case 2:
            return static_cast<void>(addSquareWave(Engine, OwnName.c_str(), 5000));
        default:
            return addSharedSources(Engine);
        }
    }

    void changeEngine() {
        switch (draw(32)) {
        case 0:
            return Engine.stopAllSounds();
        case 1:
            return Engine.setAllSoundsPaused(draw(2) == 0);
        default:
            Engine.setListenerPosition(drawVector(), drawVector(), drawVector(), drawVector());
            Engine.setSoundVolume(drawFloat());
            Engine.setRolloffFactor(drawFloat());
            Engine.setDefault3DSoundMinDistance(drawFloat());
            Engine.setDefault3DSoundMaxDistance(drawFloat());
            Engine.isCurrentlyPlaying(drawName());
            Engine.getSoundSource(drawName(), false);
            Engine.getSoundSource(static_cast<std::int32_t>(draw(4)));
            Engine.update();
        }
    }

    void useSound(ISound& sound) {
        switch (draw(8)) {
        case 0:
            return sound.stop();
        case 1:
            return sound.setIsPaused(draw(2) == 0);
        default:
            sound.setVolume(sound.getVolume() + 0.1f);
            sound.setPan(drawFloat() / 10.0f);
            sound.setPlaybackSpeed(drawFloat());
            sound.setIsLooped(!sound.isLooped());
            sound.setPosition(sound.getPosition() + drawVector());
            sound.setMinDistance(drawFloat());
            sound.setMaxDistance(drawFloat());
            sound.setPlayPosition(sound.getPlayPosition() + draw(100));
            sound.getPlayLength();
        }
    }

    CWorkload& Load;
    ISoundEngine& Engine;
    std::mt19937 Random;
    const std::string OwnName;
    Sound Kept[8];
};

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

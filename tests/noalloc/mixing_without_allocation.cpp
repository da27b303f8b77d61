// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// What runs in real time allocates nothing: not the mixing, not the update cycle. Starting a sound
/// of samples that are there takes a handful.

#include "tests/noalloc/allocation_count.h"
#include "tests/support/mixer_recording.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace {

using namespace sn_test;
using sonimbra::vec3df;

/// Its action runs inside the mixing loop.
class CReceiver : public sonimbra::ISoundMixedOutputReceiver,
                  public sonimbra::ISoundStopEventReceiver {
public:
    void OnAudioDataReady(const void*, std::int32_t, std::int32_t) override { action(); }
    void OnSoundStopped(sonimbra::ISound*, sonimbra::E_STOP_EVENT_CAUSE, void*) override {
        ++stopEvents;
    }

    std::int32_t stopEvents = 0;
    std::function<void()> action = [] {};
};

/// Every kind of sound there is, which ends or starts over within a second.
class CBusyScene {
public:
    CBusyScene() {
        play({1, 11025, 8, EStorage::Pcm});
        play({1, 22050, 16, EStorage::StreamedWav});
        play({2, 44100, 24, EStorage::StreamedWav});
        Engine->setMixedDataOutputReceiver(&receiver);
    }

    std::int64_t allocationsInASecond() {
        std::vector<std::int16_t> target(2 * 44100);
        const CAllocationCount count;
        EXPECT_EQ(44100, Engine->renderFrames(target.data(), 44100));
        return count.get();
    }

    sonimbra::ISoundEngine& engine() { return *Engine.get(); }
    std::vector<Sound> sounds;
    CReceiver receiver;

private:
    void play(const SRecording& shape) {
        const vec3df position(float(sounds.size()), 1, 2);
        const SRecording recording = noise(shape, 4000, 1);
        sounds.push_back(playRecording(*Engine.get(), recording));
        sounds.back()->setSoundStopEventReceiver(&receiver);
        sounds.push_back(playRecording(*Engine.get(), recording, true, &position));
        sounds.back()->setPlaybackSpeed(1.7f);
    }

    const OfflineEngine Engine = offlineEngine();
};

TEST(NoAllocation, RenderingABusyScene) {
    CBusyScene scene;
    EXPECT_EQ(0, scene.allocationsInASecond());
    EXPECT_EQ(3, scene.receiver.stopEvents);
}

TEST(NoAllocation, UpdateCycles) {
    CBusyScene scene;
    scene.sounds[0]->stop();
    scene.sounds[1]->stop();
    const CAllocationCount count;
    for (int i = 0; i < 10; ++i) {
        scene.engine().setListenerPosition(vec3df(float(i), 0, 0), vec3df(0, 0, 1));
        scene.engine().setSoundVolume(0.01f * float(i));
        scene.engine().update();
    }
    EXPECT_EQ(0, count.get());
    EXPECT_EQ(1, scene.receiver.stopEvents);
}

std::int64_t allocationsIn(const std::function<void()>& action) {
    const CAllocationCount count;
    action();
    return count.get();
}

TEST(NoAllocation, StartsOfSounds) {
    const OfflineEngine engine = offlineEngine();
    sonimbra::ISoundSource* source = addSquareWave(*engine.get(), "wave", 100);
    for (const bool looped : {false, true}) {
        playTracked(*engine.get(), source, looped);
        EXPECT_GE(4, allocationsIn([&] { engine->play2D(source, looped); }));
        EXPECT_GE(4, allocationsIn([&] { engine->play3D("wave", vec3df(1, 2, 3), looped); }));
    }
}

/// Makes the compiler believe that somebody needs the block.
void* needed(void* block) {
    static void* volatile kept;
    kept = block;
    return kept;
}

/// Each way to allocate, seen from inside the mixing loop: without it a zero would say nothing.
TEST(NoAllocation, AllocationsAreSeen) {
    constexpr std::align_val_t alignment{256};
    const std::function<void()> ways[] = {
        [] { ::operator delete(needed(::operator new(1))); },
        [] { ::operator delete[](needed(::operator new[](1))); },
        [] { ::operator delete(needed(::operator new(1, std::nothrow))); },
        [] { ::operator delete[](needed(::operator new[](1, std::nothrow))); },
        [=] { ::operator delete(needed(::operator new(1, alignment)), alignment); },
        [=] { ::operator delete[](needed(::operator new[](1, alignment)), alignment); },
#if defined(SONIMBRA_WRAP_MALLOC)
        [] { std::free(needed(std::malloc(1))); },
        [] { std::free(needed(std::calloc(1, 1))); },
        [] { std::free(needed(std::realloc(nullptr, 1))); },
#endif
    };
    for (const std::function<void()>& way : ways) {
        CBusyScene scene;
        scene.receiver.action = way;
        EXPECT_EQ(173, scene.allocationsInASecond()) << &way - ways;
    }
}

} // namespace

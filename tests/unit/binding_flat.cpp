// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"
#include "recording/CSonimbraAudioRecorder.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/wait.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace {

using namespace sn_internal;

/// What a test passes as a context.
struct SCalls {
    std::atomic<int> calls{0}, releases{0};
    std::function<void()> action = [] {}, onRelease = [] {};

    template <class... A>
    static void call(void* context, A...) {
        ++static_cast<SCalls*>(context)->calls;
        static_cast<SCalls*>(context)->action();
    }
    static sonimbra_file_reader* open(void* context, const char*) {
        call(context);
        return nullptr;
    }
    static void release(void* context) {
        static_cast<SCalls*>(context)->onRelease();
        ++static_cast<SCalls*>(context)->releases;
    }
};

sonimbra_engine* offline() {
    sonimbra_engine* engine = sonimbra_engine_create_offline(0, SONIMBRA_C_VERSION);
    sn_test::addSquareWave(*engine->Native, "w", 100);
    return engine;
}

/// A playing sound with a forwarder, used the way that a managed class does.
struct SListened {
    SListened(sonimbra_engine* engine, const char* name, SCalls& calls)
        : sound(sonimbra_engine_play2d(engine, name, 1, 0, 1, 0, 0)),
          forwarder(sonimbra_event_forwarder_create(SCalls::call, &calls, SCalls::release)) {
        sonimbra_sound_set_sound_stop_event_receiver(sound, forwarder, nullptr);
    }
    bool dispose() {
        sonimbra_sound_set_sound_stop_event_receiver(sound, nullptr, nullptr);
        sonimbra_event_forwarder_destroy(forwarder);
        return sonimbra_sound_drop(sound) != 0;
    }
    sonimbra_sound* const sound;
    sonimbra_event_forwarder* const forwarder;
};

TEST(FlatInterface, ForwardersDeliverOneEvent) {
    for (const bool disposesInside : {false, true}) {
        sonimbra_engine* engine = offline();
        SCalls calls;
        SListened listened(engine, "w", calls);
        calls.action = [&] {
            sonimbra_engine_grab(engine); // which may be ending
            EXPECT_EQ(sonimbra_engine_drop(engine), 0);
            disposesInside ? listened.dispose() : false;
        };
        disposesInside ? sonimbra_engine_stop_all_sounds(engine) : void();
        EXPECT_EQ(sonimbra_engine_drop(engine), 1);
        disposesInside || listened.dispose();
        EXPECT_EQ(calls.calls + 10 * calls.releases, 11);
    }
}

/// The alias takes its base away: sounds then keep their receiver, and report later. The context of
/// one that is destroyed while it reports stays until it has.
TEST(FlatInterface, DestroyedForwardersMayStillBeCalled) {
    for (const bool reports : {false, true}) {
        sonimbra_engine* engine = offline();
        sonimbra_source* base = sonimbra_engine_get_sound_source(engine, "w", 0);
        sonimbra_source_drop(sonimbra_engine_add_sound_source_alias(engine, base, "alias"));
        sonimbra_source_drop(base);
        sonimbra_engine_remove_sound_source(engine, "w");
        SCalls calls;
        SListened listened(engine, "alias", calls);
        sonimbra_engine_remove_sound_source(engine, "alias");
        calls.action = [&] {
            std::thread([&] { sonimbra_event_forwarder_destroy(listened.forwarder); }).join();
            EXPECT_EQ(calls.releases, 0);
        };
        reports || listened.dispose();
        sonimbra_engine_update(engine);
        EXPECT_EQ(calls.calls + 10 * calls.releases, reports ? 11 : 10);
        reports ? sonimbra_sound_drop(listened.sound) : 0;
        sonimbra_engine_drop(engine);
    }
}

/// The sound has nothing to report, but as its source is gone nobody can know.
TEST(FlatInterface, DestroyedForwardersLetTheirSoundGo) {
    for (const bool hasEnded : {false, true}) {
        sonimbra_engine* engine = offline();
        SCalls calls;
        SListened listened(engine, "w", calls);
        sonimbra_sound_set_sound_stop_event_receiver(listened.sound, nullptr, nullptr);
        if (hasEnded) {
            sonimbra_sound_stop(listened.sound);
            sonimbra_engine_update(engine);
            sonimbra_sound_set_sound_stop_event_receiver(listened.sound, listened.forwarder,
                                                         &calls);
        }
        sonimbra_engine_remove_sound_source(engine, "w");
        EXPECT_TRUE(listened.dispose());
        EXPECT_EQ(calls.calls + 10 * calls.releases, 10);
        sonimbra_engine_drop(engine);
    }
}

TEST(FlatInterface, MixedOutputGoesToTheLastReceiver) {
    sonimbra_engine* engine = offline();
    SCalls calls[2];
    const auto listen = [engine](SCalls& to) {
        sonimbra_engine_set_mixed_data_output_receiver(engine, SCalls::call, &to, SCalls::release);
    };
    calls[0].action = [&] { listen(calls[1]); };
    calls[1].action = [] { throw 1; };
    listen(calls[0]);
    std::int16_t samples[1024];
    EXPECT_EQ(sonimbra_engine_render_frames(engine, samples, 512), 512);
    sonimbra_engine_drop(engine);
    const int first = calls[0].calls + 10 * calls[0].releases;
    EXPECT_EQ(first + 100 * calls[1].calls + 1000 * calls[1].releases, 1111);
}

/// Once inside a call to the engine, once where nothing but the engine's lock is held.
TEST(FlatInterface, EnginesMayEndInTheirCallbacks) {
    for (const bool callsEngine : {true, false}) {
        SCalls file;
        sonimbra_engine* engine = offline();
        auto* factory = sonimbra_file_factory_create(SCalls::open, &file, SCalls::release);
        sonimbra_engine_add_file_factory(engine, factory);
        sonimbra_file_factory_drop(factory);
        sonimbra_source* source = sonimbra_engine_get_sound_source(engine, "x.wav", 1);
        file.action = [&] { EXPECT_EQ(sonimbra_engine_drop(engine), callsEngine ? 0 : 1); };
        callsEngine ? void(sonimbra_engine_play2d_source(engine, source, 0, 0, 1, 0))
                    : void(sonimbra_source_get_play_length(source));
        EXPECT_TRUE(sn_test::waitFor([&] { return file.releases == 1; }));
        EXPECT_EQ(sonimbra_source_drop(source), 1);
    }
}

/// Captures one block, on a thread that a stop waits for.
class COneBlockRecorder final : public CSonimbraAudioRecorder {
public:
    explicit COneBlockRecorder(sonimbra::ISoundEngine* engine) : CSonimbraAudioRecorder(engine) {}
    bool startRecording(std::int32_t, sonimbra::E_SAMPLE_FORMAT, std::int32_t) override {
        Thread = std::thread([this] { onAudioDataCaptured("12", 2); });
        return true;
    }
    void stopRecordingAudio() override { Thread.joinable() ? Thread.join() : void(); }
    bool isRecording() override { return Thread.joinable(); }
    const char* getDriverName() override { return ""; }
    bool isDriverInitialized() override { return true; }

    std::thread Thread;
};

TEST(FlatInterface, RecordersMayEndInTheirCallbacks) {
    sonimbra_engine* engine = offline();
    auto* recorder = new sonimbra_recorder(engine, new COneBlockRecorder(engine->Native));
    EXPECT_EQ(sonimbra_engine_drop(engine), 0);
    SCalls calls;
    std::atomic<bool> isStarted = false;
    calls.action = [&] {
        sn_test::waitFor([&] { return isStarted.load(); });
        EXPECT_EQ(sonimbra_recorder_start_recording_buffered_audio(recorder, 1, 1, 1), 0);
        sonimbra_recorder_stop_recording_audio(recorder); // would wait for itself
        EXPECT_EQ(sonimbra_recorder_drop(recorder), 1);
    };
    const auto checkLock = [&] {
        EXPECT_TRUE(std::unique_lock(engine->CountLock, std::try_to_lock));
    };
    calls.onRelease = [&] { std::thread(checkLock).join(); };
    sonimbra_recorder_start_recording_with_receiver(recorder, SCalls::call, &calls, SCalls::release,
                                                    1, 1, 1);
    isStarted = true;
    EXPECT_TRUE(sn_test::waitFor([&] { return calls.releases == 1; }));
}

TEST(FlatInterface, ThreadsMayMakeShareAndDropEverything) {
    sonimbra_engine* shared = offline();
    const auto work = [=] {
        for (int i = 0; i < 50; ++i) {
            SCalls calls;
            SListened listened(shared, "w", calls);
            sonimbra_engine_grab(shared);
            sonimbra_engine_stop_all_sounds(shared); // the other thread's as well
            listened.dispose();
            EXPECT_EQ(calls.releases, 1);
            EXPECT_EQ(sonimbra_engine_drop(shared), 0);
            EXPECT_EQ(sonimbra_engine_drop(offline()), 1);
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(sonimbra_engine_drop(shared), 1);
}

} // namespace

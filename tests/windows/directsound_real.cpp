// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// Sounds on the machine's own DirectSound device. A machine without one fails.

#include "drivers/directsound/CSonimbraDS8Sound.h"
#include "tests/support/log_capture.h"
#include "tests/support/wait.h"
#include "tests/windows/directsound_scripted.h"

using namespace sn_test;

TEST(DirectSoundDevice, StreamsGoOnAfterAPause) {
    for (const auto driver : {sonimbra::E_SOUND_OUTPUT_DRIVER::DirectSound8,
                              sonimbra::E_SOUND_OUTPUT_DRIVER::DirectSound}) {
        const Engine engine =
            Engine::adopt(sonimbra::createSonimbraDevice(driver, sonimbra::MultiThreaded));
        ASSERT_TRUE(engine);
        SRecording recording = counting(44100);
        recording.storage = EStorage::StreamedWav;
        const Sound sound = playRecording(*engine.get(), recording);
        EXPECT_TRUE(waitFor([&] { return sound->getPlayPosition() > 300; }));
        sound->setIsPaused(true);
        const std::uint32_t position = sound->getPlayPosition();
        std::this_thread::sleep_for(std::chrono::milliseconds(1200)); // more than the rest
        EXPECT_EQ(position, sound->getPlayPosition());
        EXPECT_FALSE(sound->isFinished());
        sound->setIsPaused(false);
        EXPECT_TRUE(waitFor([&] { return sound->isFinished(); }));
    }
}

struct COpenSound final : sn_internal::CSonimbraDS8Sound {
    static constexpr auto bufferOf = &COpenSound::getBuffer;
};

/// With the effects that Wine has; a sound without effects refuses them.
TEST(DirectSoundDevice, SoundsGoOnWithEffects) {
    using namespace sonimbra;
    const Engine engine = Engine::adopt(createSonimbraDevice(
        E_SOUND_OUTPUT_DRIVER::DirectSound8, MultiThreaded | PrintDebugInfoToStdOut));
    ASSERT_TRUE(engine);
    for (const EStorage storage : {EStorage::DecodedWav, EStorage::StreamedWav}) {
        const Sound sound = playWithEffects(*engine.get(), storage, false);
        auto& own = static_cast<sn_internal::CDirectSoundSound&>(*sound.get());
        auto* const buffer = static_cast<void*>((own.*COpenSound::bufferOf)());
        EXPECT_TRUE(waitFor([&] { return sound->getPlayPosition() > 100; }));
        const auto enableAll = [&] {
            for (const int i : {1, 3, 6, 7, 8}) {
                const SEffectKind& kind = EffectKinds[i];
                sn_internal::com_ptr<IUnknown> effect;
                EXPECT_TRUE(kind.enable(*sound->getSoundEffectControl()));
                static_cast<IDirectSoundBuffer8*>(buffer)->GetObjectInPath(
                    kind.effectClass, 0, kind.control, effect.putVoid());
                EXPECT_TRUE(effect) << kind.name;
            }
        };
        EXPECT_EQ("", standardOutputOf([&] {
                      enableAll();
                      sound->getSoundEffectControl()->disableAllEffects();
                      std::thread(enableAll).join(); // which has no COM of its own
                  }));
        const Sound plain =
            Sound::adopt(engine->play2D(sound->getSoundSource(), false, false, true));
        Effects& effects = *plain->getSoundEffectControl();
        EXPECT_EQ("Could not set effects\n",
                  standardOutputOf([&] { EXPECT_TRUE(effects.enableEchoSoundEffect()); }));
        EXPECT_TRUE(effects.isEchoSoundEffectEnabled());
        EXPECT_TRUE(waitFor([&] { return sound->isFinished() && plain->isFinished(); }));
    }
}

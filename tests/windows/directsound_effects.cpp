// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/log_capture.h"
#include "tests/windows/directsound_scripted.h"

#include <regex>

namespace {

using namespace sn_test;

class DirectSoundEffects : public testing::Test {
protected:
    void play(EStorage storage) {
        Driver = Engine::adopt(createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::DirectSound8,
                                                    sonimbra::PrintDebugInfoToStdOut));
        Playing = playWithEffects(*Driver.get(), storage, storage == EStorage::DecodedWav);
        Control = Playing->getSoundEffectControl();
    }
    /// The calls on the buffer, without its name.
    std::string callsOf(const std::function<void()>& operation) {
        Script.Journal.clear();
        operation();
        return std::regex_replace(Script.Journal, std::regex("b[0-9]+ "), "");
    }

    SScriptedDirectSound Com{CLSID_DirectSound8};
    Engine Driver;
    Sound Playing;
    Effects* Control = nullptr;
};

std::string pushed(const std::string& effect, const std::string& values) {
    return "GetObjectInPath " + effect + ";" + effect + " SetAllParameters " + values + " ;" +
           effect + " freed;";
}

/// On a static and on a streamed sound: added, changed, taken off, and taken off once more.
TEST_F(DirectSoundEffects, TakeTheirParameters) {
    for (const EStorage storage : {EStorage::Pcm, EStorage::StreamedWav}) {
        play(storage);
        const std::string start = storage == EStorage::Pcm ? "Play 0;" : "Play 1;";
        for (const SEffectKind& kind : EffectKinds) {
            const std::string built = std::string("SetFX ") + kind.name + ";";
            EXPECT_EQ(callsOf([&] { EXPECT_TRUE(kind.enable(*Control)); }),
                      "Stop;" + built + pushed(kind.name, kind.defaults) + start);
            EXPECT_TRUE((Control->*kind.isEnabled)());
            EXPECT_EQ(callsOf([&] { EXPECT_TRUE(kind.change(*Control)); }),
                      pushed(kind.name, kind.values));
            EXPECT_EQ(callsOf([&] { (Control->*kind.disable)(); }), "Stop;SetFX;" + start);
            EXPECT_FALSE((Control->*kind.isEnabled)());
            EXPECT_EQ(callsOf([&] { (Control->*kind.disable)(); }), "");
        }
    }
    const int degrees[] = {-180, -90, 0, 90, 180, 45};
    Control->enableChorusSoundEffect();
    for (std::size_t i = 0; i < std::size(degrees); ++i) {
        const auto turn = [&] { Control->enableChorusSoundEffect(1, 2, 3, 4, 1, 5, degrees[i]); };
        EXPECT_EQ(callsOf(turn), pushed("Chorus", std::string("1 2 3 4 1 5 ") + "012343"[i]));
    }
}

const std::string Echo = pushed("Echo", "50 50 500 500 0"), Refused = "Could not set effects\n";
const std::string Eq = pushed("ParamEq", "8000 12 0"), Eq2 = pushed("ParamEq", "1 2 3");

TEST_F(DirectSoundEffects, RebuildTheirChain) {
    play(EStorage::DecodedWav);
    const auto expect = [&](const std::string& calls, const std::string& log, int failing,
                            const std::function<void()>& operation) {
        Script.Failing = Script.Calls + failing;
        EXPECT_EQ(log, standardOutputOf([&] { EXPECT_EQ(calls, callsOf(operation)); })) << calls;
    };
    expect("Stop;SetFX Echo;Play 1;", Refused, 1,
           [&] { EXPECT_TRUE(Control->enableEchoSoundEffect()); });
    EXPECT_TRUE(Control->isEchoSoundEffectEnabled());
    EXPECT_FALSE(Control->isGargleSoundEffectEnabled());
    expect("Stop;SetFX Echo ParamEq;" + Echo + Eq + "Play 1;", "", 99,
           [&] { Control->enableParamEqSoundEffect(); });
    expect(Eq2, "", 1, [&] { Control->enableParamEqSoundEffect(1, 2, 3); });
    expect("GetObjectInPath Echo;", "", 0, [&] { Control->enableEchoSoundEffect(); });
    Playing->setIsPaused(true);
    expect("SetFX Echo ParamEq Gargle;GetObjectInPath Echo;" + Eq2 + pushed("Gargle", "20 0"), "",
           1, [&] { Control->enableGargleSoundEffect(); });
    expect("SetFX Echo Gargle;" + Echo + pushed("Gargle", "20 0"), "", 99,
           [&] { Control->disableParamEqSoundEffect(); });
    Playing->setIsPaused(false);
    expect("Stop;SetFX;Play 1;", "Could not disable effects\n", 1,
           [&] { Control->disableAllEffects(); });
    expect("", "", 99, [&] { Control->disableEchoSoundEffect(); });
}

/// Stopped, without its source, without its engine, or with a lost buffer that cannot be filled.
TEST_F(DirectSoundEffects, EndWithTheirSound) {
    for (int way = 0; way < 4; ++way) {
        play(EStorage::Pcm);
        Control->enableEchoSoundEffect();
        if (way == 3) {
            Script.Buffers.back()->Loss = DSERR_BUFFERLOST;
            Script.Failing = Script.Calls + 2; // play, restore, lock
        }
        way == 0   ? Playing->stop()
        : way == 1 ? Driver->removeSoundSource(Playing->getSoundSource())
        : way == 2 ? Driver.reset()
                   : Playing->setIsLooped(true);
        EXPECT_EQ("", callsOf([&] {
                      EXPECT_FALSE(Control->isEchoSoundEffectEnabled()) << way;
                      EXPECT_FALSE(Control->enableEchoSoundEffect());
                      Control->disableEchoSoundEffect();
                      Control->disableAllEffects();
                  }));
    }
}

} // namespace

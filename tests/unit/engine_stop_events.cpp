// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"
#include "tests/support/engine_helpers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace {

using namespace sn_test;
using namespace sonimbra;

/// Three sounds, of the sources "a", "b" and "a", with one receiver.
class Stage {
public:
    Stage() {
        addSquareWave(engine(), "a", 100);
        addSquareWave(engine(), "b", 100);
        const char* const names[] = {"a", "b", "a"};
        for (std::size_t i = 0; i < 3; ++i) {
            sounds[i] = Sound::adopt(engine().play2D(names[i], false, false, true));
            raw[i] = sounds[i].get();
            sounds[i]->setSoundStopEventReceiver(&events, this);
        }
    }

    ISoundEngine& engine() { return *driver.get(); }

    /// Each letter does something, see the switch.
    void run(const std::string& steps) {
        for (const char step : steps) {
            runStep(step);
        }
    }

    CStopEvents events;
    Sound sounds[3];
    ISound* raw[3];
    ScriptedEngine driver = scriptedEngine(); ///< goes first: its end gives the last events

private:
    void runStep(char step) {
        switch (step) {
        case 'f': // the sounds finish
            for (CScriptedSound* sound : driver->sounds) {
                sound->finished = true;
            }
            break;
        case 's':
            std::for_each(raw, raw + 3, [](ISound* sound) { sound->stop(); });
            break;
        case 'd':
            std::for_each(sounds, sounds + 3, [](Sound& sound) { sound.reset(); });
            break;
        case 'u':
            return engine().update();
        case 'S':
            return engine().stopAllSounds();
        case 'r':
            return engine().removeSoundSource("a");
        case 'R':
            return engine().removeAllSoundSources();
        case 'E':
            return driver.reset();
        }
    }
};

TEST(StopEvents, TellTheCause) {
    const struct {
        const char* steps;
        const char* causes;
    } cases[] = {
        {"f", ""},     {"fu", "000"},  {"su", "111"},     {"S", "000"},
        {"sS", "111"}, {"r", "22"},    {"rS", "220"},     {"R", "222"},
        {"sr", "22"},  {"sru", "221"}, {"fR", "222"},     {"E", "222"},
        {"sE", "222"}, {"fE", "222"},  {"fuuSRE", "000"}, {"dS", "000"},
    };
    for (const auto& c : cases) {
        Stage stage;
        stage.run(c.steps);
        EXPECT_EQ(stage.events.causes(), c.causes) << c.steps;
    }
    EXPECT_EQ(CScriptedSound::alive, 0);
}

/// Each is run by a receiver; the engine is on its way down in some cases.
using Reaction = void (*)(Stage& stage, ISoundEngine& engine, ISound* sound);
const Reaction Reactions[] = {
    [](Stage& stage, ISoundEngine&, ISound*) { stage.run("d"); },
    [](Stage& stage, ISoundEngine&, ISound*) { stage.run("s"); },
    [](Stage&, ISoundEngine& engine, ISound*) { engine.stopAllSounds(); },
    [](Stage&, ISoundEngine& engine, ISound*) { engine.removeSoundSource("b"); },
    [](Stage&, ISoundEngine& engine, ISound* sound) {
        engine.removeSoundSource(sound->getSoundSource());
    },
    [](Stage&, ISoundEngine& engine, ISound*) { engine.removeAllSoundSources(); },
    [](Stage&, ISoundEngine& engine, ISound*) { engine.play2D("a", true); },
    [](Stage&, ISoundEngine& engine, ISound*) { engine.update(); },
    [](Stage&, ISoundEngine&, ISound*) { throw std::runtime_error("receiver"); },
};

TEST(StopEvents, LeaveReceiversFree) {
    for (const std::string trigger : {"fu", "su", "S", "r", "R", "E"}) {
        for (const Reaction& react : Reactions) {
            SCOPED_TRACE(trigger + ", reaction " + std::to_string(&react - Reactions));
            Stage stage;
            stage.events.action = [&, engine = &stage.engine()](ISound* sound) {
                react(stage, *engine, sound);
            };
            stage.run(trigger);
            if (stage.driver) {
                stage.run("SS"); // what is left, such as what receivers played
                EXPECT_FALSE(stage.engine().isCurrentlyPlaying("a"));
            }
            EXPECT_EQ(stage.events.events.size(), 3u);
        }
    }
    EXPECT_EQ(CScriptedSound::alive, 0);
}

/// What a receiver adds may get the very memory of the source that is being removed.
TEST(StopEvents, MayPutSourcesInThePlaceOfTheRemovedOne) {
    Stage stage;
    stage.events.action = [&](ISound*) {
        stage.events.action = nullptr;
        stage.run("r");
        for (const char* name : {"x", "y", "z"}) {
            addSquareWave(stage.engine(), name, 10);
        }
    };
    stage.engine().removeSoundSource(stage.engine().getSoundSource("a"));
    EXPECT_EQ(stage.engine().getSoundSourceCount(), 4);
    EXPECT_EQ(stage.events.causes(), "22");
}

} // namespace

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

/// Three sounds, of the sources "a", "b" and "a", with one receiver; their user data are the
/// addresses of their places here.
class Stage {
public:
    Stage() {
        addSquareWave(engine(), "a", 100);
        addSquareWave(engine(), "b", 100);
        const char* const names[] = {"a", "b", "a"};
        for (std::size_t i = 0; i < 3; ++i) {
            sounds[i] = Sound::adopt(engine().play2D(names[i], false, false, true));
            raw[i] = sounds[i].get();
            sounds[i]->setSoundStopEventReceiver(&events, &sounds[i]);
        }
    }

    ISoundEngine& engine() { return *driver.get(); }

    /// Each letter does something, see the switch.
    void run(const std::string& steps) {
        for (const char step : steps) {
            runStep(step);
        }
    }

    /// Whether each sound had exactly one event, with its own user data.
    testing::AssertionResult hasEachEventOnce() const {
        for (std::size_t i = 0; i < 3; ++i) {
            const auto isThis = [&](const CStopEvents::SEvent& event) {
                return event.sound == raw[i] && event.userData == &sounds[i];
            };
            if (std::count_if(events.events.begin(), events.events.end(), isThis) != 1) {
                return testing::AssertionFailure() << "sound " << i;
            }
        }
        return testing::AssertionResult(events.events.size() == 3);
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
            for (const Sound& sound : sounds) {
                sound->stop();
            }
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
        {"f", ""},     {"fu", "000"}, {"su", "111"}, {"S", "000"},  {"sS", "111"},
        {"r", "22"},   {"rS", "220"}, {"R", "222"},  {"sr", "22"},  {"sru", "221"},
        {"fR", "222"}, {"E", "222"},  {"sE", "222"}, {"fE", "222"}, {"fuuSRE", "000"},
    };
    for (const auto& c : cases) {
        Stage stage;
        stage.run(c.steps);
        EXPECT_EQ(stage.events.causes(), c.causes) << c.steps;
        for (std::size_t i = 0; i < 3 && stage.events.causes() == "000"; ++i) {
            EXPECT_EQ(stage.events.events[i].sound, stage.raw[i]) << "the order of starting";
        }
    }
    EXPECT_EQ(CScriptedSound::alive, 0);
}

TEST(StopEvents, GoToTheReceiverOfTheMoment) {
    Stage stage;
    CStopEvents other;
    stage.run("f");
    stage.sounds[0]->setSoundStopEventReceiver(&other, &other);
    stage.sounds[1]->setSoundStopEventReceiver(nullptr, &other);
    stage.engine().update();
    ASSERT_EQ(other.events.size(), 1u);
    EXPECT_EQ(other.events[0].userData, &other);
    EXPECT_EQ(stage.events.causes(), "0");
    stage.sounds[1]->setSoundStopEventReceiver(&other, nullptr); // it was reaped before
    stage.engine().update();
    EXPECT_EQ(other.events.size(), 1u);
}

TEST(StopEvents, MayBeTheLastOfASound) {
    Stage stage;
    for (Sound& sound : stage.sounds) {
        sound.reset();
    }
    EXPECT_EQ(CScriptedSound::alive, 3);
    stage.events.action = [](ISound* sound) { EXPECT_TRUE(sound->isFinished()); };
    stage.engine().stopAllSounds();
    EXPECT_TRUE(stage.hasEachEventOnce());
    EXPECT_EQ(CScriptedSound::alive, 0);
}

/// A call of a receiver; the engine is on its way down in some cases.
struct SCall {
    ISoundEngine& engine;
    Stage& stage;
    ISound* sound;
};

void dropOwn(SCall& c) {
    c.stage.sounds[std::find(c.stage.raw, c.stage.raw + 3, c.sound) - c.stage.raw].reset();
}
void dropEvery(SCall& c) {
    for (Sound& held : c.stage.sounds) {
        held.reset();
    }
}
void stopOthers(SCall& c) {
    for (ISound* other : c.stage.raw) {
        other->stop();
    }
}
void playAnother(SCall& c) {
    c.engine.play2D("a", true);
    Sound::adopt(c.engine.play3D("b", vec3df(1, 2, 3), true, false, true));
}
void addSources(SCall& c) {
    const std::string name = std::to_string(c.stage.events.events.size());
    c.engine.addSoundSourceAlias(addSquareWave(c.engine, name.c_str(), 5), (name + "x").c_str());
}
void askAbout(SCall& c) {
    EXPECT_TRUE(c.sound->isFinished());
    c.engine.isCurrentlyPlaying("a");
    c.engine.getSoundSource(0);
    c.sound->getPlayLength();
    c.sound->getPlayPosition();
}

const struct SReaction {
    const char* name;
    std::function<void(SCall& c)> react;
} Reactions[] = {
    {"drops the sound", dropOwn},
    {"drops every sound", dropEvery},
    {"stops the others", stopOthers},
    {"stops everything", [](SCall& c) { c.engine.stopAllSounds(); }},
    {"removes its source", [](SCall& c) { c.engine.removeSoundSource(c.sound->getSoundSource()); }},
    {"removes by name", [](SCall& c) { c.engine.removeSoundSource("b"); }},
    {"removes all", [](SCall& c) { c.engine.removeAllSoundSources(); }},
    {"plays another", playAnother},
    {"updates", [](SCall& c) { c.engine.update(); }},
    {"updates by the volume", [](SCall& c) { c.engine.setSoundVolume(0.5f); }},
    {"takes its receiver away", [](SCall& c) { c.sound->setSoundStopEventReceiver(nullptr); }},
    {"sets it again", [](SCall& c) { c.sound->setSoundStopEventReceiver(&c.stage.events); }},
    {"pauses", [](SCall& c) { c.engine.setAllSoundsPaused(true); }},
    {"resumes", [](SCall& c) { c.engine.setAllSoundsPaused(false); }},
    {"adds sources", addSources},
    {"asks", askAbout},
    {"throws", [](SCall&) { throw std::runtime_error("receiver"); }},
};

TEST(StopEvents, LeaveReceiversFree) {
    for (const std::string trigger : {"fu", "su", "S", "r", "R", "E"}) {
        for (const SReaction& reaction : Reactions) {
            SCOPED_TRACE(trigger + ": " + reaction.name);
            Stage stage;
            stage.events.action = [&, engine = &stage.engine()](ISound* sound) {
                SCall call = {*engine, stage, sound};
                reaction.react(call);
            };
            stage.run(trigger);
            if (stage.driver) {
                stage.run("SS"); // what is left, such as what receivers played
                EXPECT_FALSE(stage.engine().isCurrentlyPlaying("a"));
                EXPECT_FALSE(stage.engine().isCurrentlyPlaying("b"));
            }
            EXPECT_TRUE(stage.hasEachEventOnce());
        }
    }
    EXPECT_EQ(CScriptedSound::alive, 0);
}

TEST(StopEvents, OfNestedRemovalsReportTheRemoval) {
    for (const char* removal : {"r", "R"}) {
        Stage stage;
        stage.events.action = [&](ISound*) {
            stage.events.action = nullptr;
            stage.run(removal);
        };
        stage.run("fu");
        EXPECT_EQ(stage.events.causes(), "022");
    }
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
}

TEST(StopEvents, ComeWhileRendering) {
    const OfflineEngine engine = offlineEngine();
    CStopEvents events;
    const Sound sound = playTracked(*engine.get(), addSquareWave(*engine.get(), "w", 600));
    sound->setSoundStopEventReceiver(&events, &events);
    rendered(*engine.get(), 512);
    EXPECT_EQ(events.causes(), "");
    rendered(*engine.get(), 257); // the third buffer ends the sound, before the fourth it is reaped
    EXPECT_EQ(events.causes(), "0");
    EXPECT_EQ(events.events[0].sound, sound.get());
}

} // namespace

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/CScriptedFile.h"
#include "tests/support/engine_helpers.h"
#include "tests/support/ramp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace {

using namespace sn_test;
using namespace sonimbra;

/// A stream that keeps its file open, as real decoders do.
class CFileStream : public CScriptedStream {
public:
    CFileStream(const SAudioStreamFormat& format, IFileReader& file)
        : CScriptedStream(format, rampBytes(format, 0, format.FrameCount)),
          File(sn_internal::counted_ptr<IFileReader>::share(&file)) {}

private:
    const sn_internal::counted_ptr<IFileReader> File;
};

/// One of everything that an application can hold, each to be let go on its own.
struct SHoldings {
    SHoldings() {
        addFactory(*engine.get(), "f.own", {1, 2, 3});
        addLoader(*engine.get(), ".own", [](IFileReader& reader) {
            return new CFileStream(streamFormat(2, 5000, 22050), reader);
        });
        sources[0] = Source::share(addSquareWave(*engine.get(), "base", 5000));
        sources[1] = Source::share(engine->addSoundSourceAlias(sources[0].get(), "alias"));
        sources[2] =
            Source::share(engine->addSoundSourceFromFile("f.own", E_STREAM_MODE::Streaming));
        for (int i = 0; i < 2; ++i) {
            sounds[i] = playTracked(*engine.get(), sources[1 + i].get(), true);
            sounds[i]->setSoundStopEventReceiver(&events);
        }
    }

    void letGo(int which) {
        if (which == 0) {
            engine.reset();
        } else if (which <= 3) {
            sources[which - 1].reset();
        } else {
            sounds[which - 4].reset();
        }
    }

    /// Whatever is still held answers.
    void use() {
        for (const Source& source : sources) {
            if (source) {
                useSource(*source.get());
            }
        }
        for (const Sound& sound : sounds) {
            if (sound) {
                sound->setPosition(vec3df(1, 2, 3));
                EXPECT_EQ(sound->isFinished(), !engine);
                EXPECT_EQ(sound->getSoundSource() == nullptr, !engine);
                EXPECT_EQ(sound->setPlayPosition(10), bool(engine));
            }
        }
        if (engine) {
            rendered(*engine.get(), 300);
        }
    }

    void useSource(ISoundSource& source) {
        source.getPlayLength();
        source.forceReloadAtNextUse();
        EXPECT_GT(source.getDefaultMinDistance(), 0.0f);
        EXPECT_EQ(bool(Sound::adopt(source.createSound(nullptr, false, true, false, 1, 2))),
                  engine && &source != sources[2].get());
    }

    CStopEvents events;
    Source sources[3]; ///< a base, its alias, a file that is streamed
    Sound sounds[2];   ///< of the alias and of the file
    OfflineEngine engine = offlineEngine();
};

TEST(Lifetime, EverythingMayGoInAnyOrder) {
    int order[6];
    std::iota(std::begin(order), std::end(order), 0);
    do {
        SHoldings holdings;
        for (const int which : order) {
            holdings.letGo(which);
            holdings.use();
        }
        ASSERT_EQ(holdings.events.causes(), "22");
        ASSERT_EQ(CScriptedStream::alive, 0);
        ASSERT_EQ(CScriptedFile::alive, 0);
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST(Lifetime, RemovedSourcesStopWhatTheyPlay) {
    SHoldings holdings;
    holdings.engine->removeSoundSource("f.own");
    EXPECT_EQ(holdings.events.causes(), "2");
    EXPECT_EQ(CScriptedStream::alive, 0) << "the decoder went with the sound's buffer";
    EXPECT_EQ(CScriptedFile::alive, 0);
    EXPECT_TRUE(holdings.engine->isCurrentlyPlaying("base"));
}

TEST(Lifetime, ReceiversMayUseAnEngineThatGoes) {
    OfflineEngine engine = offlineEngine();
    CStopEvents events;
    std::string driver;
    bool acceptsReceivers = false;
    std::int32_t frames = -1;
    events.action = [&, raw = engine.get()](ISound*) {
        std::int16_t target[600];
        driver = raw->getDriverName();
        acceptsReceivers = raw->setMixedDataOutputReceiver(nullptr);
        frames = raw->renderFrames(target, 300);
    };
    const Sound sound = playTracked(*engine.get(), addSquareWave(*engine.get(), "w", 1000));
    sound->setSoundStopEventReceiver(&events);
    engine.reset();
    EXPECT_EQ(events.causes(), "2");
    EXPECT_EQ(driver, "Offline");
    EXPECT_TRUE(acceptsReceivers);
    EXPECT_EQ(frames, 300);
}

} // namespace

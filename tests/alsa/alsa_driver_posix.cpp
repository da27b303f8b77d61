// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// The ALSA driver's calls of the system, in their order, and its way through their failures.

#include "drivers/software/CSonimbraALSASoundEngine.h"
#include "io/CFileSystem.h"
#include "tests/alsa/scripted_pcm_posix.h"
#include "tests/support/log_capture.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using namespace sn_test;
using sn_internal::counted_ptr;
using std::chrono::milliseconds;
sn_internal::CSonimbraALSASoundEngine::CClock::time_point Now;

std::string writes(int count) {
    return count == 0 ? "" : "write:256 " + writes(count - 1);
}

std::string startCalls(const std::string& name, long queueFrames = 8192) {
    return "open:" + name +
           " any access:3 format:2 channels:2 rate:44100 buffer:8192 period:256 hardware "
           "current start:" +
           std::to_string(queueFrames) + " software ";
}

class ALSADriver : public testing::Test {
protected:
    void SetUp() override { restart(); }

    /// A new engine on a device as good as new.
    void restart(long bufferFrames = 8192) {
        Driver.reset();
        Device = {};
        Device.bufferFrames = bufferFrames;
        Driver = Engine::adopt(new sn_internal::CSonimbraALSASoundEngine(
            Files.get(), sonimbra::PrintDebugInfoToStdOut, nullptr, [] { return Now; }));
        EXPECT_EQ(startCalls("default", std::min(bufferFrames / 256 * 256, 8192L)), journal());
    }
    static std::string journal() { return std::exchange(Device.journal, ""); }
    /// The calls of an update, and behind them what it logs.
    std::string update(milliseconds later = milliseconds(0)) {
        Now += later;
        const std::string log = standardOutputOf([&] { Driver->update(); });
        return journal() + log;
    }

    const counted_ptr<sn_internal::io::IFileSystem> Files =
        counted_ptr<sn_internal::io::IFileSystem>::adopt(new sn_internal::io::CFileSystem);
    Engine Driver;
};

TEST_F(ALSADriver, FailsToStartWhereAnyCallFails) {
    const int options = sonimbra::MultiThreaded | sonimbra::PrintDebugInfoToStdOut;
    std::istringstream calls(startCalls("x"));
    std::string made;
    for (std::string call; calls >> call; journal()) {
        made += call + " ";
        Device.answers[call.substr(0, call.find(':'))] = {-ENODEV};
        const std::string log = standardOutputOf([] {
            EXPECT_EQ(nullptr, sonimbra::createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::ALSA,
                                                              options, "x"));
        });
        const bool isOpen = made != "open:x ";
        EXPECT_EQ(isOpen ? "Could not set up ALSA device for 16-bit stereo: x: No such device"
                         : "Could not start up ALSA device: x: No such device",
                  linesOf(log).back());
        EXPECT_EQ(made + (isOpen ? "close " : ""), Device.journal);
    }
}

TEST_F(ALSADriver, FillsTheQueueAndGoesOnAfterInterruptions) {
    const struct {
        Answers answers;
        std::string calls, nextCalls; ///< of the next two updates
        bool hasGap = false;
    } cases[] = {
        {{}, "avail " + writes(2), "avail "},
        {{{"write", {100, -EAGAIN}}}, "avail write:256 write:156 ", "avail write:156 write:256 "},
        {{{"avail", {-EPIPE}}}, "avail prepare avail " + writes(32), "avail "},
        {{{"avail", {-EPIPE, -EPIPE}}}, "avail prepare avail ", "avail " + writes(32)},
        {{{"write", {-EPIPE}}}, "avail write:256 prepare avail " + writes(32), "avail "},
        {{{"avail", {-ESTRPIPE, -ESTRPIPE}}, {"resume", {-EAGAIN}}},
         "avail resume ",
         "avail resume avail " + writes(2)},
        {{{"avail", {-ESTRPIPE}}, {"resume", {-ENOSYS}}},
         "avail resume prepare avail " + writes(32),
         "avail "},
        {{{"avail", {-EINTR}}}, "avail ", "avail " + writes(2)},
        {{{"avail", {-EPIPE, -ESTRPIPE}}, {"prepare", {-ESTRPIPE}}},
         "avail prepare ",
         "avail resume avail " + writes(32)},
        {{{"write", {100, -ESTRPIPE}}},
         "avail write:256 write:156 resume avail write:156 write:256 ",
         "avail "},
        {{{"write", {100, -EPIPE}}},
         "avail write:256 write:156 prepare avail " + writes(32),
         "avail ",
         true},
    };
    for (const auto& test : cases) {
        restart();
        const OfflineEngine offline = offlineEngine(sonimbra::PrintDebugInfoToStdOut);
        playRecording(*Driver.get(), counting(90000));
        playRecording(*offline.get(), counting(90000));
        EXPECT_EQ("avail " + writes(32), update());
        Device.play(700);
        Device.answers = test.answers;
        EXPECT_EQ(test.calls, update());
        EXPECT_EQ(test.nextCalls, update());
        const auto frames = static_cast<std::int32_t>(Device.played.size() / 2);
        EXPECT_TRUE(test.hasGap || areSameFrames(Device.played, rendered(*offline.get(), frames)));
        Device.play(1);
    }
    for (const long bufferFrames : {1000, 20000}) {
        restart(bufferFrames);
        EXPECT_EQ("avail " + writes(bufferFrames == 1000 ? 3 : 32), update());
    }
}

TEST_F(ALSADriver, TriesALostDeviceOnceASecond) {
    const struct {
        Answers answers;
        std::string calls, reason;
    } cases[] = {
        {{{"avail", {-ENODEV}}}, "avail ", "No such device"},
        {{{"write", {-EIO}}}, "avail write:256 ", "Input/output error"},
        {{{"avail", {-EPIPE}}, {"prepare", {-EIO}}}, "avail prepare ", "Input/output error"},
    };
    for (const auto& test : cases) {
        restart();
        Device.answers = test.answers;
        EXPECT_EQ(test.calls + "free close ALSA device lost, playing on without it: default: " +
                      test.reason + "\n",
                  update());
        Device.answers = {{"open", {-ENODEV}}, {"any", {-EINVAL}}};
        for (const char* const calls : {"open:default ", "open:default any close "}) {
            EXPECT_EQ("", update(milliseconds(999)));
            EXPECT_EQ(calls, update(milliseconds(1)));
        }
        EXPECT_EQ(startCalls("default") + "avail " + writes(32), update(milliseconds(1000)));
        Device.play(256);
        EXPECT_EQ("avail write:256 ALSA device is back: default\n", update());
    }
}

TEST_F(ALSADriver, GivesUpADeviceThatHangs) {
    const std::string opened = startCalls("default") + "avail " + writes(32);
    update();
    EXPECT_EQ("avail ", update());
    EXPECT_EQ("avail ", update(milliseconds(1999)));
    EXPECT_EQ("avail free close ALSA device lost, playing on without it: default: "
              "Connection timed out\n",
              update(milliseconds(1)));
    EXPECT_EQ(opened, update(milliseconds(1000)));
    EXPECT_EQ("avail ", update());
    EXPECT_EQ("avail free close ", update(milliseconds(2000)));
    EXPECT_EQ("", update(milliseconds(19999))); // ten times as long as the last try took
    EXPECT_EQ(opened, update(milliseconds(1)));
}

TEST_F(ALSADriver, SoundsGoOnInRealTimeWithoutTheDevice) {
    CStopEvents events;
    events.action = [](sonimbra::ISound*) { Device.journal += "stop event "; };
    Device.answers = {{"avail", {-ENODEV}}, {"open", {-ENODEV}}};
    update();
    const Sound ending = playRecording(*Driver.get(), constant(1, 22050));
    const Sound staying = playRecording(*Driver.get(), constant(1, 44100), true);
    ending->setSoundStopEventReceiver(&events);
    staying->setSoundStopEventReceiver(&events);
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ("", update(milliseconds(50)));
    }
    EXPECT_EQ("stop event ", update());
    EXPECT_NEAR(550, staying->getPlayPosition(), 6);
    update(milliseconds(10000)); // as much as a queue holds, and no more
    EXPECT_NEAR(550 + 186, staying->getPlayPosition(), 6);
    update(milliseconds(1000));
    journal();
    Driver.reset();
    EXPECT_EQ("stop event close ", journal());
}

} // namespace

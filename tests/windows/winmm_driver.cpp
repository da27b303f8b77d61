// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

/// The WinMM driver's calls of the system, in their order, and its way through their failures.

#include "tests/support/log_capture.h"
#include "tests/support/mixer_pair.h"
#include "tests/windows/winmm_scripted.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace sn_test;

constexpr int HeaderCount = 32;

/// The journal of some calls on each header: "prepare 0", "write 0", "prepare 1", ...
Lines callsOnEach(const Lines& calls) {
    Lines journal;
    for (int header = 0; header < HeaderCount; ++header) {
        for (const std::string& call : calls) {
            journal.push_back(call + " " + std::to_string(header));
        }
    }
    return journal;
}

/// An engine on a scripted device.
class WinMMDriver : public testing::Test {
protected:
    Lines create(int options = 0) {
        return linesOf(standardOutputOf([&] {
            Driver = Engine::adopt(
                sonimbra::createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::WinMM,
                                               options | sonimbra::PrintDebugInfoToStdOut));
        }));
    }
    void TearDown() override {
        Driver.reset();
        EXPECT_EQ(Lines{}, Device.mistakes);
    }

    CScriptedWaveOut Device;
    Engine Driver;
};

TEST_F(WinMMDriver, OpensTheDefaultDeviceInTheMixersFormat) {
    EXPECT_EQ((Lines{"Sonimbra sound library version 1.5.0", "Using winMM driver"}), create());
    EXPECT_STREQ("winMM", Driver->getDriverName());
    EXPECT_EQ(Lines{"open"}, Device.takeJournal());
    const WAVEFORMATEX expected = {1, 2, 44100, 176400, 4, 16, 18};
    EXPECT_EQ(0, std::memcmp(&expected, &Device.format, sizeof(expected)));
}

TEST_F(WinMMDriver, RefillsWhatTheDeviceHasPlayedInTheOrderOfTheHeaders) {
    create();
    Device.takeJournal();
    Driver->update();
    EXPECT_EQ(callsOnEach({"prepare", "write"}), Device.takeJournal());
    EXPECT_TRUE(areSameFrames(Device.played, Frames16(2 * HeaderCount * 256, 0)));
    Driver->update();
    EXPECT_EQ(Lines{}, Device.takeJournal());
    Device.play(7);
    Device.play(3);
    Driver->update();
    EXPECT_EQ((Lines{"unprepare 3", "prepare 3", "write 3", "unprepare 7", "prepare 7", "write 7"}),
              Device.takeJournal());
    const Sound sound = playRecording(*Driver.get(), constant(9, 9000));
    Device.played.clear();
    Device.playAll();
    Driver->update();
    EXPECT_EQ(callsOnEach({"unprepare", "prepare", "write"}), Device.takeJournal());
    EXPECT_TRUE(areSameFrames(Device.played, Frames16(2 * HeaderCount * 256, 9)));
}

TEST_F(WinMMDriver, ShutsDownInOrder) {
    for (const int updates : {0, 1}) {
        create();
        CStopEvents events;
        events.action = [&](sonimbra::ISound*) { Device.note("stop event"); };
        const Sound sound = playRecording(*Driver.get(), counting(90000));
        sound->setSoundStopEventReceiver(&events);
        for (int i = 0; i < updates; ++i) {
            Driver->update();
        }
        Device.takeJournal();
        Driver.reset();
        Lines expected = callsOnEach({"unprepare"});
        expected.insert(expected.begin(), {"stop event", "reset"});
        expected.push_back("close");
        EXPECT_EQ(expected, Device.takeJournal());
    }
}

struct SErrorCase {
    MMRESULT code;
    const char* text;
};

const SErrorCase ErrorCases[] = {
    {2, "Specified device identifier is out of range."},
    {4, "Specified resource is already allocated."},
    {5, "Specified device handle is invalid."},
    {6, "No device driver is present."},
    {7, "Unable to allocate or lock memory."},
    {32, "Attempted to open with an unsupported waveform-audio format."},
    {34, "The data block hasn't been prepared."},
    {35, "The device is synchronous but waveOutOpen was called without using the WAVE_ALLOWSYNC "
         "flag."},
    {1, "1"},
    {1234567, "1234567"},
};

TEST_F(WinMMDriver, DoesNotStartWithoutADevice) {
    for (const SErrorCase& error : ErrorCases) {
        Device.fail("open", error.code);
        EXPECT_EQ((Lines{"Sonimbra sound library version 1.5.0",
                         std::string("Could not start up winMM device: ") + error.text}),
                  create(error.code % 2 == 0 ? int(sonimbra::MultiThreaded) : 0));
        EXPECT_FALSE(Driver) << error.code;
        EXPECT_EQ(Lines{"open"}, Device.takeJournal()) << error.code;
    }
}

struct SFailureCase {
    const char* call;
    MMRESULT code;
    Lines log;
    std::string laterCalls; ///< on that header, in the next update and at the end
    Lines endLog;
};

/// The calls on header 3, as their initials.
std::string onHeader3(const Lines& journal) {
    std::string initials;
    for (const std::string& line : journal) {
        if (line.ends_with(" 3")) {
            initials += line[0];
        }
    }
    return initials;
}

/// A failing header takes no other with it. One that the device never gets stays where it is.
TEST_F(WinMMDriver, FailuresDoNotStopTheOtherHeaders) {
    const std::string unprepared = "The data block hasn't been prepared.";
    const SFailureCase cases[] = {
        {"unprepare 3",
         34,
         {"could not unprepare for update: " + unprepared},
         "upwu",
         {"could not free header: " + unprepared}},
        {"prepare 3",
         7,
         {"could not prepare for update: Unable to allocate or lock memory.",
          "could not write wave for update: " + unprepared},
         "",
         {}},
        {"write 3", 33, {"could not write wave for update: 33"}, "u", {}},
    };
    for (const SFailureCase& test : cases) {
        CScriptedWaveOut device;
        create();
        Driver->update();
        device.playAll();
        device.takeJournal();
        device.fail(test.call, test.code);
        EXPECT_EQ(test.log, linesOf(standardOutputOf([&] { Driver->update(); }))) << test.call;
        EXPECT_EQ(callsOnEach({"unprepare", "prepare", "write"}), device.takeJournal());
        device.playAll();
        standardOutputOf([&] { Driver->update(); });
        EXPECT_EQ(test.endLog, linesOf(standardOutputOf([&] { Driver.reset(); }))) << test.call;
        const Lines journal = device.takeJournal();
        EXPECT_EQ(test.laterCalls, onHeader3(journal)) << test.call;
        EXPECT_EQ(4u * (HeaderCount - 1) + test.laterCalls.size() + 2, journal.size());
        EXPECT_EQ(Lines{}, device.mistakes) << test.call;
    }
}

} // namespace

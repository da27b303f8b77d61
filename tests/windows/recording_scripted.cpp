// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/windows/capture_scripted.h"

#include <process.h>

namespace {

using namespace sn_test;
using namespace sonimbra;
using EDriver = E_SOUND_OUTPUT_DRIVER;
using Recorder = sn_internal::counted_ptr<IAudioRecorder>;

bool IsScripting = false;
HANDLE Thread = nullptr; ///< the last that was made
std::atomic<int> Waits = 0;

bool allows(const char* call) {
    Script.Journal += call;
    return Script.Calls++ != Script.Failing;
}
HANDLE WINAPI makeEvent(SECURITY_ATTRIBUTES* security, BOOL manual, BOOL set, const char*) {
    return !IsScripting || allows("event;") ? CreateEventW(security, manual, set, nullptr)
                                            : nullptr;
}
/// One that may not be resumed stays suspended.
std::uintptr_t __cdecl makeThread(void*, unsigned, _beginthreadex_proc_type body, void* argument,
                                  unsigned flags, unsigned* id) {
    if (IsScripting && !allows("thread;")) {
        return 0;
    }
    const auto entry = reinterpret_cast<LPTHREAD_START_ROUTINE>(body);
    HANDLE thread = CreateThread(nullptr, 0, entry, argument, flags, reinterpret_cast<DWORD*>(id));
    if (const HANDLE self = GetCurrentProcess(); IsScripting) {
        DuplicateHandle(self, thread, self, &Thread, 0, FALSE, DUPLICATE_SAME_ACCESS);
        if (!allows("resume;")) {
            DuplicateHandle(self, thread, self, &thread, THREAD_TERMINATE, 0,
                            DUPLICATE_CLOSE_SOURCE);
        }
    }
    return reinterpret_cast<std::uintptr_t>(thread);
}
DWORD WINAPI wait(DWORD count, const HANDLE* events, BOOL all, DWORD timeout, DWORD input) {
    ++Waits;
    EXPECT_TRUE(!all && timeout == INFINITE && input == QS_ALLINPUT);
    return MsgWaitForMultipleObjectsEx(count, events, timeout, input, 0);
}
bool hasThreadEnded() {
    const HANDLE thread = std::exchange(Thread, nullptr);
    return thread == nullptr || (WaitForSingleObject(thread, 9999) == 0 && CloseHandle(thread));
}

/// The system hands out the lowest that are free: one that stays open moves the eighth up.
HANDLE eighthHandle() {
    HANDLE handles[8];
    for (HANDLE& handle : handles) {
        handle = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    }
    std::for_each(std::begin(handles), std::end(handles), CloseHandle);
    return handles[7];
}

} // namespace

// Calls of a function in a DLL go through a pointer of this name; on 32-bit Windows it has others.
decltype(&makeEvent) MakeEvent __asm__("__imp_CreateEventA") = makeEvent;
decltype(&makeThread) MakeThread __asm__("__imp__beginthreadex") = makeThread;
decltype(&wait) Wait __asm__("__imp_MsgWaitForMultipleObjects") = wait;

namespace {

const char* const NoEvents = "Could not create notification events for audio capturing.\n";

/// What is logged when one of the calls of a start fails.
const char* const Problems[] = {
    "",       "Could not get sound notify interface for audio capturing.\n", NoEvents, NoEvents,
    NoEvents, "Could not set sound notify positions for audio capturing.\n", "",       "",
    ""};

/// Both DirectSound recorders on scripted objects.
class CaptureDriver : public testing::TestWithParam<EDriver> {
protected:
    CaptureDriver() { IsScripting = true; }
    ~CaptureDriver() override { IsScripting = false; }
    Recorder create(ISoundEngine* engine) {
        return Recorder::adopt(createSonimbraAudioRecorder(engine, GetParam(), "no such device"));
    }
    void record(IAudioRecorder& recorder) {
        const HANDLE eighth = eighthHandle();
        const auto step = static_cast<std::size_t>(Script.Failing - Script.Calls);
        const bool isOn = step >= std::size(Problems);
        EXPECT_EQ(isOn ? "" : Problems[step], standardOutputOf([&] {
                      EXPECT_EQ(isOn, recorder.startRecordingBufferedAudio(
                                          44100, E_SAMPLE_FORMAT::Signed16Bit, 2));
                  }));
        EXPECT_EQ(isOn, recorder.isRecording());
        for (int bytes = 70000; isOn && bytes > 0; bytes -= 30000) {
            EXPECT_EQ(THREAD_PRIORITY_ABOVE_NORMAL, GetThreadPriority(Thread));
            SScriptedCapture::Last->hear(Bytes(std::size_t(bytes)));
        }
        const int stopping = Script.Failing - Script.Calls;
        recorder.stopRecordingAudio();
        const bool isTailLost = stopping == 1 || stopping == 2; // its position and its lock
        EXPECT_TRUE(!isOn || recorder.getAudioFormat().FrameCount == (isTailLost ? 27500 : 30000));
        EXPECT_FALSE(recorder.isRecording());
        EXPECT_TRUE(hasThreadEnded());
        EXPECT_GE(eighth, eighthHandle()) << "a handle stayed open";
    }
    SScriptedCaptures Com{GetParam() == EDriver::DirectSound8 ? CLSID_DirectSoundCapture8
                                                              : CLSID_DirectSoundCapture};
};

INSTANTIATE_TEST_SUITE_P(, CaptureDriver,
                         testing::Values(EDriver::DirectSound8, EDriver::DirectSound));

/// Each call fails in turn; in the end none does.
TEST_P(CaptureDriver, CallsTheSystemInOrderAndLeavesNothingBehindWhenItFails) {
    const Engine engine = nullEngine();
    const CInstalledLogger logger;
    for (int failing = 0; Script.Calls >= failing; ++failing) {
        SCOPED_TRACE(failing);
        Script = {};
        Script.Failing = failing;
        const Recorder recorder = create(engine.get());
        EXPECT_EQ(failing == 0, !recorder);
        for (int i = 0; recorder && i < 2; ++i) {
            record(*recorder.get());
        }
    }
    const std::string recording =
        "device Create 0 0 176400 1 2 44100 4 16 0;buffer Query;event;event;event;"
        "notify Set 2 0 88200;thread;resume;buffer Start 1;notify freed;buffer At 1;"
        "buffer Lock 0 110000;buffer Unlock 0 110000 1 0;buffer Stop;buffer At 1;"
        "buffer Lock 110000 10000;buffer Unlock 110000 10000 1 0;buffer freed;";
    EXPECT_EQ("COM Create;device Initialize 1;" + recording + recording + "device freed;",
              Script.Journal);
}

/// The buffer, of 1000 frames, is read behind its notifications: also over its end. In the end the
/// recorder is dropped while it records.
TEST_P(CaptureDriver, RecordsEveryByteOnceInOrder) {
    OfflineEngine engine = offlineEngine();
    Recorder recorder = create(engine.get());
    EXPECT_STREQ(GetParam() == EDriver::DirectSound8 ? "DirectSound8" : "DirectSound",
                 recorder->getDriverName());
    auto receiver = sn_internal::counted_ptr<SReceiver>::adopt(new SReceiver);
    for (int i = 0; i < 4; ++i) {
        const SAudioStreamFormat format = streamFormat(1 + i % 2, 2400, 1000, 8 + i / 2 * 8);
        const Bytes ramp = rampBytes(format, 0, 2400);
        const auto hear = [&](bool isStarted) {
            EXPECT_TRUE(isStarted);
            for (int from = 0; from < 2400; from += 400) {
                SScriptedCapture::Last->hear(rampBytes(format, from, 400));
            }
        };
        receiver->Received.clear();
        Waits = 0;
        hear(recorder->startRecordingWithReceiver(receiver.get(), 1000, format.SampleFormat,
                                                  format.ChannelCount));
        EXPECT_TRUE(recorder->startRecording(1000, format.SampleFormat, format.ChannelCount));
        EXPECT_EQ(ramp, receiver->Received) << "with what the first recording ended";
        hear(recorder->startRecordingBufferedAudio(1000, format.SampleFormat, format.ChannelCount));
        EXPECT_TRUE(PostThreadMessageA(GetThreadId(Thread), WM_NULL, 0, 0));
        EXPECT_TRUE(waitFor([] { return Waits >= 12; }));
        Sleep(20);
        recorder->stopRecordingAudio();
        EXPECT_EQ(12, Waits) << "3 starts, 8 notifications, a message nobody reads";
        EXPECT_EQ(1000, recorder->getAudioFormat().SampleRate);
        ASSERT_EQ(2400, recorder->getAudioFormat().FrameCount);
        const auto* const kept = static_cast<const std::uint8_t*>(recorder->getRecordedAudioData());
        EXPECT_EQ(ramp, Bytes(kept, kept + ramp.size()));
    }
    for (const int channels : {65537, -65535, 32768}) {
        EXPECT_FALSE(recorder->startRecording(1000, E_SAMPLE_FORMAT::Signed16Bit, channels));
    }
    receiver->Received.clear();
    EXPECT_TRUE(recorder->startRecordingWithReceiver(receiver.get()));
    SScriptedCapture::Last->hear(Bytes(100));
    EXPECT_FALSE(engine.release()->drop()) << "the recorder has a reference";
    EXPECT_TRUE(recorder.release()->drop());
    EXPECT_TRUE(hasThreadEnded());
    EXPECT_EQ(Bytes(100), receiver->Received);
    EXPECT_TRUE(receiver.release()->drop());
}

} // namespace

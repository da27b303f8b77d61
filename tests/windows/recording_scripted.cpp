// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_helpers.h"
#include "tests/support/log_capture.h"
#include "tests/windows/capture_scripted.h"

#include <set>

#include <process.h>

namespace {

using namespace sn_test;
using namespace sonimbra;
using EDriver = E_SOUND_OUTPUT_DRIVER;
using Recorder = sn_internal::counted_ptr<IAudioRecorder>;

bool IsScripting = false;
HANDLE Thread = nullptr; ///< the last that was made

bool allows(const char* call) {
    if (!IsScripting) {
        return true;
    }
    Script.Journal += call;
    return Script.Calls++ != Script.Failing;
}
HANDLE WINAPI makeEvent(SECURITY_ATTRIBUTES* security, BOOL manual, BOOL set, const char*) {
    return allows("event;") ? CreateEventW(security, manual, set, nullptr) : nullptr;
}
std::uintptr_t __cdecl makeThread(void*, unsigned, _beginthreadex_proc_type body, void* argument,
                                  unsigned flags, unsigned* id) {
    if (!allows("thread;")) {
        return 0;
    }
    const auto entry = reinterpret_cast<LPTHREAD_START_ROUTINE>(body);
    const HANDLE thread =
        CreateThread(nullptr, 0, entry, argument, flags, reinterpret_cast<DWORD*>(id));
    if (const HANDLE self = GetCurrentProcess(); IsScripting) {
        DuplicateHandle(self, thread, self, &Thread, 0, FALSE, DUPLICATE_SAME_ACCESS);
    }
    return reinterpret_cast<std::uintptr_t>(thread);
}
bool hasThreadEnded() {
    const HANDLE thread = std::exchange(Thread, nullptr);
    return thread == nullptr || (WaitForSingleObject(thread, 9999) == 0 && CloseHandle(thread));
}

/// The system hands out the lowest that is free: one that stays open moves it up.
HANDLE nextHandle() {
    const HANDLE handle = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(handle);
    return handle;
}

} // namespace

// Calls of a function in a DLL go through a pointer of this name; on 32-bit Windows it has others.
decltype(&makeEvent) MakeEvent __asm__("__imp_CreateEventA") = makeEvent;
decltype(&makeThread) MakeThread __asm__("__imp__beginthreadex") = makeThread;

namespace {

/// Both DirectSound recorders on scripted objects.
class CaptureDriver : public testing::TestWithParam<EDriver> {
protected:
    void SetUp() override { IsScripting = true; }
    void TearDown() override { IsScripting = false; }
    IAudioRecorder* create(ISoundEngine* engine) {
        return createSonimbraAudioRecorder(engine, GetParam(), "no such device");
    }
    void record(IAudioRecorder& recorder) {
        if (recorder.startRecordingBufferedAudio(44100, E_SAMPLE_FORMAT::Signed16Bit, 2)) {
            EXPECT_EQ(THREAD_PRIORITY_ABOVE_NORMAL, GetThreadPriority(Thread));
            SScriptedCapture::Last->hear(Bytes(70000));
            SScriptedCapture::Last->hear(Bytes(30000));
        }
        recorder.stopRecordingAudio();
        EXPECT_FALSE(recorder.isRecording());
        EXPECT_TRUE(hasThreadEnded());
    }
    SScriptedCaptures Com{GetParam() == EDriver::DirectSound8 ? CLSID_DirectSoundCapture8
                                                              : CLSID_DirectSoundCapture};
};

INSTANTIATE_TEST_SUITE_P(, CaptureDriver,
                         testing::Values(EDriver::DirectSound8, EDriver::DirectSound));

/// Each call fails in turn; in the end none does.
TEST_P(CaptureDriver, CallsTheSystemInOrderAndLeavesNothingBehindWhenItFails) {
    std::set<std::string> told;
    std::set<HANDLE> next;
    for (int failing = 0; Script.Calls >= failing; ++failing) {
        Script = {};
        Script.Failing = failing;
        const Lines log = linesOf(standardOutputOf([&] {
            const Engine engine = nullEngine(PrintDebugInfoToStdOut);
            if (const Recorder recorder = Recorder::adopt(create(engine.get()))) {
                record(*recorder.get());
                record(*recorder.get());
            }
        }));
        told.insert(log.begin(), log.end());
        if (failing > 0) { // COM keeps some
            next.insert(nextHandle());
        }
    }
    EXPECT_EQ(1u, next.size()) << "a handle stayed open";
    EXPECT_EQ(2u + 3, told.size()) << testing::PrintToString(told);
    const std::string recording =
        "device Create 0 0 176400 1 2 44100 4 16 0;buffer Query;event;event;event;"
        "notify Set 2 0 88200;thread;buffer Start 1;notify freed;buffer At 1;buffer Lock 0 100000;"
        "buffer Unlock 100000 0;buffer Stop;buffer At 1;buffer Lock 100000 0;buffer Unlock 0 0;"
        "buffer freed;";
    EXPECT_EQ("COM Create;device Initialize 1;" + recording + recording + "device freed;",
              Script.Journal);
}

struct SReceiver final : IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override {
        const auto* const bytes = static_cast<const std::uint8_t*>(data);
        Received.insert(Received.end(), bytes, bytes + byteCount);
        EXPECT_GT(byteCount, 0);
    }
    Bytes Received;
};

/// A message that nobody reads does not keep it awake either.
void expectSleep() {
    FILETIME times[4] = {};
    EXPECT_TRUE(PostThreadMessageA(GetThreadId(Thread), WM_NULL, 0, 0));
    Sleep(300);
    EXPECT_TRUE(GetThreadTimes(Thread, times, times + 1, times + 2, times + 3));
    EXPECT_GT(500000u, times[2].dwLowDateTime + times[3].dwLowDateTime) << "50 ms";
}

/// The buffer, of 1000 frames, is read behind its notifications: also over its end.
TEST_P(CaptureDriver, RecordsEveryByteOnceInOrder) {
    const OfflineEngine engine = offlineEngine();
    const Recorder recorder = Recorder::adopt(create(engine.get()));
    const auto receiver = sn_internal::counted_ptr<SReceiver>::adopt(new SReceiver);
    for (int i = 0; i < 4; ++i) {
        const SAudioStreamFormat format = streamFormat(1 + i % 2, 2480, 1000, 8 + i / 2 * 8);
        const Bytes ramp = rampBytes(format, 0, 2480);
        const auto hear = [&] {
            for (const int from : {0, 400, 800, 1200, 1600, 2000, 2400}) {
                SScriptedCapture::Last->hear(rampBytes(format, from, std::min(400, 2480 - from)));
            }
        };
        receiver->Received.clear();
        EXPECT_TRUE(recorder->startRecordingWithReceiver(receiver.get(), 1000, format.SampleFormat,
                                                         format.ChannelCount));
        hear();
        EXPECT_TRUE(
            recorder->startRecordingBufferedAudio(1000, format.SampleFormat, format.ChannelCount));
        EXPECT_EQ(ramp, receiver->Received) << "with what the first recording ended";
        hear();
        expectSleep();
        recorder->stopRecordingAudio();
        ASSERT_EQ(2480, recorder->getAudioFormat().FrameCount);
        const auto* const kept = static_cast<const std::uint8_t*>(recorder->getRecordedAudioData());
        EXPECT_EQ(ramp, Bytes(kept, kept + ramp.size()));
    }
}

/// Each ends with its last reference: the recorder has one on the engine and one on the receiver.
TEST_P(CaptureDriver, MayBeDroppedInEveryOrder) {
    int order[] = {0, 1, 2, 3};
    do {
        IOfflineSoundEngine* const engine = offlineEngine().release();
        IAudioRecorder* const recorder = create(engine);
        auto* const receiver = new SReceiver;
        record(*recorder);
        ISoundSource* const source = recorder->addSoundSourceFromRecordedAudio("recorded");
        source->grab();
        EXPECT_TRUE(recorder->startRecordingWithReceiver(receiver));
        const auto drop = [=](int which) {
            return which == 0   ? recorder->drop()
                   : which == 1 ? engine->drop()
                   : which == 2 ? receiver->drop()
                                : source->drop();
        };
        bool isGone[4] = {};
        for (const int next : order) {
            isGone[next] = true;
            EXPECT_EQ(isGone[0] && (next < 3 || isGone[1]), drop(next)) << next;
        }
        EXPECT_TRUE(hasThreadEnded());
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

} // namespace

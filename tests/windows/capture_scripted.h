// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/wait.h"
#include "tests/windows/directsound_scripted.h"

#include <atomic>

namespace sn_test {

/// A capture buffer that hears what a test plays to it. Two threads use the script, never at once,
/// because hearing waits for the capture thread.
struct SScriptedCapture final : SScriptedObject {
    explicit SScriptedCapture(const DSCBUFFERDESC& wanted)
        : SScriptedObject("buffer"), Memory(wanted.dwBufferBytes) {
        Last = this;
    }
    /// Less than half of the buffer. A notification comes late, after all of it.
    void hear(const Bytes& bytes) {
        const std::size_t half = Memory.size() / 2;
        const std::size_t before = Cursor / half;
        for (const std::uint8_t byte : bytes) {
            Memory[std::exchange(Cursor, (Cursor + 1) % Memory.size())] = byte;
        }
        if (Cursor / half != before) {
            const int count = Reads;
            SetEvent(Positions[Cursor / half].hEventNotify);
            EXPECT_TRUE(waitFor([&] { return Reads > count; }));
        }
    }
    struct SNotify final : SScriptedObject {
        using SScriptedObject::SScriptedObject;
        DOES(SetNotificationPositions, (DWORD count, const DSBPOSITIONNOTIFY* all),
             (Last->Positions.assign(all, all + count),
              note("Set", count, all[0].dwOffset, all[1].dwOffset)));
    };
    HRESULT WINAPI QueryInterface(REFIID, void** result) override {
        const HRESULT answer = note("Query");
        *result = FAILED(answer) ? nullptr : addScripted<SNotify>("notify");
        return answer;
    }
    /// Reading ends with the last of its calls, or with one that fails.
    HRESULT read(HRESULT answer, bool isLast = false) {
        Reads += isLast || FAILED(answer);
        return answer;
    }
    GAP(a)
    DOES(GetCurrentPosition, (DWORD * capture, DWORD* cursor),
         (*cursor = DWORD(Cursor), read(note("At", capture == nullptr))));
    GAP3(b)
    virtual HRESULT WINAPI Lock(DWORD offset, DWORD size, void** first, DWORD* firstSize,
                                void** second, DWORD* secondSize, DWORD) {
        *first = &Memory[offset];
        *firstSize = std::min(size, DWORD(Memory.size()) - offset);
        *second = Memory.data();
        *secondSize = size - *firstSize;
        return read(note("Lock", offset, size));
    }
    NOTES(Start, (DWORD flags), flags);
    NOTES(Stop, ());
    DOES(Unlock, (void* at, DWORD one, void* wrapped, DWORD two),
         read(note("Unlock", static_cast<std::uint8_t*>(at) - Memory.data(), one,
                   wrapped == Memory.data(), two),
              true));
    Bytes Memory;
    std::size_t Cursor = 0;
    std::vector<DSBPOSITIONNOTIFY> Positions;
    std::atomic<int> Reads = 0;
    static inline SScriptedCapture* Last = nullptr;
};

struct SScriptedCaptureDevice final : SScriptedObject {
    using SScriptedObject::SScriptedObject;
    virtual HRESULT WINAPI CreateCaptureBuffer(const DSCBUFFERDESC* wanted, void** result,
                                               IUnknown*) {
        const WAVEFORMATEX& f = *wanted->lpwfxFormat;
        const HRESULT answer = note("Create", wanted->dwSize - sizeof(*wanted), wanted->dwFlags,
                                    wanted->dwBufferBytes, f.wFormatTag, f.nChannels,
                                    f.nSamplesPerSec, f.nBlockAlign, f.wBitsPerSample, f.cbSize);
        *result = FAILED(answer) ? nullptr : addScripted<SScriptedCapture>(*wanted);
        return answer;
    }
    GAP(a) NOTES(Initialize, (const GUID* id), *id == GUID());
};

struct SReceiver final : sonimbra::IAudioRecorderReceiver {
    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override {
        const auto* const bytes = static_cast<const std::uint8_t*>(data);
        Received.insert(Received.end(), bytes, bytes + (LastSize = byteCount));
        EXPECT_GT(byteCount, 0);
        ++Blocks;
    }
    Bytes Received;
    std::int32_t LastSize = 0; ///< in bytes
    std::atomic<int> Blocks = 0;
};

using SScriptedCaptures = SScriptedCom<SScriptedCaptureDevice>;

} // namespace sn_test

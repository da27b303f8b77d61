// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/ramp.h"

#include <memory>
#include <sstream>

#include <dsound.h>

namespace sn_test {

/// Calls with their plain arguments, such as "b0 SetVolume -100;" for the first buffer, and ends of
/// objects, such as "b0.3d freed;". The objects stay, so that later calls are found.
struct SScript {
    std::string Journal;
    int Calls = 0;
    int Failing = -1; ///< the call, counted from 0, that answers with a failure
    std::vector<std::shared_ptr<void>> Objects;
    std::vector<struct SScriptedBuffer*> Buffers;
};
inline SScript Script;

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // as the system's interfaces are

// Functions at the places of the interfaces'; notes do nothing more, gaps are for nobody to call.
#define DOES(name, parameters, answer)                                                             \
    virtual HRESULT WINAPI name parameters {                                                       \
        return answer;                                                                             \
    }
#define NOTES(name, parameters, ...) DOES(name, parameters, note(#name __VA_OPT__(, ) __VA_ARGS__))
#define GAP(name) NOTES(name, ())
#define GAP3(name) GAP(name##0) GAP(name##1) GAP(name##2)

struct SScriptedObject : IUnknown {
    explicit SScriptedObject(std::string name) : Name(std::move(name)) {}
    ~SScriptedObject() { EXPECT_EQ(0u, References) << Name; }
    DOES(QueryInterface, (REFIID, void** result), (AddRef(), *result = this, S_OK));
    ULONG WINAPI AddRef() override { return ++References; }
    ULONG WINAPI Release() override {
        Script.Journal += References == 1 ? Name + " freed;" : "";
        return --References;
    }
    template <class... Args>
    HRESULT note(const char* function, const Args&... arguments) {
        std::ostringstream line;
        line << Name << ' ' << function;
        ((line << ' ' << arguments), ...);
        EXPECT_NE(0u, References) << line.str();
        Script.Journal += line.str() + ";";
        return Script.Calls++ == Script.Failing ? E_FAIL : S_OK;
    }
    const std::string Name;
    ULONG References = 1;
};

template <class T, class... Args>
T* addScripted(const Args&... arguments) {
    Script.Objects.push_back(std::make_shared<T>(arguments...));
    return static_cast<T*>(Script.Objects.back().get());
}

struct SScripted3DBuffer final : SScriptedObject {
    using SScriptedObject::SScriptedObject;
    GAP3(a) GAP3(b) GAP3(c) GAP3(d) GAP(e);
    NOTES(SetMaxDistance, (float d, DWORD when), d, when);
    NOTES(SetMinDistance, (float d, DWORD when), d, when);
    GAP(f) NOTES(SetPosition, (float x, float y, float z, DWORD when), x, y, z, when);
    NOTES(SetVelocity, (float x, float y, float z, DWORD when), x, y, z, when);
};

struct SScriptedListener final : SScriptedObject {
    using SScriptedObject::SScriptedObject;
    GAP3(a) GAP3(b) GAP(c) GAP(d);
    NOTES(SetDistanceFactor, (float f, DWORD when), f, when);
    NOTES(SetDopplerFactor, (float f, DWORD when), f, when);
    NOTES(SetOrientation, (float x, float y, float z, float u, float v, float w, DWORD d), x, y, z,
          u, v, w, d);
    NOTES(SetPosition, (float x, float y, float z, DWORD when), x, y, z, when);
    NOTES(SetRolloffFactor, (float f, DWORD when), f, when);
    NOTES(SetVelocity, (float x, float y, float z, DWORD when), x, y, z, when);
    NOTES(CommitDeferredSettings, ());
};

struct SScriptedBuffer final : SScriptedObject {
    SScriptedBuffer(const std::string& name, const WAVEFORMATEX& format,
                    const std::shared_ptr<Bytes>& memory)
        : SScriptedObject(name), Format(format), Memory(memory) {
        Script.Buffers.push_back(this);
    }
    HRESULT WINAPI QueryInterface(REFIID id, void** result) override {
        const HRESULT answer = note("Query", id.Data1 & 0xff);
        if (SUCCEEDED(answer)) {
            *result = id == IID_IDirectSound3DBuffer ? addScripted<SScripted3DBuffer>(Name + ".3d")
                      : id == IID_IDirectSound3DListener
                          ? static_cast<void*>(addScripted<SScriptedListener>("listener"))
                          : (AddRef(), this);
        }
        return answer;
    }
    static HRESULT set(DWORD& target, DWORD value, HRESULT answer) {
        target = SUCCEEDED(answer) ? value : target;
        return answer;
    }
    GAP(a)
    DOES(GetCurrentPosition, (DWORD * at, DWORD*), set(*at, Cursor, note("GetCurrentPosition")));
    GAP3(b)
    DOES(GetFrequency, (DWORD * rate), set(*rate, Format.nSamplesPerSec, note("GetFrequency")));
    DOES(GetStatus, (DWORD * value), set(*value, DSBSTATUS_PLAYING, note("GetStatus")));
    GAP(c);
    virtual HRESULT WINAPI Lock(DWORD offset, DWORD size, void** first, DWORD* firstSize,
                                void** second, DWORD* secondSize, DWORD) {
        const auto whole = static_cast<DWORD>(Memory->size());
        const HRESULT answer = note("Lock", offset, size) | Loss;
        if (FAILED(answer) || size - 1 >= whole || offset >= whole) {
            return FAILED(answer) ? answer : DSERR_INVALIDPARAM;
        }
        *firstSize = std::min(size, whole - offset);
        *first = Memory->data() + offset;
        *secondSize = size - *firstSize;
        *second = *secondSize == 0 ? nullptr : Memory->data();
        return DS_OK;
    }
    DOES(Play, (DWORD, DWORD, DWORD flags), note("Play", flags) | Loss);
    DOES(SetCurrentPosition, (DWORD value), set(Cursor, value, note("SetCurrentPosition", value)));
    GAP(d) NOTES(SetVolume, (LONG volume), volume);
    NOTES(SetPan, (LONG pan), pan);
    DOES(SetFrequency, (DWORD f), set(Format.nSamplesPerSec, f, note("SetFrequency", f)));
    NOTES(Stop, ());
    NOTES(Unlock, (void*, DWORD first, void*, DWORD second), first, second);
    DOES(Restore, (), (Loss = DS_OK, note("Restore")));
    WAVEFORMATEX Format;
    std::shared_ptr<Bytes> Memory; ///< duplicates share it
    DWORD Cursor = 0;              ///< in bytes
    HRESULT Loss = DS_OK;          ///< the answer of a lost buffer, until it is restored
};

struct SScriptedDevice final : SScriptedObject {
    using SScriptedObject::SScriptedObject;
    template <class... Args>
    HRESULT give(HRESULT answer, SScriptedBuffer** result, const Args&... arguments) {
        const std::string name = "b" + std::to_string(Script.Buffers.size());
        *result = FAILED(answer) ? nullptr : addScripted<SScriptedBuffer>(name, arguments...);
        return answer;
    }
    virtual HRESULT WINAPI CreateSoundBuffer(const DSBUFFERDESC* wanted, SScriptedBuffer** result,
                                             IUnknown*) {
        EXPECT_EQ(sizeof(*wanted), wanted->dwSize);
        const WAVEFORMATEX* const format = wanted->lpwfxFormat;
        char text[32];
        std::snprintf(text, sizeof(text), "%lx %lu", wanted->dwFlags, wanted->dwBufferBytes);
        return give(note("Create", text), result, format == nullptr ? WAVEFORMATEX() : *format,
                    std::make_shared<Bytes>(wanted->dwBufferBytes, std::uint8_t(0xee)));
    }
    GAP(a)
    DOES(DuplicateSoundBuffer, (SScriptedBuffer * from, SScriptedBuffer** result),
         give(note("Duplicate", from->Name), result, from->Format, from->Memory));
    NOTES(SetCooperativeLevel, (HWND window, DWORD level), IsWindow(window), level);
    GAP3(b) NOTES(Initialize, (const GUID* id), id->Data1);
};

/// While it lives, COM makes scripted devices of one generation on this thread.
struct SScriptedDirectSound final : SScriptedObject {
    explicit SScriptedDirectSound(const CLSID& device) : SScriptedObject("COM") {
        CoInitialize(nullptr);
        CoRegisterClassObject(device, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &Id);
    }
    ~SScriptedDirectSound() {
        CoRevokeClassObject(Id);
        CoUninitialize();
        Release();
        Script = {};
    }
    virtual HRESULT WINAPI CreateInstance(IUnknown*, REFIID, void** result) {
        const HRESULT answer = note("Create");
        *result = FAILED(answer) ? nullptr : addScripted<SScriptedDevice>("device");
        return answer;
    }
    DWORD Id = 0;
};

} // namespace sn_test

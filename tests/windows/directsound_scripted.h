// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "tests/support/mixer_recording.h"
#include "tests/support/ramp.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>
#include <span>
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

/// Plays a second as a sound that can take effects, after one that cannot.
inline Sound playWithEffects(sonimbra::ISoundEngine& engine, EStorage storage, bool looped) {
    SRecording recording = counting(44100);
    recording.storage = storage;
    const Sound plain = playRecording(engine, recording);
    return Sound::adopt(engine.play2D(plain->getSoundSource(), looped, false, true, true));
}

using Effects = sonimbra::ISoundEffectControl;

/// An effect: enabled as it comes and with other values, and what DirectSound gets for either.
inline const struct SEffectKind {
    const GUID &effectClass, &control;
    const char *name, *defaults, *values;
    bool (*enable)(Effects&), (*change)(Effects&);
    void (Effects::*disable)();
    bool (Effects::*isEnabled)();
} EffectKinds[] = {
#define KIND(word, id, defaults, values, ...)                                                      \
    GUID_DSFX_##id, IID_IDirectSoundFX##word, #word, defaults, values,                             \
        [](Effects& e) { return e.enable##word##SoundEffect(); },                                  \
        [](Effects& e) { return e.enable##word##SoundEffect(__VA_ARGS__); },                       \
        &Effects::disable##word##SoundEffect, &Effects::is##word##SoundEffectEnabled
    KIND(Chorus, STANDARD_CHORUS, "50 10 25 1.1 1 16 3", "1 2 3 4 0 5 1", 1, 2, 3, 4, 0, 5, -90),
    KIND(Compressor, STANDARD_COMPRESSOR, "0 10 200 -20 3 4", "1 2 3 4 5 6", 1, 2, 3, 4, 5, 6),
    KIND(Distortion, STANDARD_DISTORTION, "-18 15 2400 2400 8000", "1 2 3 4 5", 1, 2, 3, 4, 5),
    KIND(Echo, STANDARD_ECHO, "50 50 500 500 0", "1 2 3 4 5", 1, 2, 3, 4, 5),
    KIND(Flanger, STANDARD_FLANGER, "50 100 -50 0.25 1 2 0", "1 2 3 4 0 5 7", 1, 2, 3, 4, 0, 5, 7),
    KIND(Gargle, STANDARD_GARGLE, "20 0", "-2 1", -2, 0),
    KIND(I3DL2Reverb, STANDARD_I3DL2REVERB,
         "-1000 -100 0 1.49 0.83 -2602 0.007 200 0.011 100 100 5000", "1 2 3 4 5 6 7 8 9 10 11 12",
         1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12),
    KIND(ParamEq, STANDARD_PARAMEQ, "8000 12 0", "1 2 3", 1, 2, 3),
    KIND(WavesReverb, WAVES_REVERB, "0 0 1000 0.001", "1 2 3 4", 1, 2, 3, 4),
};

inline const SEffectKind& effectKind(const GUID& id) {
    return *std::find_if(EffectKinds, std::end(EffectKinds) - 1,
                         [&](const SEffectKind& kind) { return kind.effectClass == id; });
}

struct SScriptedEffect final : SScriptedObject {
    explicit SScriptedEffect(const SEffectKind& kind) : SScriptedObject(kind.name), Kind(kind) {}
    /// What is no usual float is taken for a whole number.
    virtual HRESULT WINAPI SetAllParameters(const LONG* field) {
        std::ostringstream text;
        std::istringstream words(Kind.values);
        for (std::string word; words >> word; ++field) {
            const auto real = std::bit_cast<float>(*field);
            (std::isnormal(real) ? text << real : text << *field) << ' ';
        }
        return note("SetAllParameters", text.str());
    }
    const SEffectKind& Kind;
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
    virtual HRESULT WINAPI SetFX(DWORD count, const DSEFFECTDESC* wanted, DWORD* results) {
        EXPECT_EQ(count > 0, wanted != nullptr);
        EXPECT_EQ(count > 0, results != nullptr);
        std::string call = "SetFX";
        for (const DSEFFECTDESC& effect : std::span(wanted, count)) {
            EXPECT_EQ(sizeof(effect), effect.dwSize);
            EXPECT_EQ(0u, effect.dwFlags | effect.dwReserved1 | effect.dwReserved2);
            call.append(" ").append(effectKind(effect.guidDSFXClass).name);
            *results++ = DSFXR_LOCSOFTWARE;
        }
        return note(call.c_str());
    }
    GAP(e)
    virtual HRESULT WINAPI GetObjectInPath(REFGUID id, DWORD index, REFGUID control, void** out) {
        const SEffectKind& kind = effectKind(id);
        EXPECT_TRUE(index == 0 && control == kind.control) << kind.name;
        const HRESULT answer = note("GetObjectInPath", kind.name);
        *out = FAILED(answer) ? nullptr : addScripted<SScriptedEffect>(kind);
        return answer;
    }
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

/// While it lives, COM makes scripted devices of one class on this thread.
template <class TDevice>
struct SScriptedCom final : SScriptedObject {
    explicit SScriptedCom(const CLSID& device) : SScriptedObject("COM") {
        CoInitialize(nullptr);
        CoRegisterClassObject(device, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &Id);
    }
    ~SScriptedCom() {
        CoRevokeClassObject(Id);
        CoUninitialize();
        Release();
        Script = {};
    }
    virtual HRESULT WINAPI CreateInstance(IUnknown*, REFIID, void** result) {
        const HRESULT answer = note("Create");
        *result = FAILED(answer) ? nullptr : addScripted<TDevice>("device");
        return answer;
    }
    DWORD Id = 0;
};
using SScriptedDirectSound = SScriptedCom<SScriptedDevice>;

} // namespace sn_test

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/windows/winmm_scripted.h"

#include <utility>

namespace sn_test {
namespace {

using CLock = std::lock_guard<std::mutex>;

CScriptedWaveOut* Current = nullptr;

constexpr std::ptrdiff_t SliceSize = 1024;

HWAVEOUT deviceHandle() {
    return reinterpret_cast<HWAVEOUT>(&Current);
}

// Calls of a function in a DLL go through a pointer of this name, which the linker takes from here
// before it looks into the import library.
#if defined(__i386__)
#define IMPORT_POINTER(name, argumentBytes) __asm__("__imp__" #name "@" #argumentBytes)
#else
#define IMPORT_POINTER(name, argumentBytes) __asm__("__imp_" #name)
#endif

/// The pointers of the wave-out functions.
struct SFunctions {
    decltype(&waveOutOpen) open;
    decltype(&waveOutPrepareHeader) prepare;
    decltype(&waveOutWrite) write;
    decltype(&waveOutUnprepareHeader) unprepare;
    decltype(&waveOutReset) reset;
    decltype(&waveOutClose) close;
};

/// Found by its name, because the usual way leads to the pointers below.
template <class TFunction>
TFunction systemFunction(const char* name) {
    const FARPROC function = GetProcAddress(LoadLibraryA("winmm.dll"), name);
    return reinterpret_cast<TFunction>(reinterpret_cast<void*>(function));
}

const SFunctions System = {
    systemFunction<decltype(&waveOutOpen)>("waveOutOpen"),
    systemFunction<decltype(&waveOutPrepareHeader)>("waveOutPrepareHeader"),
    systemFunction<decltype(&waveOutWrite)>("waveOutWrite"),
    systemFunction<decltype(&waveOutUnprepareHeader)>("waveOutUnprepareHeader"),
    systemFunction<decltype(&waveOutReset)>("waveOutReset"),
    systemFunction<decltype(&waveOutClose)>("waveOutClose"),
};

} // namespace

extern decltype(&waveOutOpen) Open IMPORT_POINTER(waveOutOpen, 24);
extern decltype(&waveOutPrepareHeader) Prepare IMPORT_POINTER(waveOutPrepareHeader, 12);
extern decltype(&waveOutWrite) Write IMPORT_POINTER(waveOutWrite, 12);
extern decltype(&waveOutUnprepareHeader) Unprepare IMPORT_POINTER(waveOutUnprepareHeader, 12);
extern decltype(&waveOutReset) Reset IMPORT_POINTER(waveOutReset, 4);
extern decltype(&waveOutClose) Close IMPORT_POINTER(waveOutClose, 4);

decltype(Open) Open = System.open;
decltype(Prepare) Prepare = System.prepare;
decltype(Write) Write = System.write;
decltype(Unprepare) Unprepare = System.unprepare;
decltype(Reset) Reset = System.reset;
decltype(Close) Close = System.close;

namespace {

void use(const SFunctions& functions) {
    Open = functions.open;
    Prepare = functions.prepare;
    Write = functions.write;
    Unprepare = functions.unprepare;
    Reset = functions.reset;
    Close = functions.close;
}

} // namespace

/// The functions that take the place of the system's.
struct CScriptedWaveOut::SCalls {
    static MMRESULT WINAPI open(LPHWAVEOUT device, UINT id, LPCWAVEFORMATEX format,
                                DWORD_PTR callback, DWORD_PTR instance, DWORD flags) {
        const CLock lock(Current->Mutex);
        Current->expect(id == WAVE_MAPPER, "opens another device");
        Current->expect(callback == 0 && instance == 0 && flags == 0, "wants to be called back");
        Current->format = *format;
        *device = deviceHandle();
        return Current->answer("open");
    }
    static MMRESULT WINAPI prepare(HWAVEOUT device, LPWAVEHDR header, UINT size) {
        const CLock lock(Current->Mutex);
        const MMRESULT result = Current->answer("prepare", device, header, size);
        Current->expect(header->dwFlags == 0, "prepares a header with flags");
        header->dwFlags = result == MMSYSERR_NOERROR ? WHDR_PREPARED : 0;
        return result;
    }
    static MMRESULT WINAPI write(HWAVEOUT device, LPWAVEHDR header, UINT size) {
        const CLock lock(Current->Mutex);
        const MMRESULT result = Current->answer("write", device, header, size);
        if ((header->dwFlags & WHDR_PREPARED) == 0) {
            return WAVERR_UNPREPARED;
        }
        if (result == MMSYSERR_NOERROR) {
            Current->Queued[Current->Number] = header;
            header->dwFlags |= WHDR_INQUEUE;
            const auto* samples = reinterpret_cast<const std::int16_t*>(header->lpData);
            Current->played.insert(Current->played.end(), samples, samples + SliceSize / 2);
        }
        return result;
    }
    static MMRESULT WINAPI unprepare(HWAVEOUT device, LPWAVEHDR header, UINT size) {
        const CLock lock(Current->Mutex);
        const MMRESULT result = Current->answer("unprepare", device, header, size);
        if (result == MMSYSERR_NOERROR) {
            header->dwFlags &= ~static_cast<DWORD>(WHDR_PREPARED);
        }
        return result;
    }
    static MMRESULT WINAPI reset(HWAVEOUT) {
        Current->playAll();
        const CLock lock(Current->Mutex);
        return Current->answer("reset");
    }
    static MMRESULT WINAPI close(HWAVEOUT) {
        const CLock lock(Current->Mutex);
        return Current->answer("close");
    }
};

CScriptedWaveOut::CScriptedWaveOut() {
    Current = this;
    use({SCalls::open, SCalls::prepare, SCalls::write, SCalls::unprepare, SCalls::reset,
         SCalls::close});
}

CScriptedWaveOut::~CScriptedWaveOut() {
    use(System);
    Current = nullptr;
}

void CScriptedWaveOut::fail(const std::string& call, MMRESULT code) {
    const CLock lock(Mutex);
    Failures[call] = code;
}

void CScriptedWaveOut::playAll() {
    const CLock lock(Mutex);
    while (!Queued.empty()) {
        finish(Queued.begin()->first);
    }
}

void CScriptedWaveOut::play(int header) {
    const CLock lock(Mutex);
    finish(header);
}

void CScriptedWaveOut::finish(int header) {
    DWORD& flags = Queued.at(header)->dwFlags;
    flags = (flags & ~static_cast<DWORD>(WHDR_INQUEUE)) | WHDR_DONE;
    Queued.erase(header);
}

std::vector<std::string> CScriptedWaveOut::takeJournal() {
    const CLock lock(Mutex);
    return std::exchange(Journal, {});
}

void CScriptedWaveOut::note(const std::string& line) {
    const CLock lock(Mutex);
    Journal.push_back(line);
}

MMRESULT CScriptedWaveOut::answer(const std::string& call) {
    Journal.push_back(call);
    const auto failure = Failures.find(call);
    return failure == Failures.end() ? static_cast<MMRESULT>(MMSYSERR_NOERROR) : failure->second;
}

/// Headers are numbered by the place of their data in the engine's block; the first comes first.
MMRESULT CScriptedWaveOut::answer(const char* what, HWAVEOUT device, const WAVEHDR* header,
                                  UINT size) {
    if (FirstSlice == nullptr) {
        FirstSlice = header->lpData;
    }
    const std::ptrdiff_t offset = header->lpData - FirstSlice;
    Number = static_cast<int>(offset / SliceSize);
    expect(device == deviceHandle(), "uses another device");
    expect(size == sizeof(WAVEHDR), "gives a wrong size");
    expect(header->dwBufferLength == SliceSize && offset % SliceSize == 0, "lays slices wrongly");
    expect(Queued.count(Number) == 0, "touches a header that is queued");
    return answer(std::string(what) + " " + std::to_string(Number));
}

void CScriptedWaveOut::expect(bool condition, const char* mistake) {
    if (!condition) {
        mistakes.emplace_back(mistake);
    }
}

} // namespace sn_test

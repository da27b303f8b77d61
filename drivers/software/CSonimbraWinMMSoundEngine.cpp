// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraWinMMSoundEngine.h"

#include "core/log.h"
#include "core/no_throw.h"
#include "drivers/software/winmm_engine.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace sn_internal {
namespace {

struct SErrorText {
    MMRESULT code;
    const char* text;
};

const SErrorText ErrorTexts[] = {
    {MMSYSERR_BADDEVICEID, "Specified device identifier is out of range."},
    {MMSYSERR_ALLOCATED, "Specified resource is already allocated."},
    {MMSYSERR_INVALHANDLE, "Specified device handle is invalid."},
    {MMSYSERR_NODRIVER, "No device driver is present."},
    {MMSYSERR_NOMEM, "Unable to allocate or lock memory."},
    {WAVERR_BADFORMAT, "Attempted to open with an unsupported waveform-audio format."},
    {WAVERR_UNPREPARED, "The data block hasn't been prepared."},
    {WAVERR_SYNC, "The device is synchronous but waveOutOpen was called without using the "
                  "WAVE_ALLOWSYNC flag."},
};

/// Returns whether the result was an error.
bool reportError(const char* context, MMRESULT result) {
    if (result == MMSYSERR_NOERROR) {
        return false;
    }
    const auto* known = std::find_if(std::begin(ErrorTexts), std::end(ErrorTexts),
                                     [result](const SErrorText& e) { return e.code == result; });
    if (known != std::end(ErrorTexts)) {
        logTextWithHint(context, known->text);
    } else {
        logTextWithHint(context, std::to_string(result).c_str());
    }
    return true;
}

/// The record's own size stands in cbSize; the device ignores it for PCM.
WAVEFORMATEX formatOfMix(std::int32_t rate, std::int32_t channels) {
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(channels);
    format.nSamplesPerSec = static_cast<DWORD>(rate);
    format.wBitsPerSample = 16;
    format.nBlockAlign = static_cast<WORD>(channels * 2);
    format.nAvgBytesPerSec = format.nSamplesPerSec * format.nBlockAlign;
    format.cbSize = 18;
    return format;
}

} // namespace

CSonimbraWinMMSoundEngine::CSonimbraWinMMSoundEngine(io::IFileSystem* fileSystem, int options)
    : CSonimbraSoftwareSoundEngine(fileSystem, options) {
    if (!openDevice()) {
        return;
    }
    prepareBuffers();
    startEngineThread();
    logText("Using winMM driver");
}

CSonimbraWinMMSoundEngine::~CSonimbraWinMMSoundEngine() {
    stopEngineThread();
    endSounds();
    if (Device != nullptr) {
        closeDevice();
    }
}

bool CSonimbraWinMMSoundEngine::openDevice() {
    const WAVEFORMATEX format = formatOfMix(getOutputRate(), OutputChannels);
    const MMRESULT result = waveOutOpen(&Device, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL);
    if (reportError("Could not start up winMM device", result)) {
        Device = nullptr;
        return false;
    }
    return true;
}

/// Every header counts as played, so that the first update fills them all.
void CSonimbraWinMMSoundEngine::prepareBuffers() {
    for (std::int32_t i = 0; i < BufferCount; ++i) {
        Headers[i].lpData = reinterpret_cast<LPSTR>(Samples[i]);
        Headers[i].dwBufferLength = sizeof(Samples[i]);
        Headers[i].dwFlags = WHDR_DONE;
    }
}

void CSonimbraWinMMSoundEngine::updateDriver() {
    const CScopedLock lock(getLock());
    updateSounds();
    refillPlayedBuffers();
    deliverStopEvents();
}

/// Receivers of the mixed output may cause an update from inside: the buffers are in work then.
void CSonimbraWinMMSoundEngine::refillPlayedBuffers() {
    if (IsRefilling) {
        return;
    }
    IsRefilling = true;
    withoutExceptions([this] {
        for (WAVEHDR& header : Headers) {
            if ((header.dwFlags & WHDR_DONE) != 0) {
                refill(header);
            }
        }
    });
    IsRefilling = false;
}

void CSonimbraWinMMSoundEngine::refill(WAVEHDR& header) {
    if ((header.dwFlags & WHDR_PREPARED) != 0) {
        reportError("could not unprepare for update",
                    waveOutUnprepareHeader(Device, &header, sizeof(header)));
    }
    mix(reinterpret_cast<std::int16_t*>(header.lpData), OutputBufferFrames);
    header.dwFlags = 0;
    reportError("could not prepare for update",
                waveOutPrepareHeader(Device, &header, sizeof(header)));
    reportError("could not write wave for update", waveOutWrite(Device, &header, sizeof(header)));
}

void CSonimbraWinMMSoundEngine::closeDevice() {
    waveOutReset(Device);
    for (WAVEHDR& header : Headers) {
        if ((header.dwFlags & (WHDR_DONE | WHDR_PREPARED)) != 0) {
            reportError("could not free header",
                        waveOutUnprepareHeader(Device, &header, sizeof(header)));
        }
    }
    waveOutClose(Device);
    Device = nullptr;
}

sonimbra::ISoundEngine* createWinMMEngine(io::IFileSystem* fileSystem, int options) {
    return new CSonimbraWinMMSoundEngine(fileSystem, options);
}

} // namespace sn_internal

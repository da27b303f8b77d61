// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraALSADevice.h"

#include "drivers/software/CSonimbraALSAErrors.h"
#include "drivers/software/alsa_calls.h"

#include <utility>

namespace sn_internal {
namespace {

/// A signal that interrupts a call says nothing about the device.
template <class T>
T again(T result) {
    return result == -EINTR ? -EAGAIN : result;
}

} // namespace

void CSonimbraALSADevice::swap(CSonimbraALSADevice& other) {
    std::swap(PCM, other.PCM);
    std::swap(BufferFrames, other.BufferFrames);
    std::swap(QueueFrames, other.QueueFrames);
}

int CSonimbraALSADevice::open(const char* pcmName) {
    const CSonimbraALSAErrors quiet;
    const int result = snd_pcm_open(&PCM, pcmName, SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
    if (result < 0) {
        PCM = nullptr;
    }
    return std::min(result, 0);
}

int CSonimbraALSADevice::configure(const SALSAQueue& queue) {
    const CSonimbraALSAErrors quiet;
    return callsUntilFailure([&] { return configureHardware(queue); },
                             [&] { return configureSoftware(queue); });
}

/// The length of the queue matters more than the size of its pieces, so it is chosen first.
int CSonimbraALSADevice::configureHardware(const SALSAQueue& queue) {
    snd_pcm_hw_params_t* hardware = nullptr;
    snd_pcm_hw_params_alloca(&hardware);
    snd_pcm_uframes_t bufferFrames = static_cast<snd_pcm_uframes_t>(queue.queueFrames);
    snd_pcm_uframes_t periodFrames = static_cast<snd_pcm_uframes_t>(queue.blockFrames);
    const auto channels = static_cast<unsigned>(queue.channels);
    const auto rate = static_cast<unsigned>(queue.rate);
    const int result = callsUntilFailure(
        [&] { return snd_pcm_hw_params_any(PCM, hardware); },
        [&] { return snd_pcm_hw_params_set_access(PCM, hardware, SND_PCM_ACCESS_RW_INTERLEAVED); },
        [&] { return snd_pcm_hw_params_set_format(PCM, hardware, SND_PCM_FORMAT_S16); },
        [&] { return snd_pcm_hw_params_set_channels(PCM, hardware, channels); },
        [&] { return snd_pcm_hw_params_set_rate(PCM, hardware, rate, 0); },
        [&] { return snd_pcm_hw_params_set_buffer_size_near(PCM, hardware, &bufferFrames); },
        [&] {
            return snd_pcm_hw_params_set_period_size_near(PCM, hardware, &periodFrames, nullptr);
        },
        [&] { return snd_pcm_hw_params(PCM, hardware); });
    BufferFrames = static_cast<long>(bufferFrames);
    return result;
}

/// Whole blocks only are written, so a start at more than they fill would never come.
int CSonimbraALSADevice::configureSoftware(const SALSAQueue& queue) {
    const long blocks = std::min<long>(BufferFrames, queue.queueFrames) / queue.blockFrames;
    if (blocks < 2) {
        return -EINVAL;
    }
    QueueFrames = blocks * queue.blockFrames;
    snd_pcm_sw_params_t* software = nullptr;
    snd_pcm_sw_params_alloca(&software);
    return callsUntilFailure([&] { return snd_pcm_sw_params_current(PCM, software); },
                             [&] {
                                 return snd_pcm_sw_params_set_start_threshold(
                                     PCM, software, static_cast<snd_pcm_uframes_t>(QueueFrames));
                             },
                             [&] { return snd_pcm_sw_params(PCM, software); });
}

void CSonimbraALSADevice::close() {
    if (PCM != nullptr) {
        const CSonimbraALSAErrors quiet;
        snd_pcm_close(PCM); // a non-blocking one does not wait until the queue has been played
        PCM = nullptr;
    }
}

/// Closing drops what is queued only where the device is set up, and a sound server is asked for
/// that and waited for.
void CSonimbraALSADevice::abandon() {
    if (PCM != nullptr) {
        const CSonimbraALSAErrors quiet;
        snd_pcm_hw_free(PCM);
        close();
    }
}

/// A device that has run dry without stopping reports more than its buffer holds.
long CSonimbraALSADevice::getRoom() {
    const CSonimbraALSAErrors quiet;
    const long available = again(snd_pcm_avail(PCM));
    const long unused = BufferFrames - QueueFrames;
    return available < 0 ? available : std::clamp(available - unused, 0L, QueueFrames);
}

long CSonimbraALSADevice::write(const std::int16_t* frames, long frameCount) {
    const CSonimbraALSAErrors quiet;
    const long taken =
        again(snd_pcm_writei(PCM, frames, static_cast<snd_pcm_uframes_t>(frameCount)));
    return taken == -EAGAIN ? 0 : taken;
}

int CSonimbraALSADevice::recover(long interruption) {
    const CSonimbraALSAErrors quiet;
    if (interruption == -ESTRPIPE) {
        const int result = again(snd_pcm_resume(PCM));
        if (result == 0 || result == -EAGAIN) {
            return result;
        }
    }
    const int result = again(snd_pcm_prepare(PCM));
    return result < 0 ? result : StartsAfresh;
}

} // namespace sn_internal

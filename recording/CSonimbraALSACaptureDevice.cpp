// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "recording/CSonimbraALSACaptureDevice.h"

#include "drivers/software/CSonimbraALSAErrors.h"
#include "drivers/software/alsa_calls.h"

#include <sys/eventfd.h>
#include <unistd.h>

namespace sn_internal {
namespace {

using sonimbra::E_SAMPLE_FORMAT;
using sonimbra::SAudioStreamFormat;

/// A sound server hands over whole periods only, so that with long ones a stop would miss much of
/// what was recorded last. Each costs a wake.
constexpr snd_pcm_uframes_t PeriodsInBuffer = 20;

/// Nothing to read is no error.
template <class T>
T withoutDelays(T result) {
    return result == -EAGAIN || result == -EINTR ? 0 : result;
}

snd_pcm_format_t toALSAFormat(E_SAMPLE_FORMAT format) {
    return format == E_SAMPLE_FORMAT::Unsigned8Bit ? SND_PCM_FORMAT_U8 : SND_PCM_FORMAT_S16;
}

} // namespace

int CSonimbraALSACaptureDevice::open(const char* pcmName) {
    const CSonimbraALSAErrors quiet;
    const int result = uninterrupted(
        [&] { return snd_pcm_open(&PCM, pcmName, SND_PCM_STREAM_CAPTURE, SND_PCM_NONBLOCK); });
    if (result < 0) {
        PCM = nullptr;
    }
    HasOverrun = false;
    return std::min(result, 0);
}

int CSonimbraALSACaptureDevice::configure(const SAudioStreamFormat& format) {
    const CSonimbraALSAErrors quiet;
    return callsUntilFailure([&] { return configureHardware(format); },
                             [this] { return configureSoftware(); },
                             [this] { return prepareToWait(); });
}

int CSonimbraALSACaptureDevice::configureHardware(const SAudioStreamFormat& format) {
    snd_pcm_hw_params_t* hardware = nullptr;
    snd_pcm_hw_params_alloca(&hardware);
    const auto channels = static_cast<unsigned>(format.ChannelCount);
    const auto rate = static_cast<unsigned>(format.SampleRate);
    snd_pcm_uframes_t bufferFrames = rate;
    snd_pcm_uframes_t periodFrames = rate / PeriodsInBuffer;
    const int result = callsUntilFailure(
        [&] { return snd_pcm_hw_params_any(PCM, hardware); },
        [&] { return snd_pcm_hw_params_set_access(PCM, hardware, SND_PCM_ACCESS_RW_INTERLEAVED); },
        [&] {
            return snd_pcm_hw_params_set_format(PCM, hardware, toALSAFormat(format.SampleFormat));
        },
        [&] { return snd_pcm_hw_params_set_channels(PCM, hardware, channels); },
        [&] { return snd_pcm_hw_params_set_rate(PCM, hardware, rate, 0); },
        [&] { return snd_pcm_hw_params_set_buffer_size_near(PCM, hardware, &bufferFrames); },
        [&] {
            return snd_pcm_hw_params_set_period_size_near(PCM, hardware, &periodFrames, nullptr);
        },
        [&] { return snd_pcm_hw_params(PCM, hardware); });
    BufferFrames = static_cast<long>(bufferFrames);
    PeriodFrames = static_cast<long>(periodFrames);
    return result;
}

/// The device goes on when its buffer is full, over the oldest frames, where it would stop by
/// default. A sound server's PCM notifies of every period, whatever is set here.
int CSonimbraALSACaptureDevice::configureSoftware() {
    snd_pcm_sw_params_t* software = nullptr;
    snd_pcm_sw_params_alloca(&software);
    const auto half = static_cast<snd_pcm_uframes_t>(BufferFrames / 2);
    snd_pcm_uframes_t never = 0;
    return callsUntilFailure(
        [&] { return snd_pcm_sw_params_current(PCM, software); },
        [&] { return snd_pcm_sw_params_set_avail_min(PCM, software, half); },
        [&] { return snd_pcm_sw_params_get_boundary(software, &never); },
        [&] { return snd_pcm_sw_params_set_stop_threshold(PCM, software, never); },
        [&] { return snd_pcm_sw_params(PCM, software); });
}

int CSonimbraALSACaptureDevice::prepareToWait() {
    const int count = snd_pcm_poll_descriptors_count(PCM);
    if (count <= 0) {
        return count < 0 ? count : -EINVAL;
    }
    InterruptEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (InterruptEvent < 0) {
        return -errno;
    }
    Descriptors.assign(static_cast<std::size_t>(count) + 1, pollfd{-1, 0, 0}); // polls nothing
    Descriptors.back() = pollfd{InterruptEvent, POLLIN, 0};
    return 0;
}

int CSonimbraALSACaptureDevice::start() {
    const CSonimbraALSAErrors quiet;
    return std::min(uninterrupted([this] { return snd_pcm_start(PCM); }), 0);
}

/// Closing stops a device that is set up, for which a sound server is asked and waited for.
void CSonimbraALSACaptureDevice::close() {
    if (PCM != nullptr) {
        const CSonimbraALSAErrors quiet;
        snd_pcm_hw_free(PCM);
        snd_pcm_close(PCM);
        PCM = nullptr;
    }
    if (InterruptEvent >= 0) {
        ::close(InterruptEvent);
        InterruptEvent = -1;
    }
}

/// What the descriptors' events mean is the PCM's to say; asking it also takes them back.
int CSonimbraALSACaptureDevice::wait() {
    const CSonimbraALSAErrors quiet;
    const auto count = static_cast<unsigned>(Descriptors.size() - 1);
    const int filled = snd_pcm_poll_descriptors(PCM, Descriptors.data(), count);
    if (filled < 0) {
        return filled;
    }
    if (poll(Descriptors.data(), Descriptors.size(), -1) < 0) {
        return errno == EINTR ? 1 : -errno;
    }
    if (Descriptors.back().revents != 0) {
        return 0;
    }
    unsigned short events = 0;
    const int result = snd_pcm_poll_descriptors_revents(PCM, Descriptors.data(),
                                                        static_cast<unsigned>(filled), &events);
    return result < 0 ? result : 1;
}

bool CSonimbraALSACaptureDevice::pause(int milliseconds) {
    return poll(&Descriptors.back(), 1, milliseconds) > 0;
}

void CSonimbraALSACaptureDevice::interrupt() {
    eventfd_write(InterruptEvent, 1);
}

/// What is more than the buffer holds has been overwritten. Whether a PCM can skip it or not, the
/// read tells what there is.
long CSonimbraALSACaptureDevice::getAvailable() {
    const CSonimbraALSAErrors quiet;
    const long available = withoutDelays(noteOverrun(snd_pcm_avail(PCM)));
    if (available <= BufferFrames) {
        return available;
    }
    HasOverrun = true;
    snd_pcm_forward(PCM, static_cast<snd_pcm_uframes_t>(available - BufferFrames));
    return BufferFrames;
}

long CSonimbraALSACaptureDevice::read(void* target, long frameCount) {
    const CSonimbraALSAErrors quiet;
    return withoutDelays(
        noteOverrun(snd_pcm_readi(PCM, target, static_cast<snd_pcm_uframes_t>(frameCount))));
}

long CSonimbraALSACaptureDevice::noteOverrun(long result) {
    HasOverrun = HasOverrun || result == -EPIPE;
    return result;
}

int CSonimbraALSACaptureDevice::recover(long interruption) {
    const CSonimbraALSAErrors quiet;
    if (interruption == -ESTRPIPE) {
        const int result = uninterrupted([this] { return snd_pcm_resume(PCM); });
        if (result == 0 || result == -EAGAIN) {
            return result;
        }
    }
    const int result =
        callsUntilFailure([this] { return uninterrupted([this] { return snd_pcm_prepare(PCM); }); },
                          [this] { return start(); });
    return isInterruption(result) ? 0 : result;
}

} // namespace sn_internal

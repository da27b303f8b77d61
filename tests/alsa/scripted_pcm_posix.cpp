// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/alsa/scripted_pcm_posix.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include <sys/eventfd.h>

namespace sn_test {

SScriptedPCM Device;
std::recursive_mutex DeviceMutex;

namespace {

using PCM = snd_pcm_t*;
using Hardware = snd_pcm_hw_params_t*;
using Software = snd_pcm_sw_params_t*;
using Frames = snd_pcm_uframes_t;
using Lock = std::lock_guard<std::recursive_mutex>;

const int Wake = eventfd(0, EFD_NONBLOCK);

long answer(const std::string& call, const std::string& argument) {
    const Lock lock(DeviceMutex);
    Device.journal += call + (argument == "0" ? "" : ":" + argument) + " ";
    std::vector<long>& next = Device.answers[call];
    return next.empty() ? 0 : *std::exchange(next, {next.begin() + 1, next.end()}).begin();
}

} // namespace

void SScriptedPCM::play(long frameCount) {
    EXPECT_TRUE(isRunning);
    queuedFrames -= frameCount;
}

int SScriptedPCM::clear() {
    const Lock lock(DeviceMutex);
    captured.clear();
    eventfd_t wakes = 0;
    static_cast<void>(eventfd_read(Wake, &wakes));
    return isRunning = false, queuedFrames = 0, 0;
}

void SScriptedPCM::capture(const Frames16& frames, bool isWaking) {
    const Lock lock(DeviceMutex);
    captured.insert(captured.end(), frames.begin(), frames.end());
    eventfd_write(Wake, isWaking);
}

} // namespace sn_test

extern "C" {

using namespace sn_test;

#define ANSWERS(function, parameters, call, argument)                                              \
    int function parameters {                                                                      \
        return static_cast<int>(answer(call, std::to_string(argument)));                           \
    }
ANSWERS(snd_pcm_hw_params_any, (PCM, Hardware), "any", 0)
ANSWERS(snd_pcm_hw_params_set_access, (PCM, Hardware, snd_pcm_access_t access), "access", access)
ANSWERS(snd_pcm_hw_params_set_format, (PCM, Hardware, snd_pcm_format_t format), "format", format)
ANSWERS(snd_pcm_hw_params_set_channels, (PCM, Hardware, unsigned count), "channels", count)
ANSWERS(snd_pcm_hw_params_set_rate, (PCM, Hardware, unsigned rate, int), "rate", rate)
ANSWERS(snd_pcm_hw_params_set_buffer_size_near, (PCM, Hardware, Frames* size), "buffer",
        std::exchange(*size, Device.bufferFrames))
ANSWERS(snd_pcm_hw_params_set_period_size_near, (PCM, Hardware, Frames* size, int*), "period",
        *size)
ANSWERS(snd_pcm_hw_params, (PCM, Hardware), "hardware", 0)
ANSWERS(snd_pcm_sw_params_current, (PCM, Software), "current", 0)
ANSWERS(snd_pcm_sw_params_set_start_threshold, (PCM, Software, Frames size), "start",
        Device.startFrames = size)
ANSWERS(snd_pcm_sw_params_set_avail_min, (PCM, Software, Frames size), "wake", size)
ANSWERS(snd_pcm_sw_params_get_boundary, (const snd_pcm_sw_params_t*, Frames* boundary), "boundary",
        (*boundary = 9000, 0))
ANSWERS(snd_pcm_sw_params_set_stop_threshold, (PCM, Software, Frames size), "stop", size)
ANSWERS(snd_pcm_sw_params, (PCM, Software), "software", 0)
ANSWERS(snd_pcm_prepare, (PCM), "prepare", Device.clear())
ANSWERS(snd_pcm_start, (PCM), "begin", 0)
ANSWERS(snd_pcm_resume, (PCM), "resume", 0)
ANSWERS(snd_pcm_poll_descriptors_revents, (PCM, pollfd*, unsigned, unsigned short*), "events", 0)
ANSWERS(snd_pcm_hw_free, (PCM), "free", 0)
ANSWERS(snd_pcm_close, (PCM), "close", Device.clear())

int snd_pcm_poll_descriptors_count(PCM) {
    const long error = answer("descriptors", "0");
    return error < 0 ? static_cast<int>(error) : 1;
}
int snd_pcm_open(PCM* pcm, const char* name, snd_pcm_stream_t stream, int mode) {
    *pcm = reinterpret_cast<PCM>(&Device);
    EXPECT_TRUE(stream == Device.stream && mode == SND_PCM_NONBLOCK);
    return static_cast<int>(answer("open", name));
}
snd_pcm_sframes_t snd_pcm_avail(PCM) {
    const Lock lock(DeviceMutex);
    const long error = answer("avail", "0");
    if (error < 0 || Device.stream == SND_PCM_STREAM_PLAYBACK) {
        return error < 0 ? error : Device.bufferFrames - Device.queuedFrames;
    }
    eventfd_t wakes = 0;
    static_cast<void>(Device.isAlwaysWaking || eventfd_read(Wake, &wakes));
    Device.captured.resize(Device.captured.size() + Device.endlessSamples);
    return static_cast<long>(Device.captured.size() / 2);
}
snd_pcm_sframes_t snd_pcm_writei(PCM, const void* data, Frames frameCount) {
    const long result = answer("write", std::to_string(frameCount));
    const long taken = result == 0 ? static_cast<long>(frameCount) : std::max(result, 0L);
    Device.queuedFrames += taken;
    EXPECT_LE(Device.queuedFrames, Device.bufferFrames);
    Device.isRunning |= Device.queuedFrames >= static_cast<long>(Device.startFrames);
    const auto* samples = static_cast<const std::int16_t*>(data);
    Device.played.insert(Device.played.end(), samples, samples + 2 * taken);
    return result < 0 ? result : taken;
}
snd_pcm_sframes_t snd_pcm_readi(PCM, void* data, Frames frameCount) {
    const Lock lock(DeviceMutex);
    const long result = answer("read", std::to_string(frameCount));
    const long taken = result == 0 ? static_cast<long>(frameCount) : std::max(result, 0L);
    const auto end = Device.captured.begin() + 2 * taken;
    std::copy(Device.captured.begin(), end, static_cast<std::int16_t*>(data));
    Device.captured.erase(Device.captured.begin(), end);
    return result < 0 ? result : taken;
}
snd_pcm_sframes_t snd_pcm_forward(PCM pcm, Frames frameCount) {
    return snd_pcm_readi(pcm, Frames16(2 * frameCount).data(), frameCount);
}
int snd_pcm_poll_descriptors(PCM, pollfd* descriptor, unsigned) {
    *descriptor = {Wake, POLLIN, 0};
    return 1;
}

} // extern "C"

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The flat interface's constants, held against the native ones.

#include <sonimbra/sonimbra.h>
#include <sonimbra/sonimbra_c.h>

#include <string_view>

namespace {

template <class T>
constexpr bool isSame(int flat, T native) {
    return flat == static_cast<int>(native);
}

using Driver = sonimbra::E_SOUND_OUTPUT_DRIVER;
using Mode = sonimbra::E_STREAM_MODE;
using Cause = sonimbra::E_STOP_EVENT_CAUSE;
using Format = sonimbra::E_SAMPLE_FORMAT;

static_assert(std::string_view(SONIMBRA_C_VERSION) == SONIMBRA_VERSION);

static_assert(isSame(SONIMBRA_DRIVER_AUTO_DETECT, Driver::AutoDetect));
static_assert(isSame(SONIMBRA_DRIVER_DIRECTSOUND8, Driver::DirectSound8));
static_assert(isSame(SONIMBRA_DRIVER_DIRECTSOUND, Driver::DirectSound));
static_assert(isSame(SONIMBRA_DRIVER_WINMM, Driver::WinMM));
static_assert(isSame(SONIMBRA_DRIVER_ALSA, Driver::ALSA));
static_assert(isSame(SONIMBRA_DRIVER_COREAUDIO, Driver::CoreAudio));
static_assert(isSame(SONIMBRA_DRIVER_NULL, Driver::NullDriver));

static_assert(isSame(SONIMBRA_OPTION_MULTI_THREADED, sonimbra::MultiThreaded));
static_assert(isSame(SONIMBRA_OPTION_MUTE_IF_NOT_FOCUSED, sonimbra::MuteIfNotFocused));
static_assert(isSame(SONIMBRA_OPTION_LOAD_PLUGINS, sonimbra::LoadPlugins));
static_assert(isSame(SONIMBRA_OPTION_USE_3D_BUFFERS, sonimbra::Use3DBuffers));
static_assert(isSame(SONIMBRA_OPTION_PRINT_DEBUG_INFO_INTO_DEBUGGER,
                     sonimbra::PrintDebugInfoIntoDebugger));
static_assert(isSame(SONIMBRA_OPTION_PRINT_DEBUG_INFO_TO_STDOUT, sonimbra::PrintDebugInfoToStdOut));
static_assert(isSame(SONIMBRA_OPTION_LINEAR_ROLLOFF, sonimbra::LinearRolloff));
static_assert(isSame(SONIMBRA_OPTION_DEFAULT, sonimbra::DefaultOptions));

static_assert(isSame(SONIMBRA_STREAM_MODE_AUTO_DETECT, Mode::AutoDetect));
static_assert(isSame(SONIMBRA_STREAM_MODE_STREAMING, Mode::Streaming));
static_assert(isSame(SONIMBRA_STREAM_MODE_NO_STREAMING, Mode::NoStreaming));

static_assert(isSame(SONIMBRA_STOP_CAUSE_FINISHED_PLAYING, Cause::SoundFinishedPlaying));
static_assert(isSame(SONIMBRA_STOP_CAUSE_STOPPED_BY_USER, Cause::SoundStoppedByUser));
static_assert(isSame(SONIMBRA_STOP_CAUSE_STOPPED_BY_SOURCE_REMOVAL,
                     Cause::SoundStoppedBySourceRemoval));

static_assert(isSame(SONIMBRA_SAMPLE_FORMAT_UNSIGNED_8BIT, Format::Unsigned8Bit));
static_assert(isSame(SONIMBRA_SAMPLE_FORMAT_SIGNED_16BIT, Format::Signed16Bit));

} // namespace

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// Receives what a software-mixing driver plays; set it with
/// ISoundEngine::setMixedDataOutputReceiver.
class ISoundMixedOutputReceiver {
public:
    virtual ~ISoundMixedOutputReceiver() {}

    /// Called for every mixed buffer (silence included), with the engine's lock held, on the thread
    /// that runs the update cycle. data holds interleaved signed 16-bit stereo frames and belongs
    /// to the engine; it is what the device gets next. Do not render an offline engine from here.
    virtual void OnAudioDataReady(const void* data, std::int32_t byteCount,
                                  std::int32_t sampleRate) = 0;
};

} // namespace sonimbra

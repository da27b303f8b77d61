// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"

#include <sonimbra/IAudioStream.h>
#include <sonimbra/IFileReader.h>

#define OV_EXCLUDE_STATIC_CALLBACKS
#include <vorbis/vorbisfile.h>

namespace sn_internal {

/// Decodes Ogg Vorbis files to 16-bit samples by vorbisfile. A chained file plays up to the first
/// link whose rate or channel count differs from the first one's.
class CSonimbraAudioStreamOGG final : public sonimbra::IAudioStream {
public:
    /// Reads the headers at once. A null file, or one that is not Ogg Vorbis, gives a failed stream
    /// that holds no file; nothing is logged.
    explicit CSonimbraAudioStreamOGG(sonimbra::IFileReader* file);
    ~CSonimbraAudioStreamOGG() override;

    bool isOpen() const { return static_cast<bool>(File); }

    sonimbra::SAudioStreamFormat getFormat() override { return Format; }
    bool setPosition(std::int32_t frame) override;
    std::int32_t readFrames(void* target, std::int32_t frameCountToRead) override;

private:
    bool open();
    bool continuesFormat();

    counted_ptr<sonimbra::IFileReader> File;
    OggVorbis_File Vorbis = {};
    sonimbra::SAudioStreamFormat Format;
};

} // namespace sn_internal

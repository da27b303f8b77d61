// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IRefCounted.h>
#include <sonimbra/SAudioStreamFormat.h>

namespace sn_internal {

/// A whole sound, decoded into memory. Holds no data when the format's data size is below 1 or
/// memory ran out.
class CSonimbraBufferedSamples final : public sonimbra::IRefCounted {
public:
    /// Copies the format's data size from data; without data the samples are zero, to be filled.
    CSonimbraBufferedSamples(const sonimbra::SAudioStreamFormat& format, const void* data);
    ~CSonimbraBufferedSamples() override;

    const sonimbra::SAudioStreamFormat& getFormat() const { return Format; }
    void* getData() const { return Data; }

    /// Shortens the sound to the frames that a decoder really delivered.
    void shortenTo(std::int32_t frameCount) { Format.FrameCount = frameCount; }

    /// Points at samples that stay the caller's. forgetForeignData must be called before they go.
    void useForeignData(const sonimbra::SAudioStreamFormat& format, void* data);
    void forgetForeignData();

private:
    sonimbra::SAudioStreamFormat Format;
    void* Data = nullptr;
};

} // namespace sn_internal

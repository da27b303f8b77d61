// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "tests/support/CScriptedFile.h"

#include <sonimbra/IAudioStream.h>

#include <cstdint>
#include <vector>

namespace sn_test {

using Samples = std::vector<std::int16_t>;

/// A file decoded to its end by the decoder libraries themselves, called from C memory.
Samples decodedByVorbisfile(const Bytes& file);

/// The same for a module, read as the first of MOD, XM, S3M and IT that takes it, in blocks of
/// blockFrames. length is what DUMB measured.
Samples decodedByDumb(const Bytes& file, std::int32_t blockFrames, long& length);

/// A stream on the bytes by one of the library's loaders, null if it refuses.
template <class TLoader>
sn_internal::counted_ptr<sonimbra::IAudioStream> openedBy(const Bytes& bytes) {
    const auto file =
        sn_internal::counted_ptr<CScriptedFile>::adopt(new CScriptedFile(bytes, "file"));
    TLoader loader(nullptr);
    return sn_internal::counted_ptr<sonimbra::IAudioStream>::adopt(
        loader.createAudioStream(file.get()));
}

/// The 16-bit samples of a stream up to its end, but not much more than mostFrames, read in blocks.
Samples readToEnd(sonimbra::IAudioStream& stream, std::int32_t blockFrames,
                  std::int32_t mostFrames = INT32_MAX);

} // namespace sn_test

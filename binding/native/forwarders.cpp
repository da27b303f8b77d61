// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/forwarders.h"

#include "binding/native/conversions.h"

#include <algorithm>

namespace sn_internal {

sonimbra::IFileReader* CFileOpener::openFile(const char* fileName) {
    sonimbra_file_reader* const none = nullptr;
    return toNative(callBack(none, [&] { return Open(Context.get(), fileName); }));
}

std::int32_t StreamForwarder::read(void* buffer, std::uint32_t sizeToRead) {
    if (Callbacks.read == nullptr) {
        return 0;
    }
    const std::int64_t count =
        callBack(0, [&] { return Callbacks.read(Stream.get(), buffer, sizeToRead); });
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(count, 0, sizeToRead));
}

bool StreamForwarder::seek(std::int32_t finalPos, bool relativeMovement) {
    return Callbacks.seek != nullptr && callBack(false, [&] {
               return Callbacks.seek(Stream.get(), finalPos, toFlat(relativeMovement)) != 0;
           });
}

std::int32_t StreamForwarder::getSize() {
    return Callbacks.get_size == nullptr
               ? 0
               : callBack(-1, [&] { return Callbacks.get_size(Stream.get()); });
}

std::int32_t StreamForwarder::getPos() {
    return Callbacks.get_pos == nullptr
               ? 0
               : callBack(-1, [&] { return Callbacks.get_pos(Stream.get()); });
}

/// The callback may replace its own receiver: nothing here is used after it.
void CMixedOutputForwarder::OnAudioDataReady(const void* data, std::int32_t byteCount,
                                             std::int32_t sampleRate) {
    callBack([&] { Callback(Context.get(), data, byteCount, sampleRate); });
}

void CRecordedAudioForwarder::OnAudioDataRecorded(const void* data, std::int32_t byteCount) {
    callBack([&] { Callback(Context.get(), data, byteCount); });
}

} // namespace sn_internal

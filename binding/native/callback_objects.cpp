// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// The entry points of the objects that lead to callbacks.

#include "binding/native/conversions.h"

using namespace sn_internal;

sonimbra_event_forwarder* sonimbra_event_forwarder_create(sonimbra_on_sound_stopped callback,
                                                          void* context,
                                                          sonimbra_on_release release) {
    CContext owned(context, release);
    if (callback == nullptr) {
        return nullptr;
    }
    return created([&] { return toFlat(new EventForwarder(callback, std::move(owned))); });
}

void sonimbra_event_forwarder_destroy(sonimbra_event_forwarder* forwarder) {
    if (forwarder != nullptr) {
        withoutExceptions([=] { toNative(forwarder)->destroy(); });
    }
}

sonimbra_file_factory* sonimbra_file_factory_create(sonimbra_on_open_file open, void* context,
                                                    sonimbra_on_release release) {
    CContext owned(context, release);
    if (open == nullptr) {
        return nullptr;
    }
    return created([&] {
        CFileOpener* const opener =
            new sonimbra::CVirtualUnknown<CFileOpener>(open, std::move(owned));
        return toFlat(opener);
    });
}

void sonimbra_file_factory_grab(sonimbra_file_factory* factory) {
    invoke(factory, &CFileOpener::grab);
}

int32_t sonimbra_file_factory_drop(sonimbra_file_factory* factory) {
    return invoke(factory, &CFileOpener::drop);
}

sonimbra_file_reader* sonimbra_file_reader_create(const sonimbra_file_reader_callbacks* callbacks,
                                                  void* context, const char* file_name) {
    if (callbacks == nullptr) {
        return nullptr;
    }
    CContext owned(context, callbacks->release);
    return created(
        [&] { return toFlat(new StreamForwarder(*callbacks, std::move(owned), file_name)); });
}

int32_t sonimbra_file_reader_drop(sonimbra_file_reader* reader) {
    return toFlat(reader != nullptr && toNative(reader)->drop());
}

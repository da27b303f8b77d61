// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

using namespace sn_internal;
using sonimbra::ISoundDeviceList;

sonimbra_device_list* sonimbra_device_list_create(int32_t driver, const char* sdk_version) {
    return created([&] {
        return toFlat(sonimbra::createSoundDeviceList(
            static_cast<sonimbra::E_SOUND_OUTPUT_DRIVER>(driver), sdk_version));
    });
}

sonimbra_device_list* sonimbra_device_list_create_recording(int32_t driver,
                                                            const char* sdk_version) {
    return created([&] {
        return toFlat(sonimbra::createAudioRecorderDeviceList(
            static_cast<sonimbra::E_SOUND_OUTPUT_DRIVER>(driver), sdk_version));
    });
}

int32_t sonimbra_device_list_drop(sonimbra_device_list* list) {
    return toFlat(list != nullptr && toNative(list)->drop());
}

int32_t sonimbra_device_list_get_device_count(sonimbra_device_list* list) {
    return invoke(list, &ISoundDeviceList::getDeviceCount);
}

const char* sonimbra_device_list_get_device_id(sonimbra_device_list* list, int32_t index) {
    return invoke(list, &ISoundDeviceList::getDeviceID, index);
}

const char* sonimbra_device_list_get_device_description(sonimbra_device_list* list, int32_t index) {
    return invoke(list, &ISoundDeviceList::getDeviceDescription, index);
}

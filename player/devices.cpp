// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/devices.h"

#include "player/counted.h"
#include "player/exit_codes.h"
#include "player/text.h"

namespace player {
namespace {

using sonimbra::E_SOUND_OUTPUT_DRIVER;

constexpr std::size_t IDENTIFIER_COLUMNS = 36;

using DeviceList = Counted<sonimbra::ISoundDeviceList>;

/// Automatic choice: what the library prefers, or the driver of systems that do not have that one.
DeviceList createList(E_SOUND_OUTPUT_DRIVER driver) {
    DeviceList list(sonimbra::createSoundDeviceList(driver));
    const bool isAlone = list && list->getDeviceCount() == 1;
    if (isAlone && driver == E_SOUND_OUTPUT_DRIVER::AutoDetect) {
        list.reset(sonimbra::createSoundDeviceList(E_SOUND_OUTPUT_DRIVER::ALSA));
    }
    return list;
}

} // namespace

int listDevices(const Options& options) {
    const DeviceList list = createList(options.driver);
    if (!list) {
        printError("the devices cannot be listed: memory is out");
        return NoDriver;
    }
    for (std::int32_t i = 0; i < list->getDeviceCount(); ++i) {
        std::string identifier = list->getDeviceID(i);
        identifier.resize(IDENTIFIER_COLUMNS, ' '); // the default device's is empty
        printLine(identifier + "  " + printable(list->getDeviceDescription(i)));
    }
    return AllPlayed;
}

} // namespace player

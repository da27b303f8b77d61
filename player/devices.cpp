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

using CreateList = sonimbra::ISoundDeviceList* (*)(E_SOUND_OUTPUT_DRIVER, const char*);

/// Automatic choice: what the library prefers, or the driver of systems that do not have that one.
DeviceList createList(CreateList create, E_SOUND_OUTPUT_DRIVER driver) {
    DeviceList list(create(driver, SONIMBRA_VERSION));
    const bool isAlone = list && list->getDeviceCount() == 1;
    if (isAlone && driver == E_SOUND_OUTPUT_DRIVER::AutoDetect) {
        list.reset(create(E_SOUND_OUTPUT_DRIVER::ALSA, SONIMBRA_VERSION));
    }
    return list;
}

void print(sonimbra::ISoundDeviceList& list) {
    for (std::int32_t i = 0; i < list.getDeviceCount(); ++i) {
        std::string identifier = list.getDeviceID(i);
        identifier.resize(IDENTIFIER_COLUMNS, ' '); // the default device's is empty
        printLine(identifier + "  " + printable(list.getDeviceDescription(i)));
    }
}

} // namespace

int listDevices(const Options& options) {
    const DeviceList outputs = createList(sonimbra::createSoundDeviceList, options.driver);
    const DeviceList captures = createList(sonimbra::createAudioRecorderDeviceList, options.driver);
    if (!outputs || !captures) {
        printError("the devices cannot be listed: memory is out");
        return NoDriver;
    }
    printLine("Output devices:");
    print(*outputs);
    printLine("");
    if (recordsAudio(options.driver)) {
        printLine("Capture devices, for --record:");
        print(*captures);
    } else {
        printLine("No capture devices: the driver \"" + options.driverName + "\" does not record");
    }
    return AllPlayed;
}

} // namespace player

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraALSASoundDeviceList.h"

#include "core/counted_ptr.h"
#include "core/log.h"
#include "drivers/software/CSonimbraALSAErrors.h"
#include "drivers/software/alsa_device_list.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include <alsa/asoundlib.h>
#include <uuid/uuid.h>

namespace sn_internal {
namespace {

using EDirection = CSonimbraALSASoundDeviceList::EDirection;

const char* const DefaultPCM = "default";

/// c831b26d-609f-4e56-8711-df2fdd429706. Applications save identifiers: it never changes.
const uuid_t PCMNamespace = {0xc8, 0x31, 0xb2, 0x6d, 0x60, 0x9f, 0x4e, 0x56,
                             0x87, 0x11, 0xdf, 0x2f, 0xdd, 0x42, 0x97, 0x06};

struct SFree {
    void operator()(char* text) const { std::free(text); }
};
using CHintText = std::unique_ptr<char, SFree>;

struct SFreeHints {
    void operator()(void** hints) const { snd_device_name_free_hint(hints); }
};
using CHints = std::unique_ptr<void*, SFreeHints>;

/// Empty when ALSA has no configuration.
CHints allHints() {
    const CSonimbraALSAErrors quiet;
    void** hints = nullptr;
    return CHints(snd_device_name_hint(-1, "pcm", &hints) < 0 ? nullptr : hints);
}

/// Null where the hint does not say it.
CHintText textOf(const void* hint, const char* what) {
    return CHintText(snd_device_name_get_hint(hint, what));
}

/// A PCM without a direction has both.
bool serves(const void* hint, EDirection direction) {
    const CHintText only = textOf(hint, "IOID");
    const char* const wanted = direction == EDirection::Playback ? "Output" : "Input";
    return !only || std::strcmp(only.get(), wanted) == 0;
}

std::string identifierOf(const char* pcmName) {
    uuid_t uuid;
    uuid_generate_sha1(uuid, PCMNamespace, pcmName, std::strlen(pcmName));
    char text[UUID_STR_LEN];
    uuid_unparse_lower(uuid, text);
    return text;
}

/// ALSA breaks descriptions into the card's line and the device's.
std::string inOneLine(const char* text) {
    std::string result;
    for (; *text != 0; ++text) {
        if (*text == '\n') {
            result += ", ";
        } else {
            result += *text;
        }
    }
    return result;
}

} // namespace

CSonimbraALSASoundDeviceList::CSonimbraALSASoundDeviceList(EDirection direction)
    : PCMNames{DefaultPCM} {
    const CHints hints = allHints();
    for (void** hint = hints.get(); hint != nullptr && *hint != nullptr; ++hint) {
        addHint(*hint, direction);
    }
}

/// The default record stands for the default PCM already.
void CSonimbraALSASoundDeviceList::addHint(const void* hint, EDirection direction) {
    const CHintText name = textOf(hint, "NAME");
    if (!name || std::strcmp(name.get(), DefaultPCM) == 0 || !serves(hint, direction)) {
        return;
    }
    const CHintText description = textOf(hint, "DESC");
    addDevice(identifierOf(name.get()).c_str(),
              inOneLine(description ? description.get() : name.get()).c_str());
    PCMNames.emplace_back(name.get());
}

std::string toALSAPCMName(const char* deviceID, EDirection direction) {
    if (deviceID == nullptr || *deviceID == 0) {
        return DefaultPCM;
    }
    if (std::strlen(deviceID) != UUID_STR_LEN - 1) {
        return deviceID; // no identifier: spares asking every card
    }
    const auto list = counted_ptr<CSonimbraALSASoundDeviceList>::adopt(
        new CSonimbraALSASoundDeviceList(direction));
    const std::int32_t index = list->find(deviceID);
    if (index < 0) {
        return deviceID;
    }
    logTextWithHint("Using device", list->getDeviceDescription(index));
    return list->getPCMName(index);
}

CSoundDeviceList* createALSASoundDeviceList() {
    return new CSonimbraALSASoundDeviceList(EDirection::Playback);
}

} // namespace sn_internal

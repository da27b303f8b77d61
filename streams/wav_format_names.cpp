// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/wav_format_names.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace sn_internal {
namespace {

struct SFormatName {
    std::uint16_t tag;
    const char* name;
};

const SFormatName Names[] = {
    {0x0001, "PCM"},
    {0x0002, "MS ADPCM"},
    {0x0005, "IBM CVSD"},
    {0x0006, "ALAW"},
    {0x0007, "MULAW"},
    {0x0010, "OKI ADPCM"},
    {0x0011, "DVI/IMA ADPCM"},
    {0x0012, "MEDIASPACE ADPCM"},
    {0x0013, "SIERRA ADPCM"},
    {0x0014, "G723 ADPCM"},
    {0x0015, "DIGISTD"},
    {0x0016, "DIGIFIX"},
    {0x0017, "DIALOGIC OKI ADPCM"},
    {0x0020, "YAMAHA ADPCM"},
    {0x0021, "SONARC"},
    {0x0022, "DSPGROUP TRUESPEECH"},
    {0x0023, "ECHOSC1"},
    {0x0024, "AUDIOFILE AF36"},
    {0x0025, "APTX"},
    {0x0026, "AUDIOFILE AF10"},
    {0x0030, "DOLBY AC2"},
    {0x0031, "GSM610"},
    {0x0033, "ANTEX ADPCME"},
    {0x0034, "CONTROL RES VQLPC"},
    {0x0035, "CONTROL RES VQLPC"},
    {0x0036, "DIGIADPCM"},
    {0x0037, "CONTROL RES CR10"},
    {0x0038, "NMS VBXADPCM"},
    {0x0039, "CS IMAADPCM"},
    {0x0040, "G721 ADPCM"},
    {0x0050, "MPEG"},
    {0x0052, "RT24"},
    {0x0055, "MPEGLAYER3"},
    {0x0062, "VOXWARE"},
    {0x0101, "IBM mu-law"},
    {0x0102, "IBM a-law"},
    {0x0103, "IBM AVC ADPCM"},
    {0x0200, "CREATIVE ADPCM"},
    {0x0202, "CREATIVE FASTSPEECH8"},
    {0x0203, "CREATIVE FASTSPEECH10"},
    {0x0300, "FM TOWNS SND"},
    {0x1000, "OLIGSM"},
    {0x1001, "OLIADPCM"},
    {0x1002, "OLICELP"},
    {0x1003, "OLISBC"},
    {0x1004, "OLIOPR"},
    {0xfffe, "EXTENSIBLE"},
};

} // namespace

sonimbra::string<char> nameOfWavFormat(std::uint16_t tag) {
    const auto* found = std::find_if(std::begin(Names), std::end(Names),
                                     [tag](const SFormatName& entry) { return entry.tag == tag; });
    return found != std::end(Names) ? found->name : std::to_string(tag).c_str();
}

} // namespace sn_internal

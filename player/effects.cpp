// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/effects.h"

#include <map>

#include <sonimbra/ISoundEffectControl.h>

namespace player {
namespace {

using Control = sonimbra::ISoundEffectControl;

const std::map<std::string, bool (*)(Control&)> EFFECTS = {
    {"chorus", [](Control& control) { return control.enableChorusSoundEffect(); }},
    {"compressor", [](Control& control) { return control.enableCompressorSoundEffect(); }},
    {"distortion", [](Control& control) { return control.enableDistortionSoundEffect(); }},
    {"echo", [](Control& control) { return control.enableEchoSoundEffect(); }},
    {"flanger", [](Control& control) { return control.enableFlangerSoundEffect(); }},
    {"gargle", [](Control& control) { return control.enableGargleSoundEffect(); }},
    {"i3dl2reverb", [](Control& control) { return control.enableI3DL2ReverbSoundEffect(); }},
    {"parameq", [](Control& control) { return control.enableParamEqSoundEffect(); }},
    {"wavesreverb", [](Control& control) { return control.enableWavesReverbSoundEffect(); }},
};

} // namespace

std::vector<std::string> effectNames() {
    std::vector<std::string> names;
    for (const auto& effect : EFFECTS) {
        names.push_back(effect.first);
    }
    return names;
}

bool enableEffect(Control& control, const std::string& name) {
    return EFFECTS.at(name)(control);
}

} // namespace player

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <string>
#include <vector>

namespace sonimbra {
class ISoundEffectControl;
}

namespace player {

/// The effects that a sound can be played with, in lower case.
std::vector<std::string> effectNames();

/// Switches an effect on, with its default parameters. Returns false when the sound refuses it.
bool enableEffect(sonimbra::ISoundEffectControl& control, const std::string& name);

} // namespace player

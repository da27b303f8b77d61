// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// A plug-in that uses its engine while that is being created, and then throws.

#include <sonimbra/plugin.h>

SONIMBRA_PLUGIN_INIT(engine, version) {
    engine->play2D(version); // logs the version as the name of a missing file
    char samples[64] = {};
    const sonimbra::SAudioStreamFormat format{1, 64, 8000};
    auto* source = engine->addSoundSourceFromPCMData(samples, sizeof(samples), "wild", format);
    engine->play3D(source, {}, true);
    engine->setSoundVolume(0.5f); // updates the driver
    engine->removeAllSoundSources();
    throw version;
}

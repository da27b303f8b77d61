// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_helpers.h"

#include "tests/support/CScriptedFile.h"
#include "tests/support/ramp.h"

namespace sn_test {

using sonimbra::ISoundEngine;

Engine nullEngine(int options) {
    return Engine::adopt(
        sonimbra::createSonimbraDevice(sonimbra::E_SOUND_OUTPUT_DRIVER::NullDriver, options));
}

OfflineEngine offlineEngine(int options) {
    return OfflineEngine::adopt(sonimbra::createSonimbraOfflineDevice(options));
}

std::vector<std::int16_t> rendered(sonimbra::IOfflineSoundEngine& engine, std::int32_t frames) {
    std::vector<std::int16_t> samples(2 * static_cast<std::size_t>(frames));
    samples.resize(2 * static_cast<std::size_t>(engine.renderFrames(samples.data(), frames)));
    return samples;
}

sonimbra::ISoundSource* addSquareWave(ISoundEngine& engine, const char* name, std::int32_t frames) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(frames));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = i / 50 % 2 == 0 ? 20000 : -20000;
    }
    return engine.addSoundSourceFromPCMData(samples.data(), 2 * frames, name,
                                            streamFormat(1, frames, 44100));
}

Sound playTracked(ISoundEngine& engine, sonimbra::ISoundSource* source, bool looped) {
    return Sound::adopt(engine.play2D(source, looped, false, true));
}

void CStopEvents::OnSoundStopped(sonimbra::ISound* sound, sonimbra::E_STOP_EVENT_CAUSE cause,
                                 void* userData) {
    events.push_back({sound, cause, userData});
    if (const auto running = action) { // a copy: it may replace itself
        running(sound);
    }
}

std::string CStopEvents::causes() const {
    std::string digits;
    for (const SEvent& event : events) {
        digits += std::to_string(static_cast<int>(event.cause));
    }
    return digits;
}

sonimbra::IFileReader* CScriptedFactory::createFileReader(const char* filename) {
    journal.emplace_back(filename);
    return Name == filename ? new CScriptedFile(Content, Name) : nullptr;
}

bool CScriptedLoader::isALoadableFileExtension(const char* fileName) {
    names.emplace_back(fileName);
    return !Extension.empty() && names.back().ends_with(Extension);
}

CScriptedLoader* addLoader(ISoundEngine& engine, const char* extension,
                           CScriptedLoader::Open open) {
    auto* loader = new CScriptedLoader(extension, std::move(open));
    engine.registerAudioStreamLoader(loader);
    loader->drop();
    return loader;
}

CScriptedFactory* addFactory(ISoundEngine& engine, const std::string& name, Bytes bytes) {
    auto* factory = new CScriptedFactory(name, std::move(bytes));
    engine.addFileFactory(factory);
    factory->drop();
    return factory;
}

} // namespace sn_test

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/engine_driver.h"

#include "core/CVirtualUnknown.h"
#include "engine/CSonimbraSoundSource.h"
#include "io/CFileSystem.h"

namespace sn_test {

using namespace sn_internal;
using sonimbra::vec3df;

std::int32_t CScriptedSound::alive = 0;

CScriptedSound::CScriptedSound(const CEngineLinkPtr& link, CSonimbraSoundSource* source,
                               bool looped, float minDistance, float maxDistance)
    : CSonimbraSound(link, source, looped, minDistance, maxDistance) {
    ++alive;
}

void CScriptedSound::updateListenerRelation(float globalVolume, const vec3df& listenerPosition,
                                            const vec3df& listenerLookDirection,
                                            const vec3df& listenerUpVector, bool linearRolloff,
                                            float rolloffFactor) {
    calls += "listener ";
    relation = {globalVolume,     listenerPosition, listenerLookDirection,
                listenerUpVector, linearRolloff,    rolloffFactor};
    apply3DInSoftware(globalVolume, listenerPosition, listenerLookDirection, listenerUpVector,
                      linearRolloff);
}

void CScriptedSound::releaseBuffer() {
    calls += "release ";
    finished = true;
}

sonimbra::ISound* CScriptedEngine::createDriverSound(CSonimbraBufferedSamples* samples,
                                                     sonimbra::ISoundSource* source, bool looped,
                                                     bool is3D, float minDistance,
                                                     float maxDistance, bool enableSoundEffects) {
    return make({source, false, samples->getFormat().FrameCount, looped, is3D, enableSoundEffects,
                 minDistance, maxDistance});
}

sonimbra::ISound* CScriptedEngine::createDriverStream(sonimbra::IAudioStream* stream,
                                                      sonimbra::ISoundSource* source, bool looped,
                                                      bool is3D, float minDistance,
                                                      float maxDistance, bool enableSoundEffects) {
    return make({source, true, stream->getFormat().FrameCount, looped, is3D, enableSoundEffects,
                 minDistance, maxDistance});
}

sonimbra::ISound* CScriptedEngine::make(const SDriverRequest& request) {
    requests.push_back(request);
    if (!makesSounds) {
        return nullptr;
    }
    auto* sound = new sonimbra::CVirtualUnknown<CScriptedSound>(
        getLink(), dynamic_cast<CSonimbraSoundSource*>(request.source), request.looped,
        request.minDistance, request.maxDistance);
    sounds.push_back(sound);
    return sound;
}

void CScriptedEngine::onSourceRemoved(sonimbra::ISoundSource* source) {
    removedSources += std::string(source->getName()) + " ";
}

ScriptedEngine scriptedEngine(int options) {
    const auto fileSystem = counted_ptr<io::IFileSystem>::adopt(new io::CFileSystem);
    return ScriptedEngine::adopt(new CScriptedEngine(fileSystem.get(), options));
}

} // namespace sn_test

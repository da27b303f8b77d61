// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CSonimbraDSSoundEngine.h"

#include "core/CVirtualUnknown.h"
#include "drivers/directsound/CSonimbraDSSound.h"
#include "drivers/directsound/CSonimbraDSSoundStream.h"

namespace sn_internal {

CSonimbraDSSoundEngine::CSonimbraDSSoundEngine(io::IFileSystem* fileSystem, int options,
                                               const char* deviceID)
    : CDirectSoundEngine(DirectSoundGeneration, fileSystem, options, deviceID) {
    if (isDriverInitialized()) {
        startEngineThread();
    }
}

sonimbra::ISound* CSonimbraDSSoundEngine::createStatic(const SDirectSoundSoundArguments& arguments,
                                                       CSonimbraBufferedSamples* samples) {
    return new sonimbra::CVirtualUnknown<CSonimbraDSSound>(arguments, samples);
}

sonimbra::ISound*
CSonimbraDSSoundEngine::createStreamed(const SDirectSoundSoundArguments& arguments,
                                       sonimbra::IAudioStream* stream) {
    return new sonimbra::CVirtualUnknown<CSonimbraDSSoundStream>(arguments, stream);
}

} // namespace sn_internal

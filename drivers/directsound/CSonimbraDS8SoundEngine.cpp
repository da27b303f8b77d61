// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CSonimbraDS8SoundEngine.h"

#include "core/CVirtualUnknown.h"
#include "drivers/directsound/CSonimbraDS8Sound.h"
#include "drivers/directsound/CSonimbraDS8SoundStream.h"

namespace sn_internal {

CSonimbraDS8SoundEngine::CSonimbraDS8SoundEngine(io::IFileSystem* fileSystem, int options,
                                                 const char* deviceID)
    : CDirectSoundEngine(DirectSound8Generation, fileSystem, options, deviceID) {
    if (isDriverInitialized()) {
        startEngineThread();
    }
}

sonimbra::ISound* CSonimbraDS8SoundEngine::createStatic(const SDirectSoundSoundArguments& arguments,
                                                        CSonimbraBufferedSamples* samples) {
    return new sonimbra::CVirtualUnknown<CSonimbraDS8Sound>(arguments, samples);
}

sonimbra::ISound*
CSonimbraDS8SoundEngine::createStreamed(const SDirectSoundSoundArguments& arguments,
                                        sonimbra::IAudioStream* stream) {
    return new sonimbra::CVirtualUnknown<CSonimbraDS8SoundStream>(arguments, stream);
}

} // namespace sn_internal

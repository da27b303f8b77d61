// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CAudioStreamLoaderList.h"

#include "core/log.h"
#include "core/string.h"

namespace sn_internal {
namespace {

/// Gives loaders a file, one after the other, each time from its beginning.
class CAttempts {
public:
    explicit CAttempts(sonimbra::IFileReader& file) : File(file) {}

    sonimbra::IAudioStream* tryLoader(sonimbra::IAudioStreamLoader& loader) {
        if (HasFailed) {
            File.seek(0, false);
        }
        sonimbra::IAudioStream* stream = loader.createAudioStream(&File);
        HasFailed = stream == nullptr;
        return stream;
    }

private:
    sonimbra::IFileReader& File;
    bool HasFailed = false;
};

} // namespace

void CAudioStreamLoaderList::add(sonimbra::IAudioStreamLoader* loader) {
    Loaders.push_back(loader);
    loader->grab();
}

void CAudioStreamLoaderList::dropAll() {
    for (sonimbra::IAudioStreamLoader* loader : Loaders) {
        loader->drop();
    }
    Loaders.clear();
}

sonimbra::IAudioStream* CAudioStreamLoaderList::createAudioStream(sonimbra::IFileReader& file) {
    sonimbra::string<char> name(file.getFileName());
    name.make_lower();
    CAttempts attempts(file);
    for (const bool byName : {true, false}) {
        // By index: a loader may register others while it is asked.
        for (std::uint32_t i = 0; i < Loaders.size(); ++i) {
            sonimbra::IAudioStreamLoader* loader = Loaders[i];
            if (byName && !loader->isALoadableFileExtension(name.c_str())) {
                continue;
            }
            if (sonimbra::IAudioStream* stream = attempts.tryLoader(*loader)) {
                return stream;
            }
        }
    }
    logTextWithHint(name.find(".mp3") >= 0
                        ? "Could not open audio stream for sound file (maybe the Sonimbra mp3 "
                          "plugin is missing?)"
                        : "Could not open audio stream for sound file",
                    name.c_str());
    return nullptr;
}

} // namespace sn_internal

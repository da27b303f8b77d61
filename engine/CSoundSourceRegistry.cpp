// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "engine/CSoundSourceRegistry.h"

#include <algorithm>

namespace sn_internal {

CSonimbraSoundSource* CSoundSourceRegistry::find(const char* name) const {
    const auto found = ByName.find(name);
    return found == ByName.end() ? nullptr : found->second;
}

CSonimbraSoundSource* CSoundSourceRegistry::add(counted_ptr<CSonimbraSoundSource> source) {
    if (Entries.size() == Entries.capacity()) {
        Entries.reallocate(Entries.size() * 2 + 1); // before anything points at the source
    }
    ByName.emplace(source->getName(), source.get());
    Entries.push_back({source.get()});
    return source.release();
}

CSonimbraSoundSource* CSoundSourceRegistry::get(std::int32_t index) {
    if (index < 0 || index >= getCount()) {
        return nullptr;
    }
    Entries.sort();
    return Entries[static_cast<std::uint32_t>(index)].source;
}

CSonimbraSoundSource* CSoundSourceRegistry::find(const sonimbra::ISoundSource* source) const {
    for (std::uint32_t i = 0; i < Entries.size(); ++i) {
        if (Entries[i].source == source) {
            return Entries[i].source;
        }
    }
    return nullptr;
}

void CSoundSourceRegistry::remove(CSonimbraSoundSource* source) {
    const auto* found = std::find_if(Entries.begin(), Entries.end(), [source](const SEntry& entry) {
        return entry.source == source;
    });
    ByName.erase(source->getName());
    Entries.erase(static_cast<std::uint32_t>(found - Entries.begin()));
    source->drop();
}

void CSoundSourceRegistry::removeAll() {
    ByName.clear();
    Entries.sort();
    for (const SEntry& entry : Entries) {
        entry.source->drop();
    }
    Entries.clear();
}

} // namespace sn_internal

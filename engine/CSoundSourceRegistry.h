// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/array.h"
#include "engine/CSonimbraSoundSource.h"

#include <string_view>
#include <unordered_map>

namespace sn_internal {

/// The sources of an engine by name. Holds one reference on each. To be used with the engine's lock
/// held.
///
/// An index by hash answers look-ups without allocating; the array, which gives the order of the
/// names, is sorted only when somebody asks for that order.
class CSoundSourceRegistry {
public:
    CSoundSourceRegistry() = default;
    CSoundSourceRegistry(const CSoundSourceRegistry&) = delete;
    CSoundSourceRegistry& operator=(const CSoundSourceRegistry&) = delete;
    ~CSoundSourceRegistry() { removeAll(); }

    CSonimbraSoundSource* find(const char* name) const;

    /// Takes over the caller's reference. The name must not be there yet.
    CSonimbraSoundSource* add(counted_ptr<CSonimbraSoundSource> source);

    std::int32_t getCount() const { return static_cast<std::int32_t>(Entries.size()); }

    /// In the order of the names; null outside 0..count-1.
    CSonimbraSoundSource* get(std::int32_t index);

    /// Null when the pointer is not registered; the pointer is not followed.
    CSonimbraSoundSource* find(const sonimbra::ISoundSource* source) const;

    /// Drops the registry's reference of a registered source.
    void remove(CSonimbraSoundSource* source);
    void removeAll();

private:
    struct SEntry {
        CSonimbraSoundSource* source;
        bool operator<(const SEntry& other) const {
            return sonimbra::isTextLess(source->getName(), other.source->getName());
        }
    };

    sonimbra::array<SEntry> Entries;
    std::unordered_map<std::string_view, CSonimbraSoundSource*> ByName;
};

} // namespace sn_internal

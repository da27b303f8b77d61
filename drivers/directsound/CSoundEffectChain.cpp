// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CSoundEffectChain.h"

#include "core/log.h"
#include "drivers/directsound/CComApartment.h"
#include "drivers/directsound/com_ptr.h"

#include <algorithm>
#include <array>

namespace sn_internal {
namespace {

/// What DirectSound calls the effect that takes such a block, and the effect's own interface.
template <class TParameters>
struct SEffect; // for each type of SoundEffectParameters

#define EFFECT(name, effectClass)                                                                  \
    template <>                                                                                    \
    struct SEffect<DSFX##name> {                                                                   \
        using IControl = IDirectSoundFX##name;                                                     \
        static constexpr const IID& ControlId = IID_IDirectSoundFX##name;                          \
        static constexpr const GUID& Class = effectClass;                                          \
    }

EFFECT(Chorus, GUID_DSFX_STANDARD_CHORUS);
EFFECT(Compressor, GUID_DSFX_STANDARD_COMPRESSOR);
EFFECT(Distortion, GUID_DSFX_STANDARD_DISTORTION);
EFFECT(Echo, GUID_DSFX_STANDARD_ECHO);
EFFECT(Flanger, GUID_DSFX_STANDARD_FLANGER);
EFFECT(Gargle, GUID_DSFX_STANDARD_GARGLE);
EFFECT(I3DL2Reverb, GUID_DSFX_STANDARD_I3DL2REVERB);
EFFECT(ParamEq, GUID_DSFX_STANDARD_PARAMEQ);
EFFECT(WavesReverb, GUID_DSFX_WAVES_REVERB);

#undef EFFECT

static_assert(sizeof(DWORD_PTR) != 4 || sizeof(DSEFFECTDESC) == 32); // else longer

const GUID& classOf(const SoundEffectParameters& parameters) {
    return std::visit([]<class T>(const T&) -> const GUID& { return SEffect<T>::Class; },
                      parameters);
}

template <class TParameters>
void pushTo(IDirectSoundBuffer8& buffer, const TParameters& parameters) {
    using SKind = SEffect<TParameters>;
    com_ptr<typename SKind::IControl> effect;
    if (SUCCEEDED(buffer.GetObjectInPath(SKind::Class, 0, SKind::ControlId, effect.putVoid())) &&
        effect) {
        effect->SetAllParameters(&parameters);
    }
}

auto isOf(REFGUID effectClass) {
    return [&effectClass](const SRunningSoundEffect& effect) {
        return IsEqualGUID(effect.effectClass, effectClass) != 0;
    };
}

} // namespace

bool CSoundEffectChain::put(const SoundEffectParameters& parameters) {
    const GUID& effectClass = classOf(parameters);
    const auto end = Effects.begin() + Count;
    const auto found = std::find_if(Effects.begin(), end, isOf(effectClass));
    *found = {effectClass, parameters}; // there is room for every class
    Count += found == end ? 1 : 0;
    return found == end;
}

bool CSoundEffectChain::remove(REFGUID effectClass) {
    const auto end = Effects.begin() + Count;
    const bool isHeld = std::remove_if(Effects.begin(), end, isOf(effectClass)) != end;
    Count -= isHeld ? 1 : 0;
    return isHeld;
}

bool CSoundEffectChain::holds(REFGUID effectClass) const {
    return std::any_of(Effects.begin(), Effects.begin() + Count, isOf(effectClass));
}

void CSoundEffectChain::build(IDirectSoundBuffer8& buffer) const {
    CComApartment apartment; // DirectSound makes the effects on this thread, which may be any
    apartment.enter();
    if (Count == 0) {
        if (FAILED(buffer.SetFX(0, nullptr, nullptr))) {
            logText("Could not disable effects");
        }
        return;
    }
    std::array<DSEFFECTDESC, MaxCount> wanted = {};
    std::array<DWORD, MaxCount> results = {};
    for (std::size_t i = 0; i < Count; ++i) {
        wanted[i].dwSize = sizeof(wanted[i]);
        wanted[i].guidDSFXClass = Effects[i].effectClass;
    }
    if (FAILED(buffer.SetFX(static_cast<DWORD>(Count), wanted.data(), results.data()))) {
        logText("Could not set effects");
        return;
    }
    for (std::size_t i = 0; i < Count; ++i) {
        push(buffer, Effects[i].parameters);
    }
}

void CSoundEffectChain::push(IDirectSoundBuffer8& buffer, const SoundEffectParameters& parameters) {
    std::visit([&](const auto& block) { pushTo(buffer, block); }, parameters);
}

} // namespace sn_internal

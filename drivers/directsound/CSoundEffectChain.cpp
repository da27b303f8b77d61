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

/// What DirectSound calls an effect, and how it takes the parameters.
struct SSoundEffectDescription {
    const GUID& effectClass;
    void (*push)(IDirectSoundBuffer8& buffer, const SoundEffectParameters& parameters);
};

template <class TInterface, class TParameters, const GUID& EffectClass, const IID& Interface>
void pushTo(IDirectSoundBuffer8& buffer, const SoundEffectParameters& parameters) {
    com_ptr<TInterface> effect;
    if (SUCCEEDED(buffer.GetObjectInPath(EffectClass, 0, Interface, effect.putVoid())) && effect) {
        effect->SetAllParameters(std::get_if<TParameters>(&parameters));
    }
}

template <class TInterface, class TParameters, const GUID& EffectClass, const IID& Interface>
constexpr SSoundEffectDescription describe() {
    return {EffectClass, pushTo<TInterface, TParameters, EffectClass, Interface>};
}

#define EFFECT(name, effectClass)                                                                  \
    describe<IDirectSoundFX##name, DSFX##name, effectClass, IID_IDirectSoundFX##name>()

/// In the order of the types of SoundEffectParameters.
constexpr SSoundEffectDescription Descriptions[] = {
    EFFECT(Chorus, GUID_DSFX_STANDARD_CHORUS),
    EFFECT(Compressor, GUID_DSFX_STANDARD_COMPRESSOR),
    EFFECT(Distortion, GUID_DSFX_STANDARD_DISTORTION),
    EFFECT(Echo, GUID_DSFX_STANDARD_ECHO),
    EFFECT(Flanger, GUID_DSFX_STANDARD_FLANGER),
    EFFECT(Gargle, GUID_DSFX_STANDARD_GARGLE),
    EFFECT(I3DL2Reverb, GUID_DSFX_STANDARD_I3DL2REVERB),
    EFFECT(ParamEq, GUID_DSFX_STANDARD_PARAMEQ),
    EFFECT(WavesReverb, GUID_DSFX_WAVES_REVERB),
};

#undef EFFECT

constexpr std::size_t EffectCount = std::size(Descriptions);
static_assert(EffectCount == std::variant_size_v<SoundEffectParameters>);

auto isOf(REFGUID effectClass) {
    return [&effectClass](const SRunningSoundEffect& effect) {
        return IsEqualGUID(effect.effectClass, effectClass) != 0;
    };
}

} // namespace

bool CSoundEffectChain::put(const SoundEffectParameters& parameters) {
    const GUID& effectClass = Descriptions[parameters.index()].effectClass;
    const auto found = std::find_if(Effects.begin(), Effects.end(), isOf(effectClass));
    if (found != Effects.end()) {
        found->parameters = parameters;
        return false;
    }
    Effects.push_back({effectClass, parameters});
    return true;
}

bool CSoundEffectChain::remove(REFGUID effectClass) {
    return std::erase_if(Effects, isOf(effectClass)) > 0;
}

bool CSoundEffectChain::holds(REFGUID effectClass) const {
    return std::any_of(Effects.begin(), Effects.end(), isOf(effectClass));
}

void CSoundEffectChain::build(IDirectSoundBuffer8& buffer) const {
    CComApartment apartment; // DirectSound makes the effects on this thread, which may be any
    apartment.enter();
    if (Effects.empty()) {
        if (FAILED(buffer.SetFX(0, nullptr, nullptr))) {
            logText("Could not disable effects");
        }
        return;
    }
    std::array<DSEFFECTDESC, EffectCount> wanted = {};
    std::array<DWORD, EffectCount> results = {};
    for (std::size_t i = 0; i < Effects.size(); ++i) {
        wanted[i].dwSize = sizeof(wanted[i]);
        wanted[i].guidDSFXClass = Effects[i].effectClass;
    }
    if (FAILED(buffer.SetFX(static_cast<DWORD>(Effects.size()), wanted.data(), results.data()))) {
        logText("Could not set effects");
        return;
    }
    for (const SRunningSoundEffect& effect : Effects) {
        push(buffer, effect.parameters);
    }
}

void CSoundEffectChain::push(IDirectSoundBuffer8& buffer, const SoundEffectParameters& parameters) {
    Descriptions[parameters.index()].push(buffer, parameters);
}

} // namespace sn_internal

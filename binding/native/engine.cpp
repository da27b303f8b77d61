// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/conversions.h"

using namespace sn_internal;
using sonimbra::ISoundEngine;

namespace {

/// Inside a callback it does not wait: the engine that is being ended may be the one that calls.
bool lockEngineLife(std::unique_lock<std::recursive_mutex>& lock) {
    if (CCallbackScope::isActive()) {
        return lock.try_lock();
    }
    lock.lock();
    return true;
}

template <class F>
sonimbra_engine* createEngine(F&& createNative) {
    return created([&]() -> sonimbra_engine* {
        std::unique_lock lock(engineLifeLock(), std::defer_lock);
        if (!lockEngineLife(lock)) {
            return nullptr;
        }
        auto native = createNative();
        if (!native) {
            return nullptr;
        }
        auto* const engine = new sonimbra_engine(native.get());
        native.release();
        return engine;
    });
}

} // namespace

const char* sonimbra_get_version(void) {
    return SONIMBRA_VERSION;
}

int32_t sonimbra_get_interface_version(void) {
    return SONIMBRA_C_INTERFACE_VERSION;
}

sonimbra_engine* sonimbra_engine_create(int32_t driver, int32_t options, const char* device_id,
                                        const char* sdk_version) {
    return createEngine([&] {
        return counted_ptr<ISoundEngine>::adopt(sonimbra::createSonimbraDevice(
            static_cast<sonimbra::E_SOUND_OUTPUT_DRIVER>(driver), options, device_id, sdk_version));
    });
}

sonimbra_engine* sonimbra_engine_create_offline(int32_t options, const char* sdk_version) {
    return createEngine([&] {
        return counted_ptr<sonimbra::IOfflineSoundEngine>::adopt(
            sonimbra::createSonimbraOfflineDevice(options, sdk_version));
    });
}

void sonimbra_engine_grab(sonimbra_engine* engine) {
    if (engine != nullptr) {
        engine->grab();
    }
}

int32_t sonimbra_engine_drop(sonimbra_engine* engine) {
    return toFlat(engine != nullptr && engine->drop());
}

const char* sonimbra_engine_get_driver_name(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::getDriverName);
}

void sonimbra_engine_set_sound_volume(sonimbra_engine* engine, float volume) {
    invoke(engine, &ISoundEngine::setSoundVolume, volume);
}

float sonimbra_engine_get_sound_volume(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::getSoundVolume);
}

void sonimbra_engine_set_listener_position(sonimbra_engine* engine, const sonimbra_vec3d* position,
                                           const sonimbra_vec3d* look_direction,
                                           const sonimbra_vec3d* velocity_per_second,
                                           const sonimbra_vec3d* up_vector) {
    static constexpr sonimbra_vec3d up = {0, 1, 0};
    invoke(engine, &ISoundEngine::setListenerPosition, position, look_direction,
           velocity_per_second, up_vector != nullptr ? up_vector : &up);
}

void sonimbra_engine_update(sonimbra_engine* engine) {
    invoke(engine, &ISoundEngine::update);
}

int32_t sonimbra_engine_is_multi_threaded(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::isMultiThreaded);
}

void sonimbra_engine_add_file_factory(sonimbra_engine* engine,
                                      sonimbra_file_factory* file_factory) {
    if (engine == nullptr || file_factory == nullptr) {
        return;
    }
    const CHold hold(engine);
    withoutExceptions([&] {
        const auto forwarder = counted_ptr<FileFactoryForwarder>::adopt(
            new FileFactoryForwarder(toNative(file_factory)));
        engine->Native->addFileFactory(forwarder.get());
    });
}

void sonimbra_engine_set_default3d_sound_min_distance(sonimbra_engine* engine, float min_distance) {
    invoke(engine, &ISoundEngine::setDefault3DSoundMinDistance, min_distance);
}

float sonimbra_engine_get_default3d_sound_min_distance(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::getDefault3DSoundMinDistance);
}

void sonimbra_engine_set_default3d_sound_max_distance(sonimbra_engine* engine, float max_distance) {
    invoke(engine, &ISoundEngine::setDefault3DSoundMaxDistance, max_distance);
}

float sonimbra_engine_get_default3d_sound_max_distance(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::getDefault3DSoundMaxDistance);
}

void sonimbra_engine_set_rolloff_factor(sonimbra_engine* engine, float rolloff) {
    invoke(engine, &ISoundEngine::setRolloffFactor, rolloff);
}

void sonimbra_engine_set_doppler_effect_parameters(sonimbra_engine* engine, float doppler_factor,
                                                   float distance_factor) {
    invoke(engine, &ISoundEngine::setDopplerEffectParameters, doppler_factor, distance_factor);
}

int32_t sonimbra_engine_load_plugins(sonimbra_engine* engine, const char* path) {
    return invoke(engine, &ISoundEngine::loadPlugins, path);
}

void* sonimbra_engine_get_internal_audio_interface(sonimbra_engine* engine) {
    return invoke(engine, &ISoundEngine::getInternalAudioInterface);
}

int32_t sonimbra_engine_set_mixed_data_output_receiver(sonimbra_engine* engine,
                                                       sonimbra_on_audio_data_ready receiver,
                                                       void* context, sonimbra_on_release release) {
    CContext owned(context, release);
    if (engine == nullptr) {
        return 0;
    }
    const CHold hold(engine);
    return withoutExceptions(
        0, [&] { return toFlat(engine->setMixedOutputReceiver(receiver, std::move(owned))); });
}

int32_t sonimbra_engine_render_frames(sonimbra_engine* engine, int16_t* target,
                                      int32_t frame_count) {
    if (engine == nullptr || engine->Offline == nullptr) {
        return 0;
    }
    const CHold hold(engine);
    return withoutExceptions(0, [&] { return engine->Offline->renderFrames(target, frame_count); });
}

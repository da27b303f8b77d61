// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "binding/native/forwarders.h"
#include "binding/native/handles.h"
#include "engine/locking.h"

#include <concepts>
#include <type_traits>

/// Between the types of the flat interface and the native ones. What needs no state of its own is
/// the native object's address.

namespace sn_internal {

template <class T>
T* castTo(void* pointer) {
    return static_cast<T*>(pointer);
}

// --- from flat
// ------------------------------------------------------------------------------------

inline sonimbra::ISoundEngine* toNative(sonimbra_engine* engine) {
    return engine != nullptr ? engine->Native : nullptr;
}
inline sonimbra::IAudioRecorder* toNative(sonimbra_recorder* recorder) {
    return recorder != nullptr ? recorder->Native : nullptr;
}
inline sonimbra::ISound* toNative(sonimbra_sound* sound) {
    return castTo<sonimbra::ISound>(sound);
}
inline sonimbra::ISoundSource* toNative(sonimbra_source* source) {
    return castTo<sonimbra::ISoundSource>(source);
}
inline sonimbra::ISoundDeviceList* toNative(sonimbra_device_list* list) {
    return castTo<sonimbra::ISoundDeviceList>(list);
}
inline EventForwarder* toNative(sonimbra_event_forwarder* forwarder) {
    return castTo<EventForwarder>(forwarder);
}
inline CFileOpener* toNative(sonimbra_file_factory* factory) {
    return castTo<CFileOpener>(factory);
}
inline StreamForwarder* toNative(sonimbra_file_reader* reader) {
    return castTo<StreamForwarder>(reader);
}

inline sonimbra::vec3df toNative(const sonimbra_vec3d* vector) {
    return vector != nullptr ? sonimbra::vec3df(vector->x, vector->y, vector->z)
                             : sonimbra::vec3df();
}
inline sonimbra::SAudioStreamFormat toNative(const sonimbra_audio_stream_format* format) {
    sonimbra::SAudioStreamFormat native;
    native.ChannelCount = format->channel_count;
    native.FrameCount = format->frame_count;
    native.SampleRate = format->sample_rate;
    native.SampleFormat = static_cast<sonimbra::E_SAMPLE_FORMAT>(format->sample_format);
    return native;
}

// --- to flat
// --------------------------------------------------------------------------------------

inline std::int32_t toFlat(bool value) {
    return value ? 1 : 0;
}
template <class T>
requires std::is_arithmetic_v<T> T toFlat(T value) {
    return value;
}
template <class T>
requires std::is_enum_v<T> std::int32_t toFlat(T value) {
    return static_cast<std::int32_t>(value);
}
inline const char* toFlat(const char* text) {
    return text;
}
inline void* toFlat(void* data) {
    return data;
}

inline sonimbra_sound* toFlat(sonimbra::ISound* sound) {
    return castTo<sonimbra_sound>(sound);
}
inline sonimbra_source* toFlat(sonimbra::ISoundSource* source) {
    return castTo<sonimbra_source>(source);
}
inline sonimbra_device_list* toFlat(sonimbra::ISoundDeviceList* list) {
    return castTo<sonimbra_device_list>(list);
}
inline sonimbra_event_forwarder* toFlat(EventForwarder* forwarder) {
    return castTo<sonimbra_event_forwarder>(forwarder);
}
inline sonimbra_file_factory* toFlat(CFileOpener* factory) {
    return castTo<sonimbra_file_factory>(factory);
}
inline sonimbra_file_reader* toFlat(StreamForwarder* reader) {
    return castTo<sonimbra_file_reader>(reader);
}

inline sonimbra_vec3d toFlat(const sonimbra::vec3df& vector) {
    return {vector.X, vector.Y, vector.Z};
}
inline sonimbra_audio_stream_format toFlat(const sonimbra::SAudioStreamFormat& format) {
    return {format.ChannelCount, format.FrameCount, format.SampleRate, toFlat(format.SampleFormat)};
}

// --- calls
// ----------------------------------------------------------------------------------------

/// Keeps an engine or a recorder for the time of a call; other objects keep themselves.
class CHold {
public:
    explicit CHold(CHandle* handle) : Handle(handle) { Handle->grab(); }
    explicit CHold(const void*) {}
    ~CHold() {
        if (Handle != nullptr) {
            Handle->drop();
        }
    }
    CHold(const CHold&) = delete;
    CHold& operator=(const CHold&) = delete;

private:
    CHandle* Handle = nullptr;
};

/// An argument of the flat interface as the native operation takes it.
template <class P, class A>
auto toArgument(A argument) {
    if constexpr (std::is_arithmetic_v<A> || std::is_same_v<P, A>) {
        return static_cast<std::decay_t<P>>(argument);
    } else {
        return toNative(argument);
    }
}

/// Calls an operation of a flat object's native one. Without an object, and when it throws, the
/// result is 0 or null.
template <class H, class T, class R, class... P, class... A>
auto invoke(H* handle, R (T::*operation)(P...), A... arguments) {
    auto* const native = toNative(handle);
    if constexpr (std::is_void_v<R>) {
        if (native != nullptr) {
            const CHold hold(handle);
            withoutExceptions([&] { (native->*operation)(toArgument<P>(arguments)...); });
        }
    } else {
        using TResult = decltype(toFlat(std::declval<R>()));
        if (native == nullptr) {
            return TResult{};
        }
        const CHold hold(handle);
        return withoutExceptions(
            TResult{}, [&] { return toFlat((native->*operation)(toArgument<P>(arguments)...)); });
    }
}

/// No other thread adds, removes or reloads sources meanwhile.
class CEngineLocked {
public:
    template <class T>
    explicit CEngineLocked(T& object) : Lock(lockOf(object)) {
        Lock != nullptr ? Lock->lock() : void();
    }
    ~CEngineLocked() { Lock != nullptr ? Lock->unlock() : void(); }
    CEngineLocked(const CEngineLocked&) = delete;
    CEngineLocked& operator=(const CEngineLocked&) = delete;

private:
    ICriticalSection* const Lock;
};

inline sonimbra_source* grabbed(sonimbra_source* source) {
    if (source != nullptr) {
        toNative(source)->grab();
    }
    return source;
}

/// As invoke, with a reference for the caller on the source that is returned.
template <class H, class... A>
sonimbra_source* sourceFor(H* handle, A... arguments) {
    if (handle == nullptr) {
        return nullptr;
    }
    const CHold hold(handle); // outlasts the lock
    const CEngineLocked locked(*toNative(handle));
    return grabbed(invoke(handle, arguments...));
}

/// Hands a result out where the caller wants it.
template <class T>
void store(T* target, const T& value) {
    if (target != nullptr) {
        *target = value;
    }
}

/// Runs what makes a new object; null when it throws.
template <class F>
auto created(F&& create) {
    return withoutExceptions(decltype(create())(nullptr), create);
}

} // namespace sn_internal

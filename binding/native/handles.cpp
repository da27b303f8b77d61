// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "binding/native/handles.h"

#include "binding/native/forwarders.h"

namespace sn_internal {

thread_local int CCallbackScope::Depth = 0;

bool CHandle::drop() {
    constexpr std::uint32_t normalPriority = 2;
    std::int32_t count = References.load();
    while (!References.compare_exchange_weak(count, count == 1 ? Ending : count - 1)) {
    }
    if (count != 1) {
        return false;
    }
    if (CCallbackScope::isActive()) {
        withoutExceptions([this] { startThread(this, 0, normalPriority); });
    } else {
        delete this;
    }
    return true;
}

/// Never destroyed: a thread that ends an engine may outlive the program's own objects.
std::recursive_mutex& engineLifeLock() {
    static std::recursive_mutex& lock = *new std::recursive_mutex;
    return lock;
}

} // namespace sn_internal

using namespace sn_internal;

sonimbra_engine::sonimbra_engine(sonimbra::ISoundEngine* native) : Native(native) {
}

sonimbra_engine::sonimbra_engine(sonimbra::IOfflineSoundEngine* native)
    : Native(native), Offline(native) {
}

sonimbra_engine::~sonimbra_engine() {
    const std::lock_guard lock(engineLifeLock());
    Native->drop();
}

bool sonimbra_engine::setMixedOutputReceiver(sonimbra_on_audio_data_ready receiver,
                                             CContext context) {
    auto forwarder = receiver == nullptr
                         ? nullptr
                         : std::make_unique<CMixedOutputForwarder>(receiver, std::move(context));
    if (!Native->setMixedDataOutputReceiver(forwarder.get())) {
        return false;
    }
    MixedOutput.swap(forwarder); // the engine no longer knows the old one
    return true;
}

sonimbra_recorder::sonimbra_recorder(sonimbra_engine* engine, sonimbra::IAudioRecorder* native)
    : Engine(engine), Native(native) {
    Engine->grab();
}

sonimbra_recorder::~sonimbra_recorder() {
    // Waits for the capture thread, which may be inside a callback: not with the lock held.
    withoutExceptions([this] { Native->stopRecordingAudio(); });
    {
        const std::lock_guard lock(Engine->CountLock);
        Native->drop();
    }
    Receiver.reset();
    Engine->drop();
}

void sonimbra_recorder::setReceiver(sonimbra::IAudioRecorderReceiver* receiver) {
    Receiver = counted_ptr<sonimbra::IAudioRecorderReceiver>::share(receiver);
}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "binding/native/callbacks.h"
#include "core/IThread.h"
#include "core/counted_ptr.h"

#include <sonimbra/sonimbra.h>

#include <atomic>
#include <memory>
#include <mutex>

namespace sn_internal {

class CMixedOutputForwarder;

/// An object that may be grabbed and dropped on any thread, such as the one that a garbage
/// collector finalizes on. Its end may wait for a thread that is inside a callback, so it never
/// takes place there: it is handed to a thread of its own, and an object that gets none is never
/// freed.
class CHandle : protected IThread {
public:
    void grab() { References.fetch_add(1, std::memory_order_relaxed); }

    /// Returns true when that was the last reference.
    bool drop();

private:
    void run(const SThreadStart&) override { delete this; }

    /// What the count becomes with the last reference: callbacks during the end may still grab and
    /// drop, which must not end it again.
    static constexpr std::int32_t Ending = 1 << 30;

    std::atomic<std::int32_t> References{1};
};

/// Engines must be created and ended one at a time.
std::recursive_mutex& engineLifeLock();

} // namespace sn_internal

/// Owns one native reference. Calls hold the handle, so that the last drop in one of their
/// callbacks ends the engine only when they are through.
struct sonimbra_engine final : sn_internal::CHandle {
    /// Adopt the caller's reference.
    explicit sonimbra_engine(sonimbra::ISoundEngine* native);
    explicit sonimbra_engine(sonimbra::IOfflineSoundEngine* native);
    ~sonimbra_engine() override;

    bool setMixedOutputReceiver(sonimbra_on_audio_data_ready receiver,
                                sn_internal::CContext context);

    sonimbra::ISoundEngine* const Native;
    sonimbra::IOfflineSoundEngine* const Offline = nullptr; ///< the same, when it is one
    /// To be held where the native engine is grabbed or dropped, which recorders do.
    std::recursive_mutex CountLock;

private:
    std::unique_ptr<sn_internal::CMixedOutputForwarder> MixedOutput;
};

struct sonimbra_recorder final : sn_internal::CHandle {
    /// Adopts the caller's reference on the recorder, and grabs the engine.
    sonimbra_recorder(sonimbra_engine* engine, sonimbra::IAudioRecorder* native);
    ~sonimbra_recorder() override;

    /// Before a start: to be kept beside the native recorder. The one before goes with the start.
    void setReceiver(sonimbra::IAudioRecorderReceiver* receiver);

    sonimbra_engine* const Engine;
    sonimbra::IAudioRecorder* const Native;

private:
    /// So that a context's release, which may wait for a thread that calls the engine, never takes
    /// place under a lock.
    sn_internal::counted_ptr<sonimbra::IAudioRecorderReceiver> Receiver;
};

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "binding/native/callbacks.h"
#include "core/CVirtualUnknown.h"
#include "core/counted_ptr.h"
#include "core/string.h"

#include <sonimbra/sonimbra.h>

#include <atomic>

/// The objects by which the engine calls the application's callbacks.

namespace sn_internal {

/// Delivers the stop event of one sound. A sound whose source was removed ignores it when its
/// receiver is unset, and may still report to it, so the forwarder lives until it has been
/// destroyed and the sound is done with it.
class EventForwarder final : public sonimbra::ISoundStopEventReceiver {
public:
    EventForwarder(sonimbra_on_sound_stopped callback, CContext context)
        : Callback(callback), Context(std::move(context)) {}

    /// Returns false for a sound that ignores receivers, and when it has another sound or had one.
    bool registerAt(sonimbra::ISound& sound, void* userData);

    void OnSoundStopped(sonimbra::ISound* sound, sonimbra::E_STOP_EVENT_CAUSE cause,
                        void* userData) override;

    /// For the owner, in place of delete. The sound, if it can, has been told to forget it.
    void destroy();

    /// Drops a sound; with its last reference the orphans go that it can no longer report to.
    static bool drop(sonimbra::ISound* sound);

private:
    enum class EState {
        New,
        Preparing, ///< about to be registered
        Registered,
        Checking, ///< being destroyed before it delivered
        Orphaned, ///< destroyed, but its sound may still report
        Done,     ///< delivers, or has delivered
    };

    ~EventForwarder() override = default;
    bool attachTo(sonimbra::ISound& sound);
    bool becomeOrphan();
    template <class F>
    static void takeOrphans(F&& isMeant);
    void leaveSound();
    void dropOwner();

    const sonimbra_on_sound_stopped Callback;
    CContext Context;
    sonimbra::ISound* Sound = nullptr; ///< counted while registered, and while it delivers
    std::atomic<EState> State{EState::New};
    std::atomic<std::int32_t> Owners{1}; ///< who created it, and the sound
    EventForwarder* NextOrphan = nullptr;
    std::uint64_t Number = 0; ///< among the orphans
};

/// What a sonimbra_file_factory is.
class CFileOpener : public sonimbra::IVirtualRefCounted {
public:
    CFileOpener(sonimbra_on_open_file open, CContext&& context)
        : Open(open), Context(std::move(context)) {}

    sonimbra::IFileReader* openFile(const char* fileName);

private:
    const sonimbra_on_open_file Open;
    const CContext Context;
};

/// Opens files for one engine.
class FileFactoryForwarder final : public sonimbra::IFileFactory {
public:
    explicit FileFactoryForwarder(CFileOpener* factory)
        : Factory(counted_ptr<CFileOpener>::share(factory)) {}

    sonimbra::IFileReader* createFileReader(const char* filename) override {
        return Factory->openFile(filename);
    }

private:
    const counted_ptr<CFileOpener> Factory;
};

/// What a sonimbra_file_reader is.
class StreamForwarder final : public sonimbra::IFileReader {
public:
    StreamForwarder(const sonimbra_file_reader_callbacks& callbacks, CContext context,
                    const char* fileName)
        : Callbacks(callbacks), Stream(std::move(context)), Filename(fileName) {}

    std::int32_t read(void* buffer, std::uint32_t sizeToRead) override;
    bool seek(std::int32_t finalPos, bool relativeMovement) override;
    std::int32_t getSize() override;
    std::int32_t getPos() override;
    const char* getFileName() override { return Filename.c_str(); }

private:
    const sonimbra_file_reader_callbacks Callbacks;
    const CContext Stream;
    const sonimbra::string<char> Filename;
};

class CMixedOutputForwarder final : public sonimbra::ISoundMixedOutputReceiver {
public:
    CMixedOutputForwarder(sonimbra_on_audio_data_ready callback, CContext context)
        : Callback(callback), Context(std::move(context)) {}

    void OnAudioDataReady(const void* data, std::int32_t byteCount,
                          std::int32_t sampleRate) override;

private:
    const sonimbra_on_audio_data_ready Callback;
    const CContext Context;
};

class CRecordedAudioForwarder final : public sonimbra::IAudioRecorderReceiver {
public:
    CRecordedAudioForwarder(sonimbra_on_audio_data_recorded callback, CContext context)
        : Callback(callback), Context(std::move(context)) {}

    void OnAudioDataRecorded(const void* data, std::int32_t byteCount) override;

private:
    const sonimbra_on_audio_data_recorded Callback;
    const CContext Context;
};

} // namespace sn_internal

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <sonimbra/IAudioRecorderReceiver.h>
#include <sonimbra/ISoundSource.h>
#include <sonimbra/SAudioStreamFormat.h>

namespace sonimbra {

/// Records audio from a capture device: into memory, from which a sound source can be made, or
/// block by block into a receiver of the application. Made by createSonimbraAudioRecorder.
///
/// A recorder holds a reference on its engine. It takes no lock: call its operations, grab() and
/// drop() included, from one thread at a time; recording itself goes on in a thread of its own.
/// Dropping the last reference stops the recording first, which a receiver must not do. After a
/// fork while recording, leave the child's copy alone: it has no such thread, and a stop would wait
/// for it.
class IAudioRecorder : public virtual IRefCounted {
public:
    /// Starts to record into memory. A recording that is going on is stopped first, and what was
    /// recorded before is freed. Up to 500 MiB (524288000 bytes) are kept; blocks that would go
    /// beyond that, or that memory does not suffice for, are left out.
    ///   sampleRate    frames a second, above 0; what the device converts to is up to the platform
    ///   sampleFormat  unsigned 8-bit or signed 16-bit
    ///   channelCount  1, 2 or what else the device has; sounds are made of 1 and 2
    /// Returns false when there is no capture device, it does not take the format, or the recording
    /// cannot be started (the log may say why), and at once, with no effect, inside the receiver.
    virtual bool
    startRecordingBufferedAudio(std::int32_t sampleRate = 22000,
                                E_SAMPLE_FORMAT sampleFormat = E_SAMPLE_FORMAT::Signed16Bit,
                                std::int32_t channelCount = 1) = 0;

    /// Starts to record into a receiver, which the recorder grabs and keeps until the next start or
    /// its own end; nothing is kept in memory. Otherwise as startRecordingBufferedAudio. Returns
    /// false at once, and changes nothing, when receiver is null.
    virtual bool
    startRecordingWithReceiver(IAudioRecorderReceiver* receiver, std::int32_t sampleRate = 22000,
                               E_SAMPLE_FORMAT sampleFormat = E_SAMPLE_FORMAT::Signed16Bit,
                               std::int32_t channelCount = 1) = 0;

    /// Ends the recording, with everything captured until now. Does nothing when there is none.
    /// Waits for the capture thread, a few milliseconds as a rule, and for what the receiver does
    /// in its last calls. Does nothing inside the receiver.
    virtual void stopRecordingAudio() = 0;

    /// Adds what was recorded to the engine as a sound source, which gets a copy. No reference for
    /// the caller. Returns null while recording, when nothing was recorded into memory, or when the
    /// name is null or exists already.
    virtual ISoundSource* addSoundSourceFromRecordedAudio(const char* soundName) = 0;

    /// Frees what was recorded. Ignored while recording.
    virtual void clearRecordedAudioDataBuffer() = 0;

    /// Whether a recording is going on.
    virtual bool isRecording() = 0;

    /// The format of the last recording. FrameCount is -1 while recording; after a stop it is the
    /// number of whole frames in memory (0 with a receiver). A start that fails leaves the format
    /// of what is in memory, or, when nothing is, its own with 0 frames. Before the first
    /// recording: no channels, frames and rate, signed 16-bit.
    virtual SAudioStreamFormat getAudioFormat() = 0;

    /// The recorded bytes, getAudioFormat().getSampleDataSize() of them. They stay the recorder's
    /// and valid until it starts again, is cleared or ends. Null while recording and when nothing
    /// was recorded.
    virtual void* getRecordedAudioData() = 0;

    /// "DirectSound8", "DirectSound" or "ALSA".
    virtual const char* getDriverName() = 0;

    /// Whether there is a capture device. createSonimbraAudioRecorder returns no recorder without.
    virtual bool isDriverInitialized() = 0;

    /// Starts the driver, for the two start operations above: what was recorded stays, and the
    /// receiver too. Otherwise as they.
    virtual bool startRecording(std::int32_t sampleRate, E_SAMPLE_FORMAT sampleFormat,
                                std::int32_t channelCount) = 0;
};

} // namespace sonimbra

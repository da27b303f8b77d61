// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>
/// Records audio from a capture device into memory, from which a sound source can be made.
/// </summary>
/// <remarks>
/// A recorder keeps its engine. It takes no lock: use it on one thread at a time; recording itself
/// goes on in a thread of its own. Dispose, as well as being collected, stops the recording. After
/// Dispose every member does nothing and returns false, 0 or null.
/// </remarks>
public sealed class IAudioRecorder : IDisposable {
    private readonly RecorderHandle NativeRecorder;

    /// <summary>A recorder for the default device of the driver that AutoDetect stands for.
    /// </summary>
    public IAudioRecorder(ISoundEngine engine) : this(engine, SoundOutputDriver.AutoDetect) {}

    /// <summary>A recorder for the default device of a driver.</summary>
    public IAudioRecorder(ISoundEngine engine, SoundOutputDriver driver)
        : this(engine, driver, null) {}

    /// <summary>A recorder for a device.</summary>
    /// <param name="engine">The engine that sources are added to.</param>
    /// <param name="driver">The driver to record with.</param>
    /// <param name="deviceID">
    /// From an <see cref="ISoundDeviceList"/> of recording devices; null or empty for the default
    /// device.
    /// </param>
    /// <exception cref="Exception">
    /// The engine is null, or there is no such driver or device.
    /// </exception>
    public IAudioRecorder(ISoundEngine engine, SoundOutputDriver driver, string deviceID) {
        if (engine == null) {
            throw new Exception("sound engine may not be null when creating audio recorder.");
        }
        using (Borrowed native = engine.NativeEngine.Borrow()) {
            IntPtr recorder = !ProcessEnd.HasBegun && NativeText.TryEncode(deviceID, out byte[] id)
                ? NativeMethods.sonimbra_recorder_create(native.Pointer, driver, id,
                                                               NativeMethods.Version)
                : IntPtr.Zero;
            if (recorder == IntPtr.Zero) {
                throw new Exception(
                    "Sonimbra audio recorder could not be created with the specified parameters.");
            }
            NativeRecorder = new RecorderHandle(recorder, native.Pointer);
        }
    }

    /// <summary>Stops the recording and lets go of the device and the engine.</summary>
    public void Dispose() {
        NativeRecorder.Dispose();
    }

    /// <summary>Records at 22000 frames a second, signed 16-bit, mono.</summary>
    public bool StartRecordingBufferedAudio() {
        return StartRecordingBufferedAudio(22000, SampleFormat.Signed16Bit, 1);
    }

    /// <summary>
    /// Starts to record into memory. A recording that is going on is stopped first, and what was
    /// recorded before is freed. Up to 500 MiB are kept.
    /// </summary>
    /// <param name="sampleRate">Frames a second.</param>
    /// <param name="sampleFormat">The layout of a sample.</param>
    /// <param name="channelCount">1 or 2.</param>
    /// <returns>
    /// False when the device does not take the format or the recording cannot be started.
    /// </returns>
    public bool StartRecordingBufferedAudio(int sampleRate, SampleFormat sampleFormat,
                                            int channelCount) {
        using (Borrowed recorder = NativeRecorder.Borrow()) {
            return NativeMethods.sonimbra_recorder_start_recording_buffered_audio(
                recorder.Pointer, sampleRate, sampleFormat, channelCount);
        }
    }

    /// <summary>
    /// Ends the recording, with everything captured until now. Does nothing when there is none.
    /// </summary>
    public void StopRecordingAudio() {
        using (Borrowed recorder = NativeRecorder.Borrow()) {
            NativeMethods.sonimbra_recorder_stop_recording_audio(recorder.Pointer);
        }
    }

    /// <summary>
    /// Adds what was recorded to the engine as a sound source, which gets a copy. Null while
    /// recording, when nothing was recorded, or when the name is null or exists already.
    /// </summary>
    public ISoundSource AddSoundSourceFromRecordedAudio(string soundName) {
        using (Borrowed recorder = NativeRecorder.Borrow()) {
            return NativeText.TryEncode(soundName, out byte[] name)
                ? ISoundSource.Wrap(
                    NativeMethods.sonimbra_recorder_add_sound_source_from_recorded_audio(
                        recorder.Pointer, name),
                    NativeRecorder.NativeEngine)
                : null;
        }
    }

    /// <summary>Frees what was recorded. Ignored while recording.</summary>
    public void ClearRecordedAudioDataBuffer() {
        using (Borrowed recorder = NativeRecorder.Borrow()) {
            NativeMethods.sonimbra_recorder_clear_recorded_audio_data_buffer(recorder.Pointer);
        }
    }

    /// <summary>Whether a recording is going on.</summary>
    public bool IsRecording {
        get {
            using (Borrowed recorder = NativeRecorder.Borrow()) {
                return NativeMethods.sonimbra_recorder_is_recording(recorder.Pointer);
            }
        }
    }

    /// <summary>
    /// The format of the last recording. FrameCount is -1 while recording, then the number of
    /// whole frames in memory.
    /// </summary>
    public AudioFormat AudioFormat {
        get {
            using (Borrowed recorder = NativeRecorder.Borrow()) {
                NativeMethods.sonimbra_recorder_get_audio_format(recorder.Pointer,
                                                                 out AudioFormat format);
                return format;
            }
        }
    }

    /// <summary>
    /// A copy of the recorded bytes, AudioFormat.SampleDataSize of them. Null while recording and
    /// when nothing was recorded.
    /// </summary>
    public byte[] RecordedAudioData {
        get {
            using (Borrowed recorder = NativeRecorder.Borrow()) {
                int size = AudioFormat.SampleDataSize;
                if (size <= 0) {
                    return null;
                }
                IntPtr data =
                    NativeMethods.sonimbra_recorder_get_recorded_audio_data(recorder.Pointer);
                return NativeMethods.CopyBytes(data, size);
            }
        }
    }
}

}

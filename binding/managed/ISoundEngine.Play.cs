// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

public sealed partial class ISoundEngine {
    /// <summary>Plays a source without position.</summary>
    /// <param name="source">The source; null plays nothing.</param>
    /// <param name="playLooped">Start over at the end.</param>
    /// <param name="startPaused">The sound waits until its Paused is set to false.</param>
    /// <param name="enableSoundEffects">
    /// DirectSound8: makes the sound able to take effects.
    /// </param>
    /// <returns>
    /// The sound; null when it cannot be opened or the driver makes no sounds. Dispose it, or leave
    /// it to the garbage collector: the sound plays on.
    /// </returns>
    public ISound Play2D(ISoundSource source, bool playLooped, bool startPaused,
                         bool enableSoundEffects) {
        using (Borrowed engine = BorrowToPlay())
        using (Borrowed native = Borrow(source)) {
            return ISound.Wrap(
                NativeMethods.sonimbra_engine_play2d_source(engine.Pointer, native.Pointer,
                                                            playLooped, startPaused, true,
                                                            enableSoundEffects),
                engine.Pointer);
        }
    }

    /// <summary>Plays a file or a registered source by name, once.</summary>
    public ISound Play2D(string soundFilename) {
        return Play2D(soundFilename, false);
    }

    /// <summary>Plays a file or a registered source by name.</summary>
    public ISound Play2D(string soundFilename, bool playLooped) {
        return Play2D(soundFilename, playLooped, false);
    }

    /// <summary>Plays a file or a registered source by name.</summary>
    public ISound Play2D(string soundFilename, bool playLooped, bool startPaused) {
        return Play2D(soundFilename, playLooped, startPaused, StreamMode.AutoDetect);
    }

    /// <summary>Plays a file or a registered source by name.</summary>
    public ISound Play2D(string soundFilename, bool playLooped, bool startPaused,
                         StreamMode streamMode) {
        return Play2D(soundFilename, playLooped, startPaused, streamMode, false);
    }

    /// <summary>
    /// Plays a file or a registered source by name; an unknown name is added as a file first, in
    /// automatic stream mode (streamMode is accepted for compatibility and has no effect).
    /// Otherwise as the form with a source.
    /// </summary>
    public ISound Play2D(string soundFilename, bool playLooped, bool startPaused,
                         StreamMode streamMode, bool enableSoundEffects) {
        if (!NativeText.TryEncode(soundFilename, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = BorrowToPlay()) {
            return ISound.Wrap(
                NativeMethods.sonimbra_engine_play2d(engine.Pointer, name, playLooped, startPaused,
                                                     true, streamMode, enableSoundEffects),
                engine.Pointer);
        }
    }

    /// <summary>
    /// Plays a source at a position, in the application's units; otherwise as Play2D.
    /// </summary>
    public ISound Play3D(ISoundSource source, float posX, float posY, float posZ, bool playLooped,
                         bool startPaused, bool enableSoundEffects) {
        var position = new Vector3D(posX, posY, posZ);
        using (Borrowed engine = BorrowToPlay())
        using (Borrowed native = Borrow(source)) {
            return ISound.Wrap(
                NativeMethods.sonimbra_engine_play3d_source(engine.Pointer, native.Pointer,
                                                            ref position, playLooped, startPaused,
                                                            true, enableSoundEffects),
                engine.Pointer);
        }
    }

    /// <summary>Plays a file or a registered source by name at a position, once.</summary>
    public ISound Play3D(string soundFilename, float posX, float posY, float posZ) {
        return Play3D(soundFilename, posX, posY, posZ, false);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, float posX, float posY, float posZ,
                         bool playLooped) {
        return Play3D(soundFilename, posX, posY, posZ, playLooped, false);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, float posX, float posY, float posZ, bool playLooped,
                         bool startPaused) {
        return Play3D(soundFilename, posX, posY, posZ, playLooped, startPaused,
                      StreamMode.AutoDetect);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, float posX, float posY, float posZ, bool playLooped,
                         bool startPaused, StreamMode streamMode) {
        return Play3D(soundFilename, posX, posY, posZ, playLooped, startPaused, streamMode, false);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, float posX, float posY, float posZ, bool playLooped,
                         bool startPaused, StreamMode streamMode, bool enableSoundEffects) {
        return Play3D(soundFilename, new Vector3D(posX, posY, posZ), playLooped, startPaused,
                      streamMode, enableSoundEffects);
    }

    /// <summary>Plays a file or a registered source by name at a position, once.</summary>
    public ISound Play3D(string soundFilename, Vector3D position) {
        return Play3D(soundFilename, position, false);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, Vector3D position, bool playLooped) {
        return Play3D(soundFilename, position, playLooped, false);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, Vector3D position, bool playLooped,
                         bool startPaused) {
        return Play3D(soundFilename, position, playLooped, startPaused, StreamMode.AutoDetect);
    }

    /// <summary>Plays a file or a registered source by name at a position.</summary>
    public ISound Play3D(string soundFilename, Vector3D position, bool playLooped, bool startPaused,
                         StreamMode streamMode) {
        return Play3D(soundFilename, position, playLooped, startPaused, streamMode, false);
    }

    /// <summary>
    /// Plays a file or a registered source by name at a position, in the application's units;
    /// otherwise as Play2D by name.
    /// </summary>
    public ISound Play3D(string soundFilename, Vector3D position, bool playLooped, bool startPaused,
                         StreamMode streamMode, bool enableSoundEffects) {
        if (!NativeText.TryEncode(soundFilename, out byte[] name)) {
            return null;
        }
        using (Borrowed engine = BorrowToPlay()) {
            return ISound.Wrap(
                NativeMethods.sonimbra_engine_play3d(engine.Pointer, name, ref position, playLooped,
                                                     startPaused, true, streamMode,
                                                     enableSoundEffects),
                engine.Pointer);
        }
    }

    /// <summary>
    /// Ends every playing sound and delivers their stop events, with the cause
    /// SoundFinishedPlaying.
    /// </summary>
    public void StopAllSounds() {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_stop_all_sounds(engine.Pointer);
        }
    }

    /// <summary>Pauses or resumes every playing sound.</summary>
    public void SetAllSoundsPaused(bool bPaused) {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_set_all_sounds_paused(engine.Pointer, bPaused);
        }
    }

    /// <summary>
    /// True while a sound of the source with this exact name plays or is paused. Sounds played
    /// through an alias count for the alias's base.
    /// </summary>
    public bool IsCurrentlyPlaying(string soundName) {
        using (Borrowed engine = NativeEngine.Borrow()) {
            return NativeText.TryEncode(soundName, out byte[] name) &&
                   NativeMethods.sonimbra_engine_is_currently_playing(engine.Pointer, name);
        }
    }

    /// <summary>Nothing starts to play once the process ends.</summary>
    private Borrowed BorrowToPlay() {
        return new Borrowed(ProcessEnd.HasBegun ? null : NativeEngine);
    }

    private static Borrowed Borrow(ISoundSource source) {
        return new Borrowed(source == null ? null : source.NativeSoundSource);
    }
}

}

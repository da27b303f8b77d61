// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

namespace Sonimbra {

public sealed partial class ISoundEngine {
    /// <summary>Places a listener that does not move and whose up vector is (0, 1, 0).</summary>
    public void SetListenerPosition(Vector3D pos, Vector3D lookdir) {
        SetListenerPosition(pos, lookdir, new Vector3D(0, 0, 0), new Vector3D(0, 1, 0));
    }

    /// <summary>
    /// Places the listener, in the application's units. Takes effect with the next update.
    /// </summary>
    /// <param name="pos">Where it is; at first (0, 0, 0).</param>
    /// <param name="lookdir">Where it looks; at first (1, 1, 0).</param>
    /// <param name="velPerSecond">How it moves, in units a second; at first (0, 0, 0).</param>
    /// <param name="upVector">What is up for it; at first (0, 1, 0).</param>
    public void SetListenerPosition(Vector3D pos, Vector3D lookdir, Vector3D velPerSecond,
                                    Vector3D upVector) {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_set_listener_position(
                engine.Pointer, ref pos, ref lookdir, ref velPerSecond, ref upVector);
        }
    }

    /// <summary>Places a listener that does not move and whose up vector is (0, 1, 0).</summary>
    public void SetListenerPosition(float posX, float posY, float posZ, float lookDirX,
                                    float lookDirY, float lookDirZ) {
        SetListenerPosition(new Vector3D(posX, posY, posZ),
                            new Vector3D(lookDirX, lookDirY, lookDirZ));
    }

    /// <summary>Places the listener; the same as the form with four vectors.</summary>
    public void SetListenerPosition(float posX, float posY, float posZ, float lookDirX,
                                    float lookDirY, float lookDirZ, float velPerSecondX,
                                    float velPerSecondY, float velPerSecondZ, float upVectorX,
                                    float upVectorY, float upVectorZ) {
        SetListenerPosition(new Vector3D(posX, posY, posZ),
                            new Vector3D(lookDirX, lookDirY, lookDirZ),
                            new Vector3D(velPerSecondX, velPerSecondY, velPerSecondZ),
                            new Vector3D(upVectorX, upVectorY, upVectorZ));
    }

    /// <summary>
    /// Doppler factors of hardware 3D, at first 1.0 and 1.0; other drivers ignore them.
    /// </summary>
    public void SetDopplerEffectParameters(float dopplerFactor, float distanceFactor) {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_set_doppler_effect_parameters(
                engine.Pointer, dopplerFactor, distanceFactor);
        }
    }

    /// <summary>
    /// Rolloff factor of hardware 3D, clamped to 0.0..10.0, at first 1.0; software 3D does not use
    /// it.
    /// </summary>
    public void SetRolloffFactor(float rolloffFactor) {
        using (Borrowed engine = NativeEngine.Borrow()) {
            NativeMethods.sonimbra_engine_set_rolloff_factor(engine.Pointer, rolloffFactor);
        }
    }

    /// <summary>
    /// Minimum distance for sources that have none of their own. Stored when 0 or more. Default:
    /// 1.0.
    /// </summary>
    public float Default3DSoundMinDistance {
        get {
            using (Borrowed engine = NativeEngine.Borrow()) {
                return NativeMethods.sonimbra_engine_get_default3d_sound_min_distance(
                    engine.Pointer);
            }
        }
        set {
            using (Borrowed engine = NativeEngine.Borrow()) {
                NativeMethods.sonimbra_engine_set_default3d_sound_min_distance(engine.Pointer,
                                                                               value);
            }
        }
    }

    /// <summary>
    /// Maximum distance for sources that have none of their own. Stored when above 0. Default:
    /// 1000000000.0.
    /// </summary>
    public float Default3DSoundMaxDistance {
        get {
            using (Borrowed engine = NativeEngine.Borrow()) {
                return NativeMethods.sonimbra_engine_get_default3d_sound_max_distance(
                    engine.Pointer);
            }
        }
        set {
            using (Borrowed engine = NativeEngine.Borrow()) {
                NativeMethods.sonimbra_engine_set_default3d_sound_max_distance(engine.Pointer,
                                                                               value);
            }
        }
    }
}

}

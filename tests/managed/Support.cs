// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Threading;
using NUnit.Framework;

namespace Sonimbra.Tests {

internal static class Support {
    public const int Rate = 44100;

    /// <summary>The PCM of the sound server, by name: "default" may be something else.</summary>
    public const string SoundServer = "pulse";

    /// <summary>An engine that plays nothing and updates on request.</summary>
    public static ISoundEngine NullEngine() => new ISoundEngine(SoundOutputDriver.NullDriver, 0);

    /// <summary>An engine that is heard by the sound server, with a thread of its own.</summary>
    public static ISoundEngine PlayingEngine() =>
        new ISoundEngine(SoundOutputDriver.ALSA, SoundEngineOptionFlag.MultiThreaded, SoundServer);

    /// <summary>A recorder that hears what is played.</summary>
    public static IAudioRecorder Recorder(ISoundEngine engine) =>
        new IAudioRecorder(engine, SoundOutputDriver.ALSA, SoundServer);

    /// <summary>A tone as signed 16-bit mono samples.</summary>
    public static byte[] Tone(int frames) =>
        Enumerable.Range(0, frames)
            .Select(i => (short)(12000 * Math.Sin(i * 2 * Math.PI * 441 / Rate)))
            .SelectMany(BitConverter.GetBytes)
            .ToArray();

    /// <summary>Adds it as "tone".</summary>
    public static ISoundSource AddTone(ISoundEngine engine, int frames) =>
        engine.AddSoundSourceFromPCMData(Tone(frames), "tone", new AudioFormat {
            ChannelCount = 1, FrameCount = frames, SampleRate = Rate,
            Format = SampleFormat.Signed16Bit });

    /// <summary>The same tone as a WAV file.</summary>
    public static byte[] Wav(int frames) {
        int size = 2 * frames;
        int[] header = { 0x46464952, 36 + size, 0x45564157, 0x20746D66, 16, 0x00010001, Rate,
                         2 * Rate, 0x00100002, 0x61746164, size };
        return header.SelectMany(BitConverter.GetBytes).Concat(Tone(frames)).ToArray();
    }

    /// <summary>Sets all the properties, then reads them all back.</summary>
    public static void AssertKeeps(object target, params object[] namesAndValues) {
        var names = namesAndValues.OfType<string>();
        var properties = names.Select(target.GetType().GetProperty).ToList();
        var values = namesAndValues.Where(value => !(value is string)).ToList();
        properties.ForEach(p => p.SetValue(target, values[properties.IndexOf(p)]));
        Assert.AreEqual(values, properties.Select(p => p.GetValue(target)));
    }

    /// <summary>A static field of such a forwarder: what the library calls.</summary>
    public static object CallbacksOf<T>(string field) =>
        typeof(T).GetField(field, BindingFlags.Static | BindingFlags.NonPublic).GetValue(null);

    /// <summary>What the library passes to those: a forwarder with such arguments.</summary>
    public static IntPtr Context<T>(params object[] arguments) =>
        Callbacks.CreateContext(typeof(T).GetConstructors(
            BindingFlags.Instance | BindingFlags.NonPublic)[0].Invoke(arguments));

    /// <summary>An effect control even where the driver has none.</summary>
    public static ISoundEffectControl Effects(ISound sound) {
        using (Borrowed native = sound.NativeSound.Borrow()) {
            return new ISoundEffectControl(native.Pointer, sound.NativeSound.NativeEngine);
        }
    }

    public static void WaitUntil(Func<bool> condition, string what) =>
        Assert.IsTrue(SpinWait.SpinUntil(condition, 10000), "no {0} within ten seconds", what);

    public static void Collect() {
        GC.Collect();
        GC.WaitForPendingFinalizers();
    }

    /// <summary>
    /// Some may stay: whatever looks like an address, on any stack, keeps an object alive.
    /// </summary>
    public static void WaitUntilMostAreCollected(ICollection<WeakReference> references) =>
        WaitUntil(() => {
            Collect();
            return references.Count(r => r.IsAlive) <= references.Count / 4;
        }, "end of most objects");

    /// <summary>
    /// Runs it on a thread that then ends, so that no register or stack keeps its objects.
    /// </summary>
    public static void OnAThread(Action action) {
        var thread = new Thread(() => action());
        thread.Start();
        thread.Join();
    }
}

internal sealed class Factory : IFileFactory {
    private readonly Func<string, Stream> open;
    public Factory(Func<string, Stream> open) => this.open = open;
    public Stream openFile(string filename) => open(filename);
}

/// <summary>Collects stop events as texts.</summary>
internal sealed class StopEvents : ISoundStopEventReceiver {
    private readonly List<string> texts = new List<string>();
    public Action<ISound> Then;
    public ISound LastSound;

    public string Text {
        get { lock (texts) { return string.Join("; ", texts); } }
    }

    public void OnSoundStopped(ISound sound, StopEventCause reason, object userData) {
        LastSound = sound;
        lock (texts) {
            texts.Add(reason.ToString().Replace("Sound", "") + " " + (userData ?? "null"));
        }
        Then?.Invoke(sound);
    }
}

}

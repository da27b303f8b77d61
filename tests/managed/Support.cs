// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Threading;
using NUnit.Framework;

namespace Sonimbra.Tests {

internal static class Support {
    public const int Rate = 44100;

    /// <summary>The PCM of the sound server, by name: "default" may be something else.</summary>
    public const string SoundServer = "pulse";

    public static readonly AudioFormat Mono16 =
        new AudioFormat { ChannelCount = 1, FrameCount = int.MaxValue / 4, SampleRate = Rate,
                          Format = SampleFormat.Signed16Bit };

    /// <summary>An engine that plays nothing and updates on request.</summary>
    public static ISoundEngine NullEngine() {
        return new ISoundEngine(SoundOutputDriver.NullDriver, 0);
    }

    /// <summary>An engine that is heard by the sound server, with a thread of its own.</summary>
    public static ISoundEngine PlayingEngine() {
        return new ISoundEngine(SoundOutputDriver.ALSA, SoundEngineOptionFlag.MultiThreaded,
                                SoundServer);
    }

    /// <summary>A tone as signed 16-bit mono samples.</summary>
    public static byte[] Tone(int frames) {
        var samples = new short[frames];
        for (int i = 0; i < frames; ++i) {
            samples[i] = (short)(12000 * Math.Sin(i * 2 * Math.PI * 441 / Rate));
        }
        var bytes = new byte[2 * frames];
        Buffer.BlockCopy(samples, 0, bytes, 0, bytes.Length);
        return bytes;
    }

    /// <summary>The same tone as a WAV file.</summary>
    public static byte[] Wav(int frames) {
        var bytes = new MemoryStream();
        var writer = new BinaryWriter(bytes);
        writer.Write(0x46464952); // "RIFF"
        writer.Write(36 + 2 * frames);
        writer.Write(0x20746D6645564157); // "WAVEfmt "
        writer.Write(16);
        writer.Write(0x00010001); // PCM, mono
        writer.Write(Rate);
        writer.Write(2 * Rate);
        writer.Write(0x00100002); // 2 bytes in a frame, 16 bits in a sample
        writer.Write(0x61746164); // "data"
        writer.Write(2 * frames);
        writer.Write(Tone(frames));
        return bytes.ToArray();
    }

    public static void WaitUntil(Func<bool> condition, string what) {
        for (int waited = 0; waited < 1000; ++waited) {
            if (condition()) {
                return;
            }
            Thread.Sleep(10);
        }
        Assert.Fail("no " + what + " within ten seconds");
    }

    /// <summary>Runs a program that stands beside the tests; returns its exit code.</summary>
    public static int RunProgram(string name, string arguments, out string printed) {
        string folder = Path.GetDirectoryName(typeof(Support).Assembly.Location);
        var start = new ProcessStartInfo("mono", Path.Combine(folder, name) + " " + arguments) {
            UseShellExecute = false,
            RedirectStandardOutput = true,
        };
        using (Process process = Process.Start(start)) {
            if (!process.WaitForExit(60000)) {
                process.Kill();
                Assert.Fail(name + " does not end");
            }
            printed = process.StandardOutput.ReadToEnd();
            return process.ExitCode;
        }
    }

    /// <summary>
    /// Runs it on a thread that then ends, so that no register or stack keeps its objects.
    /// </summary>
    public static void OnAThread(Action action) {
        Exception failure = null;
        var thread = new Thread(() => {
            try {
                action();
            } catch (Exception exception) {
                failure = exception;
            }
        });
        thread.Start();
        thread.Join();
        if (failure != null) {
            Assert.Fail(failure.ToString());
        }
    }

    /// <summary>
    /// Some may stay: whatever looks like an address, on any stack, keeps an object alive.
    /// </summary>
    public static void WaitUntilMostAreCollected(ICollection<WeakReference> references) {
        WaitUntil(() => {
            GC.Collect();
            GC.WaitForPendingFinalizers();
            return references.Count(r => r.IsAlive) <= references.Count / 4;
        }, "end of most objects");
    }
}

internal sealed class StopEvents : ISoundStopEventReceiver {
    private readonly List<string> texts = new List<string>();
    public Action<ISound> Then;
    public ISound LastSound;

    public int Count {
        get { lock (texts) { return texts.Count; } }
    }

    public string Text {
        get { lock (texts) { return string.Join("; ", texts); } }
    }

    public void OnSoundStopped(ISound sound, StopEventCause reason, object userData) {
        lock (texts) {
            texts.Add(reason + " " + (userData ?? "null"));
            LastSound = sound;
        }
        Then?.Invoke(sound);
    }
}

}

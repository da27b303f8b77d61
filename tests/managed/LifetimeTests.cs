// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Threading;
using NUnit.Framework;

namespace Sonimbra.Tests {

/// <summary>Who keeps whom, and what happens when nobody does any more.</summary>
[TestFixture]
public class LifetimeTests {
    /// <summary>Never has a file. The engine keeps it for its life, which it shows.</summary>
    private sealed class Witness : IFileFactory {
        public Stream openFile(string filename) {
            return null;
        }
    }

    private static ISoundEngine Watched(Func<ISoundEngine> create, List<WeakReference> ends) {
        ISoundEngine engine = create();
        var witness = new Witness();
        engine.AddFileFactory(witness);
        ends.Add(new WeakReference(witness));
        return engine;
    }

    private static ISoundSource AddTone(ISoundEngine engine, int frames) {
        return engine.AddSoundSourceFromPCMData(Support.Tone(frames), "tone", Support.Mono16);
    }

    [Test]
    public void EnginesEndWithTheirLastWrapper() {
        var ends = new List<WeakReference>();
        var kept = new List<IDisposable>();
        Support.OnAThread(() => {
            for (int i = 0; i < 4; ++i) {
                ISoundEngine engine = Watched(Support.PlayingEngine, ends);
                ISoundSource source = AddTone(engine, Support.Rate);
                kept.Add(engine.Play2D(source, true, false, false));
                kept.Add(source);
                kept.Add(new IAudioRecorder(engine, SoundOutputDriver.ALSA, Support.SoundServer));
            }
        });
        for (int first = 0; first < 3; ++first) {
            GC.Collect();
            GC.WaitForPendingFinalizers();
            Assert.IsTrue(ends.All(end => end.IsAlive));
            for (int i = 0; i < kept.Count; i += 3) {
                kept[i + first].Dispose();
                kept[i + first].Dispose();
            }
        }
        Support.WaitUntilMostAreCollected(ends);
    }

    [Test]
    public void FinalizersMayRunInAnyOrder() {
        var ends = new List<WeakReference>();
        Support.OnAThread(() => {
            for (int i = 0; i < 20; ++i) {
                ISoundEngine engine = Watched(Support.NullEngine, ends);
                engine.AddSoundSourceAlias(AddTone(engine, 10), "alias");
                engine.GetSoundSource("file");
                if (i % 4 == 0) {
                    engine = Watched(Support.PlayingEngine, ends);
                    engine.Play2D(AddTone(engine, 1000), i == 0, false, false);
                }
            }
        });
        Support.WaitUntilMostAreCollected(ends);
    }

    [Test]
    public void ReceiversAreKeptUntilTheSoundIsDisposed() {
        var watched = new List<WeakReference>();
        var sounds = new List<WeakReference>();
        ISoundEngine engine = Support.PlayingEngine();
        Support.OnAThread(() => {
            ISoundSource tone = AddTone(engine, 1000);
            for (int i = 0; i < 4; ++i) {
                ISound sound = engine.Play2D(tone, false, false, false);
                var events = new StopEvents();
                var data = new object();
                sound.setSoundStopEventReceiver(events, data);
                sounds.Add(new WeakReference(sound));
                watched.Add(new WeakReference(data));
            }
        });
        GC.Collect();
        Support.WaitUntil(() => !engine.IsCurrentlyPlaying("tone"), "end of the sounds");
        GC.Collect();
        Support.OnAThread(() => sounds.ForEach(sound => ((ISound)sound.Target).Dispose()));
        Support.WaitUntilMostAreCollected(watched);
        Support.WaitUntilMostAreCollected(sounds);
    }

    [Test]
    public void CollectsWhileCallbacksFly() {
        const int sounds = 400;
        ISoundEngine engine = Support.PlayingEngine();
        ISoundSource tone = AddTone(engine, 300);
        var events = new StopEvents();
        events.Then = sound => {
            if (sound.Finished) {
                sound.Dispose();
            }
        };
        bool isOver = false;
        var collector = new Thread(() => {
            while (!Volatile.Read(ref isOver)) {
                GC.Collect();
                GC.WaitForPendingFinalizers();
            }
        });
        collector.Start();
        for (int i = 0; i < sounds; ++i) {
            ISound sound = engine.Play2D(tone, false, true, false);
            sound.setSoundStopEventReceiver(events, i);
            sound.Paused = false;
            sound.Volume = sound.Finished ? 0 : 0.1f; // while the callback may dispose it
            ISoundSource again = engine.GetSoundSource("tone");
            Assert.AreEqual(300, again.AudioFormat.FrameCount);
            if (i % 3 == 0) {
                engine.Play2D(again, false, i % 2 == 0, false).Stop();
            }
        }
        Support.WaitUntil(() => events.Count == sounds, "stop event of each sound");
        Volatile.Write(ref isOver, true);
        collector.Join();
    }

    [Test]
    public void ManyThreadsMayDispose() {
        ISoundEngine engine = Support.PlayingEngine();
        ISoundSource tone = AddTone(engine, 300);
        for (int i = 0; i < 100; ++i) {
            ISound sound = engine.Play2D(tone, true, false, false);
            sound.setSoundStopEventReceiver(new StopEvents(), null);
            var threads = new Thread[3];
            for (int t = 0; t < threads.Length; ++t) {
                threads[t] = new Thread(() => {
                    sound.Position = sound.Position + new Vector3D(1, 1, 1);
                    sound.Dispose();
                    sound.setSoundStopEventReceiver(new StopEvents());
                });
                threads[t].Start();
            }
            Array.ForEach(threads, thread => thread.Join());
            EngineTests.AssertNeutral(sound);
        }
    }

    [Test]
    public void ProcessesEndWhileSoundsPlay() {
        int code = Support.RunProgram("Sonimbra.Tests.exe", "", out string printed);
        Assert.AreEqual(7, code, printed);
    }

    [Test]
    public void TheExamplePlays() {
        string file = Path.GetTempFileName();
        File.WriteAllBytes(file, Support.Wav(30000));
        int code = Support.RunProgram("PlayAndOrbit.exe", file + " " + Support.SoundServer,
                                      out string printed);
        File.Delete(file);
        Assert.AreEqual(file + " has ended: SoundFinishedPlaying\n", printed);
        Assert.AreEqual(0, code);
    }

    /// <summary>What ProcessesEndWhileSoundsPlay starts.</summary>
    public static int Main() {
        ISoundEngine engine = Support.PlayingEngine();
        AddTone(engine, 300);
        var events = new StopEvents();
        for (int i = 0; i < 10; ++i) {
            ISound sound = engine.Play2D("tone", i < 9, true);
            sound.setSoundStopEventReceiver(events);
            sound.Paused = false;
        }
        Support.WaitUntil(() => events.Count == 1, "stop event");
        return 7;
    }
}

}

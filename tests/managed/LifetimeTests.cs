// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Linq;
using System.Threading;
using System.Threading.Tasks;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

/// <summary>Who keeps whom, and what happens when nobody does any more.</summary>
public class LifetimeTests {
    private readonly List<WeakReference> watched = new List<WeakReference>();

    [SetUp]
    public void Forget() => watched.Clear();

    /// <summary>The engine keeps a factory for its life, which that one shows.</summary>
    private ISoundEngine Watch(ISoundEngine engine) {
        var factory = new Factory(name => null);
        engine.AddFileFactory(factory);
        watched.Add(new WeakReference(factory));
        return engine;
    }

    private static IDisposable Wrapper(string kind, ISoundEngine engine) {
        ISoundSource source = Support.AddTone(engine, Support.Rate);
        return kind == "source" ? source
             : kind == "sound" ? engine.Play2D(source, true, false, false)
             : kind == "effects" ? Support.Effects(engine.Play2D(source, true, false, false))
             : (IDisposable)Support.Recorder(engine);
    }

    [Test]
    public void EnginesEndWithTheirLastWrapper(
        [Values("source", "sound", "effects", "recorder")] string kind) {
        var kept = new List<IDisposable>();
        Support.OnAThread(() => {
            for (int i = 0; i < 4; ++i) {
                kept.Add(Wrapper(kind, Watch(Support.PlayingEngine())));
            }
        });
        Support.Collect();
        Support.Collect();
        IsTrue(watched.All(end => end.IsAlive));
        kept.ForEach(wrapper => wrapper.Dispose());
        Support.WaitUntilMostAreCollected(watched);
    }

    [Test]
    public void FinalizersMayRunInAnyOrder() {
        Support.OnAThread(() => {
            for (int i = 0; i < 20; ++i) {
                ISoundEngine engine = Watch(Support.NullEngine());
                engine.AddSoundSourceAlias(Support.AddTone(engine, 10), "alias");
                if (i % 4 == 0) {
                    engine = Watch(Support.PlayingEngine());
                    engine.Play2D(Support.AddTone(engine, 1000), i == 0, false, false);
                }
            }
        });
        Support.WaitUntilMostAreCollected(watched);
    }

    /// <summary>Nothing but the forwarders keeps receivers, sounds and user data.</summary>
    [Test]
    public void CollectsWhileCallbacksFly() {
        const int sounds = 400;
        ISoundEngine engine = Support.PlayingEngine();
        ISoundSource tone = Support.AddTone(engine, 300);
        int eventCount = 0;
        bool isOver = false;
        ThreadPool.QueueUserWorkItem(state => {
            while (!Volatile.Read(ref isOver)) {
                Support.Collect();
            }
        });
        Support.OnAThread(() => {
            for (int i = 0; i < sounds; ++i) {
                var events = new StopEvents { Then = stopped => stopped.Dispose() };
                events.Then += stopped => Interlocked.Increment(ref eventCount);
                ISound sound = engine.Play2D(tone, false, true, false);
                sound.setSoundStopEventReceiver(events, new byte[i]);
                sound.Paused = false;
                sound.Volume = sound.Finished ? 0 : 0.1f; // while the callback may dispose it
                watched.Add(new WeakReference(events));
                watched.Add(new WeakReference(sound));
                engine.Play2D(engine.GetSoundSource("tone"), false, i % 2 == 0, false).Stop();
            }
        });
        Support.WaitUntil(() => eventCount == sounds, "stop event of each sound");
        Volatile.Write(ref isOver, true);
        Support.WaitUntilMostAreCollected(watched);
    }

    [Test]
    public void SourcesMayGoWhileOthersFetchThem() {
        ISoundEngine engine = Support.NullEngine();
        bool isOver = false;
        var fetching = new Thread(() => {
            while (!Volatile.Read(ref isOver)) {
                using (ISoundSource source = engine.GetSoundSource("tone", false)) {
                    IsTrue(source == null || source.Name == "tone");
                    byte[] data = source?.SampleData;
                    IsTrue(data == null || data.Length > 0);
                }
            }
        });
        fetching.Start();
        for (int i = 0; i < 3000; ++i) {
            Support.AddTone(engine, 10).ForceReloadAtNextUse();
            engine.RemoveSoundSource("tone");
        }
        Volatile.Write(ref isOver, true);
        fetching.Join();
    }

    [Test]
    public void ManyThreadsMayDispose() {
        ISoundEngine engine = Support.PlayingEngine();
        ISoundSource tone = Support.AddTone(engine, 300);
        for (int i = 0; i < 100; ++i) {
            ISound sound = engine.Play2D(tone, true, false, false);
            sound.setSoundStopEventReceiver(new StopEvents());
            Parallel.For(0, 3, thread => {
                sound.Position = sound.Position + new Vector3D(1, 1, 1);
                sound.Dispose();
                sound.setSoundStopEventReceiver(new StopEvents());
            });
            EngineTests.AssertNeutral(sound);
        }
    }

    [Test]
    public void ProcessesEndWhileSoundsPlay() {
        using (Process process = Process.Start("mono", GetType().Assembly.Location)) {
            IsTrue(process.WaitForExit(60000), "it does not end");
            AreEqual(7, process.ExitCode);
        }
    }

    /// <summary>What ProcessesEndWhileSoundsPlay starts.</summary>
    public static int Main() {
        ISoundEngine engine = Support.PlayingEngine();
        Support.AddTone(engine, 300);
        var events = new StopEvents();
        for (int i = 0; i < 10; ++i) {
            ISound sound = engine.Play2D("tone", i < 9, true);
            sound.setSoundStopEventReceiver(events);
            sound.Paused = false;
        }
        Support.WaitUntil(() => events.Text != "", "stop event");
        var busy = new Thread(() => {
            while (true) {
                engine.Play2D("tone")?.setSoundStopEventReceiver(new StopEvents());
            }
        });
        busy.IsBackground = true;
        busy.Start();
        Thread.Sleep(100);
        return 7;
    }
}

}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Linq;
using System.Reflection;
using NUnit.Framework;

namespace Sonimbra.Tests {

[TestFixture]
public class SoundTests {
    private ISoundEngine engine;
    private ISoundSource second; // its length
    private StopEvents events;

    [SetUp]
    public void CreateEngine() {
        engine = Support.PlayingEngine();
        second = engine.AddSoundSourceFromPCMData(Support.Tone(Support.Rate), "second",
                                                  Support.Mono16);
        events = new StopEvents();
    }

    [TearDown]
    public void StopSounds() {
        engine.StopAllSounds();
    }

    private ISound PlayWithEvents(object userData) {
        ISound sound = engine.Play2D(second, false, false, false);
        sound.setSoundStopEventReceiver(events, userData);
        return sound;
    }

    private void ExpectEvents(string text) {
        Support.WaitUntil(() => events.Text == text, text);
    }

    [Test]
    public void KeepsItsSettings() {
        ISound sound = engine.Play3D(second, 1, 2, 3, true, true, false);
        Assert.AreEqual(new Vector3D(1, 2, 3), sound.Position);
        Assert.AreEqual(new Vector3D(), sound.Velocity);
        Assert.AreEqual(new[] { true, true, false },
                        new[] { sound.Paused, sound.Looped, sound.Finished });
        Assert.AreEqual(1000, sound.PlayLength);
        sound.Position = new Vector3D(4, 5, 6);
        sound.Velocity = new Vector3D(7, 8, 9);
        sound.Volume = 0.5f;
        sound.Pan = 0.25f;
        sound.MinDistance = 2;
        sound.MaxDistance = 50;
        sound.PlaybackSpeed = 1.5f;
        sound.Looped = false;
        Assert.AreEqual(new Vector3D(4, 5, 6), sound.Position);
        Assert.AreEqual(new Vector3D(7, 8, 9), sound.Velocity);
        Assert.AreEqual(new[] { 0.5f, 0.25f, 2, 50, 1.5f },
                        new[] { sound.Volume, sound.Pan, sound.MinDistance, sound.MaxDistance,
                                sound.PlaybackSpeed });
        sound.PlayPosition = 500;
        Assert.AreEqual(500, sound.PlayPosition, 1);
        sound.Paused = false;
        Assert.AreEqual(new[] { false, false }, new[] { sound.Paused, sound.Looped });
        Support.WaitUntil(() => sound.PlayPosition > 600, "progress");
        sound.Stop();
        Assert.IsTrue(sound.Finished);
    }

    [Test]
    public void PlaysInEveryForm() {
        var at = new Vector3D(1, 2, 3);
        const StreamMode auto = StreamMode.AutoDetect;
        ISound[] once = {
            engine.Play2D("second"), engine.Play2D("second", false),
            engine.Play3D("second", 1, 2, 3), engine.Play3D("second", at),
        };
        ISound[] looped = {
            engine.Play2D("second", true), engine.Play3D("second", 1, 2, 3, true),
            engine.Play3D("second", at, true),
        };
        ISound[] paused = {
            engine.Play2D("second", true, true), engine.Play2D("second", true, true, auto),
            engine.Play2D("second", true, true, auto, true),
            engine.Play2D(second, true, true, false), engine.Play3D("second", 1, 2, 3, true, true),
            engine.Play3D("second", 1, 2, 3, true, true, auto),
            engine.Play3D("second", 1, 2, 3, true, true, auto, true),
            engine.Play3D("second", at, true, true), engine.Play3D("second", at, true, true, auto),
            engine.Play3D("second", at, true, true, auto, true),
        };
        Assert.IsTrue(once.All(s => !s.Looped && !s.Paused));
        Assert.IsTrue(looped.All(s => s.Looped && !s.Paused));
        Assert.IsTrue(paused.All(s => s.Looped && s.Paused));
        ISound[] all = once.Concat(looped).Concat(paused).ToArray();
        Assert.AreEqual(10, all.Count(s => s.Position == at));
        Assert.IsTrue(engine.IsCurrentlyPlaying("second"));
        engine.SetAllSoundsPaused(true);
        Assert.IsTrue(all.All(s => s.Paused));
        engine.StopAllSounds();
        Assert.IsTrue(all.All(s => s.Finished));
        Assert.IsFalse(engine.IsCurrentlyPlaying("second"));
        Assert.AreEqual("ALSA", engine.Name);
        Assert.IsTrue(engine.IsMultiThreaded);
    }

    [Test]
    public void TellsWhyItEnded() {
        ISound byItself = PlayWithEvents("data");
        ExpectEvents("SoundFinishedPlaying data");
        Assert.AreSame(byItself, events.LastSound);
        PlayWithEvents(7).Stop();
        ExpectEvents("SoundFinishedPlaying data; SoundStoppedByUser 7");
        PlayWithEvents(null);
        engine.StopAllSounds();
        ExpectEvents("SoundFinishedPlaying data; SoundStoppedByUser 7; SoundFinishedPlaying null");
        ISound removed = PlayWithEvents("gone");
        engine.RemoveAllSoundSources();
        StringAssert.EndsWith("; SoundStoppedBySourceRemoval gone", events.Text);
        Assert.AreEqual(0, removed.Volume, "a removed sound is neutral");
        removed.setSoundStopEventReceiver(events);
        foreach (ISound sound in new[] { byItself, removed }) {
            sound.Stop();
            sound.Dispose();
        }
        Assert.AreEqual(4, events.Count, "each is told once");
    }

    [Test]
    public void TellsOnlyTheLastReceiver() {
        var earlier = new StopEvents();
        ISound sound = PlayWithEvents("first");
        sound.setSoundStopEventReceiver(null);
        sound.setSoundStopEventReceiver(earlier);
        sound.setSoundStopEventReceiver(events, "last");
        PlayWithEvents("unregistered").setSoundStopEventReceiver(null, "x");
        PlayWithEvents("disposed").Dispose();
        engine.StopAllSounds();
        Assert.AreEqual("SoundFinishedPlaying last", events.Text);
        Assert.AreEqual(0, earlier.Count);
    }

    [Test]
    public void ReceiversMayThrowAndDispose() {
        events.Then = sound => {
            sound.Dispose();
            engine.Play2D(second, false, true, false).Dispose();
            throw new InvalidOperationException("thrown by a receiver");
        };
        ISound[] sounds = { PlayWithEvents(1), PlayWithEvents(2) };
        engine.StopAllSounds();
        Assert.AreEqual("SoundFinishedPlaying 1; SoundFinishedPlaying 2", events.Text);
        foreach (ISound sound in sounds) {
            sound.Dispose();
            EngineTests.AssertNeutral(sound);
        }
    }

    [Test]
    public void HasNoEffectsHere() {
        ISound sound = engine.Play2D(second, true, false, true);
        Assert.IsNull(sound.SoundEffectControl);
        ISoundEffectControl effects;
        using (Borrowed native = sound.NativeSound.Borrow()) {
            effects = new ISoundEffectControl(native.Pointer, sound.NativeSound.NativeEngine);
        }
        sound.Dispose();
        Assert.AreEqual(9, typeof(ISoundEffectControl).GetProperties().Length);
        Assert.AreEqual(18, typeof(ISoundEffectControl).GetMethods().Count(
            m => m.Name.StartsWith("Enable")));
        EngineTests.AssertNeutral(effects);
        effects.Dispose();
        EngineTests.AssertNeutral(effects);
    }

    [Test]
    public void PlaysOnWhenDisposed() {
        engine.Play2D(second, true, false, false).Dispose();
        Assert.IsTrue(engine.IsCurrentlyPlaying("second"));
        second.Dispose();
        Assert.IsTrue(engine.IsCurrentlyPlaying("second"));
    }
}

}

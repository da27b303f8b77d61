// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

[TestFixture]
public class SoundTests {
    private ISoundEngine engine;
    private ISoundSource tone; // of a second
    private StopEvents events;

    [SetUp]
    public void CreateEngine() {
        engine = Support.PlayingEngine();
        tone = Support.AddTone(engine, Support.Rate);
        events = new StopEvents();
    }

    [TearDown]
    public void StopSounds() => engine.StopAllSounds();

    private ISound PlayWithEvents(object userData) {
        ISound sound = engine.Play2D(tone, false, false, false);
        sound.setSoundStopEventReceiver(events, userData);
        return sound;
    }

    [Test]
    public void KeepsItsSettings() {
        ISound sound = engine.Play3D(tone, 1, 2, 3, true, true, false);
        AreEqual(1000, sound.PlayLength);
        Support.AssertKeeps(sound, "Position", new Vector3D(4, 5, 6), "Velocity",
                            new Vector3D(7, 8, 9), "Volume", 0.5f, "Pan", 0.25f, "MinDistance", 2f,
                            "MaxDistance", 50f, "PlaybackSpeed", 1.5f, "Looped", false, "Paused",
                            true, "PlayPosition", 500u);
        sound.Paused = false;
        Support.WaitUntil(() => sound.PlayPosition > 600, "progress");
        IsFalse(sound.Paused || sound.Finished);
        sound.Stop();
        IsTrue(sound.Finished);
    }

    [Test]
    public void PlaysInEveryForm() {
        var at = new Vector3D(1, 2, 3);
        var usable = new Dictionary<string, object> {
            { "source", tone }, { "soundFilename", "tone" }, { "posX", 1 }, { "posY", 2 },
            { "posZ", 3 }, { "position", at }, { "playLooped", true }, { "startPaused", true },
            { "streamMode", StreamMode.AutoDetect }, { "enableSoundEffects", true },
        };
        MethodInfo[] forms = typeof(ISoundEngine).GetMethods().Where(
            m => m.Name == "Play2D" || m.Name == "Play3D").ToArray();
        AreEqual(17, forms.Length);
        foreach (MethodInfo form in forms) {
            string[] names = form.GetParameters().Select(p => p.Name).ToArray();
            var sound = (ISound)form.Invoke(engine, names.Select(n => usable[n]).ToArray());
            AreEqual(names.Contains("playLooped"), sound.Looped, "{0}", form);
            AreEqual(names.Contains("startPaused"), sound.Paused, "{0}", form);
            AreEqual(form.Name == "Play3D" ? at : new Vector3D(), sound.Position, "{0}", form);
        }
        ISound last = engine.Play2D("tone", true);
        IsTrue(engine.IsCurrentlyPlaying("tone"));
        engine.SetAllSoundsPaused(true);
        IsTrue(last.Paused);
        engine.StopAllSounds();
        IsFalse(engine.IsCurrentlyPlaying("tone"));
        IsTrue(last.Finished && engine.IsMultiThreaded && engine.Name == "ALSA");
    }

    [Test]
    public void TellsOnceWhyItEnded() {
        ISound byItself = PlayWithEvents("data"), byUser = PlayWithEvents(7);
        byUser.Stop();
        Support.WaitUntil(() => events.Count == 2, "events");
        AreEqual("StoppedByUser 7; FinishedPlaying data", events.Text);
        AreSame(byItself, events.LastSound);
        ISound stopped = PlayWithEvents(null);
        engine.StopAllSounds();
        ISound removed = PlayWithEvents("gone");
        engine.RemoveAllSoundSources();
        StringAssert.EndsWith("; FinishedPlaying null; StoppedBySourceRemoval gone", events.Text);
        AreEqual(0, removed.Volume, "a removed sound is neutral");
        foreach (ISound sound in new[] { byItself, byUser, stopped, removed }) {
            sound.Stop();
            sound.setSoundStopEventReceiver(events);
            sound.Dispose();
        }
        AreEqual(4, events.Count);
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
        AreEqual("FinishedPlaying last", events.Text);
        AreEqual(0, earlier.Count);
    }

    [Test]
    public void ReceiversMayThrowAndDispose() {
        events.Then = sound => {
            sound.Dispose();
            engine.Play2D(tone, false, true, false).Dispose();
            throw new InvalidOperationException("thrown by a receiver");
        };
        ISound[] sounds = { PlayWithEvents(1), PlayWithEvents(2) };
        engine.StopAllSounds();
        AreEqual("FinishedPlaying 1; FinishedPlaying 2", events.Text);
        Array.ForEach(sounds, sound => sound.Dispose());
        Array.ForEach(sounds, EngineTests.AssertNeutral);
    }

    [Test]
    public void HasNoEffectsHere() {
        ISound sound = engine.Play2D(tone, true, false, true);
        IsNull(sound.SoundEffectControl);
        ISoundEffectControl effects;
        using (Borrowed native = sound.NativeSound.Borrow()) {
            effects = new ISoundEffectControl(native.Pointer, sound.NativeSound.NativeEngine);
        }
        sound.Dispose();
        EngineTests.AssertNeutral(effects); // it was disposed just now: once more
        EngineTests.AssertNeutral(effects);
    }

    [Test]
    public void PlaysOnWhenDisposed() {
        engine.Play2D(tone, true, false, false).Dispose();
        tone.Dispose();
        IsTrue(engine.IsCurrentlyPlaying("tone"));
    }
}

}

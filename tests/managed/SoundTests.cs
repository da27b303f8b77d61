// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using System.Threading;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

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
        sound.Looped = true;
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
        Support.WaitUntil(() => events.Text.Contains(";"), "events");
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
        AreEqual(4, events.Text.Split(';').Length);
    }

    [Test]
    public void TellsOnlyTheLastReceiverWhichMayThrowAndDispose() {
        var earlier = new StopEvents();
        ISound[] sounds = { PlayWithEvents(1), PlayWithEvents(2), PlayWithEvents(3) };
        sounds[0].setSoundStopEventReceiver(null);
        sounds[0].setSoundStopEventReceiver(earlier);
        sounds[0].setSoundStopEventReceiver(events, "last");
        sounds[1].setSoundStopEventReceiver(null, "unregistered");
        PlayWithEvents("disposed").Dispose();
        events.Then = sound => {
            sound.Dispose();
            engine.Play2D(tone, false, true, false).Dispose();
            throw new InvalidOperationException("thrown by a receiver");
        };
        engine.StopAllSounds();
        AreEqual("FinishedPlaying last; FinishedPlaying 3", events.Text);
        AreEqual("", earlier.Text);
        foreach (ISound sound in sounds) {
            sound.Dispose();
            EngineTests.AssertNeutral(sound);
        }
    }

    [Test]
    public void TellsAReceiverOnlyOnce() {
        IntPtr context = Support.Context<EventForwarder>(events, null, "data");
        var deliver = (NativeMethods.OnSoundStopped)Support.CallbacksOf<EventForwarder>(
            "DeliverCallback");
        deliver(context, IntPtr.Zero, StopEventCause.SoundStoppedByUser, IntPtr.Zero);
        deliver(context, IntPtr.Zero, StopEventCause.SoundFinishedPlaying, IntPtr.Zero);
        AreEqual("StoppedByUser data", events.Text);
        Callbacks.FreeContext(context);
    }

    [Test]
    public void RecordsWhatIsPlayedIntoASource() {
        IAudioRecorder recorder = Support.Recorder(engine);
        IsFalse(recorder.StartRecordingBufferedAudio(-1, SampleFormat.Signed16Bit, 1));
        IsTrue(recorder.StartRecordingBufferedAudio());
        recorder.StopRecordingAudio();
        AudioFormat format = recorder.AudioFormat;
        AreEqual("22000 1 Signed16Bit",
                 format.SampleRate + " " + format.ChannelCount + " " + format.Format);
        recorder.ClearRecordedAudioDataBuffer();

        engine.Play2D("tone", true);
        IsNull(recorder.RecordedAudioData);
        IsNull(recorder.AddSoundSourceFromRecordedAudio("nothing yet"));
        IsTrue(recorder.StartRecordingBufferedAudio(Support.Rate, SampleFormat.Signed16Bit, 2));
        IsTrue(recorder.IsRecording);
        AreEqual(-1, recorder.AudioFormat.FrameCount);
        IsNull(recorder.RecordedAudioData);
        IsNull(recorder.AddSoundSourceFromRecordedAudio("too early"));
        Thread.Sleep(3000);
        recorder.StopRecordingAudio();
        IsFalse(recorder.IsRecording);

        format = recorder.AudioFormat;
        byte[] data = recorder.RecordedAudioData;
        AreEqual(format.SampleDataSize, data.Length);
        IsTrue(Enumerable.Range(0, data.Length / 2).Any(i => (sbyte)data[2 * i + 1] > 40),
               "the tone is not heard");
        ISoundSource source = recorder.AddSoundSourceFromRecordedAudio("recorded");
        AreEqual("recorded", source.Name);
        AreEqual(format, source.AudioFormat);
        AreEqual(data, source.SampleData);
        IsNull(recorder.AddSoundSourceFromRecordedAudio("recorded"), "it exists");
        IsNull(recorder.AddSoundSourceFromRecordedAudio(null));
        IsNull(recorder.AddSoundSourceFromRecordedAudio(new string('x', 2024)));
        recorder.ClearRecordedAudioDataBuffer();
        IsNull(recorder.RecordedAudioData);
        IsNotNull(engine.Play2D("recorded"), "the source has a copy");
        recorder.Dispose();
        recorder.Dispose();
        EngineTests.AssertNeutral(recorder);
    }

    [Test]
    public void HasNoEffectsHere() {
        ISound sound = engine.Play2D(tone, true, false, true);
        IsNull(sound.SoundEffectControl);
        ISoundEffectControl effects = Support.Effects(sound);
        sound.Dispose();
        EngineTests.AssertNeutral(effects); // it was disposed just now: once more
        EngineTests.AssertNeutral(effects);
        IsTrue(engine.IsCurrentlyPlaying("tone"), "a sound plays on without its wrapper");
    }
}

}

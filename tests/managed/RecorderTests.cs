// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Linq;
using System.Threading;
using NUnit.Framework;

namespace Sonimbra.Tests {

[TestFixture]
public class RecorderTests {
    private ISoundEngine engine;
    private IAudioRecorder recorder;

    [SetUp]
    public void CreateRecorder() {
        engine = Support.PlayingEngine();
        recorder = new IAudioRecorder(engine, SoundOutputDriver.ALSA, Support.SoundServer);
    }

    [TearDown]
    public void EndRecorder() {
        engine.StopAllSounds();
        recorder.Dispose();
        recorder.Dispose();
        EngineTests.AssertNeutral(recorder);
    }

    [Test]
    public void RecordsWhatIsPlayedIntoASource() {
        engine.AddSoundSourceFromPCMData(Support.Tone(Support.Rate), "tone", Support.Mono16);
        Assert.IsNull(recorder.RecordedAudioData);
        Assert.IsNull(recorder.AddSoundSourceFromRecordedAudio("nothing yet"));
        engine.Play2D("tone", true);

        Assert.IsTrue(
            recorder.StartRecordingBufferedAudio(Support.Rate, SampleFormat.Signed16Bit, 2));
        Assert.IsTrue(recorder.IsRecording);
        Assert.AreEqual(-1, recorder.AudioFormat.FrameCount);
        Assert.IsNull(recorder.RecordedAudioData);
        Assert.IsNull(recorder.AddSoundSourceFromRecordedAudio("too early"));
        recorder.ClearRecordedAudioDataBuffer();
        Thread.Sleep(2500);
        recorder.StopRecordingAudio();
        Assert.IsFalse(recorder.IsRecording);

        AudioFormat format = recorder.AudioFormat;
        byte[] data = recorder.RecordedAudioData;
        Assert.AreEqual(2, format.ChannelCount);
        Assert.AreEqual(Support.Rate, format.SampleRate);
        Assert.AreEqual(format.SampleDataSize, data.Length);
        var samples = new short[data.Length / 2];
        Buffer.BlockCopy(data, 0, samples, 0, data.Length);
        Assert.Greater(samples.Max(), 10000, "the tone is not heard");

        ISoundSource source = recorder.AddSoundSourceFromRecordedAudio("recorded");
        Assert.AreEqual("recorded", source.Name);
        Assert.AreEqual(format, source.AudioFormat);
        Assert.AreEqual(data, source.SampleData);
        Assert.IsNull(recorder.AddSoundSourceFromRecordedAudio("recorded"), "it exists");
        Assert.IsNull(recorder.AddSoundSourceFromRecordedAudio(null));
        Assert.IsNull(recorder.AddSoundSourceFromRecordedAudio(new string('x', 2024)));
        recorder.ClearRecordedAudioDataBuffer();
        Assert.IsNull(recorder.RecordedAudioData);
        Assert.IsNotNull(engine.Play2D("recorded"), "the source has a copy");
    }

    [Test]
    public void RecordsInTheUsualFormat() {
        Assert.IsTrue(recorder.StartRecordingBufferedAudio());
        recorder.StopRecordingAudio();
        AudioFormat format = recorder.AudioFormat;
        Assert.AreEqual(new[] { 22000, 1 }, new[] { format.SampleRate, format.ChannelCount });
        Assert.AreEqual(SampleFormat.Signed16Bit, format.Format);
        Assert.IsFalse(recorder.StartRecordingBufferedAudio(-1, SampleFormat.Signed16Bit, 1));
    }

    [Test]
    public void ListsDevices() {
        const SoundDeviceListType recording = SoundDeviceListType.RecordingDevice;
        var list = new ISoundDeviceList(recording, SoundOutputDriver.ALSA);
        string device = Enumerable.Range(0, list.DeviceCount)
                            .Where(i => list.getDeviceDescription(i) == "PulseAudio Sound Server")
                            .Select(list.getDeviceID)
                            .Single();
        Assert.DoesNotThrow(
            () => new IAudioRecorder(engine, SoundOutputDriver.ALSA, device).Dispose());
        Assert.Throws<Exception>(
            () => new IAudioRecorder(engine, SoundOutputDriver.ALSA, "no-such-pcm"));
    }
}

}

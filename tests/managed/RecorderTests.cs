// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System.Linq;
using System.Threading;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

[TestFixture]
public class RecorderTests {
    [Test]
    public void RecordsWhatIsPlayedIntoASource() {
        ISoundEngine engine = Support.PlayingEngine();
        IAudioRecorder recorder = Support.Recorder(engine);
        IsFalse(recorder.StartRecordingBufferedAudio(-1, SampleFormat.Signed16Bit, 1));
        IsTrue(recorder.StartRecordingBufferedAudio());
        recorder.StopRecordingAudio();
        AudioFormat format = recorder.AudioFormat;
        AreEqual("22000 1 Signed16Bit",
                 format.SampleRate + " " + format.ChannelCount + " " + format.Format);
        recorder.ClearRecordedAudioDataBuffer();

        Support.AddTone(engine, Support.Rate);
        engine.Play2D("tone", true);
        IsNull(recorder.RecordedAudioData);
        IsNull(recorder.AddSoundSourceFromRecordedAudio("nothing yet"));
        IsTrue(recorder.StartRecordingBufferedAudio(Support.Rate, SampleFormat.Signed16Bit, 2));
        IsTrue(recorder.IsRecording);
        AreEqual(-1, recorder.AudioFormat.FrameCount);
        IsNull(recorder.RecordedAudioData);
        IsNull(recorder.AddSoundSourceFromRecordedAudio("too early"));
        Thread.Sleep(2500);
        recorder.StopRecordingAudio();
        IsFalse(recorder.IsRecording);

        format = recorder.AudioFormat;
        byte[] data = recorder.RecordedAudioData;
        AreEqual(new[] { 2, Support.Rate, data.Length },
                 new[] { format.ChannelCount, format.SampleRate, format.SampleDataSize });
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
        engine.StopAllSounds();
        recorder.Dispose();
        recorder.Dispose();
        EngineTests.AssertNeutral(recorder);
    }
}

}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Linq;
using NUnit.Framework;

namespace Sonimbra.Tests {

[TestFixture]
public class ValueTests {
    [TestCase(typeof(SoundOutputDriver), "AutoDetect 0, DirectSound8 1, DirectSound 2, WinMM 3, " +
                                         "ALSA 4, CoreAudio 5, NullDriver 6")]
    [TestCase(typeof(StreamMode), "AutoDetect 0, Streaming 1, NoStreaming 2")]
    [TestCase(typeof(SoundEngineOptionFlag),
              "MultiThreaded 1, MuteIfNotFocused 2, LoadPlugins 4, Use3DBuffers 8, " +
              "PrintDebugInfoIntoDebugger 16, PrintDebugInfoToStdOut 32, DefaultOptions 61, " +
              "LinearRolloff 64")]
    [TestCase(typeof(StopEventCause), "SoundFinishedPlaying 0, SoundStoppedByUser 1, " +
                                      "SoundStoppedBySourceRemoval 2")]
    [TestCase(typeof(SampleFormat), "Unsigned8Bit 0, Signed16Bit 1")]
    [TestCase(typeof(SoundDeviceListType), "PlaybackDevice 0, RecordingDevice 1")]
    public void EnumerationsHaveTheirValues(Type type, string expected) {
        var members = Enum.GetValues(type).Cast<object>().Select(m => m + " " + (int)m);
        Assert.AreEqual(expected, string.Join(", ", members));
    }

    [TestCase(SampleFormat.Signed16Bit, 2, 100, 44100, "2 4 400 176400")]
    [TestCase(SampleFormat.Unsigned8Bit, 3, 10, 8000, "1 3 30 24000")]
    [TestCase((SampleFormat)7, 1, -1, 1, "2 2 -2 2")]
    [TestCase(SampleFormat.Signed16Bit, 2, 0x40000001, 0, "2 4 4 0")]
    public void FormatsKnowTheirSizes(SampleFormat format, int channels, int frames, int rate,
                                      string sizes) {
        var made = new AudioFormat { ChannelCount = channels, FrameCount = frames,
                                     SampleRate = rate, Format = format };
        Assert.AreEqual(sizes, made.SampleSize + " " + made.FrameSize + " " + made.SampleDataSize +
                                   " " + made.BytesPerSecond);
    }
}

}

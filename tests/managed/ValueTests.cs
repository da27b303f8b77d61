// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Globalization;
using System.Linq;
using System.Threading;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

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
        AreEqual(expected, string.Join(", ", members));
    }

    [TestCase(SampleFormat.Signed16Bit, 2, 100, 44100, "2 4 400 176400")]
    [TestCase(SampleFormat.Unsigned8Bit, 3, 10, 8000, "1 3 30 24000")]
    [TestCase((SampleFormat)7, 1, -1, 1, "2 2 -2 2")]
    [TestCase(SampleFormat.Signed16Bit, 2, 0x40000001, 0, "2 4 4 0")]
    public void FormatsKnowTheirSizes(SampleFormat format, int channels, int frames, int rate,
                                      string sizes) {
        var made = new AudioFormat { ChannelCount = channels, FrameCount = frames,
                                     SampleRate = rate, Format = format };
        AreEqual(sizes, made.SampleSize + " " + made.FrameSize + " " + made.SampleDataSize +
                                   " " + made.BytesPerSecond);
    }

    private static Vector3D V(float x, float y, float z) => new Vector3D(x, y, z);

    [Test]
    public void ComparesExactly() {
        Vector3D one = V(1, 2, 3), notANumber = V(float.NaN, 0, 0), same = notANumber;
        IsTrue(one == V(1, 2, 3) && one.Equals((object)V(1, 2, 3)));
        foreach (Vector3D other in new[] { V(1.0000001f, 2, 3), V(1, 2.5f, 3), V(1, 2, -3) }) {
            IsTrue(one != other && !(one == other) && !one.Equals(other), "{0}", other);
        }
        IsFalse(notANumber == same || notANumber.Equals(same));
        IsFalse(one.Equals(null) || one.Equals("(1, 2, 3)"));
        AreEqual(V(0.0f, 0, 0).GetHashCode(), V(-0.0f, 0, 0).GetHashCode());
    }

    [Test]
    public void CalculatesInDoublePrecisionAndStoresSingle() {
        AreEqual(V(5, 7, 9), V(1, 2, 3) + V(4, 5, 6));
        AreEqual(V(-3, -4, -5), V(1, 2, 3) - V(4, 6, 8));
        AreEqual(V(2, 4, 6), V(1, 2, 3) * 2);
        AreEqual(V(2, 4, 6), 2 * V(1, 2, 3));
        AreEqual(V(1 / 3.0f, 2, -1), V(1, 6, -3) / 3);
        AreEqual("(Infinity, -Infinity, NaN)", (V(1, -1, 0) / 0).ToString());
        // These have more digits than single precision.
        AreEqual(100000020000001.0, V(10000001, 0, 0).GetLengthSQ());
        AreEqual(1.0f, V(1e7f, 1, 1e7f).DotProduct(V(1e7f, 1, -1e7f)));
        AreEqual(V(1, 0, 0), V(0, 10000001, 10000000).CrossProduct(V(0, 10000002, 10000001)));
        AreEqual(V(-3, 6, -3), V(1, 2, 3).CrossProduct(V(4, 5, 6)));
        AreEqual(V(3, -4, 12).LengthSQ, 13 * V(3, 4, -12).GetLength());
        AreEqual(16777217.0, V(16777216, 0, 0).GetDistanceFrom(V(-1, 0, 0)));
        AreEqual(281474976710656.0f, V(16777216, 0, 0).GetDistanceFromSQ(V(-1, 0, 0)));
    }

    [Test]
    public void NormalizesInPlace() {
        Vector3D v = V(0, 3, 4), copy = v.Normalize();
        AreEqual(V(0, 3 * 0.2f, 4 * 0.2f), copy);
        AreEqual(copy, v);
        AreEqual(0.99999994f, V(41, 0, 0).Normalize().X); // the reciprocal is rounded first
        AreEqual(V(0, 0, 0), V(0, 0, 0).Normalize());
        v.SetLength(5);
        AreEqual(5.0, v.Length, 1e-6);
        v.Set(0, 0, 0);
        v.SetLength(5);
        AreEqual(new Vector3D(), v);
        v.Set(V(1, -2, 3));
        v.Invert();
        AreEqual(V(-1, 2, -3), v);
    }

    [Test]
    public void FindsPointsBetweenAndInterpolates() {
        Func<float, bool> isBetween = x => V(x, 0, 0).IsBetweenPoints(V(0, 0, 0), V(1, 0, 0));
        // The ends themselves are as far from each other as they are.
        AreEqual(new[] { false, true, true, false, false, false },
                 new[] { 0, 0.001f, 0.999f, 1, -0.5f, float.NaN }.Select(isBetween));
        Func<float, float> between = d => V(4, 0, 0).GetInterpolated(V(0, 0, 0), d).X;
        AreEqual(new[] { 4.0f, 0, 1, 8 }, new[] { 1, 0, 0.25f, 2 }.Select(between));
        AreEqual(V(0, 3, 0), V(0, 0, 0).GetInterpolated(V(0, 4, 0), 0.25f));
        AreEqual(6.3f, V(0, 0, 0).GetInterpolated(V(0, 0, 7), 0.1f).Z); // single gives 6.29999971
    }

    [TestCase("", "(1, 2.5, -3)")]
    [TestCase("de-DE", "(1, 2,5, -3)")]
    public void WritesTheCurrentCulturesNumbers(string culture, string expected) {
        CultureInfo before = Thread.CurrentThread.CurrentCulture;
        Thread.CurrentThread.CurrentCulture = CultureInfo.GetCultureInfo(culture);
        string written = V(1, 2.5f, -3).ToString();
        Thread.CurrentThread.CurrentCulture = before;
        AreEqual(expected, written);
    }
}

}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.IO;
using System.Runtime.InteropServices;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

public class FileFactoryTests {
    /// <summary>A WAV file in memory that may misbehave.</summary>
    private sealed class OddStream : MemoryStream {
        private readonly string oddity;
        public bool IsClosed;

        public OddStream(int frames, string oddity) : base(Support.Wav(frames)) {
            this.oddity = oddity;
        }

        public override bool CanRead => oddity != "write-only";
        public override bool CanSeek => oddity != "cannot seek";
        public override long Length => base.Length + Extra("length");

        public override long Position => base.Position + Extra("position");

        public override int Read(byte[] buffer, int offset, int count) =>
            (int)(base.Read(buffer, offset, count) + Extra("count"));

        public override long Seek(long offset, SeekOrigin origin) =>
            base.Seek(offset, origin) + Extra("seek");

        public override void Close() {
            IsClosed = true;
            Extra("close");
        }

        private long Extra(string what) {
            string[] words = oddity.Split(' ');
            if (oddity == "throws at " + what) {
                throw new IOException(what);
            }
            return words[0] == what ? long.Parse(words[1]) : 0;
        }
    }

    [Test]
    public void OpensFilesInOrder() {
        const string name = "Grüße \U0001F50A.wav";
        string file = Path.GetTempFileName(), asked = "";
        File.WriteAllBytes(file, Support.Wav(100));
        ISoundEngine engine = Support.NullEngine();
        engine.AddFileFactory(null);
        engine.AddFileFactory(new Factory(n => { asked += "1" + n; return null; }));
        engine.AddFileFactory(new Factory(n => { asked += "2"; throw new IOException(n); }));
        engine.AddFileFactory(new Factory(n => n == name ? new OddStream(441, "") : null));
        AreEqual(Support.Tone(441), engine.GetSoundSource(name).SampleData);
        StringAssert.StartsWith("1" + name + "2", asked);
        AreEqual(Support.Tone(100), engine.GetSoundSource(file).SampleData, "from disk");
        StringAssert.EndsWith("1" + file + "2", asked);
        File.Delete(file);
    }

    /// <summary>What the engine is told when it seeks to the "A" of "WAVE" and reads it.</summary>
    private static string Answers(Stream stream) {
        IntPtr context = Support.Context<StreamForwarder>(stream), bytes = Marshal.AllocHGlobal(4);
        var calls = (NativeMethods.FileReaderCallbacks)Support.CallbacksOf<StreamForwarder>(
            "callbacks");
        Marshal.WriteByte(bytes, 0);
        string answers = calls.Seek(context, 8, false) + " " + calls.Seek(context, 1, true) + " " +
                         calls.GetPos(context) + " " + calls.GetSize(context) + " " +
                         calls.Read(context, bytes, 4) + " " + (char)Marshal.ReadByte(bytes);
        Marshal.FreeHGlobal(bytes);
        calls.Release(context);
        return answers;
    }

    [TestCase("", 100, 100, "True True 9 244 4 A")]
    [TestCase("write-only", 0, 0, "True True 9 244 0 \0")]
    [TestCase("cannot seek", 0, 100, "False False 0 244 4 R")]
    [TestCase("throws at count", 0, 0, "True True 9 244 0 \0")]
    [TestCase("throws at seek", 0, 100, "False False 9 244 4 A")]
    [TestCase("throws at length", 100, 0, "True True 9 -1 4 A")]
    [TestCase("throws at position", 100, 100, "True True -1 244 4 A")]
    [TestCase("throws at close", 100, 100, "True True 9 244 4 A")]
    [TestCase("position 5000000000", 100, 100, "True True 705032713 244 4 A")]
    [TestCase("length 1000000", 100, 100, "True True 9 1000244 4 A")]
    [TestCase("length -10", 100, 100, "True True 9 234 4 A")]
    [TestCase("length 5000000000", 100, 0, "True True 9 705032948 4 A")]
    [TestCase("length -1000000", 100, 0, "True True 9 -999756 4 A")]
    [TestCase("count 1000000", 0, 100, "True True 9 244 0 \0")]
    [TestCase("count -1000000", 0, 100, "True True 9 244 0 \0")]
    [TestCase("count -2", 0, 100, "True True 9 244 2 A")]
    public void SurvivesOddStreams(string oddity, int framesOfFile, int framesOfStream,
                                   string answers) {
        AreEqual(answers, Answers(new OddStream(100, oddity)));
        ISoundEngine engine = Support.NullEngine();
        OddStream opened = null;
        engine.AddFileFactory(new Factory(name => opened = new OddStream(100, oddity)));
        AreEqual(framesOfFile, engine.GetSoundSource("file.wav").AudioFormat.FrameCount);
        IsTrue(opened.IsClosed);

        var given = new OddStream(100, oddity);
        ISoundSource source = engine.AddSoundSourceFromIOStream(given, "stream.wav");
        AreEqual(framesOfStream, source == null ? 0 : source.AudioFormat.FrameCount);
        IsFalse(given.IsClosed);
        IsNull(engine.AddSoundSourceFromIOStream(null, "null"));
        IsNull(engine.AddSoundSourceFromIOStream(new OddStream(1, ""), new string('x', 2024)));
        IsNull(engine.AddSoundSourceFromIOStream(new MemoryStream(), "empty"));
        var behindJunk = new MemoryStream();
        behindJunk.WriteByte(1);
        behindJunk.Write(Support.Wav(100), 0, Support.Wav(100).Length);
        behindJunk.Position = 1;
        source = engine.AddSoundSourceFromIOStream(behindJunk, "behind.wav");
        AreEqual(100, source.AudioFormat.FrameCount);
    }

    [Test]
    public void StreamsWhilePlaying() {
        ISoundEngine engine = Support.PlayingEngine();
        OddStream opened = null;
        engine.AddFileFactory(new Factory(name => opened = new OddStream(Support.Rate, "")));
        engine.AddSoundSourceFromFile("long.wav", StreamMode.Streaming, true);
        var events = new StopEvents();
        engine.Play2D("long.wav").setSoundStopEventReceiver(events, "streamed");
        Support.WaitUntil(() => events.Text == "FinishedPlaying streamed", "stop event");
        events.LastSound.Dispose();
        Support.WaitUntil(() => opened.IsClosed, "close");
    }
}

}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Collections.Generic;
using System.IO;
using NUnit.Framework;

namespace Sonimbra.Tests {

[TestFixture]
public class FileFactoryTests {
    /// <summary>A file in memory that may misbehave.</summary>
    private sealed class OddStream : MemoryStream {
        public bool IsReadable = true, IsSeekable = true, IsClosed;
        public string Throws = "";
        public long ExtraLength, ExtraCount;

        public OddStream(int frames) : base(Support.Wav(frames)) {}

        public override bool CanRead { get { return IsReadable; } }
        public override bool CanSeek { get { return IsSeekable; } }

        public override long Length {
            get { ThrowIf("length"); return base.Length + ExtraLength; }
        }

        public override long Position {
            get { ThrowIf("position"); return base.Position; }
            set { base.Position = value; }
        }

        public override int Read(byte[] buffer, int offset, int count) {
            ThrowIf("read");
            return (int)(base.Read(buffer, offset, count) + ExtraCount);
        }

        public override long Seek(long offset, SeekOrigin origin) {
            ThrowIf("seek");
            return base.Seek(offset, origin);
        }

        public override void Close() {
            IsClosed = true;
            base.Close();
            ThrowIf("close");
        }

        private void ThrowIf(string what) {
            if (Throws == what) {
                throw new IOException(what);
            }
        }
    }

    private sealed class Factory : IFileFactory {
        public readonly List<string> Names = new List<string>();
        public Func<string, Stream> Open;

        public Stream openFile(string filename) {
            Names.Add(filename);
            return Open(filename);
        }
    }

    private static Factory AddFactory(ISoundEngine engine, Func<string, Stream> open) {
        var factory = new Factory { Open = open };
        engine.AddFileFactory(factory);
        return factory;
    }

    [Test]
    public void OpensFilesInOrderAndClosesThem() {
        ISoundEngine engine = Support.NullEngine();
        engine.AddFileFactory(null);
        Factory nothing = AddFactory(engine, name => null);
        Factory throwing = AddFactory(engine, name => { throw new IOException(name); });
        var stream = new OddStream(441);
        Factory first = AddFactory(engine, name => name[0] == 'G' ? stream : null);

        ISoundSource source = engine.GetSoundSource("Grüße \U0001F50A.wav");
        Assert.AreEqual(Support.Tone(441), source.SampleData);
        Assert.IsTrue(stream.IsClosed);
        Assert.AreEqual(source.Name, nothing.Names[0]);
        Assert.AreEqual(source.Name, throwing.Names[0]);

        string file = Path.GetTempFileName();
        File.WriteAllBytes(file, Support.Wav(100));
        Assert.AreEqual(Support.Tone(100), engine.GetSoundSource(file).SampleData, "from disk");
        Assert.Contains(file, first.Names);
        File.Delete(file);
    }

    [TestCase("as it should be", 100, 100)]
    [TestCase("write-only", 0, 0)]
    [TestCase("cannot seek", 0, 100)]
    [TestCase("throws at read", 0, 0)]
    [TestCase("throws at seek", 0, 100)]
    [TestCase("throws at length", 100, 0)]
    [TestCase("throws at position", 100, 100)]
    [TestCase("throws at close", 100, 100)]
    [TestCase("says it is longer", 100, 100)]
    [TestCase("says it is shorter", 100, 100)]
    [TestCase("says 5 GiB", 100, 0)]
    [TestCase("says it is negative", 100, 0)]
    [TestCase("reads too much", 0, 100)]
    [TestCase("reads less than nothing", 0, 100)]
    [TestCase("closed", 0, 0)]
    public void SurvivesOddStreams(string oddity, int framesOfFile, int framesOfStream) {
        Func<OddStream> make = () => {
            var stream = new OddStream(100) {
                IsReadable = oddity != "write-only",
                IsSeekable = oddity != "cannot seek",
                Throws = oddity.Replace("throws at ", ""),
                ExtraLength = oddity == "says it is longer"     ? 1000000
                              : oddity == "says it is shorter"  ? -10
                              : oddity == "says 5 GiB"          ? 5L << 30
                              : oddity == "says it is negative" ? -1000000
                                                                : 0,
                ExtraCount = oddity == "reads too much"            ? 1000000
                             : oddity == "reads less than nothing" ? -1000000
                                                                   : 0,
            };
            if (oddity == "closed") {
                stream.Dispose();
            }
            return stream;
        };
        ISoundEngine engine = Support.NullEngine();
        OddStream opened = null;
        AddFactory(engine, name => opened = make());
        ISoundSource file = engine.GetSoundSource("file.wav");
        Assert.AreEqual(framesOfFile, file.AudioFormat.FrameCount);
        Assert.IsTrue(opened.IsClosed);

        OddStream given = make();
        ISoundSource source = engine.AddSoundSourceFromIOStream(given, "stream.wav");
        Assert.AreEqual(framesOfStream, source == null ? 0 : source.AudioFormat.FrameCount);
        Assert.AreEqual(oddity == "closed", given.IsClosed);
        Assert.IsNull(engine.AddSoundSourceFromIOStream(null, "null"));
        Assert.IsNull(engine.AddSoundSourceFromIOStream(new MemoryStream(), "empty"));
    }

    [Test]
    public void StreamsFromFactoriesWhilePlaying() {
        ISoundEngine engine = Support.PlayingEngine();
        OddStream opened = null;
        AddFactory(engine, name => opened = new OddStream(Support.Rate));
        engine.AddSoundSourceFromFile("long.wav", StreamMode.Streaming, true);
        var events = new StopEvents();
        engine.Play2D("long.wav").setSoundStopEventReceiver(events, "streamed");
        Support.WaitUntil(() => events.Count > 0, "stop event");
        Assert.AreEqual("SoundFinishedPlaying streamed", events.Text);
        events.LastSound.Dispose();
        Support.WaitUntil(() => opened.IsClosed, "close");
    }
}

}

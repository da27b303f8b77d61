// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.IO;
using System.Linq;
using System.Reflection;
using NUnit.Framework;

namespace Sonimbra.Tests {

[TestFixture]
public class EngineTests {
    private const BindingFlags Declared =
        BindingFlags.Public | BindingFlags.Instance | BindingFlags.DeclaredOnly;
    private const string EngineFailure =
        "Sonimbra device could not be created with the specified parameters.";
    private const string RecorderFailure =
        "Sonimbra audio recorder could not be created with the specified parameters.";

    private ISoundEngine engine;
    private ISoundSource pcm;

    [SetUp]
    public void CreateEngine() {
        engine = Support.NullEngine();
        pcm = engine.AddSoundSourceFromPCMData(Support.Tone(100), "pcm", Support.Mono16);
    }

    /// <summary>Calls a member with such a text; everything else is usable.</summary>
    private object Call(object target, MethodBase method, string text) {
        object[] arguments = method.GetParameters().Select(parameter => {
            Type type = parameter.ParameterType;
            return type == typeof(string)         ? text
                   : type == typeof(byte[])       ? Support.Wav(10)
                   : type == typeof(Stream)       ? new MemoryStream(Support.Wav(10))
                   : type == typeof(ISoundSource) ? pcm
                   : type == typeof(SoundOutputDriver) ? SoundOutputDriver.NullDriver
                   : type == typeof(ISoundEngine) ? engine
                   : type.IsValueType             ? Activator.CreateInstance(type)
                                                  : null;
        }).ToArray();
        var constructor = method as ConstructorInfo;
        return constructor != null ? constructor.Invoke(arguments)
                                   : method.Invoke(target, arguments);
    }

    private static bool TakesText(MethodBase method) {
        return method.GetParameters().Any(p => p.ParameterType == typeof(string));
    }

    private static bool IsNeutral(object value) {
        return value == null || value.GetType().IsValueType &&
                                    value.Equals(Activator.CreateInstance(value.GetType()));
    }

    /// <summary>Whatever is called on such an object, nothing happens.</summary>
    public static void AssertNeutral(object target) {
        var tests = new EngineTests();
        foreach (MethodInfo method in target.GetType().GetMethods(Declared)) {
            Assert.IsTrue(IsNeutral(tests.Call(target, method, "x")), "{0}", method);
        }
    }

    [TestCase(2024)]
    [TestCase(5000)]
    [TestCase(100000)]
    public void DoesNothingForTextsThatDoNotFit(int bytes) {
        // Most of them take four bytes for two characters.
        string text = string.Concat(Enumerable.Repeat("\U0001F50A", bytes / 4));
        foreach (MethodInfo method in engine.GetType().GetMethods(Declared).Where(TakesText)) {
            Assert.IsTrue(IsNeutral(Call(engine, method, text)), "{0}", method);
        }
        foreach (Type type in new[] { typeof(ISoundEngine), typeof(IAudioRecorder) }) {
            ConstructorInfo constructor = type.GetConstructors().Single(TakesText);
            var thrown = Assert.Throws<TargetInvocationException>(
                () => Call(null, constructor, text)).InnerException;
            Assert.AreEqual(typeof(Exception), thrown.GetType());
            StringAssert.EndsWith("could not be created with the specified parameters.",
                                  thrown.Message);
        }
    }

    [Test]
    public void DoesNothingForNullTexts() {
        foreach (MethodInfo method in engine.GetType().GetMethods(Declared).Where(TakesText)) {
            Assert.IsTrue(IsNeutral(Call(engine, method, null)), "{0}", method);
        }
    }

    [Test]
    public void NamesGoThroughUnchanged() {
        foreach (string name in new[] {
            "", "a", "Grüße 音 \U0001F50A",
            string.Concat(Enumerable.Repeat("\U0001F50A", 505)) + "abc", // 2023 bytes
            new string('ä', 1011) + "b",
        }) {
            ISoundSource source = engine.AddSoundSourceFromMemory(Support.Wav(10), name);
            Assert.AreEqual(name, source.Name);
            Assert.AreEqual(name, engine.GetSoundSource(name, false).Name);
        }
        Assert.AreEqual("a\uFFFDb", engine.GetSoundSource("a\uD83Db").Name); // half a pair
    }

    [Test]
    public void ThrowsOnlyWhenItCannotBeCreated() {
        var thrown = Assert.Throws<Exception>(() => new ISoundEngine());
        Assert.AreEqual(EngineFailure, thrown.Message);
        Assert.Throws<Exception>(() => new ISoundEngine(SoundOutputDriver.CoreAudio));
        Assert.Throws<Exception>(() => new ISoundEngine(SoundOutputDriver.ALSA, 0, "no-such-pcm"));
        Assert.AreEqual("sound engine may not be null when creating audio recorder.",
                        Assert.Throws<Exception>(() => new IAudioRecorder(null)).Message);
        Assert.AreEqual(RecorderFailure,
                        Assert.Throws<Exception>(() => new IAudioRecorder(engine)).Message);
        StringAssert.Contains("version 2", Assert.Throws<InvalidOperationException>(
            () => NativeMethods.CheckInterfaceVersion(2)).Message);
        Assert.DoesNotThrow(NativeMethods.CheckLibrary);
    }

    [Test]
    public void KeepsItsSettings() {
        Assert.AreEqual("NULL", engine.Name);
        Assert.IsFalse(engine.IsMultiThreaded);
        Assert.AreEqual(new[] { 1.0f, 1.0f, 1e9f },
                        new[] { engine.SoundVolume, engine.Default3DSoundMinDistance,
                                engine.Default3DSoundMaxDistance });
        engine.SoundVolume = 0.5f;
        engine.Default3DSoundMinDistance = 2;
        engine.Default3DSoundMaxDistance = 30;
        Assert.AreEqual(new[] { 0.5f, 2, 30 },
                        new[] { engine.SoundVolume, engine.Default3DSoundMinDistance,
                                engine.Default3DSoundMaxDistance });
        engine.SetListenerPosition(new Vector3D(1, 2, 3), new Vector3D(0, 0, 1));
        engine.SetListenerPosition(1, 2, 3, 0, 0, 1);
        engine.SetListenerPosition(1, 2, 3, 0, 0, 1, 4, 5, 6, 0, 1, 0);
        engine.SetDopplerEffectParameters(1, 2);
        engine.SetRolloffFactor(3);
        engine.Update();
        Assert.IsTrue(engine.LoadPlugins(Path.GetTempPath()));
        Assert.IsFalse(engine.LoadPlugins("no such folder"));
        Assert.IsNull(engine.Play2D(pcm, false, false, false), "the NULL driver makes no sounds");
        Assert.IsNull(engine.Play2D((ISoundSource)null, false, false, false));
    }

    [Test]
    public void RegistersSources() {
        Assert.AreEqual("pcm", pcm.Name);
        Assert.AreEqual(100, pcm.AudioFormat.FrameCount);
        Assert.AreEqual(Support.Tone(100), pcm.SampleData);
        Assert.IsNull(engine.AddSoundSourceFromPCMData(Support.Tone(9), "pcm", Support.Mono16));
        Assert.IsNull(engine.AddSoundSourceFromPCMData(new byte[0], "empty", Support.Mono16));
        Assert.IsNull(engine.AddSoundSourceFromPCMData(null, "null", Support.Mono16));
        Assert.IsNull(engine.AddSoundSourceFromMemory(new byte[0], "empty"));
        Assert.IsNull(engine.AddSoundSourceFromMemory(null, "null"));

        ISoundSource memory = engine.AddSoundSourceFromMemory(Support.Wav(441), "memory.wav");
        Assert.AreEqual(Support.Tone(441), memory.SampleData);
        Assert.AreEqual(10, memory.PlayLength);
        Assert.IsTrue(memory.IsSeekingSupported);

        ISoundSource alias = engine.AddSoundSourceAlias(memory, "alias");
        alias.DefaultVolume = 0.25f;
        alias.DefaultMinDistance = 3;
        alias.DefaultMaxDistance = 40;
        Assert.AreEqual(new[] { 0.25f, 3, 40, 1, 1, 1e9f },
                        new[] { alias.DefaultVolume, alias.DefaultMinDistance,
                                alias.DefaultMaxDistance, memory.DefaultVolume,
                                memory.DefaultMinDistance, memory.DefaultMaxDistance });
        Assert.IsNull(engine.AddSoundSourceAlias(null, "other"));

        Assert.IsNull(engine.GetSoundSource("file", false));
        ISoundSource file = engine.AddSoundSourceFromFile("file", StreamMode.Streaming);
        Assert.AreEqual(StreamMode.Streaming, file.StreamMode);
        file.StreamMode = StreamMode.NoStreaming;
        file.ForcedStreamingThreshold = 5;
        file.ForceReloadAtNextUse();
        ISoundSource same = engine.GetSoundSource("file");
        Assert.AreEqual(StreamMode.NoStreaming, same.StreamMode);
        Assert.AreEqual(5, same.ForcedStreamingThreshold);
        Assert.AreEqual(new AudioFormat(), same.AudioFormat, "there is no such file");
        Assert.IsNull(same.SampleData);

        engine.RemoveSoundSource("memory.wav");
        Assert.IsNull(engine.GetSoundSource("memory.wav", false));
        engine.RemoveAllSoundSources();
        Assert.IsNull(engine.GetSoundSource("pcm", false));
        Assert.AreEqual("pcm", pcm.Name, "a removed source lives as long as its wrapper");
        pcm.Dispose();
        pcm.Dispose();
        AssertNeutral(pcm);
        Assert.IsNull(engine.AddSoundSourceAlias(pcm, "of nothing"));
    }

    [Test]
    public void ListsDevices() {
        var list = new ISoundDeviceList(SoundDeviceListType.PlaybackDevice, SoundOutputDriver.ALSA);
        int sound = Enumerable.Range(0, list.DeviceCount).Single(
            i => list.getDeviceDescription(i) == "PulseAudio Sound Server");
        Assert.AreEqual(36, list.getDeviceID(sound).Length);
        Assert.AreEqual(new[] { "", "default device", null, null },
                        new[] { list.getDeviceID(0), list.getDeviceDescription(0),
                                list.getDeviceID(-1),
                                list.getDeviceDescription(list.DeviceCount) });
        Assert.AreEqual(1, new ISoundDeviceList(SoundDeviceListType.PlaybackDevice).DeviceCount);
        list.Dispose();
        list.Dispose();
        AssertNeutral(list);
    }
}

}

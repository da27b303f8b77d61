// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

public class EngineTests {
    private const BindingFlags Declared =
        BindingFlags.Public | BindingFlags.Instance | BindingFlags.DeclaredOnly;
    private const string NotCreated = " could not be created with the specified parameters.";

    private ISoundEngine engine;
    private ISoundSource tone;

    [SetUp]
    public void CreateEngine() {
        engine = Support.NullEngine();
        tone = Support.AddTone(engine, 100);
    }

    /// <summary>Calls a member with such a text; everything else is usable.</summary>
    private object Call(object target, MethodInfo method, string text) {
        object[] usable = { tone, engine, Support.Wav(10), new MemoryStream(Support.Wav(10)) };
        Func<Type, object> argument = type => type == typeof(string) ? text
                                              : type.IsValueType ? Activator.CreateInstance(type)
                                              : usable.FirstOrDefault(type.IsInstanceOfType);
        var types = method.GetParameters().Select(parameter => parameter.ParameterType);
        return method.Invoke(target, types.Select(argument).ToArray());
    }

    /// <summary>Whatever is called on such an object, with such a text, nothing happens.</summary>
    private void AssertNeutral(object target, string text, Func<MethodInfo, bool> condition) {
        foreach (MethodInfo method in target.GetType().GetMethods(Declared).Where(condition)) {
            object result = Call(target, method, text);
            IsTrue(result == null || result is ValueType &&
                   result.Equals(Activator.CreateInstance(result.GetType())), "{0}", method);
        }
    }

    public static void AssertNeutral(object disposed) =>
        new EngineTests().AssertNeutral(disposed, "x", method => true);

    private static bool TakesText(MethodInfo method) =>
        method.GetParameters().Any(p => p.ParameterType == typeof(string));

    [TestCase(2024)]
    [TestCase(5000)]
    [TestCase(100000)]
    public void DoesNothingForTextsThatDoNotFit(int bytes) {
        string text = string.Concat(Enumerable.Repeat("\U0001F50A", bytes / 4)); // 4 bytes each
        AssertNeutral(engine, text, TakesText);
        AssertNeutral(engine, null, TakesText);
        Throws<Exception>(() => new ISoundEngine(SoundOutputDriver.NullDriver, 0, text));
        Throws<Exception>(() => new IAudioRecorder(engine, SoundOutputDriver.ALSA, text));
    }

    [Test]
    public void NamesGoThroughUnchanged() {
        string[] names = { "", "a", "Grüße 音 \U0001F50A", new string('ä', 1011) + "b",
                           string.Concat(Enumerable.Repeat("\U0001F50A", 505)) + "abc" };
        foreach (string name in names) { // the last two are 2023 bytes long
            AreEqual(name, engine.AddSoundSourceFromMemory(Support.Wav(10), name).Name);
            AreEqual(name, engine.GetSoundSource(name, false).Name);
        }
        AreEqual("a\uFFFDb", engine.GetSoundSource("a\uD83Db").Name); // half a pair
        IntPtr text = Marshal.AllocHGlobal(4);
        Marshal.Copy(new byte[] { 0x61, 0xFF, 0x62, 0 }, 0, text, 4);
        AreEqual("a\uFFFDb", NativeText.Decode(text)); // no UTF-8
        Marshal.FreeHGlobal(text);
    }

    [Test]
    public void ThrowsOnlyWhenItCannotBeCreated() {
        Func<TestDelegate, string> thrownBy = action => Throws<Exception>(action).Message;
        AreEqual("Sonimbra device" + NotCreated, thrownBy(() => new ISoundEngine()));
        Throws<Exception>(() => new ISoundEngine(SoundOutputDriver.CoreAudio));
        Throws<Exception>(() => new ISoundEngine(SoundOutputDriver.ALSA, 0, "no-such-pcm"));
        AreEqual("sound engine may not be null when creating audio recorder.",
                 thrownBy(() => new IAudioRecorder(null)));
        AreEqual("Sonimbra audio recorder" + NotCreated,
                 thrownBy(() => new IAudioRecorder(engine)));
        Throws<Exception>(() => new IAudioRecorder(engine, SoundOutputDriver.ALSA, "no-such-pcm"));
        StringAssert.Contains("version 2", Throws<InvalidOperationException>(
            () => NativeMethods.CheckInterfaceVersion(2)).Message);
    }

    [Test]
    public void KeepsItsSettings() {
        AreEqual("1 1 1E+09", engine.SoundVolume + " " + engine.Default3DSoundMinDistance + " " +
                                  engine.Default3DSoundMaxDistance);
        Support.AssertKeeps(engine, "SoundVolume", 0.5f, "Default3DSoundMinDistance", 2f,
                            "Default3DSoundMaxDistance", 30f);
        IsTrue(engine.Name == "NULL" && !engine.IsMultiThreaded);
        IsTrue(new ISoundEngine(SoundOutputDriver.NullDriver).IsMultiThreaded);
        engine.SetListenerPosition(1, 2, 3, 0, 0, 1);
        engine.SetRolloffFactor(3);
        engine.Update();
        IsTrue(engine.LoadPlugins(Path.GetTempPath()));
        IsFalse(engine.LoadPlugins("no such folder"));
        IsNull(engine.Play2D(tone, false, false, false), "the NULL driver makes no sounds");
        IsNull(engine.Play2D((ISoundSource)null, false, false, false));
    }

    [Test]
    public void RegistersSources() {
        AreEqual("tone", tone.Name);
        AreEqual(Support.Tone(100), tone.SampleData);
        IsNull(Support.AddTone(engine, 9), "the name exists");
        foreach (byte[] nothing in new[] { new byte[0], null }) {
            IsNull(engine.AddSoundSourceFromPCMData(nothing, "nothing", tone.AudioFormat));
            IsNull(engine.AddSoundSourceFromMemory(nothing, "nothing"));
        }

        ISoundSource memory = engine.AddSoundSourceFromMemory(Support.Wav(441), "memory.wav");
        AreEqual(Support.Tone(441), memory.SampleData);
        IsTrue(memory.IsSeekingSupported && memory.PlayLength == 10);
        ISoundSource alias = engine.AddSoundSourceAlias(memory, "alias");
        Support.AssertKeeps(alias, "DefaultVolume", 0.25f, "DefaultMinDistance", 3f,
                            "DefaultMaxDistance", 40f, "ForcedStreamingThreshold", 5,
                            "StreamMode", StreamMode.Streaming);
        AreEqual(1, memory.DefaultVolume);
        IsNull(engine.AddSoundSourceAlias(null, "other"));

        IsNull(engine.GetSoundSource("file", false));
        ISoundSource file = engine.AddSoundSourceFromFile("file", StreamMode.Streaming);
        AreEqual(StreamMode.Streaming, file.StreamMode);
        file.ForceReloadAtNextUse();
        AreEqual(new AudioFormat(), engine.GetSoundSource("file").AudioFormat, "no such file");
        IsNull(file.SampleData);
        engine.RemoveSoundSource("memory.wav");
        IsNull(engine.GetSoundSource("memory.wav", false));
        engine.RemoveAllSoundSources();
        IsNull(engine.GetSoundSource("tone", false));
        AreEqual("tone", tone.Name, "a removed source lives as long as its wrapper");
        tone.Dispose();
        tone.Dispose();
        AssertNeutral(tone);
        IsNull(engine.AddSoundSourceAlias(tone, "of nothing"));
    }

    [TestCase(SoundDeviceListType.PlaybackDevice)]
    [TestCase(SoundDeviceListType.RecordingDevice)]
    public void ListsDevices(SoundDeviceListType type) {
        AreEqual(1, new ISoundDeviceList(type).DeviceCount);
        var list = new ISoundDeviceList(type, SoundOutputDriver.ALSA);
        string device = list.getDeviceID(Enumerable.Range(0, list.DeviceCount).Single(
            i => list.getDeviceDescription(i) == "PulseAudio Sound Server"));
        var playing = new ISoundEngine(SoundOutputDriver.ALSA, 0, device);
        new IAudioRecorder(playing, SoundOutputDriver.ALSA, device).Dispose();
        AreEqual("default device", list.getDeviceID(0) + list.getDeviceDescription(0));
        IsNull(list.getDeviceID(-1) ?? list.getDeviceDescription(list.DeviceCount));
        list.Dispose();
        list.Dispose();
        AssertNeutral(list);
    }
}

}

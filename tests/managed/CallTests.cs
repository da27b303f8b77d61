// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using NUnit.Framework;
using static NUnit.Framework.Assert;

namespace Sonimbra.Tests {

/// <summary>What reaches the library, with one that only notes how it is called.</summary>
[Category("Calls")]
public class CallTests {
    private ISoundEngine engine;

    [DllImport("sonimbra")]
    private static extern void return_from_now_on(int value);

    [DllImport("sonimbra")]
    private static extern IntPtr last_call();

    private static void AssertCalls(string expected, Action action) {
        action();
        AreEqual(expected, Marshal.PtrToStringAnsi(last_call()));
    }

    [SetUp]
    public void CreateEngine() {
        return_from_now_on(1); // as version, then as engine
        engine = Support.NullEngine();
    }

    [TestCase("Chorus", "chorus", "50 10 25 1.1 1 16 90")]
    [TestCase("Compressor", "compressor", "0 10 200 -20 3 4")]
    [TestCase("Distortion", "distortion", "-18 15 2400 2400 8000")]
    [TestCase("Echo", "echo", "50 50 500 500 0")]
    [TestCase("Flanger", "flanger", "50 100 -50 0.25 1 2 0")]
    [TestCase("Gargle", "gargle", "20 1")]
    [TestCase("I3DL2Reverb", "i3dl2_reverb",
              "-1000 -100 0 1.49 0.83 -2602 0.007 200 0.011 100 100 5000")]
    [TestCase("ParamEq", "param_eq", "8000 12 0")]
    [TestCase("WavesReverb", "waves_reverb", "0 0 1000 0.001")]
    public void SwitchesEffects(string effect, string entry, string usual) {
        return_from_now_on(7);
        ISoundEffectControl control = engine.Play2D("x").SoundEffectControl;
        Func<string, MethodInfo[]> find = name => control.GetType().GetMethods().Where(
            m => m.Name == string.Format(name, effect + "SoundEffect")).ToArray();
        MethodInfo[] enable = find("Enable{0}"); // without parameters, then with all
        object[] given = enable[1].GetParameters().Select((p, i) => Convert.ChangeType(
            p.ParameterType == typeof(bool) ? 0 : i + 1.25, p.ParameterType)).ToArray();
        string start = "effects_enable_" + entry + " 7 ";
        foreach (bool result in new[] { false, true }) {
            return_from_now_on(result ? 1 : 0);
            AssertCalls(start + string.Join(" ", given.Select(Convert.ToSingle)),
                        () => AreEqual(result, enable[1].Invoke(control, given)));
            AssertCalls(start + usual, () => AreEqual(result, enable[0].Invoke(control, null)));
            AssertCalls("effects_is_" + entry + "_enabled 7", () => AreEqual(
                result, find("get_Is{0}Enabled").Single().Invoke(control, null)));
        }
        AssertCalls("effects_disable_" + entry + " 7",
                    () => find("Disable{0}").Single().Invoke(control, null));
        AssertCalls("effects_disable_all 7", control.DisableAllEffects);
    }

    [Test]
    public void KeepsTheOrderOfArguments() {
        AssertCalls("engine_set_listener_position 1 1 2 3 4 5 6 7 8 9 10 11 12",
                    () => engine.SetListenerPosition(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
        AssertCalls("engine_set_listener_position 1 1 2 3 4 5 6 0 0 0 0 1 0",
                    () => engine.SetListenerPosition(1, 2, 3, 4, 5, 6));
        AssertCalls("engine_set_doppler_effect_parameters 1 2 3",
                    () => engine.SetDopplerEffectParameters(2, 3));
        AssertCalls("device_list_create 4 1.5.0", () => new ISoundDeviceList(
            SoundDeviceListType.PlaybackDevice, SoundOutputDriver.ALSA));
        AssertCalls("device_list_create_recording 2 1.5.0", () => new ISoundDeviceList(
            SoundDeviceListType.RecordingDevice, SoundOutputDriver.DirectSound));
    }
}

}

// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// Plays a sound file that circles around the listener, and prints why it ended:
//
//     PlayAndOrbit.exe FILE [DEVICE]
//
// It shows the life of an engine and of a sound, 3D positions, and a stop event.

using System;
using System.Threading;
using Sonimbra;

internal static class PlayAndOrbit {
    /// <summary>Is told once, when the sound has ended, on the engine's own thread.</summary>
    private sealed class StopPrinter : ISoundStopEventReceiver {
        public readonly ManualResetEvent HasStopped = new ManualResetEvent(false);

        public void OnSoundStopped(ISound sound, StopEventCause reason, object userData) {
            Console.WriteLine(userData + " has ended: " + reason);
            HasStopped.Set();
        }
    }

    // An engine plays through one output driver. Where that does not exist or does not start, the
    // constructor throws; nothing else does: other failures are a null or false result.
    private static ISoundEngine CreateEngine(string device) {
        // MultiThreaded: the engine feeds its device on a thread of its own.
        const SoundEngineOptionFlag options = SoundEngineOptionFlag.MultiThreaded;
        bool isWindows = Environment.OSVersion.Platform == PlatformID.Win32NT;
        SoundOutputDriver driver = isWindows ? SoundOutputDriver.WinMM : SoundOutputDriver.ALSA;
        return new ISoundEngine(driver, options, device);
    }

    private static void Orbit(ISound sound, WaitHandle hasStopped) {
        const double turnsPerSecond = 0.5;
        const int stepMilliseconds = 50;
        double angle = 0;
        do {
            // Around the listener, who looks along the third axis, at a distance of 3.
            sound.Position =
                new Vector3D((float)Math.Sin(angle), 0, (float)Math.Cos(angle)) * 3;
            angle += 2 * Math.PI * turnsPerSecond * stepMilliseconds / 1000;
        } while (!hasStopped.WaitOne(stepMilliseconds));
    }

    private static int Main(string[] arguments) {
        if (arguments.Length < 1 || arguments.Length > 2) {
            Console.Error.WriteLine("Usage: PlayAndOrbit.exe FILE [DEVICE]");
            return 1;
        }
        try {
            // There is no Dispose for the engine: it ends with the last object that came from it.
            ISoundEngine engine = CreateEngine(arguments.Length == 2 ? arguments[1] : null);
            engine.SetListenerPosition(new Vector3D(0, 0, 0), new Vector3D(0, 0, 1));

            // Starts paused, so that the receiver is there before the sound can end.
            using (ISound sound = engine.Play3D(arguments[0], 0, 0, 3, false, true)) {
                if (sound == null) {
                    Console.Error.WriteLine("Cannot play " + arguments[0]);
                    return 1;
                }
                var printer = new StopPrinter();
                sound.MinDistance = 3; // as loud as the file is
                sound.setSoundStopEventReceiver(printer, arguments[0]);
                sound.Paused = false;
                Orbit(sound, printer.HasStopped);
            }
            // The device still plays what is in its queue.
            Thread.Sleep(300);
            GC.KeepAlive(engine);
            return 0;
        } catch (Exception failure) {
            Console.Error.WriteLine(failure.Message);
            return 1;
        }
    }
}

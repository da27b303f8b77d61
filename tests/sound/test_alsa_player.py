#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Plays tones with the Linux player through ALSA's PCM for the sound server."""

import os
import signal
import subprocess
import unittest
import uuid
from pathlib import Path

import listening
from listening import Expected

PLAYER = os.environ.get("SONIMBRA_PLAYER", "")
IDENTIFIERS = uuid.UUID("c831b26d-609f-4e56-8711-df2fdd429706")


class ALSACommand:
    # By name: "default" is the sound server only where the system says so.
    device = "pulse"

    def command(self, file, options):
        return [PLAYER, "--driver", "alsa", "--device", self.device, *options, str(file)]


class ALSARecordingTest(ALSACommand, listening.RecordingTest):
    def test_ends_with_a_complete_file_on_ctrl_c(self):
        file = Path(self.folder.name) / "stopped.wav"
        recording = self.start_recording(file, [])
        recording.send_signal(signal.SIGINT)
        printed = recording.communicate(timeout=10)[0]
        self.assertEqual(recording.returncode, 0, printed)
        seconds = len(listening.read_channels(file)[1][0]) / listening.RATE
        self.assertEqual(printed.splitlines()[-1].split(",")[0], f"Recorded {seconds:.3f} s")

    def test_a_full_disk_is_told(self):
        command = self.command("/dev/full", ["--seconds", "9", "--record"])
        failed = subprocess.run(command, capture_output=True, text=True, timeout=20)
        error = "sonimbra-player: cannot write /dev/full: No space left on device\n"
        self.assertEqual((failed.returncode, failed.stderr), (4, error))


class ALSAPlayerTest(ALSACommand, listening.PlayerTest):
    def test_listed_device_plays(self):
        listed = subprocess.run([PLAYER, "--list-devices"], capture_output=True, text=True)
        self.assertEqual((listed.returncode, listed.stderr), (0, ""))
        self.device = str(uuid.uuid5(IDENTIFIERS, "pulse"))
        for kind in listed.stdout.split("\n\n"):
            self.assertEqual(kind.splitlines()[1].split(), ["default", "device"])
            self.assertIn(self.device + "  PulseAudio Sound Server\n", kind + "\n")
        self.check([], Expected(), Expected())

    def test_says_what_to_do(self):
        for options, code, advice in (
            (["--driver", "alsa", "--device", "no-such-pcm"], 3, r".*no-such-pcm.*--render OUT.wav"),
            (["--device", "no-such-pcm", "--record"], 3, r".*no-such-pcm.*--list-devices\)"),
            (["--driver", "null", "--record"], 1, r".*\"null\" does not record; choose .*alsa.*"),
            (["--effect", "sepia"], 1, r".*sepia not in {chorus,.*,wavesreverb}; see .*--help"),
            (["--driver", "alsa", "--effect", "echo"], 1, r".*\"alsa\" .*leave --effect out"),
            (["--effect", "Echo"], 3, r".*\"directsound8\" .*does not work.*leave --effect out"),
        ):
            with self.subTest(options=options):
                command = [PLAYER, *options, "tone.wav"]
                failed = subprocess.run(command, capture_output=True, text=True)
                self.assertEqual((failed.returncode, failed.stdout), (code, ""))
                self.assertRegex(failed.stderr, f"^sonimbra-player: {advice}\n$")


if __name__ == "__main__":
    unittest.main()

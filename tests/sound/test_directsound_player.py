#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Plays with the Windows player through both generations of DirectSound."""

import math
import subprocess
import unittest
from pathlib import Path

import listening
from listening import AMPLITUDE, RATE, Expected

# A gain is heard at 1000 times its natural logarithm, in whole hundredths of a decibel.
HALF_VOLUME = AMPLITUDE * 10 ** (math.trunc(1000 * math.log(0.5)) / 2000)


class WholeSoundsByDirectSound8(listening.WindowsPlayer, listening.PlayerTest):
    driver = ("--driver", "directsound8", "--no-stream")
    half_volume_level = HALF_VOLUME
    loop_seconds = 3.0

    def test_goes_on_without_a_break_from_a_start_in_the_middle(self):
        self.check_count(["--start", "1.234"], int(1.234 * RATE), self.loop_seconds)


class StreamsByDirectSound(WholeSoundsByDirectSound8):
    driver = ("--driver", "directsound", "--stream")
    loop_seconds = 6.3  # many turns of the ring


class DirectSoundChoices(listening.WindowsPlayer, listening.ListeningTest):
    def test_right_of_the_listener_is_louder_on_the_right(self):
        file = Path(self.folder.name) / "tone.wav"
        listening.write_tone(file, seconds=1.0)

        def compare():
            left, right = self.play(file, ["--orbit"])  # from the front to the right
            self.assertLess(left.level * 1.2, right.level)

        self.repeat(compare)

    def test_other_pairs_of_generation_and_reading(self):
        left, right = (Expected(pitch=pitch, level=HALF_VOLUME) for pitch in (330, 550))
        for driver, reading in (("directsound8", "--stream"), ("directsound", "--no-stream")):
            with self.subTest(driver=driver):
                options = ["--driver", driver, reading, "--volume", "0.5"]
                self.check(options, left, right, rate=22050, pitches=(330, 550), sample_bytes=1)

    def test_automatic_choice_plays_a_file_with_a_non_ascii_name(self):
        self.check(["--verbose"], Expected(), Expected(), name="t\u00f6n \u97f3.wav")
        self.assertIn("Using DirectSound8 driver\n", self.printed)

    def test_devices(self):
        listed = subprocess.check_output(self.program("--list-devices"), text=True).splitlines()
        captures = listed.index("") + 1
        for heading in (0, captures):
            self.assertEqual(listed[heading + 1].split(), ["default", "device"])
        self.assertIn("  Monitor of Null Output", listed[-1])
        known = listed[2].split()[0]
        for device in (known, "0" * 36, "x" * 5000, "\u00fc\u97f3"):
            with self.subTest(device=device[:40]):
                self.check(["--verbose", "--device", device], Expected(), Expected())
                self.assertEqual("Using device" in self.printed, device == known)

    def test_effects(self):
        # Wine's effects let the sound pass.
        options = ["--effect", "Echo", "--effect", "wavesreverb", "--verbose"]
        self.check(options, Expected(), Expected())
        self.assertNotIn("Could not set effects", self.printed)


class Recording(listening.WindowsPlayer, listening.RecordingTest):
    pass


if __name__ == "__main__":
    unittest.main()

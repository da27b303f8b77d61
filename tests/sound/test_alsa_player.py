#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Plays tones with the Linux player through ALSA's PCM for the sound server."""

import os
import subprocess
import unittest
import uuid

import listening
from listening import Expected

PLAYER = os.environ.get("SONIMBRA_PLAYER", "")
IDENTIFIERS = uuid.UUID("c831b26d-609f-4e56-8711-df2fdd429706")


class ALSAPlayerTest(listening.PlayerTest):
    # By name: "default" is the sound server only where the system says so.
    device = "pulse"

    def command(self, file, options):
        return [PLAYER, "--driver", "alsa", "--device", self.device, *options, str(file)]

    def test_listed_device_plays(self):
        listed = subprocess.run([PLAYER, "--list-devices"], capture_output=True, text=True)
        self.assertEqual((listed.returncode, listed.stderr), (0, ""))
        self.assertEqual(listed.stdout.splitlines()[0].split(), ["default", "device"])
        self.device = str(uuid.uuid5(IDENTIFIERS, "pulse"))
        self.assertIn(self.device + "  PulseAudio Sound Server\n", listed.stdout)
        self.check([], Expected(), Expected())

    def test_says_what_to_do_without_a_device(self):
        command = self.command("tone.wav", ["--device", "no-such-pcm"])
        failed = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual((failed.returncode, failed.stdout), (3, ""))
        self.assertRegex(failed.stderr, r"^sonimbra-player: .*no-such-pcm.*--render OUT.wav\n$")


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Plays tones with the Windows player under Wine, which SONIMBRA_WINE starts."""

import os
import unittest

import listening
from listening import Expected


class WinMMPlayerTest(listening.PlayerTest):
    needed_variables = ("SONIMBRA_PLAYER", "SONIMBRA_WINE")

    def command(self, file, options):
        path = "Z:" + str(file).replace("/", "\\")
        program = [os.environ["SONIMBRA_WINE"], os.environ["SONIMBRA_PLAYER"]]
        return [*program, "--driver", "winmm", *options, path]

    def test_sample_sizes(self):
        for sample_bytes in (1, 3):
            with self.subTest(sample_bytes=sample_bytes):
                self.check([], Expected(), Expected(), sample_bytes=sample_bytes)

    def test_non_ascii_file_name(self):
        self.check([], Expected(), Expected(), name="t\u00f6n \u97f3.wav")


if __name__ == "__main__":
    unittest.main()

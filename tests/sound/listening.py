# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Plays tones with the player and listens to the sound server's null sink.

Needs SONIMBRA_PLAYER (the program) and a reachable sound server with a sink named `nul`;
scripts/test provides both. What is missing is a failure.
"""

import array
import math
import os
import subprocess
import tempfile
import time
import unittest
import wave
from dataclasses import dataclass
from pathlib import Path

RATE = 44100
AMPLITUDE = 0.5
FULL_SCALE = 32767
LONGEST_GAP = RATE * 5 // 1000
LONGEST_LOSS = RATE * 50 // 1000
# What starts a program so that other programs do not keep it waiting; may be empty.
REALTIME = os.environ.get("SONIMBRA_REALTIME", "").split()


def sine_frames(rate, seconds, channel_pitches):
    for index in range(round(rate * seconds)):
        yield [math.sin(2 * math.pi * pitch * index / rate) for pitch in channel_pitches]


def encode(value, sample_bytes):
    """One sample of -1..1 as WAV bytes; 8 bits are unsigned there, wider ones signed."""
    if sample_bytes == 1:
        return bytes([128 + round(value * 127)])
    return round(value * (2 ** (8 * sample_bytes - 1) - 1)).to_bytes(sample_bytes, "little", signed=True)


def write_tone(path, rate=RATE, seconds=0.6, pitches=(440,), sample_bytes=2):
    with wave.open(str(path), "wb") as writer:
        writer.setnchannels(len(pitches))
        writer.setsampwidth(sample_bytes)
        writer.setframerate(rate)
        frames = sine_frames(rate, seconds, pitches)
        writer.writeframes(
            b"".join(encode(AMPLITUDE * value, sample_bytes) for frame in frames for value in frame)
        )


def write_count(path, frames):
    """Mono frames that count 0, 1, 2, ..., so that each tells its own place."""
    with wave.open(str(path), "wb") as writer:
        writer.setparams((1, 2, RATE, 0, "NONE", ""))
        writer.writeframes(array.array("H", (i % 65536 for i in range(frames))).tobytes())


class Recorder:
    """Records the null sink's monitor all the time: opening it anew takes up to two seconds."""

    def __init__(self):
        command = [*REALTIME, "parec", "-d", "nul.monitor", "--format=s16le", f"--rate={RATE}"]
        command += ["--channels=2", "--latency-msec=20", "--raw"]
        self.file = tempfile.NamedTemporaryFile(prefix="sonimbra-heard.")
        self.process = subprocess.Popen(command, stdout=self.file)
        deadline = time.monotonic() + 10
        while self.position() == 0:
            if time.monotonic() > deadline or self.process.poll() is not None:
                self.close()
                raise AssertionError("recording the monitor did not start")
            time.sleep(0.02)

    def position(self):
        """Bytes recorded so far, in whole frames."""
        return os.path.getsize(self.file.name) // 4 * 4

    def channels_since(self, position):
        """What the left and the right channel received since then."""
        time.sleep(0.4)  # what was played last is still under way
        data = Path(self.file.name).read_bytes()[position : self.position()]
        samples = array.array("h", data)
        return samples[0::2], samples[1::2]

    def close(self):
        self.process.terminate()
        self.process.wait(10)
        self.file.close()


@dataclass
class Tone:
    """What was heard on one channel."""

    seconds: float
    pitch: float
    level: float
    longest_gap: int


def longest_zero_run(samples):
    longest = run = 0
    for sample in samples:
        run = run + 1 if sample == 0 else 0
        longest = max(longest, run)
    return longest


def pitch_of(samples):
    """Mean frequency between the first and the last upward zero crossing, in hertz."""
    crossings = []
    for index in range(1, len(samples)):
        before, after = samples[index - 1], samples[index]
        if before < 0 <= after:
            crossings.append(index - after / (after - before))
    if len(crossings) < 2:
        return 0.0
    return (len(crossings) - 1) * RATE / (crossings[-1] - crossings[0])


def hear(samples):
    """Measures the sounding part of a channel; None when the channel is silent."""
    loud = [index for index, sample in enumerate(samples) if abs(sample) > FULL_SCALE * 0.01]
    if not loud:
        return None
    sounding = samples[loud[0] : loud[-1] + 1]
    margin = len(sounding) // 10
    middle = sounding[margin : len(sounding) - margin]
    power = sum(sample * sample for sample in middle) / len(middle)
    level = math.sqrt(2 * power) / FULL_SCALE
    return Tone(len(sounding) / RATE, pitch_of(middle), level, longest_zero_run(sounding))


def follow_count(samples, first):
    """Returns a count's last frame, and the tenths of a second where silence broke in, after which
    some frames may be missing. Any other gap or repeat is a failure."""
    frame, silence, broken = first - 1, 0, set()
    for sample in samples:
        if sample == 0:
            silence += 1
            continue
        step = (sample - frame) % 65536
        if silence > 1:
            broken.add(frame * 10 // RATE)
        if step > 1 + LONGEST_LOSS if silence > 1 else step != 1 + silence:
            raise AssertionError(f"frame {frame} and {silence} frames of silence, then {step} on")
        frame, silence = frame + step, 0
    return frame, broken - {(first - 1) * 10 // RATE}


@dataclass
class Expected:
    pitch: float = 440.0
    level: float = AMPLITUDE
    seconds: float = 0.6


class ListeningTest(unittest.TestCase):
    """Plays and listens. A derived class says how the player is started."""

    needed_variables = ("SONIMBRA_PLAYER",)

    @classmethod
    def setUpClass(cls):
        for name in cls.needed_variables:
            if not os.path.exists(os.environ.get(name, "")):
                raise AssertionError(f"{name} does not name a file; run this by scripts/test")
        sources = subprocess.run(["pactl", "list", "short", "sources"], capture_output=True, text=True)
        if "nul.monitor" not in sources.stdout:
            raise AssertionError(f"no sound server with a null sink: {sources.stderr.strip()}")
        cls.recorder = Recorder()
        cls.addClassCleanup(cls.recorder.close)

    def command(self, file, options):
        raise NotImplementedError

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="sonimbra-sound.")
        self.addCleanup(self.folder.cleanup)

    def record(self, file, options):
        """Plays the file and returns the samples that the left and the right channel received."""
        begin = self.recorder.position()
        result = subprocess.run(
            [*REALTIME, *self.command(file, options)],
            env={**os.environ, "LC_ALL": "C.UTF-8"},
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            errors="replace",
            timeout=60,
        )
        if result.returncode > 0:
            # No assertion: it is not repeated.
            raise RuntimeError(f"exit code {result.returncode}: {result.stdout}{result.stderr}")
        self.assertEqual(result.returncode, 0, "the player was ended by a signal")
        self.printed = result.stdout
        return self.recorder.channels_since(begin)

    def play(self, file, options):
        """Plays the file and measures what the left and the right channel received."""
        return tuple(hear(channel) for channel in self.record(file, options))

    def check_channel(self, tone, expected):
        if expected is None:
            self.assertIsNone(tone, "the channel sounds")
            return
        self.assertIsNotNone(tone, "the channel is silent")
        self.assertLessEqual(tone.longest_gap, LONGEST_GAP, f"the tone has a hole: {tone}")
        self.assertAlmostEqual(tone.pitch, expected.pitch, delta=expected.pitch * 0.005, msg=tone)
        self.assertAlmostEqual(tone.level, expected.level, delta=expected.level * 0.04, msg=tone)
        self.assertAlmostEqual(tone.seconds, expected.seconds, delta=0.06, msg=tone)

    def repeat(self, check):
        """Does a check up to three times.

        A busy machine may starve the sound server for some milliseconds, which sounds the same as
        a fault of the driver, and Wine itself may die of a signal when a program ends (a fault of
        the program comes back as an exit code). Only a fault is there each time.
        """
        for attempts_left in (2, 1, 0):
            try:
                check()
                return
            except AssertionError as failure:
                if attempts_left == 0:
                    raise
                print(f"{failure}; playing again", flush=True)

    def check(self, options, left, right, name="tone.wav", **tone):
        """Plays a tone and compares both channels."""
        file = Path(self.folder.name) / name
        write_tone(file, **tone)

        def compare():
            heard = self.play(file, options)
            self.check_channel(heard[0], left)
            self.check_channel(heard[1], right)

        self.repeat(compare)

    def check_count(self, options, first, seconds):
        """Plays a count from a frame on, with --loop, and checks that it is heard without a break.
        Silence that the sound server lets in is not at the same place in each try."""
        file = Path(self.folder.name) / "count.wav"
        write_count(file, 2 * 65536)  # the loop counts on, too
        always_broken = None

        def follow():
            nonlocal always_broken
            left, right = self.record(file, ["--loop", "--seconds", str(seconds), *options])
            self.assertEqual(left, right)
            last, broken = follow_count(left, first)
            self.assertAlmostEqual((last - first) / RATE, seconds, delta=0.5)
            always_broken = broken if always_broken is None else always_broken & broken
            self.assertFalse(always_broken, "tenths of a second with silence")

        self.repeat(follow)


def read_channels(path):
    """The parameters of a WAV file of 8 or 16 bits, and its channels in 16."""
    with wave.open(str(path)) as reader:
        data = reader.readframes(reader.getnframes())
        wide = array.array("h", data if reader.getsampwidth() == 2 else b"")
        wide.extend([] if wide else [(byte - 128) * 256 for byte in data])
        count = reader.getnchannels()
        return reader.getparams(), [wide[channel::count] for channel in range(count)]


class RecordingTest(ListeningTest):
    """What every capture driver has to pass: it records what the player plays meanwhile."""

    def start_recording(self, file, options):
        """Returns when the file is there: it is made with the first block."""
        command = [*REALTIME, *self.command(file, [*options, "--record"])]
        recording = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.addCleanup(recording.kill)
        deadline = time.monotonic() + 20
        while not file.exists() and recording.poll() is None:
            self.assertLess(time.monotonic(), deadline, "nothing is recorded")
            time.sleep(0.05)
        return recording

    def test_records_what_plays(self):
        tone, file = (Path(self.folder.name) / name for name in ("tone.wav", "recorded \u97f3.wav"))
        write_tone(tone)

        def compare():
            file.unlink(missing_ok=True)
            recording = self.start_recording(file, ["--seconds", "4", *options])
            played = hear(self.record(tone, [])[0])
            printed = recording.communicate(timeout=30)[0]
            self.assertEqual(recording.returncode, 0, printed)
            self.assertRegex(printed.splitlines()[-1], r"^Recorded 4\.000 s, peak (49|50|51)\.")
            parameters, heard = read_channels(file)
            self.assertEqual(parameters[:4], (channels, bits // 8, RATE, 4 * RATE))
            for recorded in map(hear, heard):
                # What playing lost on a busy machine is no fault of the recording.
                for measure, delta in (("seconds", 0.01), ("pitch", 2), ("level", 0.02), ("longest_gap", 50)):
                    values = getattr(recorded, measure), getattr(played, measure)
                    self.assertAlmostEqual(*values, delta=delta, msg=measure)

        for channels, bits in ((2, 16), (1, 8)):
            options = ["--channels", str(channels), "--bits", str(bits)]
            with self.subTest(bits=bits):
                self.repeat(compare)


class PlayerTest(ListeningTest):
    """What every output driver has to pass."""

    half_volume_level = AMPLITUDE / 2  # what --volume 0.5 makes of the tone

    def test_mono_sounds_on_both_channels(self):
        self.check([], Expected(), Expected())

    def test_stereo_at_half_rate_keeps_its_channels(self):
        self.check([], Expected(pitch=330), Expected(pitch=550), rate=22050, pitches=(330, 550))

    def test_volume_scales_the_level(self):
        half = Expected(level=self.half_volume_level)
        self.check(["--volume", "0.5"], half, half)

    def test_pan_silences_the_far_channel(self):
        # A pan above 0 takes the right channel away, one below 0 the left.
        for pan, left, right in (("1", Expected(), None), ("-1", None, Expected())):
            with self.subTest(pan=pan):
                self.check([f"--pan={pan}"], left, right)

    def test_double_speed_doubles_pitch_and_halves_length(self):
        fast = Expected(pitch=880, seconds=0.3)
        self.check(["--speed", "2.0"], fast, fast)


class WindowsPlayer:
    """For a test: starts the Windows player under Wine, which SONIMBRA_WINE starts."""

    needed_variables = ("SONIMBRA_PLAYER", "SONIMBRA_WINE")
    driver = ()  # options

    def program(self, *arguments):
        return [os.environ["SONIMBRA_WINE"], os.environ["SONIMBRA_PLAYER"], *arguments]

    def command(self, file, options):
        return self.program(*self.driver, *options, "Z:" + str(file).replace("/", "\\"))

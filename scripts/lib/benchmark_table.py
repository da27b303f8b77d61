#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Prints the least that each benchmark of a Google Benchmark JSON file took, as Markdown."""

import json
import re
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
RAW = "resampleOnly"


def least_of_runs(runs):
    """The least processor time (nanoseconds) and least counters of each benchmark."""
    times, voices, memory = {}, {}, {}
    for run in runs:
        if run["run_type"] != "iteration":
            continue
        name = run["run_name"]
        time = run["cpu_time"] * NANOSECONDS[run["time_unit"]]
        times[name] = min(time, times.get(name, time))
        for counter, table in (("us_per_voice_second", voices), ("bytes_per_sound", memory)):
            if counter in run:
                table[name] = min(run[counter], table.get(name, run[counter]))
    return times, voices, memory


def readable(nanoseconds):
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def in_order(table):
    """Names sorted with their numbers as numbers."""
    return sorted(
        table.items(),
        key=lambda item: [int(p) if p.isdigit() else p for p in re.split(r"(\d+)", item[0])],
    )


def print_voices(voices):
    print("| microseconds per voice and second | cost | times the raw resampler |\n|---|---|---|")
    for name, cost in in_order(voices):
        raw = voices.get(RAW + "/" + name.split("/", 1)[1])
        print(f"| {name} | {cost:.0f} | {f'{cost / raw:.2f}' if raw else '-'} |")


def print_others(times, voices, memory):
    print("| benchmark | |\n|---|---|")
    for name, time in in_order(times):
        if name in memory:
            print(f"| {name} | {memory[name] / 1024:.1f} KiB a sound |")
        elif name not in voices:
            print(f"| {name} | {readable(time)} |")


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        measured = json.load(file)
    times, voices, memory = least_of_runs(measured["benchmarks"])
    print(f"{measured['context']['date'][:10]}, {measured['context']['num_cpus']} processors\n")
    if voices:
        print_voices(voices)
        print()
    print_others(times, voices, memory)


main()

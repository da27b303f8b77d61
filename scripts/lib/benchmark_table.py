#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""Prints the least that each benchmark of a Google Benchmark JSON file took, as Markdown."""

import json
import re
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
RAW = "resampleOnly"
BY_STREAM, BY_LIBRARY = "ByStream/", "ByLibrary/"


def least_of_runs(runs):
    """The least processor time (nanoseconds) and least counters of each benchmark."""
    times, counters = {}, {"us_per_voice_second": {}, "bytes_per_sound": {}, "reads_per_2KiB": {}}
    for run in runs:
        if run["run_type"] != "iteration":
            continue
        name = run["run_name"]
        time = run["cpu_time"] * NANOSECONDS[run["time_unit"]]
        times[name] = min(time, times.get(name, time))
        for counter, table in counters.items():
            if counter in run:
                table[name] = min(run[counter], table.get(name, run[counter]))
    return times, *counters.values()


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


def print_decoders(times):
    print("| a minute of sound | cost | times the library |\n|---|---|---|")
    for name, time in in_order(times):
        library = times.get(name.replace(BY_STREAM, BY_LIBRARY))
        ratio = f"{time / library:.3f}" if library and BY_STREAM in name else "-"
        print(f"| {name} | {readable(time)} | {ratio} |")


def print_others(times, voices, memory, reads):
    print("| benchmark | |\n|---|---|")
    for name, time in in_order(times):
        if name in memory:
            print(f"| {name} | {memory[name] / 1024:.1f} KiB a sound |")
        elif name in reads:
            print(f"| {name} | {readable(time)}, {reads[name]:.2f} file reads for 2 KiB |")
        elif name not in voices:
            print(f"| {name} | {readable(time)} |")


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        measured = json.load(file)
    times, voices, memory, reads = least_of_runs(measured["benchmarks"])
    decoders = {name: times.pop(name) for name in list(times) if BY_STREAM in name or BY_LIBRARY in name}
    print(f"{measured['context']['date'][:10]}, {measured['context']['num_cpus']} processors\n")
    if voices:
        print_voices(voices)
        print()
    if decoders:
        print_decoders(decoders)
        print()
    print_others(times, voices, memory, reads)


main()

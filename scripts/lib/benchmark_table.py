#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""benchmark_table.py FILE [peers|curves|lock]: prints a Google Benchmark JSON file as Markdown.

Of each benchmark it shows the least of its runs, and of the waits for the lock the quietest run.
"""

import sys

import benchmark_runs

RAW = "resampleOnly"
BY_STREAM, BY_LIBRARY = "ByStream/", "ByLibrary/"


def print_row(*cells):
    print("| " + " | ".join(map(str, cells)) + " |")


def print_header(*cells):
    print_row(*cells)
    print("|" + "---|" * len(cells))


def readable(nanoseconds):
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def short(value):
    return f"{value:.0f}" if value >= 99.5 else f"{value:.3g}"


def print_voices(voices):
    print_header("microseconds per voice and second", "cost", "times the raw resampler")
    for name, cost in benchmark_runs.in_order(voices):
        raw = voices.get(RAW + "/" + name.split("/", 1)[1])
        print_row(name, f"{cost:.0f}", f"{cost / raw:.2f}" if raw else "-")
    print()


def print_decoders(times):
    print_header("a minute of sound", "cost", "times the library")
    for name, time in benchmark_runs.in_order(times):
        library = times.get(name.replace(BY_STREAM, BY_LIBRARY))
        ratio = f"{time / library:.3f}" if library and BY_STREAM in name else "-"
        print_row(name, readable(time), ratio)
    print()


def print_others(times, voices, memory, reads):
    print_header("benchmark", "")
    for name, time in benchmark_runs.in_order(times):
        if name in memory:
            print_row(name, f"{memory[name] / 1024:.1f} KiB a sound")
        elif name in reads:
            print_row(name, f"{readable(time)}, {reads[name]:.2f} file reads for 2 KiB")
        elif name not in voices:
            print_row(name, readable(time))


def print_all(runs):
    times = benchmark_runs.least_times(runs)
    voices = benchmark_runs.least(runs, benchmark_runs.VOICE_COST)
    decoders = {n: times.pop(n) for n in list(times) if BY_STREAM in n or BY_LIBRARY in n}
    if voices:
        print_voices(voices)
    if decoders:
        print_decoders(decoders)
    print_others(
        times,
        voices,
        benchmark_runs.least(runs, "bytes_per_sound"),
        benchmark_runs.least(runs, "reads_per_2KiB"),
    )


def print_peers(runs):
    costs = benchmark_runs.peer_costs(runs)
    mixers = benchmark_runs.mixers_of(costs)
    print("Microseconds of processor time for one voice and one second of output:\n")
    print_header("voices", *map(benchmark_runs.readable_mixer, mixers))
    for (*kind, voices), row in costs.items():
        cells = [short(row[mixer]) if mixer in row else "-" for mixer in mixers]
        print_row(f"{benchmark_runs.kind_of_voices(*kind)}, {voices}", *cells)
    print()
    print_ratios(costs, mixers[0])


def print_ratios(costs, fastest):
    pairs = [(fastest, peer) for peer in ("OpenAL_cubic", "OpenAL_linear", "SDL_mixer")]
    pairs.append(("Sonimbra_portable", "Sonimbra_DUMB"))
    print("Ratios of these:\n")
    print_header("voices", *(" / ".join(map(benchmark_runs.readable_mixer, pair)) for pair in pairs))
    for (*kind, voices), row in costs.items():
        cells = [f"{row[a] / row[b]:.2f}" if a in row and b in row else "-" for a, b in pairs]
        print_row(f"{benchmark_runs.kind_of_voices(*kind)}, {voices}", *cells)


def print_curves(runs):
    for group, curves in benchmark_runs.curves(runs).items():
        numbers = sorted({number for curve in curves.values() for number in curve})
        print_header(f"{group}, {benchmark_runs.unit_of(group)}", *numbers)
        for title, curve in curves.items():
            print_row(title, *(short(curve[n]) if n in curve else "-" for n in numbers))
        print()


def print_lock(runs):
    quietest = {}
    for run in runs:
        best = quietest.setdefault(run["run_name"], run)
        if run["wait_us_p99_9"] < best["wait_us_p99_9"]:
            quietest[run["run_name"]] = run
    waits = ["50", "90", "99", "99_9"]
    titles = [f"{p.replace('_', '.')} %" for p in waits]
    print_header("wait in microseconds", *titles, "longest", "longest block", "mixing")
    for name, run in benchmark_runs.in_order(quietest):
        cells = [short(run[f"wait_us_p{p}"]) for p in waits]
        title = name.removeprefix("lock/").split("/iterations")[0].replace("_", " ")
        busy = f"{run['mixing_percent']:.0f} %"
        print_row(title, *cells, short(run["wait_us_max"]), short(run["block_us_max"]), busy)


def main():
    context, runs = benchmark_runs.load(sys.argv[1])
    print(f"{context['date'][:10]}, {context['num_cpus']} processors\n")
    prints = {"peers": print_peers, "curves": print_curves, "lock": print_lock, "all": print_all}
    prints[sys.argv[2] if len(sys.argv) > 2 else "all"](runs)


main()

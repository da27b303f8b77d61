# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""What the scripts for benchmarks have in common: reading Google Benchmark's JSON."""

import json
import re
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
VOICE_COST = "us_per_voice_second"
ITEM_COST = "ns_per_item"


def load(path):
    """The context of a file, and its runs without those that summarise others. Ends the program
    when a benchmark failed."""
    with open(path, encoding="utf-8") as file:
        measured = json.load(file)
    runs = [run for run in measured["benchmarks"] if run["run_type"] == "iteration"]
    for run in runs:
        if run.get("error_occurred"):
            sys.exit(f"error: {run['run_name']}: {run['error_message']}")
    if not runs:
        sys.exit("error: no benchmark has run")
    return measured["context"], runs


def least(runs, counter):
    """The least value of a counter in the runs of each benchmark that has it."""
    values = {}
    for run in runs:
        if counter in run:
            name = run["run_name"]
            values[name] = min(run[counter], values.get(name, run[counter]))
    return values


def least_times(runs):
    """The least processor time of each benchmark, in nanoseconds."""
    times = {}
    for run in runs:
        time = run["cpu_time"] * NANOSECONDS[run["time_unit"]]
        times[run["run_name"]] = min(time, times.get(run["run_name"], time))
    return times


def in_order(table):
    """Names sorted with their numbers as numbers."""
    return sorted(
        table.items(),
        key=lambda item: [int(p) if p.isdigit() else p for p in re.split(r"(\d+)", item[0])],
    )


def peer_costs(runs):
    """The cost of a voice by its kind (channels, rate, speed in percent) with the number of voices,
    and by the mixer."""
    pattern = re.compile(r"peers/(\w+)/voices:(\d+)/channels:(\d+)/rate:(\d+)/speed:(\d+)")
    costs = {}
    for name, cost in least(runs, VOICE_COST).items():
        if found := pattern.match(name):
            mixer, *numbers = found.groups()
            voices, *kind = map(int, numbers)
            costs.setdefault((*kind, voices), {})[mixer] = cost
    return dict(sorted(costs.items()))


def mixers_of(costs):
    """All mixers: the library's own come first, the fastest kernels before the others."""
    found = dict.fromkeys(mixer for row in costs.values() for mixer in row)
    return sorted(found, key=lambda mixer: (not mixer.startswith("Sonimbra_"), mixer_rank(mixer)))


def mixer_rank(mixer):
    ranks = ["AVX2", "SSE2", "portable", "DUMB", "linear", "cubic"]
    kind = mixer.split("_")[-1]
    return ranks.index(kind) if kind in ranks else len(ranks)


def readable_mixer(mixer):
    return mixer.replace("Sonimbra_", "").replace("_", " ")


def kind_of_voices(channels, rate, speed):
    faster = "" if speed == 100 else f" x {speed / 100:g}"
    return f"{'mono' if channels == 1 else 'stereo'} {rate}{faster}"


def curves(runs):
    """The cost of an item by the group of curves, the curve, and the number of items."""
    found = {}
    pattern = re.compile(r"curve/(\w+)/(\w+)/n:(\d+)(?:/channels:(\d))?")
    for name, cost in in_order(least(runs, ITEM_COST) | least(runs, VOICE_COST)):
        if match := pattern.match(name):
            group, curve, number, channels = match.groups()
            title = curve.replace("_", " ") + {None: "", "1": ", mono", "2": ", stereo"}[channels]
            found.setdefault(group, {}).setdefault(title, {})[int(number)] = cost
    return found


def unit_of(group):
    return "us per voice and second" if group == "voices" else "ns each"

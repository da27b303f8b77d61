#!/usr/bin/env python3
# Copyright (c) 2026 The Sonimbra developers
# SPDX-License-Identifier: Zlib
"""benchmark_plot.py FILE peers|curves OUTPUT: draws a Google Benchmark JSON file as SVG."""

import math
import sys

import benchmark_runs

WIDTH, HEIGHT = 900, 300  # of one chart with its title and legend
LEFT, RIGHT, TOP, BOTTOM = 70, 170, 40, 45
COLOURS = ["#0b6e99", "#4fa3c7", "#9fcfe5", "#7f7f7f", "#f2a65a", "#c8553d", "#6b4c9a"]


class Drawing:
    """Charts one below the other."""

    def __init__(self):
        self.parts = []
        self.top = 0

    def begin_chart(self, title):
        self.base = self.top + HEIGHT - BOTTOM
        self.text(LEFT, self.top + 22, title, "start", 15)
        self.line(LEFT, self.base, WIDTH - RIGHT, self.base, "#333")

    def end_chart(self):
        self.top += HEIGHT

    def text(self, x, y, text, anchor="middle", size=11):
        self.parts.append(
            f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}">{text}</text>'
        )

    def line(self, x1, y1, x2, y2, colour):
        self.parts.append(
            f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="{colour}"/>'
        )

    def bar(self, x, y, width, height, colour):
        self.parts.append(
            f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height:.1f}"'
            f' fill="{colour}"/>'
        )

    def path(self, points, colour):
        corners = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.parts.append(
            f'<polyline points="{corners}" fill="none" stroke="{colour}" stroke-width="2"/>'
        )
        for x, y in points:
            self.parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="2.5" fill="{colour}"/>')

    def legend(self, names):
        for i, name in enumerate(names):
            y = self.top + TOP + 16 * i
            self.bar(WIDTH - RIGHT + 15, y, 10, 10, COLOURS[i % len(COLOURS)])
            self.text(WIDTH - RIGHT + 31, y + 9, name, "start")

    def grid_line(self, y, label):
        self.line(LEFT, y, WIDTH - RIGHT, y, "#ddd")
        self.text(LEFT - 6, y + 4, label, "end")

    def save(self, path):
        with open(path, "w", encoding="utf-8") as file:
            file.write(
                f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {self.top}"'
                f' font-family="sans-serif">\n<rect width="{WIDTH}" height="{self.top}"'
                ' fill="white"/>\n' + "\n".join(self.parts) + "\n</svg>\n"
            )


class LogScale:
    """Maps values to places along an axis, each power of ten as far from the next."""

    def __init__(self, values, begin, end):
        self.low = math.log10(min(values))
        self.high = max(math.log10(max(values)), self.low + 1)
        self.begin, self.end = begin, end

    def place(self, value):
        share = (math.log10(value) - self.low) / (self.high - self.low)
        return self.begin + share * (self.end - self.begin)

    def marks(self):
        """Round values: powers of ten, and others between them when there are few."""
        powers = [10.0**power for power in range(math.floor(self.low), math.ceil(self.high) + 1)]
        factors = [1, 2, 5] if self.high - self.low < 2 else [1]
        marks = [factor * power for power in powers for factor in factors]
        return [mark for mark in marks if self.low <= math.log10(mark) <= self.high]


def draw_bars(drawing, title, groups, names):
    """groups: titles of groups, each with a value or None for each name."""
    drawing.begin_chart(title)
    highest = max(value for values in groups.values() for value in values if value is not None)
    step = 10 ** math.floor(math.log10(highest))
    step = step if highest / step > 3 else step / 2
    scale = (drawing.base - drawing.top - TOP) / highest
    for i in range(1, int(highest / step) + 1):
        drawing.grid_line(drawing.base - i * step * scale, f"{i * step:g}")
    group_width = (WIDTH - LEFT - RIGHT) / len(groups)
    width = 0.85 * group_width / len(names)
    for i, (group, values) in enumerate(groups.items()):
        left = LEFT + (i + 0.075) * group_width
        for j, value in enumerate(values):
            if value is not None:
                x, height = left + j * width, value * scale
                drawing.bar(x, drawing.base - height, width - 1, height, COLOURS[j % len(COLOURS)])
        drawing.text(LEFT + (i + 0.5) * group_width, drawing.base + 16, group)
    drawing.legend(names)
    drawing.end_chart()


def draw_curves(drawing, title, curves, numbers_label):
    """curves: titles of curves, each with its values by number."""
    drawing.begin_chart(title)
    numbers = sorted({number for curve in curves.values() for number in curve})
    values = [value for curve in curves.values() for value in curve.values()]
    across = LogScale(numbers, LEFT, WIDTH - RIGHT)
    up = LogScale([0.8 * min(values), max(values)], drawing.base, drawing.top + TOP)
    for value in up.marks():
        drawing.grid_line(up.place(value), f"{value:g}")
    for number in numbers:
        drawing.text(across.place(number), drawing.base + 16, number)
    drawing.text((LEFT + WIDTH - RIGHT) / 2, drawing.base + 34, numbers_label)
    for i, curve in enumerate(curves.values()):
        points = [(across.place(number), up.place(curve[number])) for number in sorted(curve)]
        drawing.path(points, COLOURS[i % len(COLOURS)])
    drawing.legend(curves)
    drawing.end_chart()


def draw_peers(drawing, runs):
    costs = benchmark_runs.peer_costs(runs)
    mixers = benchmark_runs.mixers_of(costs)
    for voices in sorted({key[-1] for key in costs}):
        groups = {
            benchmark_runs.kind_of_voices(*kind): [row.get(mixer) for mixer in mixers]
            for (*kind, number), row in costs.items()
            if number == voices
        }
        title = f"{voices} voices: microseconds per voice and second"
        draw_bars(drawing, title, groups, [*map(benchmark_runs.readable_mixer, mixers)])


def draw_all_curves(drawing, runs):
    for group, curves in benchmark_runs.curves(runs).items():
        title = f"Cost by number of {group}: {benchmark_runs.unit_of(group)}"
        draw_curves(drawing, title, curves, group)


def main():
    path, mode, output = sys.argv[1:]
    drawing = Drawing()
    draw = {"peers": draw_peers, "curves": draw_all_curves}[mode]
    draw(drawing, benchmark_runs.load(path)[1])
    drawing.save(output)


main()

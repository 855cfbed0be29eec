#!/usr/bin/env python3
"""Draws how cost grows with the number of tiles and displays, from the benchmarks' figures, and fails if one
of them grows faster than linearly.

usage: growth.py DRAWING FIGURES...   (Google Benchmark's JSON)
"""
import json
import math
import re
import sys

# The largest exponent allowed. More than 1, since the figures jitter.
STEEPEST = 1.2

SERIES = {
    "tiles": [
        ("merge", "merge of pinned and running apps"),
        ("wholeLayout", "layout of a magnified strip"),
        ("reconcileByTiles", "reconcile, two docks"),
        ("changeTilesByTiles", "a tile comes or goes, two docks"),
        ("frameByTiles", "a magnified frame, painted"),
    ],
    "displays": [
        ("desiredPanels", "plan of all docks"),
        ("reconcileByDisplays", "reconcile, 20 tiles"),
        ("changeTilesByDisplays", "a tile comes or goes, 20 tiles"),
    ],
}
RANGES = {"tiles": (10, 400), "displays": (1, 16)}
COLOURS = ["#3366cc", "#dc7a1e", "#2a9d55", "#b23a48", "#7a52a0"]
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def points(files):
    found = {}
    for file in files:
        with open(file, encoding="utf-8") as text:
            for run in json.load(text)["benchmarks"]:
                name = re.match(r"(\w+)/(\d+)", run["name"])
                if name is None or run.get("run_type") == "aggregate":
                    continue
                # The benchmarks report processor time as manual time; others have it as cpu_time.
                manual = "manual_time" in run["name"]
                time = run["real_time" if manual else "cpu_time"] * NANOSECONDS[run["time_unit"]]
                found.setdefault(name[1], {}).setdefault(int(name[2]), []).append(time)
    return {
        name: [(count, min(times)) for count, times in sorted(runs.items())]
        for name, runs in found.items()
    }


def steepness(line):
    """The exponent of the power function that best fits the larger half of the points."""
    half = line[len(line) // 2 - 1 :]
    xs = [math.log(x) for x, _ in half]
    ys = [math.log(y) for _, y in half]
    mean_x, mean_y = sum(xs) / len(xs), sum(ys) / len(ys)
    return sum((x - mean_x) * (y - mean_y) for x, y in zip(xs, ys)) / sum(
        (x - mean_x) ** 2 for x in xs
    )


def told(nanoseconds):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:g} {unit}"
    return f"{nanoseconds:g} ns"


class Chart:
    WIDTH, HEIGHT, LEFT, TOP = 360, 300, 62, 24

    def __init__(self, left, lines, limits, title):
        self.left, self.lines, self.title = left + self.LEFT, lines, title
        times = [time for _, line in lines for _, time in line]
        self.x = [math.log10(limit) for limit in limits]
        self.y = [math.floor(math.log10(min(times))), math.ceil(math.log10(max(times)))]

    def place(self, count, time):
        x = (math.log10(count) - self.x[0]) / (self.x[1] - self.x[0])
        y = (math.log10(time) - self.y[0]) / (self.y[1] - self.y[0])
        return self.left + x * self.WIDTH, self.TOP + (1 - y) * self.HEIGHT

    def parts(self):
        yield f'<text x="{self.left}" y="15" class="title">{self.title}</text>'
        for power in range(self.y[0], self.y[1] + 1):
            _, y = self.place(10 ** self.x[0], 10**power)
            yield f'<path d="M{self.left} {y:.1f}h{self.WIDTH}" class="grid"/>'
            yield f'<text x="{self.left - 6}" y="{y + 4:.1f}" class="end">{told(10**power)}</text>'
        bottom = self.TOP + self.HEIGHT
        for count in sorted({count for _, line in self.lines for count, _ in line}):
            x, _ = self.place(count, 10 ** self.y[0])
            yield f'<text x="{x:.1f}" y="{bottom + 17}" class="middle">{count}</text>'
        for index, (name, line) in enumerate(self.lines):
            colour = COLOURS[index]
            path = " ".join("%.1f,%.1f" % self.place(*point) for point in line)
            yield f'<polyline points="{path}" stroke="{colour}"/>'
            for point in line:
                x, y = self.place(*point)
                yield f'<circle cx="{x:.1f}" cy="{y:.1f}" r="2.5" fill="{colour}"/>'
            y = bottom + 40 + 17 * index
            yield f'<path d="M{self.left} {y - 4}h18" stroke="{colour}"/>'
            yield f'<text x="{self.left + 24}" y="{y}">{name} (n to the {steepness(line):.2f})</text>'


def draw(file, charts):
    width = 2 * (Chart.WIDTH + Chart.LEFT) + 24
    height = Chart.TOP + Chart.HEIGHT + 40 + 17 * max(len(chart.lines) for chart in charts)
    style = (
        "text{font:12px sans-serif;fill:#444}.title{font-weight:bold}.end{text-anchor:end}"
        ".middle{text-anchor:middle}path,polyline{fill:none;stroke-width:1.6}"
        ".grid{stroke:#ddd;stroke-width:1}"
    )
    with open(file, "w", encoding="utf-8") as out:
        out.write(
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
            f'width="{width}" height="{height}">\n<style>{style}</style>\n'
            f'<rect width="{width}" height="{height}" fill="#fff"/>\n'
        )
        for chart in charts:
            out.writelines(part + "\n" for part in chart.parts())
        out.write("</svg>\n")


def main(drawing, files):
    measured = points(files)
    charts, steep = [], []
    for what, series in SERIES.items():
        least, most = RANGES[what]
        lines = []
        for name, title in series:
            line = [(count, time) for count, time in measured[name] if least <= count <= most]
            lines.append((title, line))
            print(f"{title:36} {told(round(line[0][1]))} at {line[0][0]} {what}, "
                  f"{told(round(line[-1][1]))} at {line[-1][0]}: n to the {steepness(line):.2f}")
            if steepness(line) > STEEPEST:
                steep.append(title)
        charts.append(Chart(len(charts) * (Chart.WIDTH + Chart.LEFT + 12), lines, RANGES[what],
                            f"processor time by the number of {what}"))
    draw(drawing, charts)
    if steep:
        sys.exit("grows faster than in proportion: " + ", ".join(steep))


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])

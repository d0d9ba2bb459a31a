#!/usr/bin/env python3
"""plot_growth.py FIGURES.json: renews the plots and the figures of docs/benchmarks.md.

FIGURES.json is what ./bench --json writes. Standard Python alone. --docs FOLDER has the page, and
gets the pictures, somewhere else.
"""

import argparse
import html
import json
import math
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = "benchmarks.md"
PICTURES = "pictures"

# One plot per question: file, title, and the benchmarks with their names in the legend.
QT = "QAbstractTableModel"
PLOTS = [
    ("cell", "Raw numeric cell", {
        "LibraryCells": "ours", "QtCells": QT, "HandWrittenCells": "chain by hand"}),
    ("text", "Price as display text", {
        "LibraryPriceTexts": "ours", "ToCharsPriceTexts": "to_chars and group marks"}),
    ("window", "100 updates and a window of 50 x 30", {
        "WatchWindow": "ours, watch", "TableWindow": "ours, table", "QtWindow": QT,
        "HandWindow": "chain by hand"}),
    ("sorted", "The same, sorted by what changes", {
        "WatchSortedWindow": "ours, watch", "TableSortedWindow": "ours, table",
        "QtSortedWindow": "QSortFilterProxyModel", "HandSortedWindow": "std::set by hand"}),
    ("filtered", "The same, filtered by what changes", {
        "WatchFilteredWindow": "ours, watch", "TableFilteredWindow": "ours, table",
        "QtFilteredWindow": "QSortFilterProxyModel", "HandFilteredWindow": "std::set by hand"}),
    ("delivery", "Delivery of one update", {
        "BatchedDelivery": "in batches of 100", "RealtimeDelivery": "one by one"}),
    ("aggregate", "Aggregated rebuild, per position", {
        "AggregateView": "ours", "AggregateByHand": "hash map by hand"}),
    ("tree", "Account tree of so many nodes repainted", {
        "RepaintTree": "ours", "TreeByHand": "50 texts by hand"}),
    ("load", "Rows into a watch, per row", {
        "LoadControl": "ours", "LoadByHand": "vector and hash map"}),
    ("export", "CSV export, per row of 20 columns", {
        "CsvExport": "ours", "CsvPlain": "buffered output"}),
    ("start", "Start to the first screen", {
        "StartWatch": "ours", "StartByHand": "split into a hash map"}),
]

# Colours that differ in lightness as well, and a mark for each, so that colour is not alone.
COLOURS = ["#0b5cad", "#56a0d3", "#c2410c", "#6b7280"]
DASHES = ["", "", "7 4", "2 3"]
MARKS = ["circle", "square", "diamond", "cross"]

WIDTH, HEIGHT = 680, 400
LEFT, RIGHT, TOP, BOTTOM = 76, 24, 52, 96


def time_text(nanos):
    for unit in ("ns", "us", "ms"):
        if nanos < 999.5:
            break
        nanos /= 1000
    else:
        unit = "s"
    digits = 2 if nanos < 10 else 1 if nanos < 100 else 0
    return f"{nanos:.{digits}f} {unit}"


def ratio_text(ratio):
    return f"{ratio:.4f}" if ratio < 0.095 else f"{ratio:.2f}"


def mark(shape, x, y, colour):
    if shape == "circle":
        return f'<circle cx="{x:.1f}" cy="{y:.1f}" r="4.5" fill="{colour}"/>'
    if shape == "square":
        return f'<rect x="{x - 4:.1f}" y="{y - 4:.1f}" width="8" height="8" fill="{colour}"/>'
    if shape == "diamond":
        path = f"M{x:.1f} {y - 5.5:.1f}l5.5 5.5-5.5 5.5-5.5-5.5z"
        return f'<path d="{path}" fill="{colour}"/>'
    path = f"M{x - 4:.1f} {y - 4:.1f}l8 8m0-8l-8 8"
    return f'<path d="{path}" stroke="{colour}" stroke-width="2.5"/>'


class Axes:
    """Logarithmic both ways."""

    def __init__(self, sizes, times):
        self.sizes = sizes
        self.low = math.floor(math.log10(min(times)))
        self.high = max(math.ceil(math.log10(max(times))), self.low + 1)

    def x(self, size):
        first, last = math.log10(self.sizes[0]), math.log10(self.sizes[-1])
        part = (math.log10(size) - first) / (last - first) if last > first else 0.5
        return LEFT + 20 + part * (WIDTH - LEFT - RIGHT - 40)

    def y(self, nanos):
        part = (math.log10(nanos) - self.low) / (self.high - self.low)
        return HEIGHT - BOTTOM - part * (HEIGHT - TOP - BOTTOM)

    def lines(self):
        for power in range(self.low, self.high + 1):
            y = self.y(10.0 ** power)
            yield (f'<line x1="{LEFT}" x2="{WIDTH - RIGHT}" y1="{y:.1f}" y2="{y:.1f}" '
                   'stroke="#d4d4d8"/>')
            text = f"{10.0 ** power:g} ns" if power < 3 else time_text(10.0 ** power)
            text = re.sub(r"\.0+ ", " ", text)
            yield (f'<text x="{LEFT - 8}" y="{y + 4:.1f}" text-anchor="end">{text}</text>')
        for size in self.sizes:
            x = self.x(size)
            yield (f'<line x1="{x:.1f}" x2="{x:.1f}" y1="{TOP}" y2="{HEIGHT - BOTTOM}" '
                   'stroke="#ececf0"/>')
            yield (f'<text x="{x:.1f}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">'
                   f"{size:,}</text>")


def plot(title, series):
    """An SVG of `series`: name to a dictionary of size to nanoseconds."""
    sizes = sorted({size for points in series.values() for size in points})
    axes = Axes(sizes, [nanos for points in series.values() for nanos in points.values()])
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" '
        f'viewBox="0 0 {WIDTH} {HEIGHT}" font-family="DejaVu Sans, Arial, sans-serif" '
        'font-size="12" fill="#27272a" role="img">',
        f"<title>{html.escape(title)}</title>",
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>',
        f'<text x="{LEFT}" y="30" font-size="16" font-weight="bold">{html.escape(title)}</text>',
    ]
    parts += axes.lines()
    column = (WIDTH - LEFT - RIGHT) / 2
    for place, (name, points) in enumerate(series.items()):
        colour, dash, shape = COLOURS[place], DASHES[place], MARKS[place]
        path = " ".join(f"{axes.x(size):.1f},{axes.y(points[size]):.1f}" for size in sorted(points))
        parts.append(f'<polyline points="{path}" fill="none" stroke="{colour}" stroke-width="2.5"'
                     + (f' stroke-dasharray="{dash}"' if dash else "") + "/>")
        parts += [mark(shape, axes.x(size), axes.y(points[size]), colour) for size in points]
        x = LEFT + column * (place % 2)
        y = HEIGHT - BOTTOM + 48 + 24 * (place // 2)
        parts.append(f'<line x1="{x:.1f}" x2="{x + 34:.1f}" y1="{y}" y2="{y}" stroke="{colour}" '
                     'stroke-width="2.5"' + (f' stroke-dasharray="{dash}"' if dash else "") + "/>")
        parts.append(mark(shape, x + 17, y, colour))
        parts.append(f'<text x="{x + 44:.1f}" y="{y + 4}">{html.escape(name)}</text>')
    return "\n".join(parts) + "\n</svg>\n"


def medians(data, benchmark):
    sizes = data["figures"].get(benchmark, {})
    return {int(size): figure["median_ns"] for size, figure in sizes.items()}


def draw(data, folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, title, wanted in PLOTS:
        series = {text: medians(data, benchmark) for benchmark, text in wanted.items()}
        series = {text: points for text, points in series.items() if points}
        if series:
            (folder / f"bench-{name}.svg").write_text(plot(title, series), encoding="utf-8")


def growth_of(points):
    return points[max(points)] / points[min(points)] if len(points) > 1 else None


def marked(text, missed):
    return f"**{text} (missed)**" if missed else text


def peer_cells(workload, peer, data):
    """Peer, its time at the size that is told of, the ratio there, the limit, and its growth."""
    ours, theirs = medians(data, workload["benchmark"]), medians(data, peer["benchmark"])
    both = sorted(set(ours) & set(theirs))
    if not both:
        return None
    size = max([size for size in both if size <= 100_000] or [both[0]])
    limit = peer["at_most"]
    promised = [s for s in both if limit and peer["at_size"] in (0, s)]
    worst = max((ours[s] / theirs[s] for s in promised), default=0)
    limit_text = f"{limit:g}" if limit else ""
    ratio = marked(ratio_text(ours[size] / theirs[size]), limit and worst > limit)
    growth = growth_of(theirs)
    return [peer["title"], time_text(theirs[size]), ratio, limit_text,
            ratio_text(growth) if growth else ""]


def table(header, rows):
    lines = ["| " + " | ".join(header) + " |", "|" + "---|" * len(header)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def workload_table(data):
    rows = []
    for workload in data["workloads"]:
        ours = medians(data, workload["benchmark"])
        if not ours:
            continue
        size = max([size for size in ours if size <= 100_000] or [min(ours)])
        growth, limit = growth_of(ours), workload["growth_at_most"]
        first = [workload["title"], f"{size:,}", workload["per"], time_text(ours[size])]
        last = marked(ratio_text(growth), limit and growth > limit) if growth else ""
        peers = [cells for peer in workload["peers"] if (cells := peer_cells(workload, peer, data))]
        for place, cells in enumerate(peers or [["", "", "", "", ""]]):
            rows.append((first if place == 0 else [""] * 4) + cells[:4]
                        + [last if place == 0 else "", cells[4]])
    return table(["Workload", "size", "per", "ours", "peer", "its time", "ratio", "at most",
                  "our growth", "its growth"], rows)


def growth_table(data):
    sizes = sorted({int(size) for figure in data["figures"].values() for size in figure})
    rows = []
    for workload in data["workloads"]:
        entries = [(f"{workload['title']}, per {workload['per']}", workload["benchmark"])]
        entries += [("– " + peer["title"], peer["benchmark"]) for peer in workload["peers"]]
        for title, benchmark in entries:
            points = medians(data, benchmark)
            if points:
                growth = growth_of(points)
                rows.append([title]
                            + [time_text(points[s]) if s in points else "" for s in sizes]
                            + [ratio_text(growth) if growth else ""])
    return table([""] + [f"{size:,}" for size in sizes] + ["factor"], rows)


def count_table(data):
    rows = []
    for count in data["counts"]:
        sizes = data["figures"].get(count["benchmark"], {})
        usual = [int(size) for size in sizes if int(size) <= 100_000]
        if not usual or count["counter"] not in sizes[str(max(usual))]:
            continue
        value, limit = sizes[str(max(usual))][count["counter"]], count["at_most"]
        text = f"{value:.3f}" if value < 10 else f"{value:.0f}"
        rows.append([count["title"], marked(text, limit >= 0 and value > limit + 0.0005),
                     f"{limit:g}" if limit >= 0 else ""])
    return table(["Counted", "", "at most"], rows)


def machine_text(data):
    machine = data["machine"]
    count = machine["repetitions"]
    repeated = "a single repetition" if count == 1 else f"medians of {count} repetitions"
    return (f"Measured on {machine['date']}: {machine['processor']}, {machine['cores']} cores, "
            f"{machine['compiler']}, Release; {repeated}. Load "
            f"of the machine (one minute): {machine['load_before']:.2f} before the run, "
            f"{machine['load_after']:.2f} after it; the run itself makes 1.\n")


# Where the extracts come from: file, and the line that each begins with. Each ends with the first
# line that closes a brace at the margin.
EXTRACTS = {
    "qt-table": ("QtTable.h", "class TVectorTable"),
    "qt-filter": ("QtBench.cpp", "class TAboveMiddle"),
    "hand-chain": ("HandChain.h", "struct TFeed"),
    "hand-control": ("HandChain.h", "struct TControl"),
    "hand-order": ("HandBench.cpp", "void HandSortedWindow"),
    "hand-text": ("CellBench.cpp", "String GroupedByHand"),
    "hand-load": ("LoadBench.cpp", "void LoadByHand"),
}


def extract(file, first):
    lines = (ROOT / "benchmarks" / file).read_text(encoding="utf-8").splitlines()
    begin = next(place for place, line in enumerate(lines) if line.startswith(first))
    end = next(place for place in range(begin, len(lines)) if lines[place].startswith("}"))
    return "```cpp\n" + "\n".join(lines[begin:end + 1]) + "\n```\n"


def replace_part(text, name, content):
    begin, end = f"<!-- begin {name} -->\n", f"<!-- end {name} -->"
    head, rest = text.split(begin, 1)
    return head + begin + content + end + rest.split(end, 1)[1]


def renew_page(data, page):
    text = page.read_text(encoding="utf-8")
    text = replace_part(text, "machine", machine_text(data))
    text = replace_part(text, "workloads", workload_table(data))
    text = replace_part(text, "growth", growth_table(data))
    text = replace_part(text, "counts", count_table(data))
    for name, (file, first) in EXTRACTS.items():
        text = replace_part(text, name, extract(file, first))
    page.write_text(text, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("figures", type=pathlib.Path)
    parser.add_argument("--docs", type=pathlib.Path, default=ROOT / "docs")
    arguments = parser.parse_args()
    data = json.loads(arguments.figures.read_text(encoding="utf-8"))
    draw(data, arguments.docs / PICTURES)
    renew_page(data, arguments.docs / PAGE)


if __name__ == "__main__":
    main()

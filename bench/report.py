"""Ratios of a run of voxml_compare: a table, a drawing, and the change since an earlier run.

Usage: report.py FIGURES.json [--against OLD.json] [--drawing FILE.svg]
A ratio says how many times as fast voxml is as what it is compared with, by the best rounds of
both, or how many times less memory it needs. Above 1 is in favour of voxml.
"""
import argparse
import json
import pathlib
import statistics
from typing import NamedTuple

import chart


class Side(NamedTuple):
    work: str
    contestant: str = "voxml"


class Row(NamedTuple):
    label: str
    ours: Side
    other: Side


def beside(peer, *rows):
    """Rows of (label, work[, contestant]) against what the peer does at the same work."""
    return [Row(label, Side(work, *contestant), Side(work, peer))
            for label, work, *contestant in rows]


BESIDE_PUGIXML = beside(
    "pugixml",
    ("decode", "decode"),
    ("decode, encode", "encode"),
    ("decode, read by the cursor", "read"),
    ("decode, read by the getters", "read", "getters"),
    ("decode, change deep inside, encode", "change"),
    ("first decode of a process", "first decode"),
    ("two threads decode", "two threads"),
) + [
    Row("decode, locations (pugixml: without)", Side("locations"), Side("decode", "pugixml")),
    Row("decode, namespaces (pugixml: without)", Side("namespaces"), Side("decode", "pugixml")),
] + beside(
    "pugixml",
    ("memory, beside the caller's text", "memory"),
    ("memory, once that is released", "memory alone"),
)

SECTIONS = {
    "to pugixml": BESIDE_PUGIXML,
    "to others that resolve namespaces": [
        Row("decode, namespaces: to expat", Side("namespaces"), Side("namespaces", "expat")),
        Row("decode, namespaces: to libxml2", Side("namespaces"), Side("namespaces", "libxml2")),
    ],
    "to itself": [
        Row("locations: to decode without", Side("locations"), Side("decode")),
        Row("namespaces: to decode without", Side("namespaces"), Side("decode")),
        Row("getters: to the cursor", Side("read", "getters"), Side("read")),
        Row("change: to decode, encode", Side("change"), Side("encode")),
        Row("two threads: to one", Side("two threads"), Side("one thread")),
    ],
}

SMALL_DOCUMENTS = beside("pugixml", *((size, size) for size in ("64 bytes", "1 KB", "10 KB")))

PEERS = ["rapidxml", "tinyxml2", "expat", "libxml2"]


class Run:
    """The best of every figure of a run, for one byte or document."""

    def __init__(self, path):
        record = json.loads(pathlib.Path(path).read_text())
        self.rounds = record["rounds"]
        self.groups = [group["name"] for group in record["groups"] if group["files"]]
        self.best = {(figure["group"], figure["work"], figure["contestant"]):
                     figure["best"] / figure["amount"] for figure in record["figures"]}

    def ratio(self, group, row):
        """None where one of the two sides was not measured."""
        ours = self.best.get((group, *row.ours), 0)
        other = self.best.get((group, *row.other), 0)
        return other / ours if min(ours, other) > 0 else None

    def ratios(self, row):
        """The ratio in each group that has one."""
        found = {group: self.ratio(group, row) for group in self.groups}
        return {group: ratio for group, ratio in found.items() if ratio is not None}

    def small(self, row):
        return self.ratio("small documents", row)


def shown(ratio):
    if ratio is None:
        return "-"
    return f"{ratio:.2f}" if ratio < 10 else f"{ratio:.1f}"


def median(ratios):
    return statistics.median(ratios.values()) if ratios else None


def print_lines(title, rows, columns, cell, width):
    """A table of the rows that have a cell in any column."""
    print(f"\n{title:<40}" + "".join(f"{column:>{width}}" for column in columns))
    for row in rows:
        cells = [cell(row, column) for column in columns]
        if set(cells) != {"-"}:
            print(f"  {row.label:<38}" + "".join(f"{text:>{width}}" for text in cells))


def print_table(run):
    def cell(row, column):
        ratios = run.ratios(row)
        return shown(median(ratios) if column == "median" else ratios.get(column))

    columns = run.groups + ["median"]
    width = max(9, *(len(column) + 2 for column in columns))
    for title, rows in SECTIONS.items():
        print_lines(f"ratio {title}", rows, columns, cell, width)
    print_lines("documents made by the program", SMALL_DOCUMENTS, ["to pugixml"],
                lambda row, _: shown(run.small(row)), 12)


def change(before, after):
    return "-" if before is None and after is None else f"{shown(before)} -> {shown(after)}"


def print_change(old, new):
    """The changes in the groups that both runs have, in tables as wide as a terminal."""
    def cell(row, column):
        if column == "median":
            return change(*(median({group: ratio for group, ratio in run.ratios(row).items()
                                    if group in groups}) for run in (old, new)))
        return change(old.ratio(column, row), new.ratio(column, row))

    groups = [group for group in new.groups if group in old.groups]
    columns = groups + ["median"]
    for begin in range(0, len(columns), 6):
        for title, rows in SECTIONS.items():
            print_lines(f"before -> after, {title}", rows, columns[begin:begin + 6], cell, 16)
    print_lines("before -> after, small documents", SMALL_DOCUMENTS, ["to pugixml"],
                lambda row, _: change(old.small(row), new.small(row)), 16)


def draw(run, path):
    def bar(label, ratios):
        return chart.Bar(label, median(ratios), list(ratios.values()))

    ours = [bar(row.label, run.ratios(row)) for row in BESIDE_PUGIXML if run.ratios(row)]
    small = [chart.Bar(f"decode a document of {row.label}", run.small(row), [])
             for row in SMALL_DOCUMENTS]
    peers = [bar(f"{peer}: decode", run.ratios(Row(peer, Side("decode", peer),
                                                    Side("decode", "pugixml"))))
             for peer in PEERS]
    note = (f"Bars: median of {', '.join(run.groups)}; dots: each of them. "
            f"Best of {run.rounds} rounds, trees released.")
    path.write_text(chart.draw("voxml beside pugixml", note,
                               {"voxml": ours + small, "the others": peers}))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("figures", type=pathlib.Path)
    parser.add_argument("--against", type=pathlib.Path)
    parser.add_argument("--drawing", type=pathlib.Path)
    arguments = parser.parse_args()
    run = Run(arguments.figures)
    print_table(run)
    if arguments.against:
        print_change(Run(arguments.against), run)
    if arguments.drawing and run.groups:
        draw(run, arguments.drawing)


if __name__ == "__main__":
    main()

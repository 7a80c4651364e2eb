"""Tables of the figures that the manual shows, from a run of bench/run that is kept in docs/figures.

Usage: figures.py FIGURES.json    keeps the best of every figure of a run, and draws them
"""
import json
import pathlib
import statistics
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
KEPT = ROOT / "docs" / "figures" / "speed.json"
sys.path.insert(0, str(ROOT / "bench"))

import report  # noqa: E402  of bench


def row(label, ratios):
    shown = [report.shown(f(ratios)) for f in (statistics.median, min, max)]
    return f"| {label} | {' | '.join(shown)} |"


def tables():
    run = report.Run(KEPT)
    for title, rows in report.SECTIONS.items():
        found = [row(each.label, run.ratios(each).values()) for each in rows if run.ratios(each)]
        yield from [f"| {title} | median | least | greatest |", "|---|--:|--:|--:|", *found, ""]
    yield from ["| documents made by the program | to pugixml |", "|---|--:|",
                *(f"| {each.label} | {report.shown(run.small(each))} |"
                  for each in report.SMALL_DOCUMENTS), ""]


def keep(path):
    record = json.loads(pathlib.Path(path).read_text())
    for figure in record["figures"]:
        del figure["rounds"]
    KEPT.write_text(json.dumps(record, separators=(",", ":")) + "\n")
    report.draw(report.Run(KEPT), KEPT.with_suffix(".svg"))


if __name__ == "__main__":
    keep(sys.argv[1])

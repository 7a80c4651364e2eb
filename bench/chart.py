"""Ratios as an SVG of horizontal bars on a logarithmic axis, which begin at 1."""
import html
import math
import textwrap
from typing import NamedTuple


class Bar(NamedTuple):
    label: str
    ratio: float
    dots: list  # the ratios that it stands for


WIDTH = 920
LABELS = 310           # where labels end
PLOT = (330, 820)      # from the least to the greatest ratio
ROW = 26
TOP = 92
BETTER, WORSE, PEER = "#2a7f62", "#c8743c", "#8a93a3"
STYLE = """
  text { font: 13px system-ui, 'Segoe UI', 'DejaVu Sans', sans-serif; fill: #25282d }
  .title { font-size: 18px; font-weight: 600 }
  .section { font-weight: 600 }
  .faint { fill: #6a7079; font-size: 12px }
  .end { text-anchor: end }
  .middle { text-anchor: middle }"""


class Axis:
    """Whole powers of two around all ratios and 1."""

    def __init__(self, ratios):
        logarithms = [math.log2(ratio) for ratio in ratios] + [-1, 1]
        self.least = math.floor(min(logarithms))
        self.greatest = math.ceil(max(logarithms))

    def x(self, ratio):
        share = (math.log2(ratio) - self.least) / (self.greatest - self.least)
        return PLOT[0] + share * (PLOT[1] - PLOT[0])

    def ticks(self):
        step = 1 if self.greatest - self.least <= 9 else 2
        for power in range(self.least, self.greatest + 1):
            if power % step == 0:
                yield 2.0 ** power, f"1/{2 ** -power}" if power < 0 else str(2 ** power)


def text(x, y, words, kind=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" class="{kind}">{html.escape(words)}</text>'


def draw_grid(axis, bottom):
    for ratio, label in axis.ticks():
        x = axis.x(ratio)
        stroke = 'stroke="#25282d" stroke-width="1.4"' if ratio == 1 else 'stroke="#e1e3e6"'
        yield f'<line x1="{x:.1f}" y1="{TOP - 8}" x2="{x:.1f}" y2="{bottom}" {stroke}/>'
        yield text(x, TOP - 16, label, "faint middle")


def draw_bar(axis, y, bar, colour):
    begin, end = sorted((axis.x(1), axis.x(bar.ratio)))
    middle = y + ROW / 2
    yield text(LABELS, middle + 4.5, bar.label, "end")
    yield (f'<rect x="{begin:.1f}" y="{y + 5}" width="{max(end - begin, 1):.1f}" '
           f'height="{ROW - 10}" rx="2" fill="{colour}"/>')
    for dot in bar.dots:
        yield (f'<circle cx="{axis.x(dot):.1f}" cy="{middle}" r="2.6" fill="#ffffff" '
               f'stroke="#25282d" stroke-width=".9"/>')
    digits = 1 if bar.ratio >= 10 else 2
    yield text(WIDTH - 28, middle + 4.5, f"{bar.ratio:.{digits}f}", "end")


def colour_of(bar, section):
    if section:
        return PEER
    return BETTER if bar.ratio >= 1 else WORSE


def draw_sections(axis, sections):
    """The marks of all sections, and where they end. The first section is about voxml."""
    marks, y = [], TOP
    for number, (name, bars) in enumerate(sections.items()):
        marks.append(text(28, y + 18, name, "section"))
        for bar in bars:
            marks += draw_bar(axis, y, bar, colour_of(bar, number))
            y += ROW
        y += ROW // 2
    return marks, y


def draw(title, note, sections):
    """The text of an SVG. Light also on a dark page, because it brings its background."""
    bars = [bar for section in sections.values() for bar in section]
    axis = Axis([ratio for bar in bars for ratio in (bar.ratio, *bar.dots)])
    marks, bottom = draw_sections(axis, sections)
    notes = textwrap.wrap(note, 140)
    height = bottom + 18 + 18 * len(notes)
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" '
             f'width="{WIDTH}" height="{height}"><style>{STYLE}\n</style>',
             f'<rect width="{WIDTH}" height="{height}" rx="10" fill="#fcfcfb"/>',
             text(28, 36, title, "title"),
             text(28, 56, "times as fast, or times less memory: right of 1 is better", "faint"),
             *draw_grid(axis, bottom - 6), *marks]
    parts += [text(28, bottom + 16 + 18 * i, line, "faint") for i, line in enumerate(notes)]
    return "\n".join(parts) + "\n</svg>\n"

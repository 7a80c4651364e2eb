"""Runs an example in each of its languages on inputs made here and compares what it gives with what
Python's own parser says.

Usage: check.py EXAMPLE PROGRAM...
       check.py table ROWS >FILE      writes the table that the example "rows" reads
The programs are the same example in C, C++ and, where it is installed, with pugixml.
"""
import pathlib
import random
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from xml.sax.saxutils import escape

ATOM = "http://www.w3.org/2005/Atom"
DECLARATION = '<?xml version="1.0" encoding="UTF-8"?>'


def run(program, *arguments):
    result = subprocess.run([program, *arguments], stdout=subprocess.PIPE, text=True)
    return result.returncode, result.stdout


def table(rows):
    """Rows of five cells; some have commas, quotes and references."""
    words = ["red", "a, b", 'say "hi"', "fish & chips", "x < y", "caf\u00e9", "1234567", ""]
    chance = random.Random(1)
    yield DECLARATION + "\n<table>\n"
    for row in range(rows):
        cells = "".join(f"<cell>{escape(chance.choice(words))}</cell>" for _ in range(5))
        yield f'<row id="{row}">{cells}</row>\n'
    yield "</table>\n"


def csv(cell):
    return '"' + cell.replace('"', '""') + '"' if any(c in cell for c in ',"\n') else cell


def feed(folder, programs):
    path = folder / "feed.xml"
    entries = "".join(f"<entry><title>No. {i} &amp; more</title><updated>2024-05-{i:02}</updated>"
                      "<x:title xmlns:x='urn:other'>not this</x:title></entry>"
                      for i in range(1, 29))
    path.write_text(f"{DECLARATION}<feed xmlns='{ATOM}'><title>F</title>{entries}</feed>")
    lines = [f"{entry.find(f'{{{ATOM}}}updated').text} {entry.find(f'{{{ATOM}}}title').text}\n"
             for entry in ElementTree.parse(path).iter(f"{{{ATOM}}}entry")]
    for program in programs:
        yield program, (0, "".join(lines)), run(program, path)


def pom(folder, programs):
    text = (f"{DECLARATION}<project><!-- kept --><version>1</version>\n  <dependencies>{{}}"
            "\n  </dependencies></project>")
    one = "<dependency><artifactId>{}</artifactId><version>{}</version></dependency>"
    before = text.format(one.format("a", 1) + one.format("b", 2))
    after = text.format(one.format("a", 1) + one.format("b", "3&amp;4"))
    for program in programs:
        path = folder / "pom.xml"
        path.write_text(before)
        status, _ = run(program, path, "b", "3&4")
        yield program, (0, without_declaration(after)), (status,
                                                         without_declaration(path.read_text()))


def without_declaration(text):
    return text.partition("?>")[2].strip() if text.startswith("<?xml") else text.strip()


def drawing(folder, programs):
    circles = "".join(f'<circle cx="{i % 40 * 10 + 5}" cy="{i // 40 * 10 + 5}" r="{i % 5 + 1}"/>'
                      for i in range(1000))
    expected = ('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 400 250">'
                f"<title>1,000 circles &amp; no square</title>{circles}</svg>")
    canonical = ElementTree.canonicalize(expected)
    for program in programs:
        path = folder / "drawing.svg"
        status, _ = run(program, path)
        yield program, (0, canonical), (status, ElementTree.canonicalize(path.read_text()))


def rows(folder, programs):
    path = folder / "table.xml"
    path.write_text("".join(table(2000)))
    expected = "".join(",".join(csv(cell) for cell in [row.get("id"), *(c.text or "" for c in row)])
                       + "\n" for row in ElementTree.parse(path).getroot())
    for program in programs:
        yield program, (0, expected), run(program, path)


def threads(_, programs):
    expected = "".join(f"seen by {i}\n" for i in range(4)) + "new\n"
    for program in programs:
        yield program, (0, expected), run(program)


BROKEN = ["<a>", "<a></b>", "</a>", "<a", "<a b>", "<a b=1/>", "<a b='1' b='2'/>", "<a>&</a>",
          "<a>&x</a>", "<a b='<'/>", "<!-- -- --><a/>", "<!-- <a/>", "<?p <a/>", "<![CDATA[<a/>",
          "<1/>", "<a><b></a></b>", "<a b='1/>", "<!DOCTYPE a><a/>", "<a b='&;'/>", "<a/><"]


def errors(folder, programs):
    paths = []
    for i, text in enumerate(BROKEN):
        paths.append(folder / f"{i}.xml")
        paths[-1].write_text(DECLARATION + "\n" + text)
    for program in programs:
        status, output = run(program, *paths)
        if pathlib.Path(program).name == "pugixml_errors":  # which accepts some of them
            yield program, (1, "refused"), (status, output.split()[-1])
            continue
        reported = [str(path) for path in paths if f"{path}:" in output and "(byte -1)" not in output]
        yield program, (1, list(map(str, paths))), (status, reported)
        yield program, "20 of 20 refused", output.splitlines()[-1]


def main():
    name, *programs = sys.argv[1:]
    if name == "table":
        sys.stdout.reconfigure(encoding="utf-8")
        sys.stdout.writelines(table(int(programs[0])))
        return 0
    with tempfile.TemporaryDirectory() as scratch:
        checks = list(globals()[name](pathlib.Path(scratch), programs))
    for program, expected, found in checks:
        if expected != found:
            print(f"{program}: expected\n{expected}\nfound\n{found}")
    return any(expected != found for _, expected, found in checks) or not checks


sys.exit(main())

"""The printers of gdb show objects that are made and parts of documents that are not, in a process
and the same in a core dump of it, where nothing can be called.

Usage: printers.py PROGRAM
"""
import pathlib
import re
import subprocess
import sys
import tempfile

PRINTERS = pathlib.Path(__file__).resolve().parents[2] / "gdb/printers.py"
CONTENT = "one &amp; <p:b p:y{eq}\"2\"/><!--no--><?go on?><![CDATA[<]]><c>é\\n</c>"
WRITTEN, CANONICAL = CONTENT.format(eq=" = "), CONTENT.format(eq="=")
ROOT = """<a xmlns:p="urn:p" x='1 "2"'>%s</a>"""
NODES = ", ".join(re.split(r"(?<=amp; )|(?<=[>])(?=<(?!/))", CANONICAL))
EXPANDED = CANONICAL.replace("p:", "{urn:p}")
DECLARATION = "<?xml version='1.0'?>"

# What is printed, behind the address.
EXPECTED = {
    "string": '"say \\"€\\"\\n"',
    "bytes": "3 bytes b'a\\x00b'",
    "vector": '["say \\"€\\"\\n", one &amp; ]',
    "object": "one &amp; ",
    "unmade": DECLARATION + "\\n" + ROOT % WRITTEN + "\\n",
    "half": ROOT % WRITTEN,
    "halfItems": "[" + NODES.replace("y=", "y = ") + "]",
    "doc": DECLARATION + "\\n" + ROOT % CANONICAL + "\\n",
    "root": ROOT % CANONICAL,
    "attributes": """[xmlns:p="urn:p", x='1 "2"']""",
    "items": "[" + NODES + "]",
    "item": "one &amp; ",
    "nsUnmade": DECLARATION + "\\n" + ROOT % WRITTEN + "\\n",
    "nsRoot": ROOT % EXPANDED,
    "nsItems": "[\\n, " + ROOT % EXPANDED + ", \\n]",
    "encoded": DECLARATION + "(not made yet)",
    "wide": DECLARATION + "<r>" + "<i/>" * 20000 + "<z last=''/></r>",
    "deep": "<d>" * 5000 + "<deep/>" + "</d>" * 5000,
}
PLAIN = ["none", "wild", "other"]  # Not objects of their types: addresses only.


def gdb(*commands):
    options = [word for command in commands for word in ("-ex", command)]
    result = subprocess.run(["gdb", "-nx", "-batch", "-ex", "set print elements unlimited",
                             "-ex", f"source {PRINTERS}", *options],
                            capture_output=True, encoding="utf-8", timeout=60)
    return result.stdout, result.stderr


def values(output):
    """What print commands gave, in their order."""
    return re.findall(r"^\$\d+ = (.*)$", output, re.MULTILINE)


prints = [f"print {name}" for name in [*EXPECTED, *PLAIN]] + ["set print elements 8", "print root"]
program = sys.argv[1]
with tempfile.TemporaryDirectory() as folder:
    core = f"{folder}/core"
    alive, errors = gdb(f"file {program}", "break inspect", "run", "up", *prints,
                        f"generate-core-file {core}")
    dead, _ = gdb(f"file {program}", f"core-file {core}", "up", *prints)

failed = [] if len(values(alive)) == len(prints) - 1 else [f"no answers: {alive[-2000:]}{errors}"]
for name, value in zip([*EXPECTED, *PLAIN, "root in short"], values(alive)):
    expected = EXPECTED.get(name, '<a xmlns...' if name == "root in short" else "")
    shown = re.sub(r"^(\([\w ]+\*\) )?0x[0-9a-f]+ ?", "", value)
    if shown != expected:
        failed.append(f"{name}: {shown[:300]}\n  but {expected[:300]}")
if values(alive) != values(dead):
    failed.append(f"a core dump shows something else: {dead[-2000:]}")
print(*failed, sep="\n")
print(f"{len(values(alive))} values, {len(failed)} faults")
sys.exit(bool(failed))

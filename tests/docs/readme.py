"""README.md is true: its programs are the example files, its commands print what it shows.

Usage: readme.py FOLDER_OF_THE_TOOL
A block marked "console" holds commands after "$ " and the output of each; "..." stands for any
lines. The commands run in a copy of the examples folder.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def program_faults(programs):
    files = {path.read_text(): path.name
             for path in sorted((ROOT / "examples").iterdir())
             if path.suffix in (".c", ".cpp", ".hpp")}
    for text in programs:
        if files.pop(text, None) is None:
            yield f"no file in examples/ is this program:\n{text}"
    for name in files.values():
        yield f"examples/{name} is not shown as it stands"


def console_faults(session, folder, environment):
    for command, expected in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", session, re.MULTILINE):
        result = subprocess.run(command, shell=True, cwd=folder, env=environment, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        pattern = "".join(r"(?:.*\n)*" if line == "...\n" else re.escape(line)
                          for line in expected.splitlines(keepends=True))
        if not re.fullmatch(pattern, result.stdout):
            yield f"$ {command}\nprinted\n{result.stdout}instead of\n{expected}"


blocks = BLOCK.findall((ROOT / "README.md").read_text())
faults = list(program_faults(text for language, text in blocks if language in ("c", "cpp")))
environment = dict(os.environ, PATH=f"{sys.argv[1]}:{os.environ['PATH']}")
with tempfile.TemporaryDirectory() as scratch:
    folder = shutil.copytree(ROOT / "examples", f"{scratch}/examples")
    for language, text in blocks:
        if language == "console":
            faults += console_faults(text, folder, environment)
print(*faults, sep="\n\n")
sys.exit(bool(faults))

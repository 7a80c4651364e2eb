"""Runs the programs of a recipe, each in a copy of its folder: both must print output.txt.

Usage: check.py RECIPE PROGRAM_IN_C PROGRAM_IN_CPP
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

name, in_c, in_cpp = sys.argv[1:]
here = pathlib.Path(__file__).parent / name
expected = (here / "output.txt").read_text()
faults = []
for command in ([in_c], [in_cpp, name]):
    with tempfile.TemporaryDirectory() as scratch:
        folder = shutil.copytree(here, f"{scratch}/{name}")
        result = subprocess.run(command, cwd=folder, text=True, encoding="utf-8",
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if result.returncode or result.stdout != expected:
        faults.append(f"{command} ended with {result.returncode} and printed\n{result.stdout}"
                      f"instead of\n{expected}")
print(*faults, sep="\n")
sys.exit(bool(faults))

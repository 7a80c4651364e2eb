"""README.md and the pages of docs/ are true: programs in them are files that are tested, their
commands print what they show.

Usage: pages.py [--update] FOLDER_OF_THE_TOOL
A block marked "console" holds commands after "$ " and the output of each; "..." stands for any
lines. The commands run in a copy of the folders examples and docs/files. With --update what commands print is
written into the pages, but for outputs with "...".
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
SESSION = re.compile(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", re.MULTILINE)


def pages():
    return [ROOT / "README.md", *sorted((ROOT / "docs").rglob("*.md"))]


def program_faults(path, blocks):
    """Code in C and C++ stands in files of its own, where tests compile and run it."""
    sources = {source.read_text() for source in (ROOT / "examples").iterdir()
               if source.suffix in (".c", ".cpp")}
    for language, text in blocks:
        if language in ("c", "cpp") and text not in sources:
            yield f"{path}: no file in examples/ is this program:\n{text}"


def output_of(command, folder, environment):
    return subprocess.run(command, shell=True, cwd=folder, env=environment, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT).stdout


def console_faults(path, session, run):
    for command, expected in SESSION.findall(session):
        printed = run(command)
        pattern = "".join(r"(?:.*\n)*" if line == "...\n" else re.escape(line)
                          for line in expected.splitlines(keepends=True))
        if not re.fullmatch(pattern, printed):
            yield f"{path}: $ {command}\nprinted\n{printed}instead of\n{expected}"


def update(path, run):
    def updated(match):
        command, expected = match.groups()
        if "...\n" in expected.splitlines(keepends=True):
            return match[0]
        return f"$ {command}\n{run(command)}"

    path.write_text(BLOCK.sub(
        lambda block: block[0] if block[1] != "console" else
        f"```console\n{SESSION.sub(updated, block[2])}```", path.read_text()))


def main(arguments):
    updating = "--update" in arguments
    tool = pathlib.Path(next(each for each in arguments if each != "--update")).resolve()
    environment = dict(os.environ, PATH=f"{tool}:{os.environ['PATH']}")
    faults = []
    for path in pages():
        with tempfile.TemporaryDirectory() as scratch:
            folder = shutil.copytree(ROOT / "examples", f"{scratch}/examples")
            shutil.copytree(ROOT / "docs" / "files", folder, dirs_exist_ok=True)
            if updating:
                update(path, lambda command: output_of(command, folder, environment))
            blocks = BLOCK.findall(path.read_text())
            faults += program_faults(path, blocks)
            for language, text in blocks:
                if language == "console":
                    faults += console_faults(
                        path, text, lambda command: output_of(command, folder, environment))
    print(*faults, sep="\n\n")
    return bool(faults)


sys.exit(main(sys.argv[1:]))

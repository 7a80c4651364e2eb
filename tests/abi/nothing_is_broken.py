"""Programs that were linked with an earlier version of the libraries run with this one: no function
of theirs is gone or changed, nor a public struct or constant. What is new may come.

Usage: nothing_is_broken.py C_COMPILER LIBRARY.so...
       nothing_is_broken.py --record C_COMPILER LIBRARY.so...
The interface is compared with that of the last tagged version of this major number, as the tag
holds it, and where no tag is at hand with the one that lies in tests/abi/released. Whoever tags a
version records its interface there first.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

from headers import INCLUDE, headers

ROOT = INCLUDE.parent
RELEASED = "tests/abi/released"
CONSTANTS = "constants.txt"


def run(*command, **options):
    return subprocess.run(command, text=True, capture_output=True, **options)


def major():
    header = (INCLUDE / "xml/xml_module.h").read_text()
    return re.search(r"VOXML_VERSION_MAJOR (\d+)", header)[1]


def git(*arguments):
    """What git prints; empty where it fails or is not there, as in an unpacked source archive."""
    try:
        return run("git", *arguments, cwd=ROOT).stdout
    except FileNotFoundError:
        return ""


def last_tag():
    """The tag to compare with; empty when there is none with a record."""
    tag = git("describe", "--tags", "--abbrev=0", "--match", f"v{major()}.*").strip()
    return tag if tag and released(tag, CONSTANTS) else ""


def released(tag, name):
    """The text of a record; empty for a library that the tagged version did not have."""
    if tag:
        return git("show", f"{tag}:{RELEASED}/{name}")
    return (ROOT / RELEASED / name).read_text()


def constants(compiler):
    """The values of the constants in the public headers, as the compiler reads them, by name."""
    includes = "".join(f'#include "{header}"\n' for header in headers())
    command = [compiler, "-E", "-xc", "-std=c11", f"-I{INCLUDE}", "-"]
    macros = run(*command, "-dM", input=includes, check=True).stdout
    text = run(*command, input=includes, check=True).stdout
    names = re.findall(r"#define ((?:VO|XML)_\w+) .*\d", macros)
    for body in re.findall(r"\benum\s*\{(.*?)\}", text, re.DOTALL):
        names += re.findall(r"\b((?:VO|XML)_\w+)\s*(?:=|,|\Z)", body)
    prints = "".join(f'printf("{name} %lld\\n", (long long){name});\n' for name in sorted(names))
    program = f"{includes}#include <stdio.h>\nint main(void) {{\n{prints}}}\n"
    with tempfile.TemporaryDirectory() as folder:
        path = f"{folder}/constants"
        run(compiler, "-xc", "-std=c11", f"-I{INCLUDE}", "-", "-o", path, input=program, check=True)
        return run(path, check=True).stdout


def record_name(library):
    return pathlib.Path(library).name.split(".")[0] + ".abi"


def describe(library, path):
    """Writes the interface of a library: of its types those of the public headers only."""
    run("abidw", "--headers-dir", str(INCLUDE), "--drop-private-types", "--drop-undefined-syms",
        "--exported-interfaces-only", "--no-corpus-path", "--no-comp-dir-path", "--no-show-locs",
        "--type-id-style", "hash", "--out-file", str(path), library, check=True)


def record(compiler, libraries):
    for library in libraries:
        path = ROOT / RELEASED / record_name(library)
        describe(library, path)
        path.write_text(path.read_text().replace(f"{ROOT}/", ""))
    (ROOT / RELEASED / CONSTANTS).write_text(constants(compiler))


def broken(tag, compiler, libraries, folder):
    """What is wrong, as text; nothing if nothing is."""
    for library in libraries:
        before, now = folder / "before.abi", folder / "now.abi"
        before.write_text(released(tag, record_name(library)))
        if not before.stat().st_size:
            continue
        describe(library, now)
        result = run("abidiff", "--no-added-syms", str(before), str(now))
        if result.returncode:
            yield f"{library}:\n{result.stdout}{result.stderr}"
    now = set(constants(compiler).splitlines())
    for line in released(tag, CONSTANTS).splitlines():
        if line not in now:
            yield f"constant gone or changed: {line}"


if sys.argv[1] == "--record":
    record(sys.argv[2], sys.argv[3:])
else:
    tag = last_tag()
    with tempfile.TemporaryDirectory() as scratch:
        found = list(broken(tag, sys.argv[1], sys.argv[2:], pathlib.Path(scratch)))
    print(*found, sep="\n")
    print(f"compared with {tag or RELEASED}: {len(found)} breaks")
    sys.exit(bool(found))

"""Every function of the public headers is named in some test, outside comments and texts, so that
whoever looks for a function finds the row that tests it.

Usage: functions_are_tested.py C_COMPILER
The tests of the C++ header do not count: they name none of these functions.
"""
import pathlib
import re
import sys

from headers import declared_functions

TESTS = pathlib.Path(__file__).resolve().parents[1]
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:[^"\\\n]|\\.)*"', re.DOTALL)


def named(folder):
    for path in folder.rglob("*.[ch]pp"):
        yield from re.findall(r"\w+", COMMENT_OR_TEXT.sub(" ", path.read_text()))


names = {name for folder in ("vo", "xml") for name in named(TESTS / folder)}
functions = [name for library in ("vo", "xml") for name in declared_functions(library, sys.argv[1])
             if "___" not in name]
missing = [name for name in functions if name not in names]
print(*missing, sep="\n")
print(f"{len(functions)} functions, {len(missing)} that no test names")
sys.exit(bool(missing) or not functions)

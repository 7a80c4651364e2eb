"""A null argument ends the process, with a line that names a source file and a condition.

Usage: null_arguments.py C_COMPILER LIBRARY.so...
Every public function is called with valid arguments, and must then return; and again for each of
its pointers with null in its place: the argument itself, and what a T ** points to. null_arguments.c
makes the arguments and runs each call in a child of its own.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

from headers import INCLUDE, declared_functions

# Functions that take null for a value although no parameter is called optional...; those of the
# first line are the common operations of vo_object.h.
ACCEPTED = re.compile(r"\w+(?<!Create)From|\w+(?<!Append)(?<!Insert)Obj|\w+Equals"
                      r"|voObjCompare|voMemFree")
# What makes no check at all; its header and README.md say so.
UNCHECKED = {"xmlNsNamespaceMappingIsDefault"}
# Arguments by the name of the parameter. Others are 1, or what null_arguments.c has for the type.
VALID = {"index": "0", "length": "-1", "radix": "10", "array": "voStoreCreateArray()",
         "version": 'str("1.0")', "path": '"/dev/null"', "items of any type": "voVectorCreate()"}


def valid(function, kind, name):
    """A valid argument for a parameter, as an expression of C."""
    pointee = kind.replace("const ", "").rstrip(" *")
    if pointee == "voVector" and function.startswith("xml"):
        name = "items of any type"
    value = VALID.get(name) or (f"NEW_{pointee}" if "*" in kind else "1")
    return f"({pointee} *[]){{{value}}}" if kind.endswith("**") else value


def calls(function, parameters):
    """Each call of a function, as its title, whether null is accepted there, and C."""
    pairs = [re.fullmatch(r"(.*?)(\w+)", parameter).groups()
             for parameter in parameters if parameter != "..."]
    arguments = [valid(function, kind.strip(), name) for kind, name in pairs]

    def call(place, argument):
        return f"{function}({', '.join(arguments[:place] + [argument] + arguments[place + 1:])})"

    accepted = bool(ACCEPTED.fullmatch(function))
    pointers = [(place, *pair) for place, pair in enumerate(pairs)
                if "*" in pair[0] and not pair[1].startswith("optional")]
    if pointers and not (accepted and function.endswith("From")):
        yield f"{function}() with valid arguments", True, call(0, arguments[0])
    for place, kind, name in pointers if function not in UNCHECKED else []:
        yield f"{function}() with {name} null", accepted, call(place, "NULL")
        if kind.strip().endswith("**"):
            pointee = kind.rstrip(" *")
            yield f"{function}() with *{name} null", False, call(place, f"({pointee} *[]){{NULL}}")


compiler, *libraries = sys.argv[1:]
functions = {name: parameters for library in ("vo", "xml", "import")
             for name, parameters in declared_functions(library, compiler).items()}
cases = [case for function, parameters in sorted(functions.items())
         if "___" not in function for case in calls(function, parameters)]
with tempfile.TemporaryDirectory() as scratch:
    pathlib.Path(scratch, "calls.inc").write_text(
        "".join(f"case {number}: (void){call}; break;\n"
                for number, (_, _, call) in enumerate(cases)))
    program = f"{scratch}/null_arguments"
    subprocess.run([compiler, "-std=c11", "-w", f"-I{INCLUDE}", f"-I{scratch}",
                    pathlib.Path(__file__).with_suffix(".c"), "-o", program, *libraries,
                    *{f"-Wl,-rpath,{pathlib.Path(library).parent}" for library in libraries}],
                   check=True)
    output = subprocess.run([program, str(len(cases))], stdout=subprocess.PIPE, text=True,
                            check=True).stdout.splitlines()
faults = 0
for (title, returns, _), outcome in zip(cases, output, strict=True):
    wanted = r"returned" if returns else r"aborted: (.*: )?source/\w[\w/]*\.[ch]pp:\d+: .+"
    if not re.fullmatch(wanted, outcome):
        print(f"{title}: {outcome}")
        faults += 1
print(f"{len(cases)} calls, {faults} with faults")
sys.exit(bool(faults) or not cases)

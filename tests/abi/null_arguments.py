"""A null argument ends the process, with a line that names a source file and the argument.

Usage: null_arguments.py C_COMPILER LIBRARY.so...
Every public function is called with valid arguments, and must then return; and again for each of
its pointers with null in its place: the argument itself, and what a T ** points to.
null_arguments.c makes the arguments and the calls.
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
# Lookups that check what they look for before the map.
KEY_FIRST = re.compile(r"xmlNsNamespaceMap(Has)?(Prefix)?MappingFor(Namespace|Prefix)")
# Arguments by the name of the parameter. Others are 1, or what null_arguments.c has for the type.
VALID = {"index": "0", "level": "0", "length": "-1", "radix": "10", "array": "voStoreCreateArray()",
         "version": 'str("1.0")', "path": '"/dev/null"', "items of any type": "voVectorCreate()"}

# What the line calls an argument that another function checks, where not by its own name.
CHECKED_AS = {"value": "text|str|commentText", "name": "cstr", "format": "cstr", "key": "cstr",
              "version": "versionNum", "chars": r"chars \|\| .*", "bytes": r"bytes \|\| .*",
              "a": "objA", "b": "objB", "cursorA": "objA", "cursorB": "objB", "el": "obj",
              "child": "obj", "text": "obj", "comment": "obj", "cdata": "obj", "pi": "obj",
              "cursor": "obj"}
# What the common operations print in front of the line.
CONTEXTS = {"Retain": "stdfunc retain: ", "Release": "stdfunc release: ",
            "ToString": "stdfunc tostring: ", "Compare": "stdfunc compare [ab]: "}
RETURNS = "returned"


def valid(function, kind, name):
    """A valid argument for a parameter, as an expression of C."""
    pointee = kind.replace("const ", "").rstrip(" *")
    if pointee == "voVector" and function.startswith("xml"):
        name = "items of any type"
    value = pointee != "XML_PATH" and VALID.get(name) or (f"NEW_{pointee}" if "*" in kind else "1")
    return f"({pointee} *[]){{{value}}}" if kind.endswith("**") else value


def aborts(function, argument):
    operation = re.search(r"(?<!^voObj)(?:ToString|[A-Z][a-z]*)$", function)
    context = CONTEXTS.get(operation[0] if operation else "", "")
    return rf"aborted: {context}source/\w[\w/]*\.[ch]pp:\d+: (?:{argument})"


def names(parameter):
    return f"{parameter}|{CHECKED_AS[parameter]}" if parameter in CHECKED_AS else parameter


def calls(function, parameters):
    """Each call of a function: its title, how it must end as a pattern, and the call in C."""
    pairs = [re.fullmatch(r"(.*?)(\w+)", parameter).groups()
             for parameter in parameters if parameter != "..."]
    arguments = [valid(function, kind.strip(), name) for kind, name in pairs]

    def call(place, argument):
        return f"{function}({', '.join(arguments[:place] + [argument] + arguments[place + 1:])})"

    accepted = bool(ACCEPTED.fullmatch(function))
    pointers = [(place, *pair) for place, pair in enumerate(pairs)
                if "*" in pair[0] and not pair[1].startswith("optional")]
    if pointers and not (accepted and function.endswith("From")):
        yield f"{function}() with valid arguments", RETURNS, call(0, arguments[0])
    if len(pointers) > 1 and not accepted:
        nulls = ["NULL" if "*" in kind else value for (kind, _), value in zip(pairs, arguments)]
        first = pointers[-1 if KEY_FIRST.fullmatch(function) else 0][2]
        yield (f"{function}() with {first} null before others", aborts(function, names(first)),
               f"{function}({', '.join(nulls)})")
    for place, kind, name in pointers if function not in UNCHECKED else []:
        outcome = RETURNS if accepted else aborts(function, names(name))
        yield f"{function}() with {name} null", outcome, call(place, "NULL")
        if kind.strip().endswith("**"):
            pointee = kind.rstrip(" *")
            yield (f"{function}() with *{name} null", aborts(function, rf"\*{name}"),
                   call(place, f"({pointee} *[]){{NULL}}"))


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
for (title, wanted, _), outcome in zip(cases, output, strict=True):
    if not re.fullmatch(wanted, outcome):
        print(f"{title}: {outcome}")
        faults += 1
print(f"{len(cases)} calls, {faults} with faults")
sys.exit(bool(faults) or not cases)

"""What the public headers hold: their paths, and the functions that they declare."""
import pathlib
import re
import subprocess

INCLUDE = pathlib.Path(__file__).resolve().parents[2] / "include"
IMPORT = "xml/xml_import.h"  # the only header of its library


def headers(library="*"):
    """The public headers as they are included, "vo/vo_string.h": all, or those of one library."""
    if library == "import":
        return [IMPORT]
    found = sorted(str(path.relative_to(INCLUDE)) for path in INCLUDE.glob(f"{library}/*.h"))
    return [header for header in found if library == "*" or header != IMPORT]


def declared_functions(library, compiler):
    """The functions declared in the headers of a library, as the compiler reads them: the parameters
    of each as they are written, by its name."""
    source = "".join(f'#include "{header}"\n' for header in headers(library))
    command = [compiler, "-E", "-xc", "-std=c11", f"-I{INCLUDE}", "-"]
    lines = subprocess.run(command, input=source, text=True, capture_output=True, check=True)
    return dict(declarations(lines_of({str(INCLUDE / header) for header in headers(library)},
                                       lines.stdout)))


def lines_of(files, preprocessed):
    """The text that stands in the files themselves, without that of what they include."""
    own = []
    inside = False
    for line in preprocessed.splitlines():
        marker = re.match(r'# \d+ "(.*?)"', line)
        if marker:
            inside = marker[1] in files
        elif inside:
            own.append(line)
    return "\n".join(own)


def declarations(text):
    text = re.sub(r"__attribute__\s*\(\(.*?\)\)(?!\))", " ", text)
    for declaration in re.sub(r"\{[^{}]*\}", ";", text).split(";"):
        function = re.match(r"(?!\s*(?:typedef|static)\b)[^(=]*?(\w+)\s*\(([^()]*)\)", declaration)
        if function:
            yield function[1], [" ".join(parameter.split()) for parameter in function[2].split(",")]

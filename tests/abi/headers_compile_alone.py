"""Every public header compiles alone and twice, as C and as C++, and is part of its library's
umbrella header; and that compiles as C99, C11 and C++, all without a warning of any compiler.

Usage: headers_compile_alone.py C_COMPILER...
"""
import concurrent.futures
import shutil
import subprocess
import sys

from headers import INCLUDE, headers

LANGUAGES = [("c", "c99"), ("c", "c11"), ("c++", "c++17"), ("c++", "c++20")]
UMBRELLAS = ("vo/vo.h", "xml/xml.h")
CPP_HEADER = "voxml.hpp"
CPP_VARIANTS = [("-Wold-style-cast",), ("-Wold-style-cast", "-fno-exceptions", "-fno-rtti")]
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Wundef", "-Werror"]


def complaints(case):
    compiler, (language, standard), header, *options = case
    include = f'#include "{header}"\n'
    command = [compiler, "-fsyntax-only", f"-x{language}", f"-std={standard}", *WARNINGS,
               *options, f"-I{INCLUDE}", "-"]
    result = subprocess.run(command, input=include * 2, text=True, capture_output=True)
    return f"{' '.join(command)} < {header}\n{result.stderr}" if result.returncode else ""


compilers = [name for name in sys.argv[1:] if shutil.which(name)]
cases = [(compilers[0], language, header) for language in LANGUAGES[1:3] for header in headers()]
cases += [(compiler, language, umbrella)
          for compiler in compilers for language in LANGUAGES for umbrella in UMBRELLAS]
cases += [(compiler, language, CPP_HEADER, *variant)
          for compiler in compilers for language in LANGUAGES[2:] for variant in CPP_VARIANTS]
with concurrent.futures.ThreadPoolExecutor() as pool:
    found = [text for text in pool.map(complaints, cases) if text]
for umbrella in UMBRELLAS:
    text = (INCLUDE / umbrella).read_text()
    found += [f"{umbrella} leaves out {header}" for header in headers(umbrella.split("/")[0])
              if header != umbrella and f'#include "{header}"\n' not in text]
print(*found, sep="\n")
print(f"{len(cases)} compilations by {' and '.join(compilers)}, {len(found)} with complaints")
sys.exit(bool(found) or not cases)

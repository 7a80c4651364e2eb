"""A shared library shows exactly the functions that its public headers declare.

Usage: exports_match_headers.py C_COMPILER vo|xml|import LIBRARY.so
"""
import subprocess
import sys

from headers import declared_functions

compiler, library, path = sys.argv[1:]
symbols = subprocess.run(["nm", "-D", "--defined-only", path], text=True, capture_output=True,
                         check=True)
exported = {line.split()[-1].split("@")[0] for line in symbols.stdout.splitlines()}
declared = set(declared_functions(library, compiler))

for name in sorted(declared - exported):
    print(f"declared, not exported: {name}")
for name in sorted(exported - declared):
    print(f"exported, not declared: {name}")
print(f"{path}: {len(exported)} exported, {len(declared)} declared")
sys.exit(exported != declared or not declared)

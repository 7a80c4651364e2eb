"""The recipes of package managers fit the sources: their version is the library's, every option that
they set is one of the build, and what Conan takes along can be configured and has all that is
installed.

Usage: recipes.py SCRATCH
Neither Conan nor vcpkg is needed: Conan's recipe is loaded with stand-ins for what it imports.
"""
import importlib.util
import json
import pathlib
import re
import shutil
import subprocess
import sys
import types

ROOT = pathlib.Path(__file__).resolve().parents[2]
PORT = ROOT / "packaging/vcpkg/voxml"


def version():
    numbers = re.findall(r"define VOXML_VERSION_(?:MAJOR|MINOR|PATCH) (\d+)",
                         (ROOT / "include/xml/xml_module.h").read_text())
    return ".".join(numbers)


def conan_recipe():
    for name, members in {"conan": ["ConanFile"], "conan.tools": [],
                          "conan.tools.cmake": ["CMake", "CMakeDeps", "CMakeToolchain",
                                                "cmake_layout"],
                          "conan.tools.files": ["copy", "rmdir"]}.items():
        sys.modules[name] = types.ModuleType(name)
        for member in members:
            setattr(sys.modules[name], member, type(member, (), {}))
    spec = importlib.util.spec_from_file_location("conanfile", ROOT / "conanfile.py")
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    recipe = module.Voxml()
    recipe.recipe_folder = str(ROOT)
    recipe.set_version()
    return recipe


scratch = pathlib.Path(sys.argv[1]).resolve()
shutil.rmtree(scratch, ignore_errors=True)
faults = []

recipe = conan_recipe()
port = json.loads((PORT / "vcpkg.json").read_text())
for name, told in (("conanfile.py", recipe.version), ("vcpkg.json", port["version"])):
    if told != version():
        faults.append(f"{name} is of version {told}, the library of {version()}")

options = set(re.findall(r"option\((\w+)", (ROOT / "CMakeLists.txt").read_text()))
portfile = (PORT / "portfile.cmake").read_text()
for name, text in (("conanfile.py", (ROOT / "conanfile.py").read_text()),
                   ("portfile.cmake", portfile)):
    used = set(re.findall(r"VOXML_BUILD_\w+", text))
    faults += [f"{name} sets {option}, which is no option" for option in used - options]
features = dict(re.findall(r"(\w+) VOXML_BUILD_(\w+)", portfile))
if set(features) != set(port["features"]):
    faults.append(f"the port turns {set(features)} into options, but has {set(port['features'])}")

for pattern in recipe.exports_sources:
    for path in ROOT.glob(pattern):
        target = scratch / "source" / path.relative_to(ROOT)
        target.parent.mkdir(parents=True, exist_ok=True)
        (shutil.copytree if path.is_dir() else shutil.copy)(path, target)
build = scratch / "build"
command = ["cmake", "-G", "Ninja", "-S", str(scratch / "source"), "-B", str(build),
           "-DBUILD_SHARED_LIBS=OFF", "-DCMAKE_BUILD_TYPE=Debug", "-DVOXML_BUILD_TESTS=OFF",
           "-DVOXML_BUILD_TOOL=OFF", "-DVOXML_BUILD_IMPORT=OFF"]
result = subprocess.run(command, text=True, capture_output=True)
if result.returncode:
    faults.append(f"{' '.join(command)}\n{result.stdout}{result.stderr}")
else:
    script = (build / "cmake_install.cmake").read_text()
    installed = re.findall(rf'"({re.escape(str(scratch))}/source/[^"]*)"', script)
    faults += [f"Conan does not take {path} along" for path in installed
               if not pathlib.Path(path).exists()]
    if not installed:
        faults.append("nothing is installed from the sources")

print(*faults, sep="\n")
sys.exit(bool(faults))

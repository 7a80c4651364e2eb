"""The recipe with which Conan 2 builds and packs the libraries: conan create ."""
import re
from pathlib import Path

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, rmdir


class Voxml(ConanFile):
    name = "voxml"
    description = "XML library with immutable, shareable trees"
    license = "MIT"
    topics = ("xml", "parser", "immutable", "c", "cpp")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False], "importer": [True, False]}
    default_options = {"shared": False, "fPIC": True, "importer": False}
    implements = ["auto_shared_fpic"]
    exports_sources = ("CMakeLists.txt", "cmake/*", "include/*", "source/*", "examples/*", "gdb/*",
                       "LICENSE")

    def set_version(self):
        header = Path(self.recipe_folder) / "include/xml/xml_module.h"
        numbers = re.findall(r"VOXML_VERSION_(?:MAJOR|MINOR|PATCH) (\d+)", header.read_text())
        self.version = ".".join(numbers)

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        if self.options.importer:
            self.requires("expat/[>=2.4 <3]")

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["VOXML_BUILD_IMPORT"] = bool(self.options.importer)
        toolchain.cache_variables["VOXML_BUILD_TOOL"] = False
        toolchain.cache_variables["VOXML_BUILD_TESTS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, str(Path(self.package_folder) / "licenses"))
        rmdir(self, str(Path(self.package_folder) / "lib/cmake"))
        rmdir(self, str(Path(self.package_folder) / "lib/pkgconfig"))
        rmdir(self, str(Path(self.package_folder) / "share"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "voxml")
        self.library("vo", "vo")
        self.library("xml", "voxml", "vo")
        if self.options.importer:
            self.library("import", "voxml-import", "xml", "expat::expat")

    def library(self, component, name, *requires):
        """One that programs know as voxml::component to CMake and as `name` to pkg-config."""
        info = self.cpp_info.components[component]
        info.set_property("cmake_target_name", f"voxml::{component}")
        info.set_property("pkg_config_name", name)
        info.libs = [name]
        info.includedirs = ["include/voxml-" + str(self.version).split(".", maxsplit=1)[0]]
        info.requires = list(requires)
        if not self.options.shared:
            info.system_libs = ["stdc++"]

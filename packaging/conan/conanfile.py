"""Builds the tree that this recipe stands in: conan create packaging/conan"""
import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class LedgerwickConan(ConanFile):
    name = "ledgerwick"
    version = "1.0.0"
    description = "UK payroll object library"
    license = "see LICENCE"
    package_type = "library"
    settings = "os", "compiler", "build_type", "arch"
    options = {"shared": [True, False], "hostkit": [True, False]}
    default_options = {"shared": True, "hostkit": True}

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..")
        for pattern in ("CMakeLists.txt", "LICENCE", "cmake/*", "ledgerwick/*", "hostkit/*", "capi/*"):
            copy(self, pattern, root, self.export_sources_folder)

    def requirements(self):
        if self.options.hostkit:
            self.requires("sqlite3/[>=3.35 <4]")

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["BUILD_SHARED_LIBS"] = bool(self.options.shared)
        toolchain.cache_variables["LEDGERWICK_WITH_HOSTKIT"] = bool(self.options.hostkit)
        toolchain.cache_variables["LEDGERWICK_WITH_APP"] = False
        toolchain.cache_variables["LEDGERWICK_WITH_TESTS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENCE", self.source_folder, os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        # The package that the library installs itself has the targets and `ledgerwick_place_fernbank`.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "Ledgerwick")]

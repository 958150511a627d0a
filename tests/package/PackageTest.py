#!/usr/bin/python3
"""The installed tree is all that a host needs: headers that stand alone, a CMake package and a pkg-config file.

    PackageTest.py BUILD_FOLDER VERSION CXX_COMPILER
"""
import os
import re
import subprocess
import sys
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CONSUMER = Path(__file__).resolve().parent / "consumer"
BUILD, VERSION, COMPILER = Path(sys.argv[1]), sys.argv[2], sys.argv[3]
INCLUDE = re.compile(r'^\s*#\s*include\s*["<]([^">]+)[">]', re.MULTILINE)
STANDARD_HEADER = re.compile(r"[a-z_]+")
QT_HEADER = re.compile(r"Q[A-Z]\w+")
HAS_CONTROLS = "CORVANE_CONTROLS:BOOL=ON" in (BUILD / "CMakeCache.txt").read_text(encoding="utf-8")


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(scratch.cleanup)
        cls.scratch = Path(scratch.name)
        cls.prefix = cls.scratch / "prefix"
        run("cmake", "--install", BUILD, "--prefix", cls.prefix)
        cls.include = cls.prefix / "include"
        cls.libraries = next(cls.prefix.rglob("libcorvane.so")).parent
        headers = sorted(str(path.relative_to(cls.include)) for path in cls.include.rglob("*.h"))
        cls.controls = [header for header in headers if header.startswith("corvane/controls/")]
        cls.headers = [header for header in headers if header not in cls.controls]
        cls.environment = dict(os.environ, LD_LIBRARY_PATH=str(cls.libraries),
                               PKG_CONFIG_PATH=str(cls.libraries / "pkgconfig"))

    def included_by(self, header):
        return set(INCLUDE.findall((self.include / header).read_text(encoding="utf-8")))

    def compile_alone(self, headers, *flags):
        def compile_header(header):
            source = self.scratch / (header.replace("/", "_") + ".cpp")
            source.write_text(f'#include "{header}"\n', encoding="utf-8")
            run(COMPILER, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Werror", "-I", self.include, *flags,
                source)

        with ThreadPoolExecutor(os.cpu_count()) as pool:
            list(pool.map(compile_header, headers))

    def test_every_header_compiles_on_its_own(self):
        self.assertIn("corvane/core/TagError.h", self.headers)
        self.compile_alone(self.headers)

    def test_headers_include_only_the_standard_library_and_each_other(self):
        for header in self.headers:
            for included in self.included_by(header):
                with self.subTest(header=header, included=included):
                    self.assertTrue(STANDARD_HEADER.fullmatch(included) or included in self.headers)

    def test_no_header_of_the_inside_is_installed(self):
        self.assertEqual([header for header in self.headers if re.search(r"\wInternals\.h$", header)], [])

    def test_every_class_that_the_library_shows_is_installed(self):
        shown = [str(path.relative_to(ROOT)) for path in (ROOT / "corvane").rglob("*.h")
                 if re.search(r"^(class|struct) CORVANE_EXPORT", path.read_text(encoding="utf-8"), re.MULTILINE)]
        self.assertEqual(sorted(set(shown) - set(self.headers)), [])

    def reached_from(self, umbrella, headers):
        reached, waiting = set(), {umbrella}
        while waiting:
            header = waiting.pop()
            reached.add(header)
            waiting |= {name for name in self.included_by(header) if name in headers} - reached
        return sorted(reached)

    def test_the_umbrella_reaches_every_header(self):
        self.assertEqual(self.reached_from("corvane/corvane.h", self.headers), self.headers)

    @unittest.skipUnless(HAS_CONTROLS, "built without controls")
    def test_every_header_of_the_controls_compiles_on_its_own(self):
        self.assertIn("corvane/controls/ID3v1.h", self.controls)
        self.compile_alone(self.controls, "-fPIC", *run("pkg-config", "--cflags", "Qt6Widgets").split())

    @unittest.skipUnless(HAS_CONTROLS, "built without controls")
    def test_headers_of_the_controls_include_qt_and_what_is_installed(self):
        for header in self.controls:
            for included in self.included_by(header):
                with self.subTest(header=header, included=included):
                    self.assertTrue(STANDARD_HEADER.fullmatch(included) or QT_HEADER.fullmatch(included)
                                    or included in self.headers + self.controls)

    @unittest.skipUnless(HAS_CONTROLS, "built without controls")
    def test_the_controls_umbrella_reaches_each_of_them(self):
        self.assertEqual(self.reached_from("corvane/controls/Controls.h", self.controls), self.controls)

    @unittest.skipUnless(HAS_CONTROLS, "built without controls")
    def test_every_class_that_the_controls_show_is_installed(self):
        shown = [str(path.relative_to(ROOT)) for path in (ROOT / "corvane/controls").rglob("*.h")
                 if re.search(r"^class CORVANE_CONTROLS_EXPORT", path.read_text(encoding="utf-8"), re.MULTILINE)]
        self.assertGreater(len(shown), 3)
        self.assertEqual(sorted(set(shown) - set(self.controls)), [])

    @unittest.skipUnless(HAS_CONTROLS, "built without controls")
    def test_a_qt_project_finds_the_controls(self):
        build = self.scratch / "with-controls"
        run("cmake", "-S", CONSUMER, "-B", build, f"-DCMAKE_PREFIX_PATH={self.prefix}", "-DWITH_CONTROLS=ON",
            f"-DCMAKE_CXX_COMPILER={COMPILER}", f"-DEXPECTED_VERSION={VERSION}")
        run("cmake", "--build", build, "--target", "window")
        self.assertEqual(run(build / "window", "-platform", "offscreen"), "Größe\n")

    @unittest.skipUnless(HAS_CONTROLS, "built without controls")
    def test_the_library_of_the_controls_hides_what_is_not_published(self):
        lines = run("nm", "--dynamic", "--defined-only", "--demangle", self.libraries / "libcorvane-controls.so")
        shown = set(re.findall(r"^\w+ \w (corvane::controls::\w+)", lines, re.MULTILINE))
        self.assertIn("corvane::controls::ID3v1", shown)
        self.assertEqual(shown & {f"corvane::controls::{name}" for name in ("EditMenu", "GenreBox", "Id3v1Form")}, set())

    def test_a_cmake_project_finds_the_package(self):
        build = self.scratch / "with-cmake"
        run("cmake", "-S", CONSUMER, "-B", build, f"-DCMAKE_PREFIX_PATH={self.prefix}",
            f"-DCMAKE_CXX_COMPILER={COMPILER}", f"-DEXPECTED_VERSION={VERSION}")
        run("cmake", "--build", build)
        self.assertEqual(run(build / "consumer"), f"{VERSION} read\n")

    def test_a_makefile_finds_the_package_with_pkg_config(self):
        def ask(*question):
            return run("pkg-config", *question, "corvane", env=self.environment).split()

        self.assertEqual(ask("--modversion"), [VERSION])
        program = self.scratch / "with-pkg-config"
        run(COMPILER, "-std=c++20", CONSUMER / "main.cpp", *ask("--cflags", "--libs"), "-o", program)
        self.assertEqual(run(program, env=self.environment), f"{VERSION} read\n")

    def test_the_library_hides_what_is_not_published(self):
        lines = run("nm", "--dynamic", "--defined-only", "--demangle", self.libraries / "libcorvane.so").splitlines()
        shown = {match.group(1) for line in lines if (match := re.match(r"\w+ \w (corvane::\w+)", line))}
        self.assertIn("corvane::XmlNode", shown)
        self.assertEqual(shown & {"corvane::FileReader", "corvane::appendProperty", "corvane::decodeCodePage"}, set())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

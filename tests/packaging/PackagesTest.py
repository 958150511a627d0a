#!/usr/bin/python3
"""The Debian packages hold what they should, depend on what they need, and what is unpacked from them works.

    PackagesTest.py BUILD PACKAGE_VERSION [FOLDER]

Makes packages of a build just to try them, or tries those of a folder.
"""
import gzip
import re
import sys
import tempfile
import unittest
from pathlib import Path

from debs import debs_in, environment_of, make, run, unpack

ROOT = Path(__file__).resolve().parents[2]
BUILD, VERSION = Path(sys.argv[1]).resolve(), sys.argv[2]
FOLDER = Path(sys.argv[3]).resolve() if len(sys.argv) > 3 else None
EXACT = f"(= {VERSION})"
# A file that only this package has, as a regular expression of its end.
HOLDS = {
    "libcorvane1": [r"/libcorvane\.so\.1", r"/libcorvane\.so\.1\.[0-9.]+"],
    "libcorvane-dev": [r"/libcorvane\.so", r"/include/corvane/corvane\.h", r"/include/corvane/Version\.h",
                       r"/cmake/Corvane/CorvaneConfig\.cmake", r"/cmake/Corvane/CorvaneTargets\.cmake",
                       r"/pkgconfig/corvane\.pc"],
    "libcorvane-controls1": [r"/libcorvane-controls\.so\.1", r"/libcorvane-controls\.so\.1\.[0-9.]+"],
    "libcorvane-controls-dev": [r"/libcorvane-controls\.so", r"/include/corvane/controls/Controls\.h",
                                r"/cmake/Corvane/CorvaneControlsTargets\.cmake", r"/pkgconfig/corvane-controls\.pc",
                                r"/qt6/plugins/designer/libcorvane-controls-designer\.so"],
    "corvane": [r"/bin/corvane", r"/man1/corvane\.1\.gz", r"/bash-completion/completions/corvane", r"/_corvane",
                r"/corvane\.fish"],
    "corvane-editor": [r"/bin/corvane-editor", r"/man1/corvane-editor\.1\.gz", r"/applications/corvane-editor\.desktop"],
}
NEEDS = {
    "libcorvane1": {"libid3-3.8.3v5"},
    "libcorvane-dev": {f"libcorvane1 {EXACT}"},
    "libcorvane-controls1": {f"libcorvane1 {EXACT}"},
    "libcorvane-controls-dev": {f"libcorvane-controls1 {EXACT}", f"libcorvane-dev {EXACT}", "qt6-base-dev"},
    "corvane": {"libid3-3.8.3v5"},
    "corvane-editor": {"libid3-3.8.3v5"},
}
FRAMES = (bytes.fromhex("fffb9004") + bytes(413)) * 20
HAS_PYTHON = re.search(r'COMPONENTS_ALL ".*\bpython\b', (BUILD / "CPackConfig.cmake").read_text(encoding="utf-8"))
if HAS_PYTHON:
    HOLDS["python3-corvane"] = [r"/dist-packages/corvane/__init__\.[^/]+\.so", r"/dist-packages/corvane/__init__\.pyi",
                                r"/dist-packages/corvane/py\.typed"]
    NEEDS["python3-corvane"] = {f"libcorvane1 {EXACT}"}


def blocks(language):
    page = (ROOT / "docs/packaging.md").read_text(encoding="utf-8")
    return re.findall(rf"^```{language}\n(.*?)^```", page, re.MULTILINE | re.DOTALL)


class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(scratch.cleanup)
        cls.scratch = Path(scratch.name)
        debs = debs_in(FOLDER, VERSION) if FOLDER else make(BUILD, cls.scratch / "packages", VERSION)
        cls.debs = {deb.fields["Package"]: deb for deb in debs}
        cls.root = cls.scratch / "root"
        unpack(debs, cls.root)
        cls.environment = environment_of(cls.root)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(dir=self.scratch))
        self.song = self.folder / "song.mp3"
        self.song.write_bytes(FRAMES)

    def run_here(self, *command, **options):
        return run(*command, cwd=self.folder, env=self.environment, **options)

    def copy_sources(self):
        for name, source in (("player", "examples/title/Title.cpp"), ("window", "tests/package/consumer/window.cpp")):
            (self.folder / f"{name}.cpp").write_bytes((ROOT / source).read_bytes())

    def assert_consumers_work(self, folder):
        self.run_here("corvane", "set", "song.mp3", "--tag", "v2", "--title", "Packed")
        self.assertTrue(self.run_here(folder / "player", "song.mp3").startswith("Packed, "))
        self.assertEqual(self.run_here(folder / "window"), "Größe\n")

    def test_each_part_has_its_package(self):
        self.assertEqual(set(self.debs), set(HOLDS))

    def test_each_package_holds_its_files(self):
        for name, patterns in HOLDS.items():
            for pattern in patterns:
                with self.subTest(package=name, file=pattern):
                    owners = [deb.fields["Package"] for deb in self.debs.values()
                              for file in deb.files if re.search(f"{pattern}$", file)]
                    self.assertEqual(owners, [name])

    def test_no_file_is_in_two_packages(self):
        files = [file for deb in self.debs.values() for file in deb.files]
        self.assertEqual(sorted(files), sorted(set(files)))

    def test_the_page_lists_the_packages(self):
        page = (ROOT / "docs/packaging.md").read_text(encoding="utf-8")
        self.assertLessEqual(set(HOLDS), set(re.findall(r"^\| `([^`]+)` \|", page, re.MULTILINE)))

    def test_packages_depend_on_what_is_loaded_at_run_time_and_on_each_other(self):
        for name, needed in NEEDS.items():
            with self.subTest(name):
                self.assertEqual(needed - self.debs[name].depends, set())

    def test_packages_depend_on_what_their_files_link(self):
        for name, library in (("libcorvane1", "libpugixml1v5"), ("libcorvane-controls1", "libqt6widgets6"),
                              ("libcorvane-controls-dev", "libqt6core6"), ("corvane", "libc6"),
                              ("corvane-editor", "libqt6widgets6")):
            with self.subTest(name):
                self.assertIn(library, {dependency.split()[0] for dependency in self.debs[name].depends})

    def test_only_the_libraries_and_their_development_files_stand_beside_those_of_another_architecture(self):
        kinds = {name: deb.fields["Multi-Arch"] for name, deb in self.debs.items()}
        self.assertEqual({name for name, kind in kinds.items() if kind == "same"},
                         {name for name in kinds if name.startswith("lib")})

    def test_each_package_tells_copyright_and_changes(self):
        for name in self.debs:
            with self.subTest(name):
                documents = self.root / "usr/share/doc" / name
                self.assertIn("License: Expat", (documents / "copyright").read_text(encoding="utf-8"))
                changes = gzip.decompress((documents / "changelog.Debian.gz").read_bytes()).decode()
                self.assertTrue(changes.startswith(f"corvane ({VERSION}) "), changes)
                self.assertEqual(gzip.decompress((documents / "changelog.gz").read_bytes()),
                                 (ROOT / "CHANGELOG.md").read_bytes())

    def test_the_libraries_are_made_known_to_the_loader_and_to_builders(self):
        for library in ("libcorvane", "libcorvane-controls"):
            deb = self.debs[f"{library}1"]
            self.assertEqual(deb.control("triggers"), "activate-noawait ldconfig\n")
            self.assertTrue(deb.control("shlibs").startswith(f"{library} 1 {library}1 (>= "))
            self.assertTrue(deb.control("symbols").startswith(f"{library}.so.1 {library}1 #MINVER#\n _Z"))
            self.assertIsNone(deb.control("postinst"))

    def test_apt_would_install_them(self):
        paths = [deb.path for deb in self.debs.values()]
        done = run("apt-get", "install", "--simulate", "--no-install-recommends", *paths)
        self.assertEqual(set(re.findall(r"^Conf (\S+)", done, re.MULTILINE)) & set(HOLDS), set(HOLDS))

    def test_the_unpacked_command_changes_a_tag(self):
        self.assertEqual(self.run_here("corvane", "--version"), f"corvane {VERSION.rsplit('-', 1)[0]}\n")
        self.run_here("corvane", "set", "song.mp3", "--tag", "v2", "--title", "Packed")
        self.assertIn('"title":"Packed"', self.run_here("corvane", "scan", "song.mp3").replace('": ', '":'))
        self.assertTrue(self.song.read_bytes().endswith(FRAMES))

    def test_the_unpacked_manual_page_can_be_read(self):
        page = next(self.root.rglob("corvane.1.gz"))
        self.assertIn("show, list, change and remove", gzip.decompress(page.read_bytes()).decode())

    def test_the_unpacked_editor_starts(self):
        self.assertEqual(self.run_here("corvane-editor", "--version"), f"corvane-editor {VERSION.rsplit('-', 1)[0]}\n")

    @unittest.skipUnless(HAS_PYTHON, "built without the Python module")
    def test_the_unpacked_module_changes_a_tag(self):
        self.run_here("corvane", "set", "song.mp3", "--tag", "v1", "--title", "Old")
        script = ("import corvane\nfile = corvane.FileHandler()\nfile.Create('song.mp3')\nfile.ID3v1xTag.Title = 'Packed'\n"
                  "print(file.writeID3v1xTag())\nprint(corvane.__file__)\n")
        written, place = self.run_here("/usr/bin/python3", "-c", script).splitlines()
        self.assertEqual((written, place.startswith(str(self.root))), ("True", True))
        self.assertTrue(self.song.read_bytes()[-128:].startswith(b"TAGPacked\0"))

    def test_the_page_builds_with_cmake(self):
        self.copy_sources()
        head = ("cmake_minimum_required(VERSION 3.25)\nproject(Consumer LANGUAGES CXX)\n"
                "add_executable(player player.cpp)\nadd_executable(window window.cpp)\n")
        (self.folder / "CMakeLists.txt").write_text(head + "".join(blocks("cmake")), encoding="utf-8")
        self.run_here("cmake", "-S", ".", "-B", "build")
        self.assertIn(str(self.root), (self.folder / "build/CMakeCache.txt").read_text(encoding="utf-8"))
        self.run_here("cmake", "--build", "build", "--parallel", "2")
        self.assert_consumers_work(self.folder / "build")

    def test_the_page_builds_with_pkg_config(self):
        self.copy_sources()
        lines = [line for block in blocks("sh") for line in block.splitlines() if line.startswith("g++ ")]
        self.assertEqual(len(lines), 2)
        for line in lines:
            self.run_here("bash", "-euc", line)
        self.assert_consumers_work(self.folder)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

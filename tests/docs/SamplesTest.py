#!/usr/bin/python3
"""Each code sample of README.md and docs/ does what a reader would do with it: programs are run on a sample file, shell
lines in a folder with that file, documents are read by a parser. The C++ samples were compiled when this was built.

    SamplesTest.py SAMPLE_FILE NAME=PROGRAM…
"""
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

import samples

SAMPLE = Path(sys.argv[1]).resolve()
PROGRAMS = {name: Path(path).resolve() for name, path in (word.split("=", 1) for word in sys.argv[2:])}
ROOT = samples.ROOT

# What programs tell on standard error when all is well.
PASSED_OVER = ("dashboard: ", "song.xml validates", "QStandardPaths: ", "This plugin does not support propagateSizeHints()")

LANGUAGES = {"cpp", "cmake", "sh", "python", "xml"}

# Lines that build, install or measure Corvane: other tests do that. Here they are only looked up.
LOOKED_UP = ("make", "cmake", "ctest", "git", "tools/", "sudo", "apt", "g++", "dask-", "srun")
PRESETS = {preset["name"] for preset in json.loads((ROOT / "CMakePresets.json").read_text("utf-8"))["configurePresets"]}


class Samples(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="corvane-samples-")
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)

    def fill(self):
        """A folder as the samples want it."""
        shutil.rmtree(self.folder)
        self.folder.mkdir()
        shutil.copy(SAMPLE, self.folder / "song.mp3")
        shutil.copy(SAMPLE.parent / "cover.png", self.folder / "cover.jpg")  # what a picture is, its bytes tell
        (self.folder / "examples").symlink_to(ROOT / "examples")

    def run_in_folder(self, words, **changes):
        environment = dict(os.environ, PATH=f"{PROGRAMS['command'].parent}:/usr/bin:/bin",
                           CORVANE_SCHEMA=str(ROOT / "docs/schema/corvane.rng"),
                           PYTHONPATH=str(PROGRAMS.get("python", "")), **changes)
        return subprocess.run(words, cwd=self.folder, env=environment, capture_output=True, text=True, timeout=60,
                              check=False, stdin=subprocess.DEVNULL)

    def assert_runs(self, words, **changes):
        done = self.run_in_folder(words, **changes)
        said = [line for line in done.stderr.splitlines()
                if not line.startswith(PASSED_OVER) and " - distributed." not in line]  # Dask on a busy machine
        self.assertEqual((done.returncode, said), (0, []))
        return done.stdout


class Pages(Samples):
    def test_speak_languages_that_are_tested(self):
        for sample in samples.samples():
            with self.subTest(sample.place):
                self.assertIn(sample.language, LANGUAGES)


class Cpp(Samples):
    # What a sample prints of the sample file, where that is short.
    PRINTED = {"docs/getting-started.md": "A Chord to Look Around In\n4 s, 128 kbit/s\n",
               "docs/hosting-the-controls.md": "saved\n"}

    def test_programs_run(self):
        for kind in ("library", "controls"):
            if kind not in PROGRAMS:
                continue
            programs = samples.programs(kind)
            self.assertGreater(len(programs), 0)
            for sample in programs:
                with self.subTest(sample.place):
                    self.fill()
                    printed = self.assert_runs([PROGRAMS[kind], sample.place, "song.mp3"])
                    self.assertEqual(printed, self.PRINTED.get(sample.page, printed))

    def test_what_a_sample_writes_is_in_the_file(self):
        changed = {}
        for sample in samples.programs("library"):
            if sample.page == "docs/editing-safely.md":
                self.fill()
                self.assert_runs([PROGRAMS["library"], sample.place, "song.mp3"])
                listed = json.loads(self.assert_runs(["corvane", "scan", "--quiet", "song.mp3"]))
                changed[sample.line] = (listed["title"], listed["comment"], (self.folder / "song.mp3").read_bytes()[-125:-116])
        original = ("A Chord to Look Around In", "Everything in this file was made by its build.", b"A Chord t")
        new = ("New title", "Made by its build", b"A Chord t")  # the comment that is left is that of the record
        record = (*original[:2], b"New title")
        # The record; the tag; a tag that is there already; a picture.
        self.assertEqual(list(changed.values()), [record, new, original, original])

    def test_a_sample_that_does_not_exist_is_an_error(self):
        self.fill()
        self.assertEqual(self.run_in_folder([PROGRAMS["library"], "nowhere.md:1", "song.mp3"]).returncode, 3)


class Shell(Samples):
    def look_up(self, words):
        if words[0] == "make":
            subprocess.run(["make", "-n", *words[1:2]], cwd=ROOT, capture_output=True, check=True)
        for word, value in zip(words, words[1:]):
            if word in ("--preset", "--workflow --preset"):
                self.assertIn(value.split("/")[-1], PRESETS)
        if words[0].startswith("dask-"):
            self.assertTrue(shutil.which(words[0]))
        if words[0].startswith("tools/"):
            self.assertTrue((ROOT / words[0]).exists())

    def test_lines_run(self):
        count = 0
        for sample in samples.samples("sh"):
            self.fill()
            for line in sample.code.splitlines():
                words = shlex.split(line, comments=True)
                if not words:
                    continue
                with self.subTest(sample.place, line=line):
                    if words[0].startswith(LOOKED_UP) or "--scheduler" in words:
                        self.look_up(words)
                    elif words[0] == "python3" and "python" not in PROGRAMS:
                        continue
                    elif words[0] == "corvane-editor":
                        if "editor" in PROGRAMS:
                            self.assert_runs([PROGRAMS["editor"], "--version"])
                    else:
                        self.assert_runs(["bash", "-euo", "pipefail", "-c", line])
                        count += 1
        self.assertGreater(count, 20)


class Python(Samples):
    # What a sample prints of the sample file begins so.
    PRINTED = {"README.md": "A Chord to Look Around In 4 s\n./song.mp3 ", "docs/editing-safely.md": "",
               "docs/getting-started.md": "A Chord to Look Around In\n4 s, 128 kbit/s\n"}

    @unittest.skipUnless("python" in PROGRAMS, "built without the Python module")
    def test_programs_run(self):
        found = samples.samples("python")
        self.assertGreater(len(found), 0)
        for sample in found:
            with self.subTest(sample.place):
                self.fill()
                printed = self.assert_runs(["/usr/bin/python3", "-W", "error", "-c", sample.code])
                self.assertEqual(printed[:40], self.PRINTED.get(sample.page, printed)[:40])


    @unittest.skipUnless("python" in PROGRAMS, "built without the Python module")
    def test_what_a_sample_writes_is_in_the_file(self):
        sample, = (sample for sample in samples.samples("python") if sample.page == "docs/editing-safely.md")
        self.fill()
        self.assert_runs(["/usr/bin/python3", "-c", sample.code])
        listed = json.loads(self.assert_runs(["corvane", "scan", "--quiet", "song.mp3"]))
        self.assertEqual((listed["title"], listed["comment"]), ("New title", "Made by its build"))


class Others(Samples):
    def test_xml_is_well_formed(self):
        for sample in samples.samples("xml"):
            with self.subTest(sample.place):
                ElementTree.fromstring(f"<sample>{sample.code}</sample>")

    def test_paths_and_tests_that_pages_name_are_there(self):
        tests = " ".join(path.name + path.read_text("utf-8") for path in (ROOT / "tests").rglob("CMakeLists.txt"))
        tests += " ".join(path.name for path in (ROOT / "tests").rglob("*Test.*"))
        for page in samples.PAGES:
            text = " ".join(page.read_text("utf-8").split())
            for path in re.findall(r"`((?:apps|bench|corvane|docs|examples|fuzz|python|tests|tools)/[\w./-]*)`", text):
                if not re.search(r"N(?i:ame)|FOLDER|ID3V2xTag", path):
                    with self.subTest(page=page.name, path=path):
                        self.assertTrue((ROOT / path).exists() or list(ROOT.glob(path + ".*")))
            for name in re.findall(r"`ctest --preset \w+ -R ([\w-]+)`", text):
                with self.subTest(page=page.name, test=name):
                    self.assertIn(name, tests)

    def test_cmake_lines_are_those_that_the_package_test_uses(self):
        consumer = (ROOT / "tests/package/consumer/CMakeLists.txt").read_text("utf-8")
        used = {re.sub(r" \$\{EXPECTED_VERSION\} EXACT", "", line.strip()).replace("consumer", "player")
                for line in consumer.splitlines()}
        for sample in samples.samples("cmake"):
            for line in sample.code.splitlines():
                with self.subTest(sample.place, line=line):
                    self.assertIn(line, used)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

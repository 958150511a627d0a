#!/usr/bin/python3
"""The shared libraries show what packaging/abi/ promises, and tools/abi notices when one does not.

    AbiTest.py [--complete] LIBRARY...
"""
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
TOOL = ROOT / "tools/abi"
LISTS = ROOT / "packaging/abi"
COMPLETE = ["--complete"] if "--complete" in sys.argv else []
LIBRARIES = [Path(word).resolve() for word in sys.argv[1:] if word != "--complete"]
LIBRARY = LIBRARIES[0]
NAME, TABLE = "corvane::FileHandler::writeID3v1xTag()", "vtable for corvane::RuntimeFailure"


def abi(*words):
    return subprocess.run([TOOL, *words], capture_output=True, text=True, check=False)


def listed(path):
    """{name: version that showed it first}."""
    return dict(re.findall(r'^ \(c\+\+\)"(.+)@Base" (\S+)$', path.read_text(encoding="utf-8"), re.MULTILINE))


class Abi(unittest.TestCase):
    """Each test has a copy of the lists to change."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.lists = Path(scratch.name) / "abi"
        shutil.copytree(LISTS, self.lists)
        self.list = self.lists / "libcorvane.symbols"
        self.told = self.list.read_text(encoding="utf-8")

    def rewrite(self, pattern, replacement):
        text, count = re.subn(pattern, replacement, self.told, count=1, flags=re.MULTILINE)
        self.assertEqual(count, 1)
        self.list.write_text(text, encoding="utf-8")

    def assert_fails(self, done, *words):
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        for word in words:
            self.assertIn(word, done.stderr)

    def test_every_promised_name_is_there(self):
        done = abi("check", *COMPLETE, *LIBRARIES)
        self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))

    def test_the_lists_name_what_hosts_call(self):
        self.assertEqual(sorted({NAME, TABLE, "corvane::noSuch()"} & set(listed(self.list))), sorted({NAME, TABLE}))

    def test_a_name_that_is_gone_fails(self):
        self.rewrite("FileHandler::writeID3v1xTag", "FileHandler::writeGone")
        self.assert_fails(abi("--lists", self.lists, "check", LIBRARY), "corvane::FileHandler::writeGone()", "gone")

    def test_a_library_that_hides_a_name_fails(self):
        mangled = subprocess.run(["nm", "--dynamic", "--defined-only", LIBRARY], capture_output=True, text=True, check=True)
        symbol = re.search(r"\S*FileHandler14writeID3v1xTagEv$", mangled.stdout, re.MULTILINE).group().encode()
        changed = self.lists / LIBRARY.name
        changed.write_bytes(LIBRARY.read_bytes().replace(b"\0" + symbol + b"\0", b"\0" + symbol[:-4] + b"XxEv\0"))
        self.assert_fails(abi("check", changed), NAME, "gone")

    def test_an_update_drops_no_name(self):
        self.rewrite("FileHandler::writeID3v1xTag", "FileHandler::writeGone")
        before = self.list.read_text(encoding="utf-8")
        self.assert_fails(abi("--lists", self.lists, "update", LIBRARY), "writeGone", "gone")
        self.assertEqual(self.list.read_text(encoding="utf-8"), before)

    def test_a_private_name_can_be_dropped(self):
        self.rewrite("FileHandler::writeID3v1xTag", "FileHandler::writeGone")
        done = abi("--lists", self.lists, "drop", "corvane::FileHandler::writeGone()", LIBRARY)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(abi("--lists", self.lists, "check", LIBRARY).returncode, 0)

    def test_what_is_not_listed_cannot_be_dropped(self):
        self.assert_fails(abi("--lists", self.lists, "drop", "corvane::noSuch()", LIBRARY), "corvane::noSuch()")

    def test_a_new_name_fails_only_where_the_list_has_to_be_complete(self):
        self.rewrite(rf'^.*"{re.escape(NAME)}.*\n', "")
        self.assertEqual(abi("--lists", self.lists, "check", LIBRARY).returncode, 0)
        done = abi("--lists", self.lists, "check", "--complete", LIBRARY)
        self.assertIn(f"{NAME}: new", done.stderr)
        self.assertEqual(done.returncode, 1)

    def test_an_update_adds_new_names_and_keeps_the_versions_of_old_ones(self):
        self.rewrite(rf'^.*"{re.escape(NAME)}.*\n', "")
        text = re.sub(r'@Base" .*$', '@Base" 0.0.9', self.list.read_text(encoding="utf-8"), flags=re.MULTILINE)
        self.list.write_text(text, encoding="utf-8")
        self.assertEqual(abi("--lists", self.lists, "update", LIBRARY).returncode, 0)
        updated = listed(self.list)
        self.assertNotEqual(updated[NAME], "0.0.9")
        self.assertEqual(updated[TABLE], "0.0.9")

    def test_another_soname_needs_and_gets_a_new_list(self):
        self.rewrite(r"^libcorvane\.so\.\d+ libcorvane\d+", "libcorvane.so.0 libcorvane0")
        self.assert_fails(abi("--lists", self.lists, "check", LIBRARY), "libcorvane.so.0")
        self.assertEqual(abi("--lists", self.lists, "update", LIBRARY).returncode, 0)
        self.assertEqual(self.list.read_text(encoding="utf-8").splitlines()[0], self.told.splitlines()[0])

    def test_the_symbols_of_the_package_are_those_of_the_library(self):
        lines = abi("debian", LIBRARY).stdout.splitlines()
        self.assertEqual(lines[0], self.told.splitlines()[0])
        self.assertTrue(any(re.fullmatch(r" _ZN7corvane11FileHandler14writeID3v1xTagEv@Base \S+", line) for line in lines))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

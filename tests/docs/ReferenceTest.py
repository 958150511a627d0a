#!/usr/bin/python3
"""The API reference builds without a warning, and every public member has a word in it.

    ReferenceTest.py FOLDER
"""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "docs" / "reference" / "build.py"
FILTER = ROOT / "docs" / "reference" / "filter.py"
FOLDER = Path(sys.argv[1])

# Members that take one word each in other systems; here they say what they are measured in, and how they fail.
TOLD = {
    ("corvane::MPEGHeader", "BitRate"): ["kbit/s", "RuntimeFailure"],
    ("corvane::MPEGHeader", "Frequency"): ["Hz", "RuntimeFailure"],
    ("corvane::MPEGHeader", "Duration"): ["seconds", "-1"],
    ("corvane::ID3V1Tag", "Comment"): ["28 in ID3v1.1", "UTF-8"],
    ("corvane::ID3V230", "TotalTracks"): ["overflow"],
    ("corvane::Picture", "width"): ["Pixels"],
    ("corvane::controls::cTextBox", "CanUndo"): ["step"],
}


def text(member):
    parts = (member.find("briefdescription"), member.find("detaileddescription"))
    return " ".join(" ".join("".join(part.itertext()) for part in parts if part is not None).split())


def published(compounds):
    """(compound, member, what is said) of everything that hosts can name."""
    for file in compounds:
        for compound in ElementTree.parse(file).getroot().iter("compounddef"):
            if compound.get("kind") not in ("class", "struct", "namespace") or compound.get("prot") == "private":
                continue
            name = compound.findtext("compoundname")
            for member in compound.iter("memberdef"):
                if member.get("prot") != "private":
                    yield name, member.findtext("name"), text(member)
                    for value in member.iter("enumvalue"):
                        yield name, value.findtext("name"), text(value)


class Reference(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.done = subprocess.run([sys.executable, BUILD, FOLDER], capture_output=True, text=True, check=False)
        subprocess.run([sys.executable, BUILD, FOLDER, "--everything"], check=True)
        cls.members = list(published((FOLDER / "xml").glob("*.xml")))

    def test_it_builds_without_a_warning(self):
        self.assertEqual((self.done.returncode, self.done.stdout + self.done.stderr), (0, ""))

    def test_every_public_member_says_something(self):
        self.assertGreater(len(self.members), 500)
        self.assertEqual([f"{compound}::{name}" for compound, name, said in self.members if not said], [])

    def test_every_class_of_the_umbrella_is_in_it(self):
        listed = subprocess.run([sys.executable, BUILD, FOLDER, "--list"], capture_output=True, text=True, check=True)
        umbrella = (ROOT / "corvane/corvane.h").read_text(encoding="utf-8")
        for header in listed.stdout.split():
            with self.subTest(header):
                self.assertTrue(header in umbrella or header.startswith("corvane/controls/")
                                or header == "corvane/lyrics/LyricsFields.h")

    def test_members_tell_units_ranges_and_failures(self):
        for (compound, name), words in TOLD.items():
            said = " ".join(each for owner, member, each in self.members if (owner, member) == (compound, name))
            for word in words:
                with self.subTest(member=name, word=word):
                    self.assertIn(word, said)


class Filter(unittest.TestCase):
    def filtered(self, header):
        with tempfile.NamedTemporaryFile("w", suffix=".h", encoding="utf-8") as file:
            file.write(header)
            file.flush()
            lines = subprocess.run([sys.executable, FILTER, file.name], capture_output=True, text=True, check=True)
        self.assertEqual(len(lines.stdout.splitlines()), len(header.splitlines()))
        return lines.stdout

    def test_a_comment_is_said_of_all_declarations_up_to_the_next_empty_line(self):
        result = self.filtered("// Seconds.\nint a();\nint b();\n\nint c();\n")
        self.assertIn("/** Seconds. */ int a();", result)
        self.assertIn("/** Seconds. */ int b();", result)
        self.assertIn("\nint c();", result)

    def test_what_stands_in_the_line_comes_first_and_is_shared_with_an_overload(self):
        result = self.filtered("// Of the frame.\nint a(); // TIT2\nvoid a(int value);\nint b();\n")
        self.assertIn("/** TIT2. Of the frame. */ int a();", result)
        self.assertIn("/** TIT2. Of the frame. */ void a(int value);", result)
        self.assertIn("/** Of the frame. */ int b();", result)

    def test_the_opening_comment_is_that_of_the_file_and_of_its_first_class(self):
        result = self.filtered("// A song.\n#pragma once\n\nclass Song {\n};\n\nclass Other {\n};\n")
        self.assertIn("/** @file\nA song. */\n", result)
        self.assertIn("/** A song. */ class Song {", result)
        self.assertIn("\nclass Other {", result)

    def test_quoted_text_stands_as_it_is(self):
        self.assertIn('/** &lt;a&gt; "<b>" &lt;c&gt;. */ int a();', self.filtered('// <a> "<b>" <c>.\nint a();\n'))

    def test_what_doxygen_would_take_for_a_command_is_text(self):
        self.assertIn("/** &lt;a&gt; \\@b \\\\c. */ int a();", self.filtered("// <a> @b \\c.\nint a();\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

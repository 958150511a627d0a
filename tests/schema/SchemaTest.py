#!/usr/bin/python3
"""The schema takes every document that the library makes, and no other.

    SchemaTest.py SCHEMA MAKE_SEEDS MAKE_DOCUMENTS INSTALL_SCRIPT

With CORVANE_CORPUS in the environment the documents of the files in that folder are tested too.
"""
import collections
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

SCHEMA, MAKE_SEEDS, MAKE_DOCUMENTS, INSTALL_SCRIPT = sys.argv[1:5]

# Seeds that are whole files or tags, so that MP3 files may begin with them.
FILES = ["Id3v2Fuzz", "WholeFileFuzz"]
VARIANTS = 12
CLASSES = ["FileHandler", "ID3V1Tag", "ID3V2Tag", "LyricsTag", "LyricsTag-imported", "MPEGHeader"]

RELAX_NG = "{http://relaxng.org/ns/structure/1.0}"

VALID, INVALID = 0, 3  # exit codes of xmllint


def xmllint(*documents, **options):
    return subprocess.run(["xmllint", "--nonet", "--noout", "--huge", "--quiet", "--relaxng", SCHEMA,
                           *map(str, documents)], capture_output=True, text=True, check=False, timeout=100, **options)


def run(*command):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True, check=True, timeout=100).stdout


class Scratch(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory(prefix="corvane-schema-")
        cls.addClassCleanup(scratch.cleanup)
        cls.folder = Path(scratch.name)
        run(MAKE_SEEDS, cls.folder / "seeds")
        cls.seeds = cls.folder / "seeds" / "WholeFileFuzz"


def named_in_schema():
    """(property, ID, value) of each value of the MPEG header that has a name, and each frequency."""
    named = set()
    for element in ElementTree.parse(SCHEMA).find(f"{RELAX_NG}define[@name='mpeg-header']").iter(f"{RELAX_NG}element"):
        name = element.find(f"{RELAX_NG}attribute[@name='Name']/{RELAX_NG}value")
        if name is None:
            continue
        for group in element.iter(f"{RELAX_NG}group"):
            number, value = (value.text or "" for value in group.iter(f"{RELAX_NG}value"))
            named.add((name.text, number, value))
        for choice in element.findall(f"{RELAX_NG}attribute[@name='Value']/{RELAX_NG}choice/{RELAX_NG}value"):
            named.add((name.text, None, choice.text))
    return named


def named_in_documents(documents):
    properties = [each for document in documents for each in document.iter("Property")]
    return {(each.get("Name"), each.get("ID"), each.get("Value")) for each in properties
            if each.get("ID") or each.get("Name") == "Frequency"}


class EveryDocument(Scratch):
    def assert_taken(self, folder):
        documents = sorted(folder.glob("*.xml"))
        done = xmllint(*documents)
        self.assertEqual((done.stderr[:4000], done.returncode), ("", VALID))
        return collections.Counter(re.sub(r"^\d+-", "", document.stem) for document in documents)

    def test_of_files_right_and_wrong_is_taken(self):
        for name in FILES:
            documents = self.folder / (name + "-documents")
            run(MAKE_DOCUMENTS, self.folder / "seeds" / name, documents, VARIANTS)
            counts = self.assert_taken(documents)
            self.assertEqual(sorted(counts), CLASSES)
            self.assertGreater(min(counts.values()), 100, counts)

    def test_of_every_kind_of_audio_is_taken_and_no_name_is_in_vain(self):
        files = self.folder / "audio"
        files.mkdir()
        for number in range(27):
            version, layer, rate = (0, 2, 3)[number // 9], number // 3 % 3 + 1, number % 3
            # ISO/IEC 11172-3 section 2.4.1.3: sync, version, layer, no CRC, bit rate 9, frequency, mode, emphasis.
            header = (0x7FF << 21 | version << 19 | layer << 17 | 1 << 16 | 9 << 12 | rate << 10 | number % 4 << 6
                      | (0, 1, 3)[number // 4 % 3])
            (files / f"{number}.mp3").write_bytes(header.to_bytes(4, "big") + bytes(500))
        (files / "silence.mp3").write_bytes(bytes(500))
        self.assertEqual(named_in_documents(self.documents_of(files)), named_in_schema())

    def documents_of(self, files):
        documents = self.folder / (files.name + "-documents")
        run(MAKE_DOCUMENTS, files, documents)
        self.assert_taken(documents)
        return [ElementTree.parse(document) for document in documents.glob("*-MPEGHeader.xml")]

    @unittest.skipUnless("CORVANE_CORPUS" in os.environ, "no corpus is named")
    def test_of_the_corpus_is_taken(self):
        documents = self.folder / "corpus-documents"
        run(MAKE_DOCUMENTS, os.environ["CORVANE_CORPUS"], documents)
        self.assertGreater(self.assert_taken(documents)["FileHandler"], 10)


class Installed(unittest.TestCase):
    def test_it_is_where_the_page_says(self):
        script = Path(INSTALL_SCRIPT).read_text("utf-8")
        self.assertRegex(script, r'DESTINATION "[^"]*/share/corvane" TYPE FILE FILES "[^"]*/docs/schema/corvane\.rng"')


# What a change makes wrong: a name, the text that is replaced, and by what.
WRONG = [
    ("AnotherRoot", "ImportData", "Import"),
    ("AnotherNamespace", "<ImportData>", "<ImportData xmlns='https://example.org'>"),
    ("AnAttributeOfTheRoot", "<ImportData>", "<ImportData version='1'>"),
    ("TextBetweenElements", "<Files>", "<Files>text"),
    ("TwoFiles", "</File></Files>", "</File><File/></Files>"),
    ("NoDrive", r"<Drive>.*</Drive>", ""),
    ("NoLyricsTag", r"<LyricsTag>.*</LyricsTag>", ""),
    ("TagsInAnotherOrder", r"(<ID3V1Tag>.*</ID3V1Tag>)(<ID3V2Tag>.*</ID3V2Tag>)", r"\2\1"),
    ("PropertiesInAnotherOrder", r'(<Property Name="Album"[^>]*>)(<Property Name="Year"[^>]*>)', r"\2\1"),
    ("PropertyMissing", r'<Property Name="BitRate"[^>]*>', ""),
    ("PropertyTwice", r'(<Property Name="BitRate"[^>]*>)', r"\1\1"),
    ("PropertyOfAnotherName", 'Name="BitRate"', 'Name="Bitrate"'),
    ("PropertyWithoutName", ' Name="BitRate"', ""),
    ("PropertyWithoutValue", r'(Name="BitRate") Value="[^"]*"', r"\1"),
    ("PropertyOutsideProperties", "</Properties></MPEGHeader>", "</Properties><Property/></MPEGHeader>"),
    ("AnotherAttribute", 'Name="BitRate"', 'Name="BitRate" Unit="kbit/s"'),
    ("IdWhereNoneBelongs", 'Name="BitRate"', 'Name="BitRate" ID="0"'),
    ("NoIdWhereOneBelongs", r'(Name="Layer") ID="[^"]*"', r"\1"),
    ("EmptyId", r'(Name="Genre") ID="[^"]*"', r'\1 ID=""'),
    ("NameThatIsNotThatOfTheId", r'(Name="Layer") ID="[^"]*" Value="[^"]*"', r'\1 ID="1" Value="1"'),
    ("BooleanInWords", r'(Name="VBR") Value="[^"]*"', r'\1 Value="True"'),
    ("BooleanMinusOne", r'(Name="CRC") Value="[^"]*"', r'\1 Value="-1"'),
    ("NumberWithAUnit", r'(Name="Duration") Value="[^"]*"', r'\1 Value="4 s"'),
    ("NumberBelowMinusOne", r'(Name="Duration") Value="[^"]*"', r'\1 Value="-2"'),
    ("NumberThatNeedsMoreBits", r'(Name="AudioSize") Value="[^"]*"', r'\1 Value="2147483648"'),
    ("FrequencyOfNoTable", r'(Name="Frequency") Value="[^"]*"', r'\1 Value="11025"'),
    ("GenreAbove255", r'(Name="Genre") ID="[^"]*"', r'\1 ID="256"'),
    ("TrackThatIsNoNumber", r'(<ID3V1Tag>.*Name="Track") Value="[^"]*"', r'\1 Value="5/7"'),
    ("VersionOfTheTagInShort", r'(<ID3V2Tag>.*Name="Version") Value="[^"]*"', r'\1 Value="2.3"'),
    ("DateInAnotherForm", r'(Name="DateLastModified") Value="[^"]*"', r'\1 Value="2026-11-21T15:00:00"'),
    ("DateOfNoCalendar", r'(Name="DateLastModified") Value="[^"]*"', r'\1 Value="21/13/2026 15:00:00"'),
    ("NoBase64", r'(Name="Picture"><Value>)[^<]*', r"\1not bytes!"),
    ("ValueTwice", r'Name="Picture">', 'Name="Picture" Value="">'),
    ("BytesInTheRecord", r'(<Property Name="Comment") Value="[^"]*"/>(</Properties></ID3V1Tag>)',
     r"\1><Value>AAAA</Value></Property>\2"),
    ("NameOfAFrameTooShort", 'Name="USLT"', 'Name="U"'),
]


class WrongDocuments(Scratch):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        run(MAKE_DOCUMENTS, cls.seeds, cls.folder / "documents")
        documents = (path.read_text("latin-1") for path in sorted((cls.folder / "documents").glob("*-FileHandler.xml")))
        cls.document = next(text for text in documents if "USLT" in text and "<Value>" in text and 'ID="17"' in text)

    def test_are_refused_each_for_its_reason(self):
        self.assertEqual(xmllint("-", input=self.document).returncode, VALID)
        for name, right, wrong in WRONG:
            with self.subTest(name):
                document, count = re.subn(right, wrong, self.document, flags=re.DOTALL)
                self.assertGreater(count, 0)
                done = xmllint("-", input=document)
                self.assertEqual(done.returncode, INVALID, done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

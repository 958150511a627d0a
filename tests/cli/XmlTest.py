#!/usr/bin/python3
"""corvane xml: the document of a file as ISO-8859-1."""
import os
import stat
import subprocess
import sys
import unittest
import xml.etree.ElementTree

import mp3
from harness import CliTest, hash_of


def property_of(document, element, name):
    """The value of a property, as expat reads it."""
    root = xml.etree.ElementTree.fromstring(document)
    return root.find(f".//{element}/Properties/Property[@Name='{name}']").get("Value")


class Xml(CliTest):
    def document(self, *words):
        done = self.run_command("xml", *words)
        self.assertEqual(done.stderr, b"")
        return done.stdout

    def test_document_is_that_of_the_file(self):
        song = self.write("a.mp3", mp3.audio() + mp3.id3v1(title=b"Title", track=7, genre=17))
        document = self.document(song)
        self.assertTrue(document.startswith(b"<?xml version = '1.0' encoding = 'iso-8859-1'?><!--FileHandler--><ImportData>"))
        self.assertEqual(property_of(document, "ID3V1Tag", "Title"), "Title")
        self.assertEqual(property_of(document, "ID3V1Tag", "Track"), "7")
        self.assertEqual(property_of(document, "MPEGHeader", "BitRate"), "128")

    def test_bytes_are_iso_8859_1_and_any_parser_reads_the_same_text(self):
        # é and ÿ stand as bytes; the euro sign and the dash have none in ISO-8859-1.
        song = self.write("a.mp3", mp3.audio() + mp3.id3v1(title=b"caf\xe9 \xff", artist=b"\x80 \x96", comment=b"<&\">'"))
        document = self.document(song)
        self.assertIn(b"caf\xe9 \xff", document)
        self.assertIn(b"&#8364; &#8211;", document)
        self.assertEqual(property_of(document, "ID3V1Tag", "Title"), "café ÿ")
        self.assertEqual(property_of(document, "ID3V1Tag", "Artist"), "€ –")
        self.assertEqual(property_of(document, "ID3V1Tag", "Comment"), "<&\">'")
        again = subprocess.run(["xmllint", "--encode", "utf-8", "-"], input=document, capture_output=True, check=True)
        self.assertIn("café ÿ", again.stdout.decode("utf-8"))
        self.assertIn("€ –", again.stdout.decode("utf-8"))

    def test_text_of_other_scripts_is_read_back(self):
        song = self.write("a.mp3", mp3.id3v2([mp3.frame23("TIT2", mp3.utf16("日本語 🎵"))]) + mp3.audio())
        self.assertEqual(property_of(self.document(song), "ID3V2Tag", "Title"), "日本語 🎵")

    def test_document_is_well_formed_for_every_byte_of_a_tag(self):
        for first in range(0, 256, 30):
            song = self.write("a.mp3", mp3.audio() + mp3.id3v1(artist=bytes(range(first, min(first + 30, 256)))))
            self.assertIsNotNone(property_of(self.document(song), "ID3V1Tag", "Artist"))

    def test_nothing_is_written_for_a_file_that_cannot_be_opened(self):
        self.assertEqual(self.error("xml", "missing.mp3"), "corvane: missing.mp3: No such file or directory")

    def test_file_is_not_touched(self):
        song = self.write("a.mp3", mp3.audio() + mp3.id3v1())
        before = hash_of(song), os.stat(song).st_mtime_ns
        self.document(song)
        self.assertEqual((hash_of(song), os.stat(song).st_mtime_ns), before)


class XmlOutput(CliTest):
    def setUp(self):
        super().setUp()
        self.song = self.write("a.mp3", mp3.audio() + mp3.id3v1(title=b"T"))
        self.target = str(self.folder / "a.xml")

    def check_written(self, *words):
        before = self.folder.stat().st_mtime_ns
        self.assertEqual(self.output("xml", *words), "")
        self.assertNotEqual(self.folder.stat().st_mtime_ns, before)
        with open(self.target, "rb") as file:
            self.assertEqual(property_of(file.read(), "ID3V1Tag", "Title"), "T")

    def test_document_goes_to_a_file(self):
        for words in ([self.song, "--output", self.target], [f"--output={self.target}", self.song], [self.song, "-o", self.target]):
            self.check_written(*words)
        self.assertEqual(self.names(), ["a.mp3", "a.xml"])

    def test_new_file_has_the_permissions_that_the_user_wants(self):
        self.check_written(self.song, "--output", self.target)
        mask = os.umask(0)
        os.umask(mask)
        self.assertEqual(stat.S_IMODE(os.stat(self.target).st_mode), 0o666 & ~mask)

    def test_file_that_is_replaced_keeps_its_permissions(self):
        self.write("a.xml", b"old")
        os.chmod(self.target, 0o600)
        self.check_written(self.song, "--output", self.target)
        self.assertEqual(stat.S_IMODE(os.stat(self.target).st_mode), 0o600)

    def test_link_is_kept_and_its_target_replaced(self):
        os.mkdir(self.folder / "other")
        real = self.write("other/real.xml", b"old")
        os.symlink(real, self.target)
        self.output("xml", self.song, "-o", self.target)
        self.assertTrue(os.path.islink(self.target))
        with open(real, "rb") as file:
            self.assertEqual(property_of(file.read(), "ID3V1Tag", "Title"), "T")

    def test_failure_leaves_what_was_there(self):
        self.write("a.xml", b"old")
        self.error("xml", "missing.mp3", "--output", self.target)
        self.error("xml", self.song, "--output", str(self.folder / "missing" / "a.xml"))
        with open(self.target, "rb") as file:
            self.assertEqual(file.read(), b"old")
        self.assertEqual(self.names(), ["a.mp3", "a.xml"])

    def test_file_that_is_read_is_never_replaced(self):
        before = hash_of(self.song)
        os.link(self.song, self.folder / "link.mp3")
        os.symlink(self.song, self.folder / "symlink.mp3")
        for target in ("a.mp3", "link.mp3", "symlink.mp3"):
            target = str(self.folder / target)
            self.assertEqual(self.error("xml", self.song, "-o", target), f"corvane: {target}: This is the file that is read")
        self.assertEqual(hash_of(self.song), before)

    def test_device_is_written_to(self):
        self.assertEqual(self.output("xml", self.song, "-o", "/dev/null"), "")
        self.assertEqual(self.error("xml", self.song, "-o", "/dev/full"), "corvane: /dev/full: No space left on device")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

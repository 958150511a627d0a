#!/usr/bin/python3
"""A Lyrics3 tag between the audio and an ID3v1 record is read, and survives what Corvane and its peers do around it.

None of the peers writes Lyrics3, so the tag is built here as its description (id3.org) says.
"""
import hashlib
import unittest

from mutagen.id3 import ID3, TIT2
from mutagen.mp3 import MP3

import audio
from support import RECORD_SIZE, Document, InteropCase, corvane, digest_without_record, scan, taglib, taglib_writes

LYRICS = "[00:01]Première ligne\r\n[00:02]Straße, ¡olé!\r\n"


def lyrics3v2(**fields):
    body = b"LYRICSBEGIN" + b"".join(name.encode() + b"%05d" % len(text) + text.encode("cp1252")
                                     for name, text in fields.items())
    return body + b"%06d" % len(body) + b"LYRICS200"


def lyrics3v1(text):
    return b"LYRICSBEGIN" + text.encode("cp1252") + b"LYRICSEND"


class Lyrics3Case(InteropCase):
    FIELDS = {"IND": "110", "LYR": LYRICS, "EAL": "An album whose name is longer than 30 characters",
              "EAR": "Ein Künstler", "ETT": "Ein Titel", "AUT": "Eine Autorin"}
    VALUES = {"Version": "2", "IND": "110", "Lyrics": LYRICS, "Album": FIELDS["EAL"], "Artist": FIELDS["EAR"],
              "Title": FIELDS["ETT"], "Author": FIELDS["AUT"]}

    def setUp(self):
        super().setUp()
        self.data = audio.plain() + lyrics3v2(**self.FIELDS)
        self.path = self.file(self.data)

    def assert_lyrics(self):
        document = Document(self.path)
        self.assertEqual(document.values("LyricsTag"), self.VALUES)
        return document


class BesideRecords(Lyrics3Case):
    def test_the_tag_is_read_at_the_end_of_a_file(self):
        self.assert_lyrics()
        self.assertEqual(scan(self.path)[0]["tags"], ["Lyrics3v2"])

    def test_the_tag_is_read_before_a_record_of_taglib(self):
        taglib_writes(self.path, {"Title": "Title"}, track=7)
        self.assertEqual(self.path.read_bytes()[:-RECORD_SIZE], self.data)
        self.assertEqual(self.assert_lyrics().values("ID3V1Tag")["Title"], "Title")
        self.assertEqual(scan(self.path)[0]["tags"], ["Lyrics3v2", "ID3v1.1"])

    def test_the_tag_is_read_before_our_record_and_taglib_reads_the_record(self):
        corvane("set", self.path, "--tag", "v1", "--quiet", "--title", "Title", "--track", "7")
        self.assertEqual(self.path.read_bytes()[:-RECORD_SIZE], self.data)
        self.assertEqual(taglib(self.path)["id3v1"]["title"], "Title")
        self.assert_lyrics()

    def test_the_tag_stays_when_a_peers_record_is_removed(self):
        taglib_writes(self.path, {"Title": "Title"}, track=7)
        corvane("remove", self.path, "--tag", "v1", "--quiet")
        self.assertEqual(self.path.read_bytes(), self.data)
        self.assert_lyrics()

    def test_the_tag_stays_when_mutagen_saves_and_removes_its_tags_around_it(self):
        corvane("set", self.path, "--tag", "v1", "--quiet", "--title", "Title", "--track", "7")
        expected = digest_without_record(self.path)
        tags = ID3()
        tags.add(TIT2(text="Other"))
        tags.save(self.path, v1=2)
        self.assertEqual(self.assert_lyrics().values("ID3V1Tag")["Title"], "Other")
        ID3(self.path).delete(self.path, delete_v1=False)
        self.assertEqual(digest_without_record(self.path), expected)
        self.assert_lyrics()

    def test_peers_hear_the_same_audio_with_and_without_the_tag(self):
        plain = self.file(audio.plain(), "plain.mp3")
        self.assertEqual(MP3(self.path).info.length, MP3(plain).info.length)
        document, without = Document(self.path), Document(plain)
        self.assertEqual(document.values("MPEGHeader")["BitRate"], without.values("MPEGHeader")["BitRate"])
        audio_bytes = self.path.read_bytes()[:len(audio.plain())]
        self.assertEqual(hashlib.sha256(audio_bytes).digest(), hashlib.sha256(plain.read_bytes()).digest())


class Version100(Lyrics3Case):
    def test_lyrics_are_recognised_before_a_peers_record(self):
        self.path.write_bytes(audio.plain() + lyrics3v1(LYRICS))
        taglib_writes(self.path, {"Title": "Title"}, track=7)
        document = Document(self.path)
        self.assertEqual(document.properties("LyricsTag"), [("Version", "1", None)])
        self.assertEqual(document.values("ID3V1Tag")["Title"], "Title")
        self.assertEqual(scan(self.path)[0]["tags"], ["Lyrics3v1", "ID3v1.1"])

    def test_a_file_shorter_than_its_5100_bytes_of_lyrics_is_read_as_ever_on_purpose(self):
        # The body of a version 1.00 tag is always 5100 bytes long; a short file has fewer, its record reads all the
        # same.
        self.path.write_bytes(audio.plain()[:1000] + lyrics3v1(LYRICS))
        taglib_writes(self.path, {"Title": "Title"}, track=7)
        self.assertEqual(Document(self.path).values("ID3V1Tag")["Title"], "Title")


if __name__ == "__main__":
    unittest.main()

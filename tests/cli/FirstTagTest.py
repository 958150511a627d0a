#!/usr/bin/python3
"""What is no MPEG audio gets no first tag, unless that is asked for."""
import json
import unittest

import mp3
from harness import FILE_FAILED, CliTest, hash_of

AUDIO = mp3.audio()
JPEG = b"\xff\xd8\xff\xe0\x00\x10JFIF\x00" + bytes(range(256)) * 20
WAV = b"RIFF\x24\x10\x00\x00WAVEfmt \x1e\x00\x00\x00\x55\x00" + AUDIO  # MPEG layer 3 in a WAV file
DOCUMENT = (b'<ID3V1Tag><Properties><Property Name="Title" Value="T"/><Property Name="Artist" Value=""/>'
            b'<Property Name="Album" Value=""/><Property Name="Year" Value=""/><Property Name="Comment" Value=""/>'
            b'<Property Name="Genre" ID="17" Value="?"/><Property Name="Track" Value="7"/></Properties></ID3V1Tag>')

# Beginnings of files, and what the command calls them.
OTHER_FORMATS = {
    "cover.jpg": (JPEG, "This is a JPEG image, not an MPEG audio file"),
    "song.ogg": (b"OggS\x00\x02" + bytes(100) + AUDIO, "This is an Ogg file, not an MPEG audio file"),
    "song.m4a": (b"\x00\x00\x00\x20ftypM4A " + bytes(100), "This is an MP4 file, not an MPEG audio file"),
    "song.flac": (b"fLaC\x00\x00\x00\x22" + bytes(100), "This is a FLAC file, not an MPEG audio file"),
    "song.wav": (WAV, "This is a WAV file, not an MPEG audio file"),
    "note.txt": (b"A note about a song.\n", "This is a text file, not an MPEG audio file"),
    "empty.mp3": (b"", "The file is empty"),
    "zeros.mp3": (bytes(5000), "The file holds no MPEG audio frame"),
}


class FirstTag(CliTest):
    def content(self, path):
        with open(path, "rb") as file:
            return file.read()

    def check_refused(self, path, reason, *words):
        before = hash_of(path)
        self.assertEqual(self.error(*words), f"corvane: {path}: {reason}; --force gives it a tag all the same")
        self.assertEqual(hash_of(path), before)

    def test_set_gives_other_formats_no_first_tag(self):
        for name, (content, reason) in OTHER_FORMATS.items():
            path = self.write(name, content)
            for words in ([], ["--tag", "v1"], ["--tag", "v2"], ["--tag", "both"], ["--dry-run"]):
                with self.subTest(name=name, words=words):
                    self.check_refused(path, reason, "set", path, "--title", "X", *words)

    def test_import_gives_other_formats_no_first_tag(self):
        document = self.write("document.xml", DOCUMENT)
        for name, (content, reason) in OTHER_FORMATS.items():
            path = self.write(name, content)
            with self.subTest(name=name):
                self.check_refused(path, reason, "import", path, document)

    def test_force_gives_the_tag_all_the_same(self):
        path = self.write("cover.jpg", JPEG)
        self.run_command("set", path, "--title", "X", "--tag", "v1", "--force")
        self.assertEqual(self.content(path), JPEG + mp3.id3v1(b"X", track=0))
        path = self.write("cover.jpg", JPEG)
        self.run_command("set", path, "--title", "X", "--tag", "v2", "--force")
        self.assertTrue(self.content(path).startswith(b"ID3") and self.content(path).endswith(JPEG))
        path = self.write("cover.jpg", JPEG)
        self.run_command("import", path, self.write("document.xml", DOCUMENT), "--force")
        self.assertEqual(self.content(path), JPEG + mp3.id3v1(b"T", track=7, genre=17))

    def test_tag_that_is_there_is_changed_whatever_the_rest_is(self):
        path = self.write("cover.jpg", JPEG + mp3.id3v1(b"Old", track=1))
        self.run_command("set", path, "--title", "New")
        self.assertEqual(self.content(path), JPEG + mp3.id3v1(b"New", track=1))

    def test_tag_of_the_other_kind_is_a_first_tag_too(self):
        path = self.write("cover.jpg", JPEG + mp3.id3v1(b"Old", track=1))
        self.check_refused(path, "This is a JPEG image, not an MPEG audio file", "set", path, "--tag", "both", "--title", "X")
        tagged = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("Old"))])
        path = self.write("tagged.flac", tagged + b"fLaC" + bytes(200))
        self.check_refused(path, "This is a FLAC file, not an MPEG audio file", "set", path, "--tag", "v1", "--title", "X")

    def test_file_that_is_nothing_but_a_record_gets_no_second_one(self):
        path = self.write("record.mp3", mp3.id3v1(b"Old", track=1))
        self.check_refused(path, "The file holds no MPEG audio frame", "set", path, "--title", "New")

    def test_failure_is_reported_in_json(self):
        path = self.write("cover.jpg", JPEG)
        done = self.run_command("set", path, "--title", "X", "--json", code=FILE_FAILED)
        report = json.loads(done.stdout)
        self.assertEqual((report["ok"], report["error"]),
                         (False, "This is a JPEG image, not an MPEG audio file; --force gives it a tag all the same"))

    def test_other_files_of_the_run_are_changed(self):
        cover, song = self.write("cover.jpg", JPEG), self.write("song.mp3", AUDIO)
        self.run_command("set", cover, song, "--title", "X", "--tag", "v1", code=FILE_FAILED)
        self.assertEqual(self.content(cover), JPEG)
        self.assertEqual(self.content(song), AUDIO + mp3.id3v1(b"X", track=0))

    def test_audio_that_the_search_of_the_technical_data_refuses_gets_its_tag(self):
        frame = bytes.fromhex("fffbe004")  # MPEG 1 Layer III, 320 kbit/s, 44100 Hz
        stream = (frame + bytes(1044 - 4)) * 5
        for name, junk in (("at-the-start", b""), ("after-zeros", bytes(40000)), ("after-junk", b"\x9c" * 20000)):
            path = self.write(name, junk + stream)
            self.run_command("set", path, "--title", "X", "--tag", "v1")
            self.assertEqual(self.content(path), junk + stream + mp3.id3v1(b"X", track=0))


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/python3
"""Independent readers find everything in the sample file that is said to be in it.

    TourTest.py SAMPLE_FILE PICTURE COMMAND
"""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import zlib

from mutagen.id3 import ID3
from mutagen.mp3 import MP3

SAMPLE, PICTURE, COMMAND = sys.argv[1:4]


class Tour(unittest.TestCase):
    def test_mutagen_reads_the_tag_in_front(self):
        tag = ID3(SAMPLE)
        self.assertEqual(tag.version, (2, 3, 0))
        texts = {frame: str(tag[frame]) for frame in ("TIT2", "TPE1", "TALB", "TRCK", "TCOM")}
        self.assertEqual(texts, {"TIT2": "A Chord to Look Around In", "TPE1": "The Corvane Tone Generator",
                                 "TALB": "Guided Tours", "TRCK": "3/7", "TCOM": "C. E. G. Major"})
        self.assertEqual(tag["TCON"].genres, ["Classical"])
        self.assertEqual(str(tag.getall("COMM")[0]), "Everything in this file was made by its build.")
        self.assertTrue(tag.getall("USLT")[0].text.startswith("One tag stands in front,"))
        self.assertEqual(tag.getall("WXXX")[0].url, "https://example.org/corvane")

    def test_the_picture_is_a_whole_png(self):
        picture = ID3(SAMPLE).getall("APIC")[0]
        self.assertEqual((picture.mime, picture.type, picture.data[:8]), ("image/png", 3, b"\x89PNG\r\n\x1a\n"))
        start = picture.data.index(b"IDAT") + 4
        length = int.from_bytes(picture.data[start - 8:start - 4], "big")
        self.assertEqual(len(zlib.decompress(picture.data[start:start + length])), 48 * (1 + 48))

    def test_the_records_at_the_end_follow_each_other(self):
        with open(SAMPLE, "rb") as file:
            end = file.read()[-(128 + 15):]
        self.assertRegex(end[:15], rb"^\d{6}LYRICS200$")
        self.assertTrue(end[15:].startswith(b"TAGA Chord to Look Around In\0"))
        self.assertEqual(end[-3:], bytes([0, 3, 32]))

    def test_the_audio_is_found_and_plays_four_seconds(self):
        self.assertAlmostEqual(MP3(SAMPLE).info.length, 4, delta=0.2)
        answer = subprocess.run(["ffprobe", "-v", "error", "-of", "json", "-show_format", "-show_streams", SAMPLE],
                                capture_output=True, check=True).stdout
        audio = json.loads(answer)["streams"][0]
        self.assertEqual((audio["codec_name"], audio["sample_rate"], audio["channels"]), ("mp3", "44100", 2))


class Changed(unittest.TestCase):
    """A copy of the sample file that was given another title and another picture."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="corvane-tour-")
        self.addCleanup(scratch.cleanup)
        self.copy = os.path.join(scratch.name, "changed.mp3")
        shutil.copyfile(SAMPLE, self.copy)
        subprocess.run([COMMAND, "set", self.copy, "--title", "Changed", "--picture", PICTURE], check=True, capture_output=True)

    def test_mutagen_reads_what_was_changed_and_what_was_not(self):
        before, after = ID3(SAMPLE, translate=False), ID3(self.copy, translate=False)
        self.assertEqual((after.version, str(after["TIT2"])), ((2, 3, 0), "Changed"))
        with open(PICTURE, "rb") as picture:
            self.assertEqual(after.getall("APIC")[0].data, picture.read())
        self.assertEqual([frame for frame in before if before[frame] != after.get(frame)], ["TIT2", "APIC:"])
        self.assertEqual(len(before), len(after))

    def test_ffprobe_reads_the_title_and_the_size_of_the_picture(self):
        answer = subprocess.run(["ffprobe", "-v", "error", "-of", "json", "-show_format", "-show_streams", self.copy],
                                capture_output=True, check=True)
        self.assertEqual(answer.stderr, b"")
        read = json.loads(answer.stdout)
        self.assertEqual(read["format"]["tags"]["title"], "Changed")
        picture = read["streams"][1]
        self.assertEqual((picture["codec_name"], picture["width"], picture["height"]), ("png", 96, 96))

    def test_what_stands_between_the_tags_is_untouched(self):
        def sound_of(path):
            with open(path, "rb") as file:
                content = file.read()
            return content[ID3(path).size:-128]
        self.assertEqual(sound_of(self.copy), sound_of(SAMPLE))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

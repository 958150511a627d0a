#!/usr/bin/python3
"""Independent readers find everything in the sample file that is said to be in it.

    TourTest.py SAMPLE_FILE
"""
import json
import subprocess
import sys
import unittest
import zlib

from mutagen.id3 import ID3
from mutagen.mp3 import MP3

SAMPLE = sys.argv[1]


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


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

#!/usr/bin/python3
"""corvane scan and corvane show read the same values out of a file, damaged tags included."""
import json
import re
import struct
import unittest

import mp3
from harness import CliTest

FACTS = {"title": "Title", "artist": "Artist", "album": "Album", "year": "1999", "track": "3/12", "genre": "Rock",
         "comment": "Comment"}
FRAMES = {"title": ("TIT2", "TT2"), "artist": ("TPE1", "TP1"), "album": ("TALB", "TAL"), "year": ("TYER", "TYE"),
          "track": ("TRCK", "TRK"), "genre": ("TCON", "TCO"), "comment": ("COMM", "COM")}


def facts(frame, short=False):
    """A frame for each fact."""
    payloads = {fact: mp3.latin1(text) for fact, text in FACTS.items()}
    payloads["comment"] = b"\0eng\0" + FACTS["comment"].encode()
    payloads["genre"] = mp3.latin1("(17)")
    return [frame(FRAMES[fact][short], payload) for fact, payload in payloads.items()]


def runs_over(name="TCOM"):
    return name.encode() + struct.pack(">IH", 50000, 0) + b"x"


def with_flags(tag, flags):
    return tag[:5] + bytes([flags]) + tag[6:]


def with_size(tag, size):
    return tag[:6] + mp3.synchsafe(size) + tag[10:]


WHOLE = mp3.id3v2(facts(mp3.frame23))
COMPRESSED = b"TCOM" + struct.pack(">IH", 14, 0x0080) + struct.pack(">I", 100) + b"not zlib's"

# Tags of version 2.3 that the readers refuse as a whole although whole frames are in them.
DAMAGED = {
    "a frame runs past the end": mp3.id3v2(facts(mp3.frame23) + [runs_over()]),
    "the tag is larger than the file": with_size(WHOLE, 1_000_000),
    "the header has a reserved flag": with_flags(WHOLE, 0x02),
    "a frame cannot be inflated": mp3.id3v2(facts(mp3.frame23) + [COMPRESSED]),
    "the padding is shorter than a frame header": mp3.id3v2(facts(mp3.frame23), padding=5),
    "the extended header is announced by the experimental flag": with_flags(WHOLE, 0x20),
}
# Other tags: whatever the one reads, the other one does.
OTHERS = {
    "whole": WHOLE,
    "version 2.2": mp3.id3v2(facts(mp3.frame22, short=True), major=2),
    "version 2.2, a frame runs past the end": mp3.id3v2(facts(mp3.frame22, short=True) + [b"TCM\x00\xff\xffx"], major=2),
    "version 2.4": mp3.id3v2(facts(mp3.frame24), major=4),
    "version 2.4, a frame runs past the end": mp3.id3v2(facts(mp3.frame24) + [b"TCOM\x00\x7f\x7f\x7f\x00\x00x"], major=4),
    "an unknown version": mp3.id3v2(facts(mp3.frame24), major=5),
    "damage before the first frame": mp3.id3v2([runs_over()] + facts(mp3.frame23)),
    "damage between the frames": mp3.id3v2(facts(mp3.frame23)[:3] + [runs_over()] + facts(mp3.frame23)[3:]),
    "an encrypted frame": mp3.id3v2([b"TIT2" + struct.pack(">IH", 4, 0x0040) + b"\x01abc", runs_over()]),
}


class OneReading(CliTest):
    def scanned(self, path):
        line = json.loads(self.output("scan", path))
        return {fact: line[fact] for fact in FACTS}

    def shown(self, path):
        values = dict.fromkeys(FACTS, "")
        for line in self.output("show", path).splitlines():
            columns = re.split(" {2,}", line.strip())
            for fact, names in FRAMES.items():
                is_text = len(columns) == 3 and not columns[2].endswith(", encrypted")
                if columns[0] in names and is_text:
                    values[fact] = columns[2]
        return values

    def test_frames_before_damage_are_scanned_and_shown(self):
        for damage, tag in DAMAGED.items():
            path = self.write("a.mp3", tag + mp3.audio())
            with self.subTest(damage=damage):
                self.assertEqual(self.shown(path), FACTS)
                self.assertEqual(self.scanned(path), FACTS)

    def test_scan_says_what_show_says(self):
        for kind, tag in OTHERS.items():
            path = self.write("a.mp3", tag + mp3.audio())
            with self.subTest(kind=kind):
                self.assertEqual(self.scanned(path), self.shown(path))

    def test_values_of_a_damaged_tag_come_before_those_of_the_record(self):
        tag = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("New")), runs_over()])
        path = self.write("a.mp3", tag + mp3.audio() + mp3.id3v1(b"Old", b"Artist"))
        scanned = self.scanned(path)
        self.assertEqual((scanned["title"], scanned["artist"]), ("New", "Artist"))


if __name__ == "__main__":
    unittest.main()

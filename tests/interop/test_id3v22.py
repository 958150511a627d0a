#!/usr/bin/python3
"""ID3v2.2 tags, which no encoder writes any more, are read in Corvane as mutagen and TagLib read them.

A test named "..._on_purpose" expects Corvane's value where it departs from the format for the sake of what its hosts
have stored, and shows the peer's beside it.
"""
import base64
import unittest

from mutagen.id3 import ID3
from mutagen.id3._util import BitPaddedInt, unsynch

import audio
import pictures
from support import Document, InteropCase, scan, taglib

LATIN_1, UTF_16 = b"\0", b"\1"  # encoding bytes
TEXTS = {"TT2": ("Title", "Größe"), "TP1": ("Artist", "Band"), "TAL": ("Album", "Disc"), "TYE": ("Year", "2004"),
         "TCO": ("Genre", "(17)Rock"), "TRK": ("TRK", "7/12"), "TCM": ("TCM", "Composer")}
# mutagen calls frames by the names that they have had since ID3v2.3.
NAMES = {"TT2": "TIT2", "TP1": "TPE1", "TAL": "TALB", "TYE": "TYER", "TCO": "TCON", "TRK": "TRCK", "TCM": "TCOM"}


def tag_bytes(frames, padding=100, unsynchronised=False):
    body = b"".join(name.encode("ascii") + len(payload).to_bytes(3, "big") + payload
                    for name, payload in frames.items()) + bytes(padding)
    if unsynchronised:
        body = unsynch.encode(body)
    return b"ID3\2\0" + (b"\x80" if unsynchronised else b"\0") + BitPaddedInt.to_str(len(body), width=4) + body


class Version22(InteropCase):
    def read(self, tag):
        """The document of a file with the tag, and what mutagen reads."""
        self.path = self.file(tag + audio.plain())
        return Document(self.path), ID3(self.path, translate=False)

    def test_texts_in_latin_1_and_utf_16(self):
        for encoding, codec in [(LATIN_1, "latin-1"), (UTF_16, "utf-16")]:
            with self.subTest(codec=codec):
                document, peer = self.read(tag_bytes({frame: encoding + text.encode(codec)
                                                      for frame, (_, text) in TEXTS.items()}))
                self.assertEqual({frame: str(peer[NAMES[frame]].text[0]) for frame in TEXTS},
                                 {frame: text for frame, (_, text) in TEXTS.items()})
                self.assert_values(document, "ID3V2Tag", dict(TEXTS.values()) | {"Version": "2.2.0"})

    def test_the_list_shows_what_taglib_reads(self):
        self.read(tag_bytes({frame: UTF_16 + text.encode("utf-16") for frame, (_, text) in TEXTS.items()}))
        listed, peer = scan(self.path)[0], taglib(self.path)["id3v2"]
        self.assertEqual({name: listed[name] for name in ["title", "artist", "album"]},
                         {name: peer[name] for name in ["title", "artist", "album"]})
        self.assertEqual((listed["year"], listed["track"], listed["tags"]), ("2004", "7/12", ["ID3v2.2.0"]))

    def test_comments_and_pictures_are_their_bytes_in_base64(self):
        frames = {"COM": LATIN_1 + b"eng\0naive", "PIC": LATIN_1 + b"PNG\3\0" + pictures.png()}
        document, peer = self.read(tag_bytes(frames))
        self.assertEqual(peer.getall("APIC")[0].data, pictures.png())
        self.assertEqual({name: base64.b64decode(value) for name, value in document.values("ID3V2Tag").items()
                          if name in frames}, frames)

    def test_an_unsynchronised_tag_reads_as_it_was_before(self):
        frames = {"TT2": UTF_16 + "ÿþ\uffff".encode("utf-16"), "TP1": LATIN_1 + b"\xff\xe0 \xff"}
        document, peer = self.read(tag_bytes(frames, unsynchronised=True))
        self.assertEqual((str(peer["TIT2"]), str(peer["TPE1"])), ("ÿþ\uffff", "ÿà ÿ"))
        self.assert_values(document, "ID3V2Tag", {"Title": "ÿþ\ufffd", "Artist": "ÿà ÿ"})

    def test_a_text_in_another_encoding_is_empty_on_purpose(self):
        # The format has the encodings 0 and 1; mutagen reads the others as well.
        document, peer = self.read(tag_bytes({"TT2": b"\3Title", "TP1": LATIN_1 + b"Band"}))
        self.assertEqual(str(peer["TIT2"]), "Title")
        self.assert_values(document, "ID3V2Tag", {"Title": "", "Artist": "Band"})


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/python3
"""ID3v2.4 tags of mutagen and ffmpeg read right in Corvane, but for its own rules.

A test named "..._on_purpose" expects Corvane's value where it departs from the format for the sake of what its hosts
have stored, and shows the peer's beside it. The list that `corvane scan` makes is for people and decodes every text.
"""
import base64
import struct
import unittest

from mutagen.id3 import APIC, COMM, ID3, PRIV, TALB, TCON, TDRC, TIT2, TPE1, TRCK, TXXX, USLT

import audio
import pictures
from support import Document, ffprobe, scan, taglib
from tags import TagCase, behind_zero, closed, code_page_text, frames_of, in_document, payload_of, tag_bytes, \
    unsynchronised, utf16_text, with_frames

LATIN_1, UTF_16, UTF_16_BE, UTF_8 = 0, 1, 2, 3  # encoding bytes

NAMED = {TIT2: "Title", TPE1: "Artist", TALB: "Album", TCON: "Genre"}


class Texts(TagCase):
    def test_texts_in_latin_1_and_utf_16(self):
        for encoding, text in [(LATIN_1, "Ærøskøbing <ÿ¡£> & \"quotes\""), (UTF_16, "Ångström, 日本語, 😀")]:
            with self.subTest(encoding=encoding):
                document, peer = self.read(tag_bytes(4, *(frame(encoding=encoding, text=text) for frame in NAMED)))
                self.assertEqual({str(peer[frame.__name__]) for frame in NAMED}, {text})
                self.assert_values(document, "ID3V2Tag",
                                   dict.fromkeys(NAMED.values(), closed(text)) | {"Version": "2.4.0"})

    def test_texts_in_utf_8_and_utf_16_without_mark_are_not_decoded_on_purpose(self):
        # Hosts have stored such texts as they come out: all bytes of the frame, the encoding byte first, in the code
        # page, zeros left out.
        for encoding in [UTF_8, UTF_16_BE]:
            with self.subTest(encoding=encoding):
                tag = tag_bytes(4, TPE1(encoding=encoding, text="Ångström 日本"))
                document, peer = self.read(tag)
                self.assertEqual(str(peer["TPE1"]), "Ångström 日本")
                expected = code_page_text(payload_of(tag, "TPE1"), dropped=b"\0")
                self.assertNotEqual(expected, "Ångström 日本")
                self.assert_values(document, "ID3V2Tag", {"Artist": in_document(expected)})

    def test_the_list_shows_the_texts_of_mutagen_in_every_encoding(self):
        for encoding in [LATIN_1, UTF_16, UTF_16_BE, UTF_8]:
            with self.subTest(encoding=encoding):
                text = "Ærø ÿ" if encoding == LATIN_1 else "Ærø 日本 😀"
                path = self.tagged(tag_bytes(4, TIT2(encoding=encoding, text=text), TPE1(encoding=encoding, text=text),
                                             TALB(encoding=encoding, text=text), TRCK(encoding=encoding, text="3/12"),
                                             COMM(encoding=encoding, lang="eng", desc="where", text=text)))
                listed = scan(path)[0]
                self.assertEqual({name: listed[name] for name in ["title", "artist", "album", "comment"]},
                                 dict.fromkeys(["title", "artist", "album", "comment"], text))
                self.assertEqual((listed["track"], listed["tags"]), ("3/12", ["ID3v2.4.0"]))

    def test_track_and_time_have_no_name_of_their_own(self):
        document, _ = self.read(tag_bytes(4, TRCK(encoding=LATIN_1, text="3/12"),
                                          TDRC(encoding=LATIN_1, text="2004-02-29")))
        self.assert_values(document, "ID3V2Tag", {"TRCK": closed("3/12"), "TDRC": closed("2004-02-29"),
                                                  "Track": None, "Year": None})
        listed = scan(self.folder)[0]
        self.assertEqual((listed["track"], listed["year"]), ("3/12", "2004"))

    def test_several_values_keep_the_zero_between_them(self):
        document, peer = self.read(tag_bytes(4, TPE1(encoding=LATIN_1, text=["One", "Two"])))
        self.assertEqual(peer["TPE1"].text, ["One", "Two"])
        self.assert_values(document, "ID3V2Tag", {"Artist": closed("One\0Two")})
        self.assertEqual(scan(self.folder)[0]["artist"], "One; Two")

    def test_the_size_of_a_frame_has_seven_bits_in_a_byte(self):
        for length in [126, 127, 128, 255, 16383, 16384, 100000]:
            with self.subTest(length=length):
                text = "x" * length
                document, peer = self.read(tag_bytes(4, TIT2(encoding=LATIN_1, text=text),
                                                     TPE1(encoding=LATIN_1, text="behind")))
                self.assertEqual(str(peer["TIT2"]), text)
                self.assert_values(document, "ID3V2Tag", {"Title": closed(text), "Artist": closed("behind")})


class CommentsAndLyrics(TagCase):
    LINES = "first line\nsecond: naïve\r\n\nlast ß"

    def test_in_latin_1(self):
        for description in ["", "where from"]:
            with self.subTest(description=description):
                document, peer = self.read(tag_bytes(
                    4, COMM(encoding=LATIN_1, lang="deu", desc=description, text=self.LINES),
                    USLT(encoding=LATIN_1, lang="deu", desc=description, text=self.LINES)))
                self.assertEqual(str(peer.getall("USLT")[0]), self.LINES)
                self.assert_values(document, "ID3V2Tag", dict.fromkeys(["Comment", "USLT"], closed(self.LINES)))

    def test_in_utf_16_the_text_begins_behind_the_first_zero_byte_on_purpose(self):
        # Two zero bytes end a description in UTF-16; here the search is for a single one in every encoding.
        for kind, name in [(COMM, "Comment"), (USLT, "USLT")]:
            for description in ["", "d", "description"]:
                with self.subTest(kind=name, description=description):
                    tag = tag_bytes(4, kind(encoding=UTF_16, lang="eng", desc=description, text="日本 text"))
                    document, peer = self.read(tag)
                    self.assertEqual(str(peer.getall(kind.__name__)[0]), "日本 text")
                    expected = utf16_text(behind_zero(payload_of(tag, kind.__name__), 4))
                    self.assert_values(document, "ID3V2Tag", {name: in_document(expected)})

    def test_in_utf_8_everything_is_text_on_purpose(self):
        tag = tag_bytes(4, COMM(encoding=UTF_8, lang="eng", desc="where", text="naïve"))
        document, peer = self.read(tag)
        self.assertEqual(str(peer.getall("COMM")[0]), "naïve")
        self.assert_values(document, "ID3V2Tag", {"Comment": in_document("\x03engwherenaÃ¯ve")})

    def test_the_first_frame_of_an_id_is_kept_on_purpose(self):
        # The format allows several; the collection is keyed by the ID.
        tag = tag_bytes(4, *(COMM(encoding=LATIN_1, lang="eng", desc=name, text=f"text {name}") for name in "ab"),
                        *(TXXX(encoding=LATIN_1, desc=name, text=f"text {name}") for name in "ab"))
        document, peer = self.read(tag)
        self.assertEqual((len(peer.getall("COMM")), len(peer.getall("TXXX"))), (2, 2))
        self.assertEqual(sorted(self.frames_in(document)), ["Comment", "TXXX"])
        self.assert_values(document, "ID3V2Tag",
                           {"Comment": in_document(code_page_text(behind_zero(payload_of(tag, "COMM"), 4)))})


class Pictures(TagCase):
    def test_a_picture_stands_in_the_document_as_text_on_purpose(self):
        # Each two bytes are one UTF-16 unit, low byte first; ID3v2.3 has base64.
        for picture in [pictures.png(), pictures.jpeg()]:
            with self.subTest(start=picture[:4]):
                document, peer = self.read(tag_bytes(4, APIC(encoding=LATIN_1, mime="image/x", type=3, desc="front",
                                                             data=picture)))
                self.assertEqual(peer.getall("APIC")[0].data, picture)
                units = picture[:len(picture) // 2 * 2].decode("utf-16-le", "surrogatepass")
                self.assert_values(document, "ID3V2Tag", {"Picture": in_document(units)})

    def test_other_binary_frames_stand_there_in_base64(self):
        tag = tag_bytes(4, PRIV(owner="someone", data=bytes(range(256))))
        document, _ = self.read(tag)
        self.assertEqual(base64.b64decode(document.values("ID3V2Tag")["PRIV"], validate=True),
                         payload_of(tag, "PRIV"))


class ChangedBytes(TagCase):
    FRAMES = [TIT2(encoding=UTF_16, text="ÿþ and \uffff\ufef0 日本"), TPE1(encoding=LATIN_1, text="ÿà ÿÿ"),
              COMM(encoding=LATIN_1, lang="eng", desc="", text="ÿÿþ"),
              APIC(encoding=LATIN_1, mime="image/jpeg", type=3, desc="", data=pictures.jpeg())]

    def test_an_unsynchronised_tag_reads_as_it_was_before(self):
        tag = tag_bytes(4, *self.FRAMES)
        changed = unsynchronised(tag)
        self.assertIn(b"\xff\xe0", tag)
        self.assertNotIn(b"\xff\xe0", changed)
        document, peer = self.read(changed)
        self.assertEqual(str(peer["TIT2"]), self.FRAMES[0].text[0])
        self.assertEqual(peer.getall("APIC")[0].data, pictures.jpeg())
        self.assertEqual(taglib(self.tagged(changed))["id3v2"]["title"], self.FRAMES[0].text[0])
        expected = Document(self.tagged(tag)).properties("ID3V2Tag")
        self.assertEqual(document.properties("ID3V2Tag")[2:], expected[2:])

    def test_the_list_reads_an_unsynchronised_tag_as_well(self):
        listed = scan(self.tagged(unsynchronised(tag_bytes(4, *self.FRAMES))))[0]
        self.assertEqual((listed["title"], listed["artist"], listed["comment"]),
                         (self.FRAMES[0].text[0], self.FRAMES[1].text[0], "ÿÿþ"))

    def test_a_data_length_as_the_format_flags_it_is_taken_for_data_on_purpose(self):
        # The format has flag 0x01 for it, Corvane 0x10.
        tag = tag_bytes(4, TIT2(encoding=LATIN_1, text="title"))
        (name, _, payload), = frames_of(tag)[0]
        for flag, expected in [(0x01, "\0\0\x06\0title"), (0x10, "title")]:
            with self.subTest(flag=flag):
                flagged = (name, bytes([0, flag]), struct.pack(">I", len(payload)) + payload)
                document, peer = self.read(with_frames(tag, [flagged], bytes(100)))
                if flag == 0x01:
                    self.assertEqual(str(peer["TIT2"]), "title")
                self.assert_values(document, "ID3V2Tag", {"Title": closed(expected)})


class TagsOfFfmpeg(TagCase):
    METADATA = {"title": "Größe 日本", "artist": "Band", "album": "Disc", "date": "2004", "track": "7/12",
                "genre": "Rock"}

    def setUp(self):
        super().setUp()
        words = [word for name, text in self.METADATA.items() for word in ("-metadata", f"{name}={text}")]
        self.path = self.file(audio.ffmpeg("-b:a", "128k", "-id3v2_version", "4", *words))
        texts = ffprobe(self.path)["texts"]
        self.assertEqual({name: texts[name] for name in self.METADATA}, self.METADATA)

    def test_its_texts_are_all_in_utf_8_and_not_decoded_on_purpose(self):
        tag = self.path.read_bytes()
        names = {"TIT2": "Title", "TPE1": "Artist", "TALB": "Album", "TCON": "Genre", "TRCK": "TRCK", "TDRC": "TDRC"}
        self.assertEqual({payload_of(tag, frame)[0] for frame in names}, {UTF_8})
        self.assert_values(Document(self.path), "ID3V2Tag",
                           {name: in_document(code_page_text(payload_of(tag, frame), dropped=b"\0"))
                            for frame, name in names.items()})

    def test_the_list_shows_the_texts(self):
        listed = scan(self.path)[0]
        self.assertEqual({name: listed["year" if name == "date" else name] for name in self.METADATA}, self.METADATA)


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/python3
"""ID3v2.3 tags of mutagen, lame, ffmpeg and sox read right in Corvane, but for its own rules.

A test named "..._on_purpose" expects Corvane's value where it departs from the format for the sake of what its hosts
have stored, and shows the peer's beside it.
"""
import base64
import unittest

from mutagen.id3 import APIC, COMM, GEOB, ID3, PCNT, POPM, PRIV, TALB, TBPM, TCOM, TCON, TCOP, TENC, TIT2, TIT3, TLAN, \
    TOPE, TPE1, TPE2, TRCK, TXXX, TYER, UFID, USLT, WOAR, WXXX

import audio
import pictures
from support import Document, ffprobe, scan, taglib
from tags import TagCase, behind_zero, closed, code_page_text, compressed_23, in_document, payload_of, tag_bytes, \
    unsynchronised, utf16_text

LATIN_1, UTF_16 = 0, 1  # encoding bytes

TEXTS = {TIT2: "Title", TPE1: "Artist", TALB: "Album", TCON: "Genre", TRCK: "Track", TYER: "Year", TCOM: "TCOM",
         TOPE: "TOPE", TCOP: "TCOP", TENC: "TENC", TPE2: "TPE2", TIT3: "TIT3", TBPM: "TBPM", TLAN: "TLAN"}
LIST_NAMES = {TIT2: "title", TPE1: "artist", TALB: "album", TRCK: "track", TYER: "year"}


def text_for(frame, text):
    numbers = {TRCK: "3/12", TYER: "1999", TBPM: "120", TLAN: "deu", TCON: "(17)Rock"}
    return numbers.get(frame, f"{text} {frame.__name__}")


class Texts(TagCase):
    def assert_texts(self, encoding, text):
        texts = {frame: text_for(frame, text) for frame in TEXTS}
        tag = tag_bytes(3, *(frame(encoding=encoding, text=value) for frame, value in texts.items()))
        document, peer = self.read(tag)
        self.assertEqual({frame: str(peer[frame.__name__].text[0]) for frame in TEXTS}, texts)
        self.assert_values(document, "ID3V2Tag", {TEXTS[frame]: closed(value) for frame, value in texts.items()})
        self.assertEqual(len(self.frames_in(document)), len(TEXTS))

    def test_texts_in_latin_1(self):
        self.assert_texts(LATIN_1, "Ærøskøbing <ÿ¡£> & \"quotes\" of")

    def test_texts_in_utf_16(self):
        self.assert_texts(UTF_16, "Ångström, Москва, 日本語, 😀 of")

    def test_texts_on_several_lines(self):
        text = "one\r\ntwo\nthree\tfour "
        document, _ = self.read(tag_bytes(3, TIT2(encoding=LATIN_1, text=text), TALB(encoding=UTF_16, text=text)))
        self.assert_values(document, "ID3V2Tag", dict.fromkeys(["Title", "Album"], closed(text)))

    def test_a_text_as_long_as_a_book(self):
        text = "Ω and more, " * 20000
        document, peer = self.read(tag_bytes(3, TIT2(encoding=UTF_16, text=text)))
        self.assertEqual(peer["TIT2"].text[0], text)
        self.assert_values(document, "ID3V2Tag", {"Title": closed(text)})

    def test_version_and_size_of_the_tag(self):
        tag = tag_bytes(3, TIT2(encoding=LATIN_1, text="x"), padding=300)
        document, peer = self.read(tag)
        self.assertEqual(peer.version, (2, 3, 0))
        self.assert_values(document, "ID3V2Tag", {"Version": "2.3.0", "Size": str(peer.size)})
        self.assertEqual(len(tag), peer.size)

    def test_a_genre_stays_as_it_stands_in_the_document(self):
        for text in ["(17)", "(17)Rock", "Rock", "(4)Eurodisco"]:
            with self.subTest(text):
                document, _ = self.read(tag_bytes(3, TCON(encoding=LATIN_1, text=text)))
                self.assert_values(document, "ID3V2Tag", {"Genre": closed(text)})

    def test_a_user_text_keeps_the_zero_between_description_and_text(self):
        for encoding in [LATIN_1, UTF_16]:
            with self.subTest(encoding=encoding):
                document, peer = self.read(tag_bytes(3, TXXX(encoding=encoding, desc="mood", text="calm")))
                self.assertEqual((peer["TXXX:mood"].desc, str(peer["TXXX:mood"])), ("mood", "calm"))
                self.assert_values(document, "ID3V2Tag", {"TXXX": closed("mood\0calm")})

    def test_a_play_counter_is_a_number(self):
        document, peer = self.read(tag_bytes(3, PCNT(count=70000)))
        self.assertEqual(peer["PCNT"].count, 70000)
        self.assert_values(document, "ID3V2Tag", {"PCNT": "70000"})

    def test_the_list_shows_the_texts_of_mutagen(self):
        for encoding, text in [(LATIN_1, "Ærø"), (UTF_16, "日本 😀")]:
            with self.subTest(encoding=encoding):
                texts = {frame: text_for(frame, text) for frame in LIST_NAMES}
                path = self.tagged(tag_bytes(3, *(frame(encoding=encoding, text=value)
                                                  for frame, value in texts.items())))
                listed = scan(path)[0]
                self.assertEqual({frame: listed[name] for frame, name in LIST_NAMES.items()}, texts)
                self.assertEqual(listed["tags"], ["ID3v2.3.0"])

    def test_the_list_names_the_genres_that_mutagen_names(self):
        for text in ["(17)", "17", "(31)(39)", "(RX)", "(CR)", "Rock", "(255)"]:
            with self.subTest(text):
                path = self.tagged(tag_bytes(3, TCON(encoding=LATIN_1, text=text)))
                peers = [genre for genre in ID3(path)["TCON"].genres if genre != "Unknown"]
                self.assertEqual(scan(path)[0]["genre"], "; ".join(peers))


class CommentsAndLyrics(TagCase):
    LINES = "first line\nsecond: naïve\r\n\nlast ß"

    def test_a_comment_in_latin_1_with_and_without_description(self):
        for description in ["", "where from"]:
            with self.subTest(description=description):
                frame = COMM(encoding=LATIN_1, lang="deu", desc=description, text=self.LINES)
                document, peer = self.read(tag_bytes(3, frame))
                self.assertEqual(peer.getall("COMM")[0].text, [self.LINES])
                self.assert_values(document, "ID3V2Tag", {"Comment": closed(self.LINES)})

    def test_lyrics_in_latin_1_with_and_without_description(self):
        for description in ["", "chorus only"]:
            with self.subTest(description=description):
                frame = USLT(encoding=LATIN_1, lang="eng", desc=description, text=self.LINES)
                document, peer = self.read(tag_bytes(3, frame))
                self.assertEqual(peer.getall("USLT")[0].text, self.LINES)
                self.assert_values(document, "ID3V2Tag", {"USLT": closed(self.LINES)})

    def test_in_utf_16_the_text_begins_behind_the_first_zero_byte_on_purpose(self):
        # Two zero bytes end a description in UTF-16; here the search is for a single one in every encoding.
        for kind, name in [(COMM, "Comment"), (USLT, "USLT")]:
            for description in ["", "d", "description"]:
                with self.subTest(kind=name, description=description):
                    tag = tag_bytes(3, kind(encoding=UTF_16, lang="eng", desc=description, text="日本 text"))
                    document, peer = self.read(tag)
                    self.assertEqual(str(peer.getall(kind.__name__)[0]), "日本 text")
                    expected = utf16_text(behind_zero(payload_of(tag, kind.__name__), 4))
                    self.assert_values(document, "ID3V2Tag", {name: in_document(expected)})
                    self.assertEqual(expected.endswith("日本 text\0"), description != "")

    def test_the_list_prefers_a_comment_of_people_to_those_of_programs(self):
        notes = COMM(encoding=LATIN_1, lang="eng", desc="iTunNORM", text=" 0000 0001")
        for description in ["", "mine"]:
            with self.subTest(description=description):
                tag = tag_bytes(3, notes, COMM(encoding=LATIN_1, lang="deu", desc=description, text="heard"))
                self.assertEqual(scan(self.tagged(tag))[0]["comment"], "heard")

    def test_the_list_shows_comments_without_their_description(self):
        for encoding in [LATIN_1, UTF_16]:
            for description in ["", "where from"]:
                with self.subTest(encoding=encoding, description=description):
                    frame = COMM(encoding=encoding, lang="eng", desc=description, text="naïve")
                    self.assertEqual(scan(self.tagged(tag_bytes(3, frame)))[0]["comment"], "naïve")


class Pictures(TagCase):
    def assert_picture(self, frame, picture):
        document, peer = self.read(tag_bytes(3, frame))
        self.assertEqual(peer.getall("APIC")[0].data, picture)
        self.assertEqual(base64.b64decode(document.values("ID3V2Tag")["Picture"], validate=True), picture)

    def test_the_bytes_of_a_picture_come_out_unchanged(self):
        for mime, picture in [("image/png", pictures.png()), ("image/jpeg", pictures.jpeg())]:
            for description in ["", "front"]:
                with self.subTest(mime=mime, description=description):
                    self.assert_picture(APIC(encoding=LATIN_1, mime=mime, type=3, desc=description, data=picture),
                                        picture)

    def test_a_picture_of_a_megabyte(self):
        picture = pictures.jpeg() * 1200
        self.assert_picture(APIC(encoding=LATIN_1, mime="image/jpeg", type=4, desc="back", data=picture), picture)

    def test_a_description_in_utf_16_ends_at_its_first_zero_byte_on_purpose(self):
        for description in ["", "front"]:
            with self.subTest(description=description):
                tag = tag_bytes(3, APIC(encoding=UTF_16, mime="image/png", type=3, desc=description,
                                        data=pictures.png()))
                document, peer = self.read(tag)
                self.assertEqual(peer.getall("APIC")[0].data, pictures.png())
                behind_type = payload_of(tag, "APIC").index(b"\0", 1) + 2
                found = base64.b64decode(document.values("ID3V2Tag")["Picture"])
                self.assertEqual(found, behind_zero(payload_of(tag, "APIC"), behind_type))
                self.assertTrue(found.endswith(pictures.png()))


class OtherFrames(TagCase):
    def test_frames_without_text_are_their_bytes_in_base64(self):
        frames = [PRIV(owner="someone", data=bytes(range(256))), UFID(owner="http://id.example", data=b"\1\2\3"),
                  POPM(email="a@b.example", rating=200, count=7), WOAR(url="http://artist.example"),
                  WXXX(encoding=LATIN_1, desc="shop", url="http://shop.example"),
                  GEOB(encoding=LATIN_1, mime="text/plain", filename="a.txt", desc="d", data=b"\0\xff\0")]
        tag = tag_bytes(3, *frames)
        document, peer = self.read(tag)
        self.assertEqual(len(peer), len(frames))
        for frame in frames:
            name = type(frame).__name__
            with self.subTest(name):
                self.assertEqual(base64.b64decode(document.values("ID3V2Tag")[name], validate=True),
                                 payload_of(tag, name))

    def test_the_first_frame_of_an_id_is_kept_on_purpose(self):
        # The format allows several; the collection is keyed by the ID.
        tag = tag_bytes(3, *(COMM(encoding=LATIN_1, lang="eng", desc=name, text=f"text {name}") for name in "ab"),
                        *(TXXX(encoding=LATIN_1, desc=name, text=f"text {name}") for name in "ab"))
        document, peer = self.read(tag)
        self.assertEqual((len(peer.getall("COMM")), len(peer.getall("TXXX"))), (2, 2))
        first = payload_of(tag, "COMM")
        self.assertEqual(sorted(self.frames_in(document)), ["Comment", "TXXX"])
        self.assert_values(document, "ID3V2Tag", {"Comment": in_document(code_page_text(behind_zero(first, 4)))})

    def test_padding_of_one_byte_or_of_a_frame_header_and_more(self):
        for padding in [0, 1, 10, 11, 4096]:
            with self.subTest(padding=padding):
                document, peer = self.read(tag_bytes(3, TIT2(encoding=LATIN_1, text="padded"), padding=padding))
                self.assertEqual(str(peer["TIT2"]), "padded")
                self.assert_values(document, "ID3V2Tag", {"Title": closed("padded")})

    def test_padding_shorter_than_a_frame_header_makes_the_tag_unreadable_on_purpose(self):
        for padding in [2, 9]:
            with self.subTest(padding=padding):
                document, peer = self.read(tag_bytes(3, TIT2(encoding=LATIN_1, text="padded"), padding=padding))
                self.assertEqual(str(peer["TIT2"]), "padded")
                self.assertEqual(self.frames_in(document), [])
                self.assertEqual(document.values("ID3V2Tag")["Version"], "2.3.0")


class ChangedBytes(TagCase):
    FRAMES = [TIT2(encoding=UTF_16, text="ÿþ and \uffff\ufef0 日本"), TPE1(encoding=LATIN_1, text="ÿà ÿÿ"),
              COMM(encoding=LATIN_1, lang="eng", desc="", text="ÿÿþ"),
              APIC(encoding=LATIN_1, mime="image/jpeg", type=3, desc="", data=b"\xff\xe0\xff\0\0\xff\xff\xfb")]

    def assert_same_as(self, changed, tag):
        self.assertNotEqual(changed, tag)
        document, peer = self.read(changed)
        self.assertEqual({name: str(frame) for name, frame in peer.items()},
                         {name: str(frame) for name, frame in ID3(self.tagged(tag), translate=False).items()})
        expected = Document(self.tagged(tag)).properties("ID3V2Tag")
        self.assertEqual(document.properties("ID3V2Tag")[2:], expected[2:])
        return document

    def test_an_unsynchronised_tag_reads_as_it_was_before(self):
        tag = tag_bytes(3, *self.FRAMES)
        document = self.assert_same_as(unsynchronised(tag), tag)
        self.assertEqual(taglib(self.tagged(unsynchronised(tag)))["id3v2"]["title"], self.FRAMES[0].text[0])
        self.assertEqual(base64.b64decode(document.values("ID3V2Tag")["Picture"]), self.FRAMES[3].data)

    def test_an_unsynchronised_jpeg_comes_out_unchanged(self):
        tag = tag_bytes(3, APIC(encoding=LATIN_1, mime="image/jpeg", type=3, desc="", data=pictures.jpeg()))
        self.assertIn(b"\xff\xe0", tag)
        self.assertNotIn(b"\xff\xe0", unsynchronised(tag))
        document = self.assert_same_as(unsynchronised(tag), tag)
        self.assertEqual(base64.b64decode(document.values("ID3V2Tag")["Picture"]), pictures.jpeg())

    def test_the_list_reads_an_unsynchronised_tag_as_well(self):
        listed = scan(self.tagged(unsynchronised(tag_bytes(3, *self.FRAMES))))[0]
        self.assertEqual((listed["title"], listed["artist"]), (self.FRAMES[0].text[0], self.FRAMES[1].text[0]))

    def test_compressed_frames_read_as_they_were_before(self):
        tag = tag_bytes(3, *self.FRAMES, TALB(encoding=LATIN_1, text="again and " * 500))
        self.assertLess(len(compressed_23(tag)), len(tag) / 2)
        self.assert_same_as(compressed_23(tag), tag)
        self.assertEqual(scan(self.tagged(compressed_23(tag)))[0]["title"], self.FRAMES[0].text[0])


class TagsOfEncoders(TagCase):
    LAME = ("-b", "128", "--add-id3v2", "--ta", "Band", "--tl", "Disc", "--ty", "2004", "--tn", "7/12", "--tg", "Rock")

    def test_a_latin_1_tag_of_lame(self):
        picture = self.folder / "cover.jpg"
        picture.write_bytes(pictures.jpeg())
        path = self.file(audio.lame(*self.LAME, "--id3v2-latin1", "--tt", "Größe", "--tc", "gehört", "--ti",
                                    str(picture)))
        document = Document(path)
        self.assert_values(document, "ID3V2Tag", {"Version": "2.3.0", "Title": "Größe", "Artist": "Band",
                                                  "Album": "Disc", "Year": "2004", "Track": "7/12",
                                                  "Comment": "gehört"})
        self.assertEqual(base64.b64decode(document.values("ID3V2Tag")["Picture"]), pictures.jpeg())
        self.assert_values(document, "ID3V1Tag", {"Title": "Größe", "Track": "7"})

    def test_a_utf_16_tag_of_lame(self):
        path = self.file(audio.lame(*self.LAME, "--id3v2-utf16", "--tt", "Größe 日本"))
        self.assert_values(Document(path), "ID3V2Tag", {"Title": str(ID3(path)["TIT2"])})
        self.assertEqual(scan(path)[0]["title"], "Größe 日本")

    def test_the_texts_of_ffmpeg(self):
        metadata = {"title": "Größe 日本", "artist": "Band", "album": "Disc", "date": "2004", "track": "7/12",
                    "genre": "Rock"}
        words = [word for name, text in metadata.items() for word in ("-metadata", f"{name}={text}")]
        path = self.file(audio.ffmpeg("-b:a", "128k", "-id3v2_version", "3", *words))
        self.assertEqual({name: ffprobe(path)["texts"][name] for name in metadata}, metadata)
        names = {"title": "Title", "artist": "Artist", "album": "Album", "date": "Year", "track": "Track",
                 "genre": "Genre"}
        self.assert_values(Document(path), "ID3V2Tag",
                           {names[name]: closed(text) for name, text in metadata.items()})
        listed = scan(path)[0]
        self.assertEqual({name: listed["year" if name == "date" else name] for name in metadata}, metadata)

    def test_the_picture_of_ffmpeg(self):
        cover = self.folder / "cover.png"
        cover.write_bytes(pictures.png())
        path = self.file(audio.ffmpeg("-i", str(cover), "-map", "0", "-map", "1", "-c:v", "copy", "-b:a", "128k",
                                      "-id3v2_version", "3", "-disposition:v", "attached_pic"))
        self.assertEqual(ID3(path).getall("APIC")[0].data, pictures.png())
        self.assertEqual(base64.b64decode(Document(path).values("ID3V2Tag")["Picture"]), pictures.png())

    def test_the_tag_of_sox(self):
        comments = ["Title=Song", "Artist=Band", "Album=Disc", "Year=2004", "Tracknumber=7", "Genre=Rock",
                    "Comment=heard"]
        path = self.file(audio.sox(*(word for text in comments for word in ("--add-comment", text))))
        self.assert_values(Document(path), "ID3V2Tag", {"Title": "Song", "Artist": "Band", "Album": "Disc",
                                                        "Year": "2004", "Track": "7", "Genre": "Rock",
                                                        "Comment": "heard"})


if __name__ == "__main__":
    unittest.main()

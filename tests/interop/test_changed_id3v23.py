#!/usr/bin/python3
"""ID3v2.3 tags of mutagen, TagLib, lame and ffmpeg stay right when one property of them is changed: every other frame
keeps its bytes, mutagen reads what it has read before, and what stands behind the tag is untouched."""
import struct
import unittest
import zlib

from mutagen.apev2 import APEv2
from mutagen.id3 import APIC, COMM, ETCO, GEOB, ID3, MCDI, PCNT, POPM, PRIV, TALB, TCON, TIT2, TPE1, TPE2, TRCK, TXXX, \
    TYER, UFID, USLT, WOAF, WOAR, WXXX

import audio
import pictures
from editor import WAYS, save
from snapshots import EXPERIMENTAL, EXTENDED, UNSYNCHRONISED, Snapshot, assert_only_changed, frame_of, frames_in, tag_of
from support import TAGLIB_PEER, run, taglib, taglib_writes
from tags import TagCase, compressed_23, payload_of, tag_bytes, unsynchronised

NEW = "neu 日本語 €"
LYRICS3 = b"LYRICSBEGININD0000200LYR00005la la000027LYRICS200"
# Property of records, property of the facade, key in mutagen.
CHANGES = [("Title", "Title", "TIT2"), ("Comments", "Comment", "COMM::eng"), ("Composer", "Composer", "TCOM")]


def rich_tag(encoding=1, padding=1024):
    """Every kind of frame that people's programs write."""
    text = "Müller 日本" if encoding else "Müller"
    return tag_bytes(
        3, *(kind(encoding=encoding, text=f"{text} {kind.__name__}") for kind in (TIT2, TPE1, TALB, TPE2)),
        TRCK(encoding=0, text="3/12"), TYER(encoding=0, text="1999"), TCON(encoding=0, text="(17)Rock"),
        COMM(encoding=encoding, lang="eng", desc="", text=text), COMM(encoding=0, lang="deu", desc="about", text="über"),
        USLT(encoding=encoding, lang="eng", desc="", text=f"{text}\nline"), TXXX(encoding=0, desc="mood", text="calm"),
        TXXX(encoding=encoding, desc="mood 2", text=text), WXXX(encoding=0, desc="shop", url="http://shop.example"),
        WOAR(url="http://artist.example"), WOAF(url="http://file.example"), PCNT(count=7),
        POPM(email="a@b.example", rating=200, count=7), PRIV(owner="someone", data=bytes(range(256))),
        UFID(owner="http://id.example", data=b"\1\2\3"), MCDI(data=b"\0\1\xff\xe0\0"), ETCO(format=2, events=[(2, 5)]),
        GEOB(encoding=0, mime="text/plain", filename="a.txt", desc="d", data=b"\0\xff\0"),
        APIC(encoding=0, mime="image/jpeg", type=4, desc="back", data=pictures.jpeg()),
        APIC(encoding=encoding, mime="image/png", type=3, desc="", data=pictures.png()), padding=padding)


class ChangedCase(TagCase):
    def assert_keeps_all(self, data, changes=tuple(CHANGES), peer=None):
        """Changes one property after the other, each in a new copy, by each way of saving. `peer` is what mutagen would
        read if it could read the tag."""
        for way in WAYS:
            for record, facade, key in changes:
                with self.subTest(key, way=way):
                    path = self.file(data)
                    before = Snapshot(path)
                    before.peer = before.peer if peer is None else peer
                    self.assertGreaterEqual(len(before.frames), len(before.peer))
                    self.assertTrue(before.peer)
                    save(path, {facade if way["by"] == "facade" else record: NEW}, way)
                    after = assert_only_changed(self, before, path, key)
                    self.assertEqual(str(after.peer[key]), NEW)

    def with_tag(self, tag):
        self.assert_keeps_all(tag + audio.plain())


class TagsOfMutagen(ChangedCase):
    def test_tags_with_and_without_padding(self):
        for encoding in [0, 1]:
            for padding in [0, 1, 9, 300, 4096]:
                with self.subTest(encoding=encoding, padding=padding):
                    self.with_tag(rich_tag(encoding, padding))

    def test_a_megabyte_of_padding_goes_and_nothing_else(self):
        self.with_tag(rich_tag(padding=1 << 20))

    def test_a_picture_of_megabytes_stays(self):
        self.with_tag(tag_bytes(3, TIT2(encoding=1, text="x"), APIC(encoding=0, mime="image/jpeg", type=3, desc="",
                                                                    data=pictures.jpeg() * 2000)))

    def test_unsynchronised_tags(self):
        tag = unsynchronised(rich_tag())
        self.assertLess(len(rich_tag()), len(tag))
        self.with_tag(tag)

    def test_compressed_frames(self):
        self.assertEqual(frames_in(compressed_23(rich_tag()))[0][9], 0x80)
        self.with_tag(compressed_23(rich_tag()))

    def test_unsynchronised_tags_of_compressed_frames(self):
        self.with_tag(unsynchronised(compressed_23(rich_tag())))

    def test_trailers_of_every_kind(self):
        for trailer in [LYRICS3, b""]:
            path = self.file(audio.plain() + trailer)
            taglib_writes(path, {"Title": "Old"}, track=3)
            self.assert_keeps_all(rich_tag() + path.read_bytes())
        path = self.file(audio.plain())
        ape = APEv2()
        ape["Title"] = "Ape"
        ape.save(path)
        self.assert_keeps_all(rich_tag() + path.read_bytes())

    def test_a_picture_is_changed_alone(self):
        cover = self.folder / "new.png"
        cover.write_bytes(pictures.png() + b"more")
        for way in WAYS:
            with self.subTest(way=way):
                path = self.tagged(rich_tag())
                before = Snapshot(path)
                save(path, {}, way, picture=str(cover))
                after = assert_only_changed(self, before, path, "APIC:")
                self.assertEqual((after.peer["APIC:"].data, after.peer["APIC:"].mime, int(after.peer["APIC:"].type)),
                                 (cover.read_bytes(), "image/png", 3))

    def test_the_audio_decodes_to_the_same_samples(self):
        path = self.tagged(rich_tag())
        before = run("ffmpeg", "-v", "error", "-i", path, "-map", "0:a", "-f", "md5", "-")
        save(path, {"Title": NEW * 2000})
        self.assertEqual(run("ffmpeg", "-v", "error", "-i", path, "-map", "0:a", "-f", "md5", "-"), before)


class OddTags(ChangedCase):
    FRAMES = frames_in(rich_tag())

    def crc_header(self, padding):
        crc = zlib.crc32(b"".join(self.FRAMES))
        return struct.pack(">IHII", 10, 0x8000, padding, crc)

    def test_extended_headers(self):
        # Behind an extended header mutagen reads past the end of the tag, and of an unsynchronised one nothing then.
        plain = Snapshot(self.tagged(tag_of(*self.FRAMES))).peer
        for padding in [0, 500]:
            for front in [struct.pack(">IHI", 6, 0, padding), self.crc_header(padding)]:
                for flags in [EXTENDED, EXTENDED | UNSYNCHRONISED]:
                    with self.subTest(padding=padding, front=front, flags=flags):
                        tag = tag_of(*self.FRAMES, flags=flags, front=front, padding=bytes(padding))
                        self.assert_keeps_all(tag + audio.plain(), peer=plain if flags & UNSYNCHRONISED else None)

    def test_experimental_tags_stay_experimental(self):
        self.with_tag(tag_of(*self.FRAMES, flags=EXPERIMENTAL, padding=bytes(300)))
        path = self.tagged(tag_of(*self.FRAMES, flags=EXPERIMENTAL))
        save(path, {"Title": NEW})
        self.assertEqual(path.read_bytes()[5], EXPERIMENTAL)

    def test_frames_of_eyed3_and_of_other_programs(self):
        def wide(text):
            return b"\1\xfe\xff" + text.encode("utf-16-be")

        self.with_tag(tag_of(
            frame_of("TPE1", wide("Künstler")), frame_of("TIT2", wide("日本")), frame_of("TDRC", b"\0002003-04-05"),
            frame_of("TSOP", b"\0sorted"), frame_of("COMM", b"\1eng\xff\xfe\0\0\xff\xfea\0b\0"),
            frame_of("COMM", b"\1eng\xfe\xff\0d\0\0\xfe\xff\0x"), frame_of("TXXX", wide("one\0") + wide("two")[1:]),
            frame_of("UFID", b"http://musicbrainz.org\0" + b"0123-4567"), frame_of("PRIV", b"WM/Id\0" + bytes(16)),
            frame_of("XSOP", b"\0nobody"), frame_of("RGAD", bytes(8)), frame_of("TCMP", b"\0001"),
            frame_of("TIT3", b"\3caf\xc3\xa9"), frame_of("TLAN", b"\0deu\0eng"),
            frame_of("APIC", b"\1image/jpeg\0\3\xfe\xff\0f\0\0" + pictures.jpeg()), padding=bytes(50)))

    def test_status_flags_and_groups_stay(self):
        self.with_tag(tag_of(
            frame_of("TIT2", b"\0title", b"\xe0\0"), frame_of("TPE1", b"\x07\0artist", b"\0\x20"),
            frame_of("PRIV", b"me\0\1\2", b"\x40\0"), frame_of("TALB", b"\x01secret!", b"\0\x40"), padding=bytes(90)))

    def test_several_frames_of_one_kind_stay_in_their_order(self):
        comments = [frame_of("COMM", b"\0" + language + b"\0" + text)
                    for language, text in [(b"eng", b"first"), (b"deu", b"second"), (b"eng", b"third")]]
        path = self.tagged(tag_of(*comments, padding=bytes(90)))
        save(path, {"Comments": "changed"})
        self.assertEqual(Snapshot(path).frames, [frame_of("COMM", b"\0eng\0changed"), *comments[1:]])

    def test_refused_tags_stay_what_they_are(self):
        good = rich_tag()
        for why, tag in {"2.4": tag_bytes(4, TIT2(encoding=3, text="x")), "flags": good[:5] + b"\1" + good[6:],
                         "2.2": b"ID3\2\0\0\0\0\0\x0aTT2\0\0\2\0x\0\0", "over the end": tag_of(good[10:60]),
                         "no frame": tag_of(b"junk and more of it"), "padding": tag_of(self.FRAMES[0], padding=b"\0\0x\0"),
                         "extended": tag_of(*self.FRAMES, flags=EXTENDED, front=bytes(10))}.items():
            for way in WAYS:
                with self.subTest(why, way=way):
                    path = self.tagged(tag)
                    before = path.read_bytes()
                    self.assertRaisesRegex(AssertionError, "was not saved", save, path, {"Title": NEW}, way)
                    self.assertEqual(path.read_bytes(), before)


class TagsOfOtherPrograms(ChangedCase):
    def test_tags_of_taglib(self):
        for text in ["Müller", "日本 Привет 😀"]:
            with self.subTest(text):
                path, cover = self.file(audio.plain(), "peer.mp3"), self.folder / "cover.png"
                cover.write_bytes(pictures.png())
                run(TAGLIB_PEER, "tag", path, text, cover)
                self.assertEqual(payload_of(path.read_bytes(), "APIC")[1:10], b"image/png")
                self.assert_keeps_all(path.read_bytes(), [("Title", "Title", "TIT2"),
                                                          ("Copyright", "Copyright", "TCOP")])
                save(path, {"Title": NEW})
                self.assertEqual(taglib(path)["id3v2"], {"title": NEW, "artist": text, "album": text, "year": 1999,
                                                         "track": 7, "genre": "", "comment": text})

    def test_tags_of_lame(self):
        options = ("-b", "128", "--add-id3v2", "--ta", "Band", "--tl", "Disc", "--ty", "2004", "--tn", "7/12", "--tg",
                   "Rock", "--tc", "gehört", "--tt", "Größe")
        cover = self.folder / "cover.jpg"
        cover.write_bytes(pictures.jpeg())
        for form in [("--id3v2-latin1",), ("--id3v2-utf16",), ("--id3v2-utf16", "--pad-id3v2"),
                     ("--ti", str(cover)), ("--tv", "TXXX=user=text")]:
            with self.subTest(form):
                data = audio.lame(*options, *form)
                self.assertEqual(data[-128:-125], b"TAG")
                self.assert_keeps_all(data, [("Title", "Title", "TIT2"), ("Composer", "Composer", "TCOM")])

    def test_tags_of_ffmpeg(self):
        words = ("-id3v2_version", "3", "-write_id3v1", "1", "-metadata", "title=Größe 日本", "-metadata",
                 "artist=Künstler", "-metadata", "comment=a comment", "-metadata", "TLAN=deu", "-metadata",
                 "lyrics-eng=la la")
        data = audio.ffmpeg(*words)
        self.assertEqual(data[-128:-125], b"TAG")
        self.assert_keeps_all(data, [("Title", "Title", "TIT2"), ("Composer", "Composer", "TCOM")])


if __name__ == "__main__":
    unittest.main()

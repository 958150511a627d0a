#!/usr/bin/python3
"""corvane set: values of ID3v2.3 tags, read back by other programs."""
import json
import os
import subprocess
import sys
import unittest

from mutagen.id3 import ID3, ID3NoHeaderError

import mp3
from harness import WRONG_USE, CliTest, hash_of

AUDIO = mp3.audio()
TEXTS = {"--title": "TIT2", "--artist": "TPE1", "--album": "TALB", "--track": "TRCK", "--genre": "TCON", "--composer": "TCOM",
         "--original-artist": "TOPE", "--copyright": "TCOP", "--encoded-by": "TENC"}


def tag_of(*frames, **options):
    return mp3.id3v2([mp3.frame23(name, payload) for name, payload in frames], **options)


class SetCase(CliTest):
    def setUp(self):
        super().setUp()
        self.song = self.write("a.mp3", AUDIO)

    def content(self, path=None):
        with open(path or self.song, "rb") as file:
            return file.read()

    def set(self, *words, **options):
        return self.run_command("set", self.song, *words, **options)

    def tag(self, path=None, trailer=b""):
        """The tag as mutagen reads it, once it is sure that nothing else of the file has changed."""
        path = path or self.song
        content = self.content(path)
        self.assertEqual(content[mp3.id3v2_size(content):], AUDIO + trailer)
        return ID3(path, translate=False)

    def text(self, frame, **options):
        return str(self.tag(**options)[frame])

    def ffprobe(self, path=None):
        """The tags as ffprobe reads them, without a complaint about them."""
        words = ["ffprobe", "-v", "error", "-of", "json", "-show_entries", "format_tags", path or self.song]
        done = subprocess.run(words, capture_output=True, check=True)
        self.assertEqual(done.stderr, b"")
        return json.loads(done.stdout)["format"].get("tags", {})


class Values(SetCase):
    def test_every_text_is_read_by_other_programs(self):
        for text in ("plain", "é€ café", "日本語 Привет 🎵"):
            self.write("a.mp3", AUDIO)
            words = [word for option in TEXTS for word in (option, "3/7" if option == "--track" else text)]
            self.set("--tag", "v2", *words, "--year", "2001", "--comment", text, "--url", "http://example.org/é")
            tag = self.tag()
            self.assertEqual(tag.version, (2, 3, 0))
            for frame in TEXTS.values():
                self.assertEqual(str(tag[frame]), "3/7" if frame == "TRCK" else text)
            self.assertEqual((str(tag["TYER"]), str(tag["COMM::eng"])), ("2001", text))
            self.assertEqual(tag["WXXX:"].url, "http://example.org/é")
            read = self.ffprobe()
            self.assertEqual((read["title"], read["artist"], read["comment"], read["track"]), (text, text, text, "3/7"))

    def test_values_that_are_not_given_stay(self):
        before = tag_of(("TIT2", mp3.utf16("語")), ("PRIV", b"owner\0data"), ("ZZZZ", b"unknown"), ("TPE1", mp3.latin1("A")))
        self.write("a.mp3", before + AUDIO)
        self.set("--artist", "B")
        content = self.content()
        self.assertEqual(content[:len(before)], before.replace(mp3.latin1("A"), mp3.latin1("B")))
        self.assertEqual(content[len(before):], AUDIO)

    def test_empty_value_deletes(self):
        self.write("a.mp3", tag_of(("TIT2", mp3.latin1("T")), ("TYER", mp3.latin1("1999")), ("TPE1", mp3.latin1("A")),
                                   ("COMM", b"\0eng\0C"), ("COMM", b"\0engkept\0C")) + AUDIO)
        self.set("--title", "", "--year=", "--comment", "")
        self.assertEqual(sorted(self.tag()), ["COMM:kept:eng", "TPE1"])

    def test_deleting_leaves_no_second_frame_of_the_kind(self):
        self.write("a.mp3", tag_of(("TIT2", mp3.latin1("one")), ("TIT2", mp3.latin1("two")), ("TPE1", mp3.latin1("A"))) + AUDIO)
        self.set("--title", "")
        self.assertEqual(list(self.tag()), ["TPE1"])

    def test_tag_goes_with_its_last_frame(self):
        self.write("a.mp3", tag_of(("TIT2", mp3.latin1("T"))) + AUDIO)
        text = self.output("set", self.song, "--title", "")
        self.assertEqual(text, f'{self.song}:\n  ID3v2.3.0 removed\n  v2 title "T" -> ""\n')
        self.assertEqual(self.content(), AUDIO)

    def test_double_quotes_become_apostrophes_with_a_warning(self):
        self.write("a.mp3", tag_of(("TPE1", mp3.latin1('"A"')), ("TCOM", mp3.latin1('"C"'))) + AUDIO)
        done = self.set("--title", 'a "b"', "--composer", "D")
        self.assertEqual([self.text("TIT2"), self.text("TPE1")], ["a 'b'", "'A'"])
        self.assertEqual(done.stderr.decode().replace(self.song, "SONG").splitlines(),
                         ["corvane: SONG: warning: title: double quotes are stored as apostrophes",
                          "corvane: SONG: warning: TPE1: double quotes in the file become apostrophes"])

    def test_double_quotes_stay_without_a_warning_where_a_save_keeps_them(self):
        self.write("a.mp3", tag_of(("UFID", b"owner\0\"k\""), ("TXXX", b"\0\"d\"\0")) + AUDIO)
        before = self.content()
        done = self.set("--title", "x")
        self.assertEqual(done.stderr, b"")
        self.assertIn(before[10:before.index(AUDIO)].rstrip(b"\0"), self.content())

    def test_address_is_shown_as_it_is_stored(self):
        self.write("a.mp3", AUDIO)
        text = self.output("set", "--tag", "v2", self.song, "--url", "http://example.org/é/日")
        stored = "http://example.org/é/%E6%97%A5"
        self.assertIn(f'  v2 url "" -> "{stored}"\n', text)
        self.assertEqual(self.tag()["WXXX:"].url, stored)
        again = self.output("set", "--tag", "v2", self.song, "--url", "http://example.org/é/日")
        self.assertNotIn("v2 url", again)

    def test_file_may_hold_the_values_of_both_kinds_of_tags(self):
        self.set("--tag", "both", "--title", "x" * 40, "--track", "5/12")
        self.assertEqual(self.text("TIT2", trailer=mp3.id3v1(b"x" * 30, track=5)), "x" * 40)
        self.assertEqual(self.text("TRCK", trailer=mp3.id3v1(b"x" * 30, track=5)), "5/12")


class Years(SetCase):
    def test_year_is_stored_as_it_is_given(self):
        for year in ("1999", "0099", "99", "MCMXC"):
            self.set("--tag", "v2", "--year", year)
            self.assertEqual(self.text("TYER"), year)

    def test_date_leaves_its_year_with_a_warning(self):
        done = self.set("--tag", "v2", "--year", "2001-05-13")
        self.assertEqual(self.text("TYER"), "2001")
        self.assertEqual(done.stderr.decode(), f'corvane: {self.song}: warning: year: ID3v2.3 keeps "2001" of "2001-05-13"\n')
        self.assertEqual(str(ID3(self.song)["TDRC"]), "2001")

    def test_year_replaces_and_deletes(self):
        self.write("a.mp3", tag_of(("TYER", mp3.utf16("1999")), ("TIT2", mp3.latin1("T"))) + AUDIO)
        self.set("--year", "2001")
        self.assertEqual(self.text("TYER"), "2001")
        self.set("--year", "")
        self.assertEqual(list(self.tag()), ["TIT2"])


class Numbers(SetCase):
    def test_genre_is_read_as_the_same_by_other_programs(self):
        for given, frame, genre in (("17", "(17)", "Rock"), ("Rock", "(17)", "Rock"), ("rock", "(17)", "Rock"),
                                    ("(17)", "(17)", "Rock"), ("(17)Rock", "(17)", "Rock"), ("27", "(27)", "Trip-Hop"),
                                    ("Trip -Hop", "(27)", "Trip-Hop"), ("(17)Hard Rock", "(17)Hard Rock", None),
                                    ("Nonesuch", "Nonesuch", "Nonesuch"), ("0", "(0)", "Blues")):
            self.write("a.mp3", AUDIO)
            self.set("--tag", "v2", "--genre", given)
            self.assertIn(mp3.frame23("TCON", mp3.latin1(frame)), self.content())
            if genre is not None:
                self.assertEqual(ID3(self.song)["TCON"].genres, [genre])
                self.assertEqual(self.ffprobe()["genre"], genre)

    def test_genre_of_another_form_is_the_same_genre(self):
        for stored in ("Rock", "17", "(17)", "(17)Rock"):
            song = tag_of(("TCON", mp3.latin1(stored)), ("TIT2", mp3.latin1("T"))) + AUDIO
            for given in ("Rock", "17", "(17)", "(17)Rock"):
                self.write("a.mp3", song)
                self.set("--tag", "v2", "--genre", given)
                self.assertEqual(self.content(), song)

    def test_genre_has_the_same_number_in_id3v1_in_every_form(self):
        for given in ("Rock", "17", "(17)", "(17)Rock", "(17)Hard Rock"):
            self.write("a.mp3", AUDIO)
            self.set("--genre", given)
            self.assertEqual(self.content()[-128:], mp3.id3v1(track=0, genre=17))

    def test_genre_255_is_none(self):
        self.write("a.mp3", tag_of(("TCON", mp3.latin1("(17)")), ("TIT2", mp3.latin1("T"))) + AUDIO)
        self.set("--genre", "255")
        self.assertEqual(list(self.tag()), ["TIT2"])

    def test_what_has_no_number_in_id3v1_stands_in_id3v2_alone(self):
        record = mp3.id3v1(b"T", track=3, genre=17)
        self.write("a.mp3", tag_of(("TIT2", mp3.latin1("T"))) + AUDIO + record)
        done = self.set("--genre", "Nonesuch", "--track", "300")
        trailer = mp3.id3v1(b"T", track=0)
        self.assertEqual((self.text("TCON", trailer=trailer), self.text("TRCK", trailer=trailer)), ("Nonesuch", "300"))
        self.assertEqual(done.stderr.decode().replace(self.song, "SONG").splitlines(),
                         ["corvane: SONG: warning: track: ID3v1 has no number 300, only 1 to 255",
                          'corvane: SONG: warning: genre: ID3v1 has no number for "Nonesuch"'])

    def test_file_with_id3v1_alone_refuses_what_has_no_number_there(self):
        song = self.write("b.mp3", AUDIO + mp3.id3v1(b"T", track=3))
        before = hash_of(song)
        self.assertEqual(self.error("set", song, "--title", "x", "--genre", "Nonesuch"),
                         f'corvane: {song}: genre: ID3v1 has no number for "Nonesuch"; --tag both gives the file an ID3v2.3 tag '
                         "too")
        self.assertEqual(hash_of(song), before)

    def test_numbers_that_cannot_be_meant_are_wrong_use(self):
        for words in (["--genre", "256"], ["--track", "-1"], ["--track", "x"], ["--track", "5/"], ["--track", "/5"]):
            self.error("set", self.song, *words, code=WRONG_USE)
            self.assertEqual(self.content(), AUDIO)


class Lyrics(SetCase):
    def lyrics(self, content, *words):
        text = self.write("lyrics.txt", content)
        self.set("--tag", "v2", "--lyrics", text, *words)
        return str(self.tag()["USLT::eng"])

    def test_text_file_is_read_in_its_encoding(self):
        for content in ("Zeile äöü\nzwei 日本".encode(), "Zeile äöü\nzwei 日本".encode("utf-8-sig"),
                        "Zeile äöü\r\nzwei 日本\r\n\r\n".encode()):
            self.assertEqual(self.lyrics(content), "Zeile äöü\nzwei 日本")
        self.assertEqual(self.lyrics("Zeile äöü\rzwei €".encode("cp1252")), "Zeile äöü\nzwei €")
        self.assertEqual(self.lyrics(b"[00:12.00]one\n[00:15.30]two\n"), "[00:12.00]one\n[00:15.30]two")

    def test_standard_input_is_read(self):
        self.set("--lyrics", "-", input="la la é".encode())
        self.assertEqual(str(self.tag(trailer=b"")["USLT::eng"]), "la la é")

    def test_lyrics_are_replaced_and_deleted(self):
        self.write("a.mp3", tag_of(("USLT", b"\0deu\0alt"), ("TIT2", mp3.latin1("T"))) + AUDIO)
        self.set("--lyrics", self.write("lyrics.txt", b"neu"))
        self.assertEqual(str(self.tag()["USLT::deu"]), "neu")
        self.set("--lyrics", "")
        self.assertEqual(list(self.tag()), ["TIT2"])

    def test_file_that_cannot_be_read_fails_and_changes_nothing(self):
        binary = self.write("binary", b"a\0b")
        for path, reason in (("missing.txt", "No such file or directory"), (str(self.folder), "Is a directory"),
                             (binary, "This is not text in UTF-8 or Windows-1252")):
            self.assertEqual(self.error("set", self.song, "--title", "x", "--lyrics", path), f"corvane: {path}: {reason}")
            self.assertEqual(self.content(), AUDIO)


class Pictures(SetCase):
    def setUp(self):
        super().setUp()
        self.image = mp3.png(30, 20)
        self.picture = self.write("cover.png", self.image)

    def set_on(self, *pictures):
        """The pictures as (type, description, bytes) after a front cover was set on a tag with these payloads."""
        self.write("a.mp3", tag_of(*[("APIC", payload) for payload in pictures], ("TIT2", mp3.latin1("T"))) + AUDIO)
        self.set("--picture", self.picture)
        return sorted((picture.type, picture.desc, picture.data) for picture in self.tag().getall("APIC"))

    def test_picture_is_stored_byte_for_byte(self):
        for name, image, mime in (("a", self.image, "image/png"), ("b", b"GIF89a\5\0\7\0\0\0\0", "image/gif")):
            self.set("--tag", "v2", "--picture", self.write(name, image))
            (picture,) = self.tag().getall("APIC")
            self.assertEqual((picture.mime, picture.type, picture.desc, picture.data), (mime, 3, "", image))

    def test_front_cover_is_replaced(self):
        self.assertEqual(self.set_on(mp3.picture(b"old")), [(3, "", self.image)])
        self.assertEqual(self.set_on(mp3.picture(b"old", description=b"cover")), [(3, "cover", self.image)])
        self.assertEqual(self.set_on(mp3.picture(b"one", description=b"x"), mp3.picture(b"two")),
                         [(3, "", self.image), (3, "x", b"one")])

    def test_picture_without_a_type_is_taken_for_the_front_cover(self):
        self.assertEqual(self.set_on(mp3.picture(b"old", kind=0)), [(3, "", self.image)])
        self.assertEqual(self.set_on(mp3.picture(b"old", kind=0), mp3.picture(b"cover", description=b"x")),
                         [(0, "", b"old"), (3, "x", self.image)])

    def test_other_pictures_stay(self):
        self.assertEqual(self.set_on(mp3.picture(b"back", kind=4)), [(3, "Front cover", self.image), (4, "", b"back")])
        self.assertEqual(self.set_on(mp3.picture(b"back", kind=4, description=b"back")),
                         [(3, "", self.image), (4, "back", b"back")])

    def test_empty_value_takes_the_front_cover_out(self):
        self.write("a.mp3", tag_of(("APIC", mp3.picture(b"front")), ("APIC", mp3.picture(b"back", kind=4, description=b"b"))) + AUDIO)
        self.set("--picture", "")
        self.assertEqual([picture.type for picture in self.tag().getall("APIC")], [4])
        self.assertEqual(self.output("set", self.song, "--picture", ""), f"{self.song}: unchanged\n")

    def test_same_picture_changes_nothing(self):
        self.set_on(mp3.picture(self.image))
        os.utime(self.song, ns=(1, 1))
        self.assertEqual(self.output("set", self.song, "--picture", self.picture), f"{self.song}: unchanged\n")
        self.assertEqual(os.stat(self.song).st_mtime_ns, 1)

    def test_change_is_told_in_words(self):
        self.write("a.mp3", tag_of(("APIC", mp3.picture(b"old"))) + AUDIO)
        self.assertEqual(self.output("set", self.song, "--picture", self.picture, "--dry-run"),
                         f'{self.song}: would change\n  v2 picture "no type, 3 bytes, no image that is known here" -> '
                         f'"image/png, 30 x 20, {len(self.image)} bytes"\n')

    def test_picture_comes_from_standard_input_but_not_with_the_lyrics(self):
        self.set("--tag", "v2", "--picture", "-", input=self.image)
        self.assertEqual(self.tag().getall("APIC")[0].data, self.image)
        self.error("set", self.song, "--picture", "-", "--lyrics", "-", code=WRONG_USE)

    def test_file_that_is_no_picture_fails_and_changes_nothing(self):
        for path, reason in ((self.write("x", b"text"), "This is not a JPEG, PNG, GIF or BMP image"),
                             ("missing.png", "No such file or directory")):
            self.assertEqual(self.error("set", self.song, "--title", "x", "--picture", path), f"corvane: {path}: {reason}")
            self.assertEqual(self.content(), AUDIO)


class DefaultTags(SetCase):
    """Without --tag the tags that a file has are changed, and both are made where there is none."""

    def tags_after(self, content, *words):
        self.write("a.mp3", content)
        self.set(*words)
        content = self.content()
        self.assertIn(AUDIO, content)
        return [name for name, is_there in (("v2", content.startswith(b"ID3")), ("v1", content[-128:].startswith(b"TAG"))) if is_there]

    def test_tags_are_those_of_the_file(self):
        v1, v2 = mp3.id3v1(b"T", track=1), tag_of(("TPE1", mp3.latin1("A")))
        for content, words, tags in (
                (AUDIO, ["--title", "x"], ["v2", "v1"]), (AUDIO + v1, ["--title", "x"], ["v1"]),
                (v2 + AUDIO, ["--title", "x"], ["v2"]), (v2 + AUDIO + v1, ["--title", "x"], ["v2", "v1"]),
                (AUDIO + v1, ["--title", "x", "--composer", "y"], ["v2", "v1"]), (AUDIO + v1, ["--composer", ""], ["v1"]),
                (AUDIO, ["--composer", "x"], ["v2"]), (AUDIO, ["--title", ""], []),
                (AUDIO + v1, ["--tag", "v2", "--title", "x"], ["v2", "v1"]), (AUDIO, ["--tag", "v2", "--title", "x"], ["v2"]),
                (v2 + AUDIO, ["--tag", "v1", "--title", "x"], ["v2", "v1"]), (AUDIO, ["--tag", "both", "--title", "x"], ["v2", "v1"]),
                (v2 + AUDIO, ["--tag", "both", "--title", "x"], ["v2", "v1"])):
            with self.subTest(content=content[:3] + content[-128:-125], words=words):
                self.assertEqual(self.tags_after(content, *words), tags)

    def test_tag_that_is_not_chosen_stays(self):
        v1, v2 = mp3.id3v1(b"T", track=1), tag_of(("TIT2", mp3.latin1("T")))
        self.write("a.mp3", v2 + AUDIO + v1)
        self.set("--tag", "v1", "--title", "x")
        self.assertEqual(self.content(), v2 + AUDIO + mp3.id3v1(b"x", track=1))
        self.set("--tag", "v2", "--title", "y")
        self.assertEqual(self.text("TIT2", trailer=mp3.id3v1(b"x", track=1)), "y")

    def test_tag_that_is_added_is_told(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T", track=1))
        self.assertEqual(self.output("set", self.song, "--composer", "C"),
                         f'{self.song}:\n  ID3v2.3.0 added\n  v2 composer "" -> "C"\n')
        with self.assertRaises(ID3NoHeaderError):
            ID3(self.write("b.mp3", AUDIO))


class Reports(SetCase):
    def test_dry_run_tells_each_tag_and_writes_nothing(self):
        self.write("a.mp3", tag_of(("TIT2", mp3.latin1("Two"))) + AUDIO + mp3.id3v1(b"One", track=1))
        os.utime(self.song, ns=(1, 1))
        before = hash_of(self.song)
        self.assertEqual(self.output("set", self.song, "--title", "New", "--album", "B", "--dry-run"),
                         f'{self.song}: would change\n  v2 title "Two" -> "New"\n  v2 album "" -> "B"\n'
                         '  v1 title "One" -> "New"\n  v1 album "" -> "B"\n')
        self.assertEqual((hash_of(self.song), os.stat(self.song).st_mtime_ns, self.names()), (before, 1, ["a.mp3"]))

    def test_json_tells_each_tag(self):
        done = self.set("--title", "日本", "--lyrics", self.write("l.txt", b"one\ntwo"), "--json")
        self.assertEqual(json.loads(done.stdout), {
            "path": self.song, "ok": True, "dryRun": False,
            "changed": {"v2": {"title": {"old": "", "new": "日本"}, "lyrics": {"old": "", "new": "one\ntwo"}},
                        "v1": {"title": {"old": "", "new": "??"}}},
            "added": ["ID3v2.3.0", "ID3v1.1"], "removed": [],
            "warnings": ['title: 2 of its characters cannot be stored in ID3v1 and became "?"']})

    def test_json_of_a_tag_with_any_bytes_is_valid(self):
        self.write("a.mp3", tag_of(("TIT2", b"\0\x01\x7f\x9b\x1b[31m"), ("COMM", b"\1eng\0\0\xff\xfe\0\xd8")) + AUDIO)
        done = self.set("--title", "x", "--comment", "y", "--json")
        self.assertEqual(json.loads(done.stdout)["changed"]["v2"]["title"]["new"], "x")

    def test_long_values_are_shown_shortened(self):
        text = self.output("set", self.song, "--tag", "v2", "--comment", "word " * 100)
        self.assertLess(max(len(line) for line in text.splitlines()[1:]), 100)
        self.assertIn('..."', text)

    def test_quiet_tells_nothing(self):
        self.assertEqual(self.output("set", self.song, "--title", "x", "--quiet"), "")

    def test_file_is_not_touched_when_nothing_changes(self):
        self.write("a.mp3", tag_of(("TIT2", mp3.utf16("T")), ("TPE1", mp3.latin1('"A"'))) + AUDIO)
        os.utime(self.song, ns=(1, 1))
        before = os.stat(self.song).st_ino, hash_of(self.song)
        self.assertEqual(self.output("set", self.song, "--title", "T", "--album", ""), f"{self.song}: unchanged\n")
        self.assertEqual((os.stat(self.song).st_ino, hash_of(self.song), os.stat(self.song).st_mtime_ns), (*before, 1))

    def test_time_of_modification_is_kept_to_the_nanosecond_when_wanted(self):
        os.utime(self.song, ns=(3, 1234567890123456789))
        self.set("--title", "x", "--keep-mtime")
        self.assertEqual(os.stat(self.song).st_mtime_ns, 1234567890123456789)
        self.set("--title", "y")
        self.assertGreater(os.stat(self.song).st_mtime_ns, 1600000000 * 10 ** 9)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

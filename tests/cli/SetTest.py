#!/usr/bin/python3
"""corvane set: values of ID3v1 tags, and what every change has in common."""
import json
import os
import sys
import unittest

import mp3
from harness import DONE, FILE_FAILED, WRONG_USE, CliTest, hash_of

AUDIO = mp3.audio()


class SetCase(CliTest):
    def setUp(self):
        super().setUp()
        self.song = self.write("a.mp3", AUDIO)

    def content(self, path=None):
        with open(path or self.song, "rb") as file:
            return file.read()

    def set(self, *words, **options):
        return self.run_command("set", self.song, "--tag", "v1", *words, **options)

    def check_record(self, record):
        """The file is its audio, untouched, and this record."""
        content = self.content()
        self.assertEqual(content[:len(AUDIO)], AUDIO)
        self.assertEqual(content[len(AUDIO):], record)


class Values(SetCase):
    def test_every_value_is_written(self):
        self.set("--title", "Title", "--artist", "Artist", "--album", "Album", "--year", "2001", "--comment", "Comment",
                 "--track", "77", "--genre", "18")
        self.check_record(mp3.id3v1(b"Title", b"Artist", b"Album", b"2001", b"Comment", 77, 18))

    def test_values_that_are_not_given_stay(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T", b"A", b"B", b"1999", b"C", 7, 17))
        self.set("--artist", "New")
        self.check_record(mp3.id3v1(b"T", b"New", b"B", b"1999", b"C", 7, 17))

    def test_empty_value_deletes(self):
        for style in ("--{}", "--{}="):
            self.write("a.mp3", AUDIO + mp3.id3v1(b"T", b"A", b"B", b"1999", b"C", 7, 17))
            words = []
            for name in ("title", "artist", "album", "year", "comment", "track", "genre"):
                words += [f"--{name}="] if style.endswith("=") else [f"--{name}", ""]
            self.set(*words)
            self.check_record(mp3.id3v1(track=0))

    def test_kind_of_an_existing_record_is_kept(self):
        comment = b"a comment of thirty characters"
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T", comment=comment))
        self.set("--title", "New")
        self.check_record(mp3.id3v1(b"New", comment=comment))

    def test_track_number_makes_an_id3v1_record_an_id3v11_one(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T", comment=b"a comment of thirty characters"))
        done = self.set("--track", "5")
        self.check_record(mp3.id3v1(b"T", comment=b"a comment of thirty characte", track=5))
        self.assertEqual(done.stderr.decode(),
                         f'corvane: {self.song}: warning: comment: cut to "a comment of thirty characte"\n')

    def test_track_may_tell_the_number_of_tracks(self):
        self.set("--track", "5/12")
        self.check_record(mp3.id3v1(track=5))

    def test_genre_is_a_number_or_a_name_of_the_table(self):
        for given, number in (("17", 17), ("Rock", 17), ("rOcK", 17), ("Trip -Hop", 27), ("trip-hop", 27), ("200", 200)):
            self.set("--genre", given)
            self.assertEqual(self.content()[-1], number)

    def test_values_that_cannot_be_meant_are_wrong_use_and_change_nothing(self):
        for words in (["--genre", "Nonesuch"], ["--genre", "256"], ["--track", "256"], ["--track", "-1"], ["--track", "x"],
                      ["--track", "5/x"], ["--title", b"\xe9"], ["--title", "a", "--title", "b"], ["--title"], [],
                      ["--composer", "x"], ["--original-artist", "x"], ["--copyright", "x"], ["--url", "x"],
                      ["--encoded-by", "x"], ["--lyrics", ""], ["--picture", ""], ["--title", "x", "--composer", ""]):
            with self.subTest(words=words):
                self.error("set", self.song, "--tag", "v1", *words, code=WRONG_USE)
                self.assertEqual(self.content(), AUDIO)

    def test_text_may_be_anything(self):
        for title in ("-5", "--artist", "[a,b]", "{}", "%%", "a=b", "\"'", "%s", "é€"):
            self.set("--title", title)
            self.check_record(mp3.id3v1(title.encode("cp1252"), track=0))
            self.set(f"--title={title}x")
            self.check_record(mp3.id3v1((title + "x").encode("cp1252"), track=0))

    def test_text_that_is_too_long_is_cut_with_a_warning(self):
        done = self.set("--title", "x" * 31, "--year", "20011", "--comment", "c" * 29)
        self.check_record(mp3.id3v1(b"x" * 30, year=b"2001", comment=b"c" * 28, track=0))
        self.assertEqual(done.stderr.decode().replace(self.song, "SONG").splitlines(),
                         [f'corvane: SONG: warning: title: cut to "{"x" * 30}"', 'corvane: SONG: warning: year: cut to "2001"',
                          f'corvane: SONG: warning: comment: cut to "{"c" * 28}"'])

    def test_character_without_a_place_is_replaced_with_a_warning(self):
        done = self.set("--title", "日本 ok")
        self.check_record(mp3.id3v1(b"?? ok", track=0))
        self.assertEqual(done.stderr.decode(), f"corvane: {self.song}: warning: title: 2 of its characters cannot be stored "
                                               'in ID3v1 and became "?"\n')

    def test_several_files_get_the_same_values(self):
        songs = [self.write(f"{number}.mp3", AUDIO) for number in range(3)]
        self.run_command("set", "--tag", "v1", "--album", "All", *songs)
        for song in songs:
            self.assertEqual(self.content(song), AUDIO + mp3.id3v1(album=b"All", track=0))

    def test_tags_in_front_of_the_record_stay(self):
        tag = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("V2"))])
        lyrics = mp3.lyrics3v2([(b"LYR", b"la")])
        self.write("a.mp3", tag + AUDIO + lyrics + mp3.id3v1(b"V1"))
        self.set("--title", "New")
        self.assertEqual(self.content(), tag + AUDIO + lyrics + mp3.id3v1(b"New"))


class Unchanged(SetCase):
    def test_file_is_not_touched_when_nothing_changes(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T", track=7))
        os.utime(self.song, ns=(1, 1))
        done = self.set("--title", "T", "--track", "7")
        self.assertEqual(os.stat(self.song).st_mtime_ns, 1)
        self.assertEqual(done.stdout.decode(), f"{self.song}: unchanged\n")

    def test_deleting_from_a_file_without_a_record_adds_none(self):
        self.set("--title", "")
        self.check_record(b"")

    def test_dry_run_tells_and_changes_nothing(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"Old", track=7, genre=17))
        os.utime(self.song, ns=(1, 1))
        before = hash_of(self.song)
        text = self.output("set", self.song, "--title", "New", "--genre", "Jazz", "--dry-run")
        self.assertEqual(text, f'{self.song}: would change\n  v1 title "Old" -> "New"\n  v1 genre "Rock" -> "Jazz"\n')
        self.assertEqual((hash_of(self.song), os.stat(self.song).st_mtime_ns), (before, 1))


class Time(SetCase):
    def test_time_of_modification_is_kept_to_the_nanosecond_when_wanted(self):
        os.utime(self.song, ns=(3, 1234567890123456789))
        self.set("--title", "x", "--keep-mtime")
        self.assertEqual(os.stat(self.song).st_mtime_ns, 1234567890123456789)
        self.assertNotEqual(self.content(), AUDIO)

    def test_time_of_modification_is_that_of_the_change_otherwise(self):
        os.utime(self.song, ns=(3, 3))
        self.set("--title", "x")
        self.assertGreater(os.stat(self.song).st_mtime_ns, 10 ** 18)


class Reports(SetCase):
    def test_changes_are_told(self):
        self.assertEqual(self.output("set", self.song, "--tag", "v1", "--title", "New", "--track", "3"),
                         f'{self.song}:\n  ID3v1.1 added\n  v1 title "" -> "New"\n  v1 track "" -> "3"\n')

    def test_quiet_tells_nothing(self):
        self.assertEqual(self.output("set", self.song, "--title", "New", "--quiet"), "")

    def test_control_characters_of_old_values_are_made_visible(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"\x1b[31m\x9b"))
        self.assertIn('"␛[31m›" -> "New"', self.output("set", self.song, "--title", "New"))

    def test_json_has_one_object_a_file(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"Old"))
        bad = self.write("b.mp3", b"PK\3\4")
        words = ["--title", "New", "--year", "20011", "--json"]
        done = self.run_command("set", self.song, bad, self.song, *words, code=FILE_FAILED)
        first, second, third = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual(first, {"path": self.song, "ok": True, "dryRun": False,
                                 "changed": {"v1": {"title": {"old": "Old", "new": "New"},
                                                    "year": {"old": "", "new": "2001"}}},
                                 "added": [], "removed": [], "warnings": ['year: cut to "2001"']})
        self.assertEqual(second, {"path": bad, "ok": False, "error": "This is a ZIP-File"})
        self.assertEqual((third["ok"], third["changed"]), (True, {}))

    def test_json_stays_valid_for_any_name(self):
        path = self.write(b"caf\xe9\n.mp3", AUDIO)
        done = self.run_command("set", path, "--title", "x", "--json", "--dry-run")
        self.assertEqual(json.loads(done.stdout.decode("utf-8"))["path"], path.decode("utf-8", "replace"))
        self.assertIs(json.loads(done.stdout)["dryRun"], True)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

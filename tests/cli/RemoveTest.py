#!/usr/bin/python3
"""corvane remove: tags cut off files."""
import hashlib
import json
import os
import sys
import unittest

import mp3
from harness import FILE_FAILED, CliTest, hash_of

AUDIO = mp3.audio()


class Remove(CliTest):
    def setUp(self):
        super().setUp()
        self.song = self.write("a.mp3", AUDIO + mp3.id3v1(b"T", track=7))

    def check_removed(self, *words):
        text = self.output("remove", self.song, *words)
        with open(self.song, "rb") as file:
            self.assertEqual(file.read(), AUDIO)
        self.assertEqual(self.names(), ["a.mp3"])
        return text

    def test_record_is_removed_and_the_audio_stays(self):
        self.assertEqual(self.check_removed(), f"{self.song}:\n  ID3v1.1 removed\n")

    def test_kind_of_the_record_is_told(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T"))
        self.assertEqual(self.check_removed("--tag", "v1"), f"{self.song}:\n  ID3v1 removed\n")

    def test_quiet_tells_nothing(self):
        self.assertEqual(self.check_removed("-q"), "")

    def test_file_without_a_record_fails_with_the_reason(self):
        song = self.write("b.mp3", AUDIO)
        before = hash_of(song)
        for words in ([], ["--dry-run"], ["--keep-mtime"]):
            self.assertEqual(self.error("remove", song, *words), f"corvane: {song}: The file has no ID3v1x tag.")
        self.assertEqual(hash_of(song), before)

    def test_dry_run_tells_and_changes_nothing(self):
        before = hash_of(self.song), os.stat(self.song).st_mtime_ns
        self.assertEqual(self.output("remove", self.song, "--dry-run"), f"{self.song}: would change\n  ID3v1.1 removed\n")
        self.assertEqual((hash_of(self.song), os.stat(self.song).st_mtime_ns), before)

    def test_time_of_modification_is_kept_when_wanted(self):
        os.utime(self.song, ns=(5, 987654321987654321))
        self.check_removed("--keep-mtime")
        self.assertEqual(os.stat(self.song).st_mtime_ns, 987654321987654321)

    def test_json_has_one_object_a_file(self):
        bad = self.write("b.mp3", AUDIO)
        done = self.run_command("remove", "--json", self.song, bad, code=FILE_FAILED)
        first, second = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual(first, {"path": self.song, "ok": True, "dryRun": False, "changed": {}, "added": [],
                                 "removed": ["ID3v1.1"], "warnings": []})
        self.assertEqual(second, {"path": bad, "ok": False, "error": "The file has no ID3v1x tag."})

    def test_other_tags_stay_when_none_is_chosen(self):
        front = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("V2"))]) + AUDIO + mp3.lyrics3v2([(b"LYR", b"la")])
        self.write("a.mp3", front + mp3.id3v1(b"T"))
        self.output("remove", self.song)
        with open(self.song, "rb") as file:
            self.assertEqual(file.read(), front)


class RemoveId3v2(CliTest):
    TITLE = mp3.frame23("TIT2", mp3.latin1("T"))
    RECORD = mp3.id3v1(b"T", track=7)

    def check_removed(self, before, tag, after, removed):
        song = self.write("a.mp3", before)
        os.utime(song, ns=(5, 987654321987654321))
        lines = "".join(f"  {name} removed\n" for name in removed)
        self.assertEqual(self.output("remove", song, "--tag", tag, "--dry-run"), f"{song}: would change\n{lines}")
        self.assertEqual((hash_of(song), os.stat(song).st_mtime_ns), (hashlib.sha256(before).hexdigest(), 987654321987654321))
        self.assertEqual(self.output("remove", song, "--tag", tag, "--keep-mtime"), f"{song}:\n{lines}")
        with open(song, "rb") as file:
            self.assertEqual(file.read(), after)
        self.assertEqual((os.stat(song).st_mtime_ns, self.names()), (987654321987654321, ["a.mp3"]))

    def test_chosen_tags_are_removed_and_the_others_stay(self):
        front, lyrics = mp3.id3v2([self.TITLE]), mp3.lyrics3v2([(b"LYR", b"la")])
        whole = front + AUDIO + lyrics + self.RECORD
        self.check_removed(whole, "v1", front + AUDIO + lyrics, ["ID3v1.1"])
        self.check_removed(whole, "v2", AUDIO + lyrics + self.RECORD, ["ID3v2.3.0"])
        self.check_removed(whole, "both", AUDIO + lyrics, ["ID3v1.1", "ID3v2.3.0"])
        self.check_removed(front + self.RECORD, "both", b"", ["ID3v1.1", "ID3v2.3.0"])

    def test_both_are_those_that_are_there(self):
        self.check_removed(AUDIO + self.RECORD, "both", AUDIO, ["ID3v1.1"])
        self.check_removed(mp3.id3v2([self.TITLE]) + AUDIO, "both", AUDIO, ["ID3v2.3.0"])

    def test_tag_of_any_version_and_any_content_is_removed(self):
        runs_over = b"TPE1" + (5000).to_bytes(4, "big") + b"\0\0x"
        for tag, name in ((mp3.id3v2([mp3.frame22("TT2", mp3.latin1("T"))], major=2), "ID3v2.2.0"),
                          (mp3.id3v2([mp3.frame24("TIT2", mp3.latin1("T"))], major=4), "ID3v2.4.0"),
                          (mp3.id3v2([self.TITLE, runs_over]), "ID3v2.3.0")):
            self.check_removed(tag + AUDIO + self.RECORD, "v2", AUDIO + self.RECORD, [name])

    def check_refused(self, content, tag, reason):
        song = self.write("a.mp3", content)
        before = hash_of(song), os.stat(song).st_mtime_ns
        for words in ([], ["--dry-run"]):
            self.assertEqual(self.error("remove", song, "--tag", tag, *words), f"corvane: {song}: {reason}")
        self.assertEqual((hash_of(song), os.stat(song).st_mtime_ns), before)

    def test_file_without_a_chosen_tag_fails_with_the_reason(self):
        self.check_refused(AUDIO + self.RECORD, "v2", "The file has no ID3v2 tag.")
        self.check_refused(mp3.id3v2([self.TITLE]) + AUDIO, "v1", "The file has no ID3v1x tag.")
        self.check_refused(AUDIO, "both", "The file has neither an ID3v1 nor an ID3v2 tag.")

    def test_tag_whose_end_is_not_known_is_not_removed_and_no_other_is(self):
        larger = b"ID3\3\0\0" + mp3.synchsafe(10 ** 6) + self.TITLE
        unknown = mp3.id3v2([self.TITLE], major=5)
        for tag in ("v2", "both"):
            self.check_refused(larger + AUDIO + self.RECORD, tag, "the ID3v2 tag is larger than the file")
            self.check_refused(unknown + AUDIO + self.RECORD, tag, "the version of the ID3v2 tag is not known")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

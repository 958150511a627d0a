#!/usr/bin/python3
"""corvane remove: ID3v1 tags cut off files."""
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
        self.assertEqual(first, {"path": self.song, "ok": True, "dryRun": False, "changed": {}, "removed": ["ID3v1.1"],
                                 "warnings": []})
        self.assertEqual(second, {"path": bad, "ok": False, "error": "The file has no ID3v1x tag."})

    def test_other_tags_stay(self):
        front = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("V2"))]) + AUDIO + mp3.lyrics3v2([(b"LYR", b"la")])
        self.write("a.mp3", front + mp3.id3v1(b"T"))
        self.output("remove", self.song)
        with open(self.song, "rb") as file:
            self.assertEqual(file.read(), front)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

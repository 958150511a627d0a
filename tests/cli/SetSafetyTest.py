#!/usr/bin/python3
"""corvane set and remove: a file is changed as a whole or not at all."""
import json
import os
import resource
import shutil
import stat
import struct
import sys
import unittest

import mp3
from harness import COMMAND, FILE_FAILED, CliTest

AUDIO = mp3.audio()
TITLE = mp3.frame23("TIT2", mp3.latin1("T"))
RECORD = mp3.id3v1(b"T", track=1)
VERSION = "the ID3v2 tag is of version 2.{}, only 2.3 can be changed"
HINT = "; --tag v1 changes the ID3v1 tag alone"


def limited_to(size):
    """Makes every file end at this size, as a full disk would."""
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


class SafetyCase(CliTest):
    def content(self, path):
        with open(path, "rb") as file:
            return file.read()

    def as_nobody(self):
        """How to run a command without the rights of the superuser, whom no permission stops."""
        if os.geteuid() != 0:
            return {}
        command = shutil.copy(COMMAND, self.folder)
        return {"executable": command, "user": "nobody", "group": "nogroup", "extra_groups": []}

    def check_refused(self, content, reason, *words, **options):
        """The command fails with this reason, and the file is the same file with the same bytes and times."""
        song = self.write("refused.mp3", content)
        os.utime(song, ns=(7, 8))
        before, names = os.stat(song), self.names()
        self.assertEqual(self.error(words[0], song, *words[1:], **options), f"corvane: {song}: {reason}")
        after = os.stat(song)
        self.assertEqual(self.content(song), content)
        self.assertEqual((after.st_ino, after.st_mtime_ns, after.st_ctime_ns), (before.st_ino, before.st_mtime_ns, before.st_ctime_ns))
        self.assertEqual(self.names(), names)


class Refused(SafetyCase):
    def test_tags_of_other_versions_are_not_rewritten(self):
        for major, frame in ((2, mp3.frame22("TT2", mp3.latin1("T"))), (4, mp3.frame24("TIT2", mp3.latin1("T")))):
            content = mp3.id3v2([frame], major=major) + AUDIO + RECORD
            for words in ([], ["--dry-run"]):
                self.check_refused(content, VERSION.format(major) + HINT, "set", "--title", "x", *words)
            self.check_refused(content, VERSION.format(major), "set", "--title", "x", "--tag", "both")
            self.check_refused(content, VERSION.format(major), "set", "--composer", "x")

    def test_damaged_tags_are_not_rewritten(self):
        runs_over = b"TPE1" + struct.pack(">IH", 5000, 0) + b"x"
        for tag, reason in ((mp3.id3v2([TITLE, runs_over]), "the frame TPE1 runs past the end of the tag"),
                            (b"ID3\3\0\0" + mp3.synchsafe(10 ** 6) + TITLE, "the ID3v2 tag is larger than the file"),
                            (mp3.id3v2([TITLE, bytes(50), b"something"]), "the padding behind the frames is not empty")):
            self.check_refused(tag + AUDIO + RECORD, reason, "set", "--title", "x", "--tag", "both")

    def test_id3v1_tag_of_such_a_file_can_be_changed_alone(self):
        tag = mp3.id3v2([mp3.frame24("TIT2", mp3.latin1("T"))], major=4)
        song = self.write("a.mp3", tag + AUDIO + RECORD)
        self.output("set", song, "--title", "x", "--tag", "v1")
        self.assertEqual(self.content(song), tag + AUDIO + mp3.id3v1(b"x", track=1))

    def test_a_folder_that_may_not_be_written_to_leaves_only_changes_in_place(self):
        content = mp3.id3v2([TITLE]) + AUDIO + RECORD
        song = self.write("locked/refused.mp3", content)
        os.chmod(self.folder, 0o755)
        os.chmod(song, 0o666)
        os.chmod(os.path.dirname(song), 0o555)
        self.addCleanup(os.chmod, os.path.dirname(song), 0o755)
        told = self.error("set", song, "--title", "x" * 5000, "--tag", "v2", **self.as_nobody())
        self.assertEqual(told, f"corvane: {song}: Permission denied")
        self.assertEqual(self.content(song), content)
        self.output("set", song, "--title", "x", "--tag", "v1", **self.as_nobody())
        self.assertEqual(self.content(song), mp3.id3v2([TITLE]) + AUDIO + mp3.id3v1(b"x", track=1))
        self.assertEqual(os.listdir(os.path.dirname(song)), ["refused.mp3"])

    def test_other_files_go_on(self):
        bad = self.write("a.mp3", mp3.id3v2([], major=4) + AUDIO)
        good = self.write("b.mp3", AUDIO)
        done = self.run_command("set", bad, good, "--title", "x", "--json", code=FILE_FAILED)
        first, second = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual((first["ok"], first["error"], second["ok"]), (False, VERSION.format(4) + HINT, True))
        self.assertTrue(self.content(good).startswith(b"ID3\3"))

    def test_without_id3lib_id3v1_alone_is_changed(self):
        message = "The DLL 'libid3-3.8.so.3' is not present. Please install it into the program directory."
        without = self.without_id3lib()
        self.check_refused(AUDIO, message + HINT, "set", "--title", "x", environment=without)
        content = mp3.id3v2([TITLE]) + AUDIO + RECORD
        self.check_refused(content, message, "set", "--title", "x", "--tag", "both", environment=without)
        song = self.write("a.mp3", content)
        self.output("set", song, "--title", "x", "--tag", "v1", environment=without)
        self.assertEqual(self.content(song), mp3.id3v2([TITLE]) + AUDIO + mp3.id3v1(b"x", track=1))
        self.output("remove", song, "--tag", "both", environment=without)
        self.assertEqual(self.content(song), AUDIO)


class FullDisk(SafetyCase):
    def test_file_that_does_not_fit_stays_what_it_was(self):
        for tag in ("v1", "v2", "both"):
            self.check_refused(AUDIO, "File too large", "set", "--title", "x", "--tag", tag, preexec_fn=limited_to(len(AUDIO)))
        content = mp3.id3v2([TITLE], padding=0) + AUDIO + RECORD
        self.check_refused(content, "File too large", "set", "--title", "longer", "--tag", "both",
                           preexec_fn=limited_to(len(content)))
        self.check_refused(content, "File too large", "remove", "--tag", "v2", preexec_fn=limited_to(len(AUDIO)))

    def test_tag_that_could_not_follow_the_other_is_told(self):
        tag = mp3.id3v2([TITLE])
        song = self.write("a.mp3", tag + AUDIO)
        error = self.error("set", song, "--title", "x", "--tag", "both", preexec_fn=limited_to(len(tag + AUDIO)))
        self.assertEqual(error, f"corvane: {song}: The ID3v2.3.0 tag is changed, but the ID3v1.1 tag is not added: File too large")
        self.assertEqual(self.content(song), mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("x"))]) + AUDIO)


class Names(SafetyCase):
    """What a file is called, and how often, is the same afterwards."""

    def setUp(self):
        super().setUp()
        self.before = mp3.id3v2([TITLE], padding=0) + AUDIO + RECORD

    def check_changed(self, path):
        content = self.content(path)
        size = mp3.id3v2_size(content)
        self.assertIn(mp3.frame23("TIT2", mp3.latin1("New title")), content[:size])
        self.assertEqual(content[size:], AUDIO + mp3.id3v1(b"New title", track=1))
        self.output("remove", path, "--tag", "both")
        self.assertEqual(self.content(path), AUDIO)

    def set(self, path):
        self.output("set", path, "--title", "New title", "--quiet")

    def test_name_may_be_as_long_as_names_can_be(self):
        for name in (b"x" * 251 + b".mp3", "語".encode() * 83 + b"ab.mp3", b"caf\xe9.mp3", b"-n"):
            path = self.write(name, self.before)
            self.output("set", "--title", "New title", "--quiet", "--", path)
            self.check_changed(path)
        self.assertEqual(len(self.names()), 4)

    def test_symbolic_link_stays_one(self):
        real = self.write("sub/real.mp3", self.before)
        link = os.path.join(self.folder, "link.mp3")
        os.symlink("sub/real.mp3", link)
        self.set(link)
        self.assertEqual(os.readlink(link), "sub/real.mp3")
        self.check_changed(real)
        self.assertEqual((self.names(), os.listdir(os.path.dirname(real))), (["link.mp3", "sub"], ["real.mp3"]))

    def test_hard_links_show_the_same_change(self):
        song = self.write("a.mp3", self.before)
        other = os.path.join(self.folder, "b.mp3")
        os.link(song, other)
        self.set(song)
        self.assertEqual(os.stat(song).st_ino, os.stat(other).st_ino)
        self.assertEqual(self.content(song), self.content(other))
        self.check_changed(other)
        self.assertEqual(self.content(song), AUDIO)

    def test_permissions_stay(self):
        song = self.write("a.mp3", self.before)
        os.chmod(song, 0o640)
        self.set(song)
        self.assertEqual(stat.S_IMODE(os.stat(song).st_mode), 0o640)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

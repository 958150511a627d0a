#!/usr/bin/python3
"""Which runs load id3lib: only those that have to know whether an ID3v2.3 tag can be changed."""
import subprocess
import sys
import unittest

import mp3
from harness import COMMAND, CliTest, environment

AUDIO = mp3.audio()


class Id3lib(CliTest):
    def setUp(self):
        super().setUp()
        self.version23 = self.write("a.mp3", mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("T"))]) + AUDIO + mp3.id3v1(b"T", track=1))
        self.version24 = self.write("b.mp3", mp3.id3v2([mp3.frame24("TIT2", mp3.latin1("T"))], major=4) + AUDIO)
        self.untagged = self.write("c.mp3", AUDIO)

    def loads(self, *words):
        """How often the loader took the library up, as it says itself."""
        done = subprocess.run([COMMAND, *words], env=environment(LD_DEBUG="files"), capture_output=True, check=True)
        return sum(b"calling init: " in line and b"libid3" in line for line in done.stderr.splitlines())

    def test_loader_tells_of_it(self):
        self.assertEqual(self.loads("set", self.version23, "--title", "x"), 1)

    def test_list_never_loads_it(self):
        self.assertEqual(self.loads("scan", str(self.folder)), 0)

    def test_document_loads_it_once_at_most(self):
        self.assertLessEqual(self.loads("xml", self.version23), 1)
        self.assertEqual([self.loads("xml", song) for song in (self.version24, self.untagged)], [0, 0])

    def test_show_loads_it_for_tags_that_it_could_change(self):
        self.assertEqual([self.loads("show", song) for song in (self.version23, self.version24, self.untagged)], [1, 0, 0])

    def test_removing_and_id3v1_do_without_it(self):
        self.assertEqual(self.loads("set", self.version23, "--tag", "v1", "--title", "x"), 0)
        document = self.write("b.xml", self.run_command("xml", self.version24).stdout)
        self.assertEqual(self.loads("import", self.version23, document), 0)
        self.assertEqual(self.loads("remove", self.version23, "--tag", "both"), 0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

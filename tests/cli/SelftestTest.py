#!/usr/bin/python3
"""corvane selftest: the fixture in a folder."""
import os
import sys
import unittest

import mp3
from harness import FILE_FAILED, CliTest, environment

SCRATCH = "MP3Tst00.mp3"


class Selftest(CliTest):
    def check_passed(self, text, first_run):
        self.assertIn("ID3v1xTagRW Test\n", text)
        for step in ("Deleting Test-File", "Create Test-File", "Write Tag", "Check if Tag exists", "Testing file size",
                     "Comparing written Tag", "- REWRITE TAG -"):
            self.assertIn(f"\n{step}\n", text)
        self.assertEqual("  FAILED  Couldn't delete the Test-File" in text, first_run)
        self.assertEqual(text.count("FAILED"), int(first_run))
        self.assertEqual(text.count("  ok  "), 21)
        self.assertEqual(text.splitlines()[-1],
                         "21 checks passed, 0 failed" + (", 1 failed as expected" if first_run else ""))

    def test_fresh_folder_fails_only_where_expected_and_is_gone_afterwards(self):
        text = self.output("selftest", environment=environment(TMPDIR=str(self.folder)))
        self.check_passed(text, first_run=True)
        self.assertEqual(self.names(), [])

    def test_given_folder_keeps_the_scratch_file(self):
        self.check_passed(self.output("selftest", str(self.folder)), first_run=True)
        with open(self.folder / SCRATCH, "rb") as file:
            self.assertEqual(file.read(), b"Test-Test-" + mp3.id3v1(b"Title", b"Artist", b"Album", b"2001", b"Comment", 77, 18))

    def test_second_run_passes_every_check(self):
        self.output("selftest", str(self.folder))
        self.check_passed(self.output("selftest", str(self.folder)), first_run=False)

    def test_folder_may_be_relative(self):
        os.mkdir(self.folder / "below")
        self.check_passed(self.output("selftest", "below", cwd=self.folder), first_run=True)

    def test_missing_folder_is_named(self):
        self.assertEqual(self.error("selftest", "missing"), "corvane: missing: No such file or directory")

    def test_failed_checks_are_counted_and_end_with_1(self):
        os.mkdir(self.folder / SCRATCH)
        os.mkdir(self.folder / SCRATCH / "full")
        done = self.run_command("selftest", str(self.folder), code=FILE_FAILED)
        self.assertIn("  FAILED  Couldn't create the Test-File 'MP3Tst00.mp3'\n", done.stdout.decode())
        self.assertIn(f"corvane: {self.folder}: ", done.stderr.decode())
        self.assertNotIn("as expected", done.stdout.decode())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

#!/usr/bin/python3
"""The example of a host shows what is in a file on a window of its own.

    HostTest.py HOST_EXAMPLE SAMPLE_FILE
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HOST, SAMPLE = (Path(word).resolve() for word in sys.argv[1:3])
SOURCE = Path(__file__).resolve().parents[2] / "examples/host/Host.cpp"


class Host(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copy(SAMPLE, self.folder / "song.mp3")

    def run_host(self, *words):
        return subprocess.run([HOST, *words], cwd=self.folder, capture_output=True, text=True, check=False,
                              encoding="utf-8", env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))

    def test_the_window_shows_the_tags(self):
        before = (self.folder / "song.mp3").read_bytes()
        done = self.run_host("song.mp3", "window.png")
        self.assertEqual((done.returncode, done.stdout), (0, "ID3v1 1, ID3v2 1, Lyrics3 1, title A Chord to Look Around In\n"))
        picture = (self.folder / "window.png").read_bytes()
        width, height = (int.from_bytes(picture[at:at + 4], "big") for at in (16, 20))
        self.assertEqual(picture[1:4], b"PNG")
        self.assertGreater(width, 300)
        self.assertGreater(height, 400)
        self.assertEqual((self.folder / "song.mp3").read_bytes(), before)

    def test_a_file_that_is_not_there_is_told(self):
        done = self.run_host("nothing.mp3", "window.png")
        self.assertEqual(done.returncode, 1)
        self.assertIn("No such file", done.stderr)

    def test_wrong_use_is_told(self):
        self.assertEqual(self.run_host().returncode, 2)

    def test_the_example_stays_small(self):
        self.assertLess(len(SOURCE.read_text(encoding="utf-8").splitlines()), 100)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

#!/usr/bin/python3
"""The example of a host shows what is in a file on a window of its own.

    HostTest.py HOST_EXAMPLE SAMPLE_FILE
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from mutagen.id3 import ID3

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "editor"))
from screen import PAUSE, PATIENCE, Screen  # noqa: E402

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

    def test_save_button_saves_what_was_typed(self):
        song = self.folder / "song.mp3"
        before = song.read_bytes()
        rest = before[ID3(song).size:-128]
        screen = Screen(self.folder, [HOST, song], "song.mp3")
        self.addCleanup(screen.close)
        screen.press("alt+t", "ctrl+a")
        screen.type("Typed into the host")
        self.assertEqual(song.read_bytes(), before)
        screen.press("ctrl+s")
        until = time.monotonic() + PATIENCE
        while str(ID3(song)["TIT2"]) != "Typed into the host" and time.monotonic() < until:
            time.sleep(PAUSE)
        self.assertEqual(str(ID3(song)["TIT2"]), "Typed into the host")
        now = song.read_bytes()
        self.assertEqual(now[ID3(song).size:-128], rest)
        self.assertEqual(now[-128:-125], b"TAG")
        screen.press("ctrl+w")
        self.assertEqual(screen.program.wait(PATIENCE), 0)

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

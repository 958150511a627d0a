#!/usr/bin/python3
"""The editor as its users run it: a process on an X screen, driven by keys. What it saves is read with mutagen, and the
audio must be byte for byte what it was."""
import hashlib
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from mutagen.id3 import ID3, ID3NoHeaderError

from screen import PATIENCE, PAUSE, Screen


def id3v2_size(content):
    if content[:3] != b"ID3":
        return 0
    size = 0
    for byte in content[6:10]:
        size = size << 7 | byte
    return size + 10


def audio_hash(path):
    content = path.read_bytes()
    end = -128 if content[-128:-125] == b"TAG" else None
    return hashlib.sha256(content[id3v2_size(content):end]).hexdigest()


def frames(path):
    try:
        return {frame.FrameID: frame for frame in ID3(path).values()}
    except ID3NoHeaderError:
        return {}


def text(path, frame):
    found = frames(path).get(frame)
    return str(found) if found else None


def record(path, start, end):
    last = path.read_bytes()[-128:]
    return last[start:end].rstrip(b"\0 ").decode("cp1252") if last[:3] == b"TAG" else None


def editor_on_screen(folder, *files):
    return Screen(folder, [os.environ["CORVANE_EDITOR"], *files], "Corvane Editor")


class Editor(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        tone = cls.folder / "tone.wav"
        subprocess.run(["sox", "-n", "-r", "44100", "-c", "2", tone, "synth", "1", "sine", "440"], check=True)
        cls.tagged = cls.folder / "music" / "1.mp3"
        cls.modern = cls.folder / "music" / "2.mp3"
        cls.plain = cls.folder / "music" / "3.mp3"
        cls.tagged.parent.mkdir()
        lame = ["lame", "--quiet", "-b", "96", tone]
        subprocess.run([*lame, cls.tagged, "--tt", "First", "--ta", "Somebody", "--tl", "Old album", "--add-id3v2"], check=True)
        subprocess.run([*lame, cls.modern, "--tt", "Second", "--ta", "Somebody", "--id3v2-only"], check=True)
        subprocess.run([*lame, cls.plain], check=True)
        cls.files = [cls.tagged, cls.modern, cls.plain]
        cls.hashes = {path: audio_hash(path) for path in cls.files}
        cls.cover = cls.folder / "cover.jpg"
        subprocess.run(["ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "color=blue:s=64x64", "-frames:v", "1", cls.cover],
                       check=True)
        cls.screen = editor_on_screen(cls.folder, cls.tagged.parent)
        cls.addClassCleanup(cls.screen.close)

    def setUp(self):
        self.assertIsNone(self.screen.program.poll(), "the editor has ended")

    def tearDown(self):
        for path in self.files:
            self.assertEqual(audio_hash(path), self.hashes[path], path.name)

    def wait_for(self, read, expected):
        until = time.monotonic() + PATIENCE
        while read() != expected and time.monotonic() < until:
            time.sleep(0.1)
        self.assertEqual(read(), expected)

    def select_first(self):
        self.screen.press("ctrl+1", "ctrl+Home", "Down", "Up")

    def test_1_nothing_is_written_without_a_command(self):
        before = [path.read_bytes() for path in self.files]
        self.select_first()
        self.screen.press("ctrl+2")
        self.screen.type("Never saved")
        self.screen.press("ctrl+z", "ctrl+shift+a")
        self.assertEqual([path.read_bytes() for path in self.files], before)

    def test_2_one_file_is_edited(self):
        self.select_first()
        self.screen.press("ctrl+2")
        self.screen.type("Edited on a screen")
        self.screen.press("ctrl+s")
        self.wait_for(lambda: text(self.tagged, "TIT2"), "Edited on a screen")
        self.assertEqual(text(self.tagged, "TPE1"), "Somebody")
        self.assertEqual(record(self.tagged, 3, 33), "First")
        self.assertEqual(text(self.modern, "TIT2"), "Second")

    def test_3_many_files_are_edited(self):
        self.screen.press("ctrl+shift+a")
        time.sleep(2 * PAUSE)  # their tags are read
        self.screen.press("ctrl+2", "Tab", "Tab")
        self.screen.type("Same album")
        self.screen.press("ctrl+s")
        for path in self.files:
            self.wait_for(lambda path=path: text(path, "TALB"), "Same album")
        self.assertEqual(record(self.tagged, 63, 93), "Same album")
        self.assertEqual(record(self.plain, 63, 93), "Same album")
        self.assertIsNone(record(self.modern, 63, 93))
        self.assertEqual(text(self.tagged, "TIT2"), "Edited on a screen")
        self.assertEqual(text(self.modern, "TIT2"), "Second")

    def test_4_picture_is_loaded(self):
        self.select_first()
        self.screen.press("ctrl+shift+p")
        self.screen.focus("Load picture")
        self.screen.type(str(self.cover))
        self.screen.press("Return")
        self.screen.focus(self.tagged.name)
        self.screen.press("ctrl+s")
        self.wait_for(lambda: getattr(frames(self.tagged).get("APIC"), "data", None), self.cover.read_bytes())
        self.assertEqual(frames(self.tagged)["APIC"].mime, "image/jpeg")
        self.assertNotIn("APIC", frames(self.modern))

    def test_5_no_temporary_file_stays_behind(self):
        self.assertEqual(sorted(path.name for path in self.tagged.parent.iterdir()), ["1.mp3", "2.mp3", "3.mp3"])

    def test_6_it_ends_without_a_question_when_all_is_saved(self):
        self.screen.press("ctrl+q")
        self.assertEqual(self.screen.program.wait(PATIENCE), 0)


class Quit(unittest.TestCase):
    def test_editor_without_changes_ends_at_once(self):
        with tempfile.TemporaryDirectory() as folder:
            screen = editor_on_screen(Path(folder))
            self.addCleanup(screen.close)
            screen.press("ctrl+q")
            self.assertEqual(screen.program.wait(PATIENCE), 0)


if __name__ == "__main__":
    for tool in ("Xvfb", "xdotool", "lame", "sox", "ffmpeg"):
        if not shutil.which(tool):
            sys.exit(f"{tool} is not installed")
    unittest.main(argv=[sys.argv[0], "-v"])

"""What the tests of the module share: a folder of each test's own, and files in it."""
import os
import sys
from pathlib import Path

import pytest

TESTS = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TESTS / "cli"))  # mp3.py: bytes of MP3 files

import corvane  # noqa: E402
import mp3  # noqa: E402

PNG = mp3.png(3, 4)


@pytest.fixture
def write(tmp_path):
    """Writes a file into the test's own folder and gives its path."""

    def writing(content, name="a.mp3"):
        path = os.path.join(tmp_path, os.fsdecode(name))
        with open(path, "wb") as file:
            file.write(content)
        return path

    return writing


@pytest.fixture
def open_mp3(write):
    """A FileHandler that has opened a file of these bytes."""

    def opening(content):
        handler = corvane.FileHandler()
        assert handler.Create(write(content))
        return handler

    return opening


@pytest.fixture
def tag23():
    """A file with a tag of version 2.3 that has one frame of every common property."""
    return mp3.id3v2([
        mp3.frame23("TIT2", mp3.latin1("Title")), mp3.frame23("TPE1", mp3.utf16("Ärtist ł")),
        mp3.frame23("TALB", mp3.latin1("Album")), mp3.frame23("TCON", mp3.latin1("(17)Rock")),
        mp3.frame23("TRCK", mp3.latin1("3/12")), mp3.frame23("TYER", mp3.latin1("1999")),
        mp3.frame23("COMM", b"\0eng\0" + b"Comment"), mp3.frame23("USLT", b"\0eng\0" + b"Lyrics"),
        mp3.frame23("WXXX", b"\0\0http://u"), mp3.frame23("TCOM", mp3.latin1("Composer")),
        mp3.frame23("TOPE", mp3.latin1("Original")), mp3.frame23("TCOP", mp3.latin1("Copyright")),
        mp3.frame23("TENC", mp3.latin1("Encoder")), mp3.frame23("APIC", mp3.picture(PNG)),
    ]) + mp3.audio()

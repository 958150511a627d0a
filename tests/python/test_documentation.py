"""The examples of docs/python.md run, print what the page says, and pass the type check."""
import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

import mp3
import pytest
from conftest import PNG

import corvane

PAGE = Path(os.environ["CORVANE_SOURCE"], "docs", "python.md").read_text(encoding="utf-8")
EXAMPLES = re.findall(r"```python\n(.*?)```\n(?:\n```text\n(.*?)```)?", PAGE, re.S)
PACKAGE = Path(corvane.__file__).parent


@pytest.fixture
def folder(tmp_path, tag23):
    """What the page takes for granted: a folder with two songs and a picture."""
    music = tmp_path / "music"
    music.mkdir()
    frames = [mp3.frame23("TIT2", mp3.latin1("First")), mp3.frame23("TPE1", mp3.latin1("Somebody")),
              mp3.frame23("TCON", mp3.latin1("(17)Rock"))]
    record = mp3.id3v1(b"First", b"Somebody", track=1, genre=17)
    (music / "first.mp3").write_bytes(mp3.id3v2(frames) + mp3.audio(500) + record)
    (music / "second.mp3").write_bytes(mp3.audio(500))
    (music / "broken.mp3").write_bytes(b"PK\3\4" + bytes(100))
    (tmp_path / "cover.png").write_bytes(PNG)
    return tmp_path


def test_the_page_has_examples():
    assert len(EXAMPLES) >= 6
    assert PAGE.count("```python") == len(EXAMPLES)


@pytest.mark.parametrize("number", range(len(EXAMPLES)))
def test_example_prints_what_the_page_says(folder, number):
    program, expected = EXAMPLES[number]
    done = subprocess.run([sys.executable, "-c", program], cwd=folder, capture_output=True, text=True, check=False)
    assert (done.returncode, done.stderr) == (0, "")
    assert done.stdout == expected


def test_the_examples_pass_the_strict_type_check(tmp_path):
    programs = []
    for number, (program, _) in enumerate(EXAMPLES):
        programs.append(tmp_path / f"example{number}.py")
        programs[-1].write_text(program, encoding="utf-8")
    done = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", os.devnull, *programs], cwd="/",
                          env=os.environ | {"MYPYPATH": str(PACKAGE.parent)}, capture_output=True, text=True,
                          check=False)
    assert done.returncode == 0, done.stdout

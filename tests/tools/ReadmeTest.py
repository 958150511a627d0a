#!/usr/bin/python3
"""What README.md shows works: its C++ sample, its commands, its make words, and the links of every page.

    ReadmeTest.py COMMAND TITLE_EXAMPLE SAMPLE_FILE
"""
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COMMAND, TITLE_EXAMPLE, SAMPLE = (Path(word).resolve() for word in sys.argv[1:4])


def blocks(language):
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    return re.findall(rf"^```{language}\n(.*?)^```", readme, re.MULTILINE | re.DOTALL)


def commands(word):
    return [line for block in blocks("sh") for line in block.splitlines() if line.startswith(f"{word} ")]


class Readme(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copy(SAMPLE, self.folder / "song.mp3")
        subprocess.run(["ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "color=red:s=16x16", "-frames:v", "1",
                        self.folder / "cover.jpg"], check=True)

    def test_the_sample_is_the_example_that_is_built(self):
        self.assertEqual(blocks("cpp"), [(ROOT / "examples/title/Title.cpp").read_text(encoding="utf-8")])

    def test_the_sample_reads_and_writes(self):
        done = subprocess.run([TITLE_EXAMPLE, "song.mp3"], cwd=self.folder, capture_output=True, text=True, check=True)
        self.assertEqual((done.stdout, done.stderr), ("A Chord to Look Around In, 4 s\n", ""))
        self.assertIn(b"Heard today", (self.folder / "song.mp3").read_bytes()[-128:])

    def test_every_command_works(self):
        lines = commands("corvane")
        self.assertGreater(len(lines), 5)
        for line in lines:
            with self.subTest(line):
                done = subprocess.run(["bash", "-c", line], cwd=self.folder, capture_output=True, text=True, check=False,
                                      env={"PATH": f"{COMMAND.parent}:/usr/bin:/bin"})
                self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_every_make_word_exists(self):
        lines = commands("make")
        self.assertGreater(len(lines), 1)
        for line in lines:
            with self.subTest(line):
                word = line.split()[1]
                subprocess.run(["make", "-n", word], cwd=ROOT, capture_output=True, check=True)

    def test_links_lead_somewhere(self):
        for page in [*ROOT.glob("*.md"), *ROOT.glob("docs/*.md")]:
            for target in re.findall(r"\]\(([^)#:]+)\)", page.read_text(encoding="utf-8")):
                with self.subTest(page=page.name, target=target):
                    self.assertTrue((page.parent / target).exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

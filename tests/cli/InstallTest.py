#!/usr/bin/python3
"""What belongs to the command is installed where shells and man look for it."""
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

VERSION = os.environ["CORVANE_VERSION"]


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(scratch.cleanup)
        cls.prefix = Path(scratch.name)
        subprocess.run(["cmake", "--install", os.environ["CORVANE_BUILD"], "--prefix", cls.prefix, "--component", "command"],
                       check=True, capture_output=True)

    def test_every_file_has_its_place(self):
        files = {str(path.relative_to(self.prefix)) for path in self.prefix.rglob("*") if path.is_file()}
        zsh = {name for name in files if name.endswith("/_corvane")}
        self.assertEqual(files - zsh, {"bin/corvane", "share/man/man1/corvane.1", "share/bash-completion/completions/corvane",
                                       "share/fish/vendor_completions.d/corvane.fish", "share/corvane/corvane.rng"})
        self.assertEqual(len(zsh), 1)

    def test_installed_command_runs_on_its_own(self):
        environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
        done = subprocess.run([self.prefix / "bin" / "corvane", "--version"], env=environment, capture_output=True, check=True)
        self.assertEqual(done.stdout.decode(), f"corvane {VERSION}\n")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

#!/usr/bin/python3
"""Completion of the command in the shells that are installed."""
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

from harness import COMMAND, CliTest

FOLDER = Path(os.environ["CORVANE_SOURCE"]) / "apps" / "cli" / "completions"
BASH = FOLDER / "corvane.bash"
COMMANDS = ["show", "xml", "scan", "set", "remove", "import", "genres", "selftest"]

# Sets what bash hands to a completion function, and prints what comes back.
ASK = """
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMPREPLY=()
_corvane
printf '%s\\n' "${COMPREPLY[@]}"
"""


def options_in_help(command):
    text = subprocess.run([COMMAND, command, "--help"], capture_output=True, text=True, check=True).stdout
    return set(re.findall(r"(--[a-z][a-z-]*)\b", text.split("Examples:")[0]))


class Bash(CliTest):
    def offered(self, *words):
        path = os.pathsep.join([os.path.dirname(COMMAND), os.environ["PATH"]])
        done = subprocess.run(["bash", "-uc", ASK, "bash", BASH, "corvane", *words], capture_output=True, text=True, check=True,
                              cwd=self.folder, env=dict(os.environ, PATH=path))
        self.assertEqual(done.stderr, "")
        return [line for line in done.stdout.split("\n") if line]

    def test_script_is_valid(self):
        subprocess.run(["bash", "-n", BASH], check=True)

    def test_commands_are_offered(self):
        self.assertEqual(self.offered("")[:8], COMMANDS)
        self.assertEqual(self.offered("se"), ["set", "selftest"])
        self.assertEqual(self.offered("--v"), ["--version"])
        self.assertEqual(self.offered("help", "sc"), ["scan"])

    def test_every_option_of_the_help_text_is_offered_and_no_other(self):
        for command in COMMANDS:
            self.assertEqual(set(self.offered(command, "-")), options_in_help(command), command)

    def test_choices_are_offered(self):
        self.assertEqual(self.offered("show", "--color", ""), ["auto", "always", "never"])
        self.assertEqual(self.offered("show", "--color", "=", "a"), ["auto", "always"])
        self.assertEqual(self.offered("show", "--color", "="), ["auto", "always", "never"])
        self.assertEqual(self.offered("scan", "--format", "c"), ["csv"])
        self.assertEqual(self.offered("set", "x.mp3", "--tag", ""), ["v1", "v2", "both"])

    def test_genres_are_offered_quoted_for_the_shell(self):
        self.assertEqual(len(self.offered("set", "--genre", "")), 149)
        self.assertEqual(self.offered("set", "--genre", "classi"), ["Classic\\ Rock", "Classical"])
        self.assertEqual(self.offered("set", "--genre", "Classic\\ "), ["Classic\\ Rock"])
        self.assertEqual(self.offered("set", "--genre", "R&"), ["R\\&B"])

    def test_music_and_folders_are_offered_as_files(self):
        for name in ("a b.mp3", "c.MP3", "d.txt", "e.xml"):
            self.write(name, b"")
        os.mkdir(self.folder / "music")
        self.assertEqual(sorted(self.offered("show", "")), ["a b.mp3", "c.MP3", "music"])
        self.assertEqual(self.offered("scan", "--quiet", "mu"), ["music"])
        self.assertEqual(sorted(self.offered("import", "")), ["a b.mp3", "c.MP3", "e.xml", "music"])
        self.assertEqual(self.offered("selftest", ""), ["music"])
        for words in (["xml", "--output"], ["set", "--lyrics"], ["set", "--picture"]):
            self.assertEqual(sorted(self.offered(*words, "")), ["a b.mp3", "c.MP3", "d.txt", "e.xml", "music"])

    def test_nothing_is_offered_for_free_text(self):
        self.assertEqual(self.offered("set", "--title", ""), [])
        self.assertEqual(self.offered("genres", ""), [])


class OtherShells(unittest.TestCase):
    """Their scripts name the same commands and options; see also the checks of their syntax beside this test."""

    def test_zsh_and_fish_name_every_command_and_option(self):
        zsh, fish = (FOLDER / "_corvane").read_text(), (FOLDER / "corvane.fish").read_text()
        for command in COMMANDS:
            self.assertRegex(zsh, rf"\n  '{command}:")
            self.assertRegex(fish, rf"-a {command}\b")
            for option in options_in_help(command):
                self.assertIn(option, zsh)
                self.assertRegex(fish, rf"-l {option[2:]}\b")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

#!/usr/bin/python3
"""The manual page: clean for its formatter, and complete."""
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

from harness import COMMAND

PAGE = Path(os.environ["CORVANE_SOURCE"]) / "apps" / "cli" / "corvane.1"
COMMANDS = ["show", "xml", "scan", "set", "remove", "import", "genres", "selftest"]


class Manual(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        done = subprocess.run(["groff", "-man", "-ww", "-z", "-Tutf8", PAGE], capture_output=True, text=True, check=False)
        cls.complaints = done.stderr
        cls.text = subprocess.run(["groff", "-man", "-Tascii", "-P-c", "-P-b", "-P-u", "-rLL=500n", PAGE], capture_output=True,
                                  text=True, check=True).stdout

    def test_formatter_has_nothing_to_complain_about(self):
        self.assertEqual(self.complaints, "")

    def test_page_has_the_usual_sections(self):
        sections = re.findall(r"^([A-Z][A-Z ]+)$", self.text, re.MULTILINE)
        self.assertEqual(sections, ["NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "OPTIONS", "EXIT STATUS", "ENVIRONMENT",
                                    "EXAMPLES", "SEE ALSO"])

    def test_every_command_and_every_option_of_its_help_is_described(self):
        for command in COMMANDS:
            self.assertRegex(self.text, rf"(?m)^   {command}$")
            text = subprocess.run([COMMAND, command, "--help"], capture_output=True, text=True, check=True).stdout
            for option in set(re.findall(r"(--[a-z][a-z-]*)\b", text)):
                self.assertIn(option, self.text, command)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

#!/usr/bin/python3
"""Every text of the controls and of the editor has a translation that fits it."""
import os
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as xml
from pathlib import Path

SOURCE = Path(os.environ["CORVANE_SOURCE"])
FILES = [SOURCE / "corvane/controls/translations/corvane-controls_de.ts",
         SOURCE / "apps/editor/translations/corvane-editor_de.ts"]


def texts(file):
    """{(context, source text): translation element}"""
    return {(context.findtext("name"), message.findtext("source"), message.findtext("comment")): message.find("translation")
            for context in xml.parse(file).getroot().iter("context") for message in context.iter("message")}


class TextsInGerman(unittest.TestCase):
    def test_they_are_those_of_the_sources(self):
        with tempfile.TemporaryDirectory() as folder:
            for file in FILES:
                (Path(folder) / file.name).write_bytes(file.read_bytes())
            subprocess.run([SOURCE / "tools/translations", folder], check=True, capture_output=True)
            for file in FILES:
                now, known = set(texts(Path(folder) / file.name)), set(texts(file))
                self.assertGreater(len(known), 90)
                self.assertEqual(now, known, f"{file.name}: run tools/translations and translate what is new")

    def test_each_of_them_is_translated(self):
        for file in FILES:
            open_texts = [key for key, translation in texts(file).items()
                          if not translation.text or translation.get("type") is not None]
            self.assertEqual(open_texts, [], file.name)

    def test_they_have_the_places_mnemonics_and_ends_of_their_sources(self):
        parts = {"places for values": r"%[0-9n]+|\[\*\]|\*\.\w+", "mnemonics": r"&(?=\w)", "line ends": "\n",
                 "spaces at the ends": r"^ +| +$", "ellipses": "…"}
        for file in FILES:
            for (context, source, _), translation in texts(file).items():
                for part, pattern in parts.items():
                    self.assertEqual(sorted(re.findall(pattern, translation.text)), sorted(re.findall(pattern, source)),
                                     f"{part} of {context}: {source}")


if __name__ == "__main__":
    unittest.main(argv=["TextsInGermanTest", "-v"])

#!/usr/bin/python3
"""corvane genres: numbers and names of ID3v1 genres."""
import json
import sys
import unittest

from harness import CliTest


class Genres(CliTest):
    def test_numbers_and_names_are_aligned(self):
        lines = self.output("genres").splitlines()
        self.assertEqual(len(lines), 149)
        self.assertEqual(lines[0], "  0  Blues")
        self.assertEqual(lines[99], " 99  Accoustic")
        self.assertEqual(lines[-1], "255  <Undefined>")
        self.assertEqual({line[3:5] for line in lines}, {"  "})

    def test_json_has_the_same_numbers_and_names(self):
        listed = [json.loads(line) for line in self.output("genres", "--json").splitlines()]
        plain = [f"{genre['number']:3}  {genre['name']}" for genre in listed]
        self.assertEqual(plain, self.output("genres").splitlines())
        self.assertEqual(list(listed[0]), ["number", "name"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

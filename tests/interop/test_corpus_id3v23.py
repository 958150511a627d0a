#!/usr/bin/python3
"""Real files of other people's taggers, named by the environment variable CORVANE_CORPUS: the title of each file with an
ID3v2.3 tag is changed in a copy. Either nothing happens, for a reason that is told, or nothing else changes."""
import collections
import os
import re
import shutil
import unittest
from pathlib import Path

from mutagen.id3 import ID3

from editor import WAYS, answers, job
from snapshots import EXPERIMENTAL, Snapshot
from support import InteropCase
from validity import raw_frames

TITLE = "Corvane – 日本語"


def saved_texts(snapshot):
    """Texts of all frames but the title, as a save leaves them: without double quotes."""
    return {key.replace('"', "'"): str(frame).replace('"', "'")
            for key, frame in snapshot.peer.items() if key != "TIT2"}


class Corpus(InteropCase):
    def copies(self):
        """A copy of each file with an ID3v2.3 tag."""
        found = sorted(path for path in Path(os.environ["CORVANE_CORPUS"]).rglob("*") if path.is_file())
        for number, path in enumerate(found):
            with path.open("rb") as file:
                if file.read(4) != b"ID3\3":
                    continue
            copy = self.folder / f"{number}.mp3"
            shutil.copyfile(path, copy)
            yield path, copy

    def assert_only_the_title_changed(self, before, after):
        self.assertEqual(after.rest, before.rest, "what stands behind the tag")
        self.assertEqual(after.peer["TIT2"].text[0], TITLE)  # mutagen joins several titles
        if after.shown(["TIT2"]) != before.shown(["TIT2"]):
            self.assertEqual(saved_texts(after), saved_texts(before))
            self.assertTrue(any('"' in key + str(frame) for key, frame in before.peer.items()))
        if not after.tag[5] & EXPERIMENTAL:
            raw_frames(after.tag)
        titles = [at for at, raw in enumerate(before.frames) if raw[:4] == b"TIT2"]
        kept = [raw for at, raw in enumerate(before.frames) if not titles or at != titles[0]]
        place = titles[0] if titles else len(after.frames) - 1
        different = [(old, new) for old, new in zip(kept, after.frames[:place] + after.frames[place + 1:]) if old != new]
        self.assertEqual(len(after.frames), len(kept) + 1)
        self.assertTrue(all(b'"' in old for old, _ in different), different)

    def check(self, way):
        copies = list(self.copies())
        self.assertTrue(copies)
        before = {copy: (copy.read_bytes(), self.snapshot(copy)) for _, copy in copies}
        outcomes = collections.Counter()
        for (path, copy), answer in zip(copies, answers([job(copy, {"Title": TITLE}, way) for _, copy in copies])):
            with self.subTest(path.name):
                data, snapshot = before[copy]
                if answer["saved"]:
                    outcomes["saved"] += 1
                    if isinstance(snapshot, str):
                        outcomes["saved, and unreadable to mutagen: " + snapshot] += 1
                        continue
                    self.assert_only_the_title_changed(snapshot, Snapshot(copy))
                else:
                    outcomes["refused: " + re.sub(r"\b\d+\b", "N", answer["reason"])] += 1
                    self.assertTrue(answer["reason"])
                    self.assertEqual(copy.read_bytes(), data)
        return [f"{count} {outcome}" for outcome, count in outcomes.most_common()]

    @staticmethod
    def snapshot(path):
        try:
            return Snapshot(path)
        except Exception as failure:  # whatever a damaged tag does to the peer
            return repr(failure)

    def test_only_the_title_of_real_files_changes(self):
        for way in WAYS:
            with self.subTest(way=way):
                outcomes = self.check(way)
                print("", way, *outcomes, sep="\n")


if __name__ == "__main__":
    unittest.main()

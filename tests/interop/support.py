"""What all interop tests share: the command under test and the documents it writes, scratch folders, and the peers.

Every document that a test asks for is first put before xmllint, so a test that reads a file also proves that an XML
parser takes its document and that it is one of docs/schema/corvane.rng.
"""
import hashlib
import json
import os
import subprocess
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

COMMAND = os.environ["CORVANE_COMMAND"]
TAGLIB_PEER = os.environ["CORVANE_TAGLIB_PEER"]
SCHEMA = Path(__file__).resolve().parents[2] / "docs" / "schema" / "corvane.rng"

RECORD_SIZE = 128  # bytes of an ID3v1 record
UNDEFINED_GENRE = 255


def run(*words, given=None):
    """Standard output of a program that must succeed and has nothing to complain about."""
    done = subprocess.run([str(word) for word in words], input=given, capture_output=True, check=False, timeout=60)
    if done.returncode != 0:
        raise AssertionError(f"{words}\nexit {done.returncode}: {done.stderr.decode(errors='replace')}")
    return done.stdout


def corvane(*words):
    return run(COMMAND, *words)


def scan(*paths):
    """One object a file, in path order."""
    return [json.loads(line) for line in corvane("scan", "--quiet", *paths).splitlines()]


def digest_without_record(path):
    """SHA-256 of everything in a file but its ID3v1 record."""
    data = Path(path).read_bytes()
    has_record = len(data) > RECORD_SIZE and data[-RECORD_SIZE:].startswith(b"TAG")
    return hashlib.sha256(data[:-RECORD_SIZE] if has_record else data).hexdigest()


class Document:
    """The document of one file."""

    def __init__(self, path):
        self.bytes = corvane("xml", path)
        complaints = subprocess.run(["xmllint", "--nonet", "--noout", "--quiet", "--relaxng", SCHEMA, "-"],
                                    input=self.bytes, capture_output=True, check=False, timeout=60)
        if complaints.returncode != 0 or complaints.stderr:
            raise AssertionError(f"xmllint refuses the document of {path}: {complaints.stderr!r}")
        self.root = ElementTree.fromstring(self.bytes)

    def properties(self, element):
        """[(name, value, ID)] of an element such as "ID3V1Tag"; the value of a binary property is its base64 text."""
        found = self.root.findall(f".//{element}/Properties/Property")
        return [(each.get("Name"), each.get("Value", each.findtext("Value")), each.get("ID")) for each in found]

    def values(self, element):
        """{name: value}, of which the first of a name counts."""
        named = {}
        for name, value, _ in self.properties(element):
            named.setdefault(name, value)
        return named

    def identifiers(self, element):
        return {name: identifier for name, _, identifier in self.properties(element) if identifier is not None}


def taglib(path):
    """What TagLib reads: {"id3v1": ..., "id3v2": ..., "audio": ...}."""
    return json.loads(run(TAGLIB_PEER, "read", path))


def taglib_writes(path, texts, track=0, genre=UNDEFINED_GENRE):
    """Lets TagLib write an ID3v1 record; `texts` may hold "Title", "Artist", "Album", "Year" and "Comment"."""
    text = {"Title": "", "Artist": "", "Album": "", "Year": "0", "Comment": ""} | texts
    run(TAGLIB_PEER, "write", path, text["Title"], text["Artist"], text["Album"], text["Year"], track, genre,
        text["Comment"])


def ffprobe(path):
    """The audio stream as ffprobe sees it, all its frames counted, with the tags of the file under "texts"."""
    answer = json.loads(run("ffprobe", "-v", "error", "-of", "json", "-show_format", "-show_streams", "-count_packets",
                            path))
    stream = next(stream for stream in answer["streams"] if stream["codec_type"] == "audio")
    return stream | {"texts": answer["format"].get("tags", {})}


class InteropCase(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="corvane-interop-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def file(self, data, name="song.mp3"):
        """A new file that holds `data`."""
        path = self.folder / name
        path.write_bytes(data)
        return path

    def assert_values(self, document, element, expected):
        """The properties named in `expected` have these values; others may stand beside them."""
        values = document.values(element)
        self.assertEqual({name: values.get(name) for name in expected}, expected)

#!/usr/bin/python3
"""Random ID3v2.3 tags, random properties written into them: mutagen reads every value that was written, and every frame
that was not touched keeps its bytes and its place."""
import random
import struct
import unittest
import zlib

from mutagen.id3 import APIC, COMM, GEOB, PCNT, POPM, PRIV, SYLT, TALB, TBPM, TCOM, TCON, TCOP, TENC, TIT2, TIT3, TOPE, \
    TPE1, TPE2, TRCK, TXXX, TYER, UFID, USLT, WCOM, WOAR, WXXX

import audio
import pictures
from editor import WAYS, answers, job
from snapshots import COMPRESSED, ENCRYPTED, EXTENDED, GROUPED, UNSYNCHRONISED, Frame, Snapshot, frame_of, frames_in, tag_of
from tags import TagCase, tag_bytes
from validity import check_frame, raw_frames

TRIALS = 400

TEXT_KINDS = [TIT2, TPE1, TALB, TCOM, TOPE, TCOP, TENC, TPE2, TIT3, TBPM, TCON, TRCK, TYER]
TEXTS = ["text", "Ærø ÿþ", "日本語", "Привет", "12 €", "😀", "a\r\nb\n", "x" * 300, "語" * 200, "(17)Rock", "3/12", "1999",
         "ÿà", "'quoted'"]
DESCRIPTIONS = ["", "", "d", "MusicMatch_Mood", "ä", "日本"]
URLS = ["http://example.org", "https://example.org/ä"]

# Property: the frame's ID and description.
PROPERTIES = {"Title": ("TIT2", ""), "Artist": ("TPE1", ""), "Album": ("TALB", ""), "Composer": ("TCOM", ""),
              "OriginalArtist": ("TOPE", ""), "Copyright": ("TCOP", ""), "EncodedBy": ("TENC", ""), "Genre": ("TCON", ""),
              "Track": ("TRCK", ""), "Comments": ("COMM", ""), "Mood": ("COMM", "MusicMatch_Mood"),
              "Tempo": ("COMM", "MusicMatch_Tempo"), "UserText": ("TXXX", ""), "LyricsUnsynced": ("USLT", ""),
              "LyricsSynced": ("SYLT", ""), "ArtistURL": ("WOAR", ""), "UserURL": ("WXXX", ""), "UniqueKey": ("UFID", ""),
              "Year": ("TYER", "")}


def random_frame(chance):
    """A frame as mutagen writes it."""
    text = chance.choice(TEXTS)
    plain = all(ord(character) < 256 for character in text)
    common = {"encoding": chance.choice([0, 1]) if plain else 1}
    description = chance.choice(DESCRIPTIONS)
    described = common if all(ord(character) < 256 for character in description) else {"encoding": 1}
    language = chance.choice(["eng", "deu", "XXX"])
    data = chance.randbytes(chance.randrange(1, 400))
    kind = chance.randrange(12)
    if kind < 4:
        frame = chance.choice(TEXT_KINDS)(text=text, **common)
    elif kind == 4:
        frame = COMM(lang=language, desc=description, text=text, **(common | described))
    elif kind == 5:
        frame = USLT(lang=language, desc=description, text=text, **(common | described))
    elif kind == 6:
        frame = TXXX(desc=description, text=text, **(common | described))
    elif kind == 7:
        frame = SYLT(lang=language, format=2, type=1, desc=description, text=[("a", 100), (text[:9], 2000)],
                     **(common | described))
    elif kind == 8:
        image = pictures.png() if chance.random() < 0.5 else pictures.jpeg()
        frame = APIC(mime="image/png", type=chance.randrange(21), desc=description, data=image, **described)
    elif kind == 9:
        url = chance.choice(URLS)
        frame = chance.choice([WOAR(url=url), WCOM(url=url), WXXX(desc=description, url=url, **described)])
    else:
        frame = chance.choice([PRIV(owner="o", data=data), POPM(email="a@b", rating=9, count=3), PCNT(count=70000),
                               GEOB(encoding=0, mime="a/b", filename="f", desc="d", data=data),
                               UFID(owner=chance.choice(["", "http://id"]), data=data[:60])])
    return frames_in(tag_bytes(3, frame, padding=0))[0]


def with_random_flags(chance, raw):
    name, data = raw[:4].decode(), raw[10:]
    status = chance.choice([0, 0, 0, 0x20, 0xE0])
    kind = chance.randrange(10)
    if kind == 0:
        return frame_of(name, struct.pack(">I", len(data)) + zlib.compress(data), bytes([status, COMPRESSED]))
    if kind == 1:
        return frame_of(name, b"\7" + data, bytes([status, GROUPED]))
    if kind == 2:
        return frame_of(name, b"\1" + chance.randbytes(40), bytes([status, ENCRYPTED]))
    if kind == 3:
        return frame_of(chance.choice(["XYZW", "RGAD", "Z123"]), chance.randbytes(chance.randrange(0, 90)))
    return frame_of(name, data, bytes([status, 0]))


def random_tag(chance):
    frames = [with_random_flags(chance, random_frame(chance)) for _ in range(chance.randrange(1, 12))]
    flags = chance.choice([0, 0, 0, UNSYNCHRONISED, EXTENDED, UNSYNCHRONISED | EXTENDED])
    front = struct.pack(">IHI", 6, 0, 0) if flags & EXTENDED else b""
    return tag_of(*frames, flags=flags, front=front, padding=bytes(chance.choice([0, 1, 50, 1000, 3000])))


def random_values(chance):
    values = {}
    for name in chance.sample(sorted(PROPERTIES), chance.randrange(0, 5)):
        if name == "Year":
            values[name] = chance.randrange(3000)
        elif chance.random() < 0.2:
            values[name] = ""
        elif name in ("ArtistURL", "UserURL"):
            values[name] = chance.choice(URLS)
        elif name == "LyricsSynced":
            values[name] = f"[00:01.0] {chance.choice(TEXTS[:6])}\n[01:02.3] end"
        elif name == "UniqueKey":
            values[name] = chance.choice(["key", "Schlüssel", "鍵"])
        else:
            values[name] = chance.choice(TEXTS)
    return values


def spread(text):
    encoding = "latin-1" if all(ord(character) < 256 for character in text) else "utf-8"
    return "".join(character + " " for character in text).encode(encoding)


def value_in(frame):
    """The value of a frame as mutagen reads it, in the form in which it was written."""
    name, peer = frame.name, frame.peer
    if name == "SYLT":
        return peer.text
    if name in ("WOAR", "WXXX"):
        return peer.url
    return peer.data if name == "UFID" else str(peer)


def value_of(name, value):
    if name == "LyricsSynced":
        return list(zip([line[10:] for line in value.split("\n")], [1000, 62300]))
    return spread(value) if name == "UniqueKey" else str(value)


def model(frames, values, picture):
    """What the frames must be now: each as it was, or the value that it must have; deleted ones left out."""
    records = [(frame, None) for frame in frames]

    def place_of(identity):
        return next((at for at, (frame, change) in enumerate(records)
                     if change is None and (frame.name, frame.description) == identity), None)

    writes = [(PROPERTIES[name], value_of(name, value) if value != "" else None) for name, value in values.items()]
    if picture is not None:
        writes.append((("APIC", ""), picture or None))
    for identity, value in writes:
        at = place_of(identity)
        change = (identity, value)
        if at is not None:
            records[at] = (records[at][0], change)
        elif value is not None:
            records.append((None, change))
    return [(frame, change) for frame, change in records if change is None or change[1] is not None]


class Trial:
    def __init__(self, seed, folder):
        chance = random.Random(seed)
        self.path = folder / f"{seed}.mp3"
        self.tag = random_tag(chance)
        self.path.write_bytes(self.tag + audio.plain())
        self.values = random_values(chance)
        self.picture = chance.choice([None, None, None, b"", pictures.png() + bytes([seed % 256])])
        way = chance.choice(WAYS[:2])
        more = {} if self.picture is None else {"picture": self.cover(folder / f"{seed}.png")}
        self.job = job(self.path, self.values, way, **more)
        self.before = Snapshot(self.path)

    def cover(self, path):
        if not self.picture:
            return None
        path.write_bytes(self.picture)
        return str(path)

    def compare(self, case):
        after = Snapshot(self.path)
        case.assertEqual(after.rest, self.before.rest)
        expected = model([Frame(raw) for raw in self.before.frames], self.values, self.picture)
        case.assertEqual(len(after.frames), len(expected), "number of frames")
        if after.tag and after.tag != self.before.tag:
            raw_frames(after.tag)
        for raw, (old, change) in zip(after.frames, expected):
            if change is None:
                case.assertEqual(raw, old.raw, "a frame that was not touched")
            else:
                self.compare_changed(case, raw, old, *change)

    @staticmethod
    def compare_changed(case, raw, old, identity, value):
        frame = Frame(raw)
        case.assertEqual((frame.name, frame.description), identity)
        if frame.name == "APIC":
            case.assertEqual((frame.peer.data, frame.peer.mime), (value, "image/png"))
        else:
            case.assertEqual(value_in(frame), value)
        if old is None:
            case.assertEqual(getattr(frame.peer, "lang", "eng"), "eng")
        elif hasattr(old.peer, "lang"):
            case.assertEqual(frame.peer.lang, old.peer.lang)
        if old is None or raw != old.raw:
            check_frame(frame.name, raw[8:10], raw[10:])


class RandomTags(TagCase):
    def test_what_was_written_reads_back_and_what_was_not_touched_stays(self):
        trials = [Trial(seed, self.folder) for seed in range(TRIALS)]
        for trial, answer in zip(trials, answers([trial.job for trial in trials])):
            with self.subTest(trial.path.name, values=trial.values):
                self.assertEqual(answer, {"saved": True, "reason": ""})
                trial.compare(self)
        written = sum(len(trial.values) for trial in trials)
        print(f"{TRIALS} tags, {sum(len(trial.before.frames) for trial in trials)} frames, {written} values written")


if __name__ == "__main__":
    unittest.main()

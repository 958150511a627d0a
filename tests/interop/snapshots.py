"""What an ID3v2.3 file holds, whoever wrote it, and what a change by us may do to it."""
import io
import itertools
import struct
from pathlib import Path

from mutagen.id3 import ID3, ID3NoHeaderError

from validity import HEADER_SIZE, raw_frames, tag_size

UNSYNCHRONISED, EXTENDED, EXPERIMENTAL = 0x80, 0x40, 0x20  # flags of a tag
COMPRESSED, ENCRYPTED, GROUPED = 0x80, 0x40, 0x20  # and of a frame, in its second byte


def tag_of(*frames, flags=0, front=b"", padding=b""):
    """A tag of frames as they stand, behind an extended header, where there is one."""
    body = front + b"".join(frames) + padding
    if flags & UNSYNCHRONISED:
        body = b"".join(bytes([byte]) + (b"\0" if byte == 0xFF and (following >= 0xE0 or following == 0) else b"")
                        for byte, following in itertools.zip_longest(body, body[1:], fillvalue=0))
    size = len(body)
    return b"ID3\3\0" + bytes([flags, size >> 21, size >> 14 & 127, size >> 7 & 127, size & 127]) + body


def frame_of(name, data, flags=b"\0\0"):
    return name.encode() + struct.pack(">I", len(data)) + flags + data


def frames_in(tag):
    """The frames of a tag as they stand, header and data, unsynchronisation undone."""
    body, flags, frames = tag[HEADER_SIZE:], tag[5], []
    if flags & UNSYNCHRONISED:
        body = body.replace(b"\xff\0", b"\xff")
    if flags & EXTENDED:
        body = body[4 + struct.unpack(">I", body[:4])[0]:]
    while len(body) >= HEADER_SIZE and body[0]:
        size = HEADER_SIZE + struct.unpack(">I", body[4:8])[0]
        frames.append(body[:size])
        body = body[size:]
    return frames


def without_group(raw):
    """The frame without the byte of its group, which mutagen takes for the first of the data."""
    is_grouped = raw[9] == GROUPED
    return frame_of(raw[:4].decode("latin-1"), raw[HEADER_SIZE + 1:], raw[8:9] + b"\0") if is_grouped else raw


class Frame:
    """One frame as it stands, and what mutagen makes of it."""

    def __init__(self, raw):
        self.raw = raw
        self.name = raw[:4].decode("latin-1")
        try:
            found = list(ID3(io.BytesIO(tag_of(without_group(raw))), translate=False, load_v1=False).values())
        except ID3NoHeaderError:
            found = []
        self.peer = found[0] if len(found) == 1 else None

    @property
    def description(self):
        """What tells frames of one ID apart; None where mutagen cannot read the frame."""
        return None if self.peer is None else getattr(self.peer, "desc", "")


class Snapshot:
    """A file with an ID3v2.3 tag: what stands in the tag and what stands behind it."""

    def __init__(self, path):
        data = Path(path).read_bytes()
        self.tag = data[:tag_size(data)]
        self.rest = data[len(self.tag):]
        self.frames = frames_in(self.tag) if self.tag else []
        self.peer = ID3(path, translate=False, load_v1=False) if self.tag else {}

    def shown(self, without=()):
        """{key: all that mutagen shows of the frame}."""
        return {key: repr(frame) for key, frame in self.peer.items() if key not in without}


def assert_only_changed(case, before, path, key):
    """The file at the path differs from what it was in one frame alone, which mutagen knows by this key: it stands where
    it stood, or, when it is new, behind the others."""
    after = Snapshot(path)
    case.assertEqual(after.rest, before.rest, "what stands behind the tag")
    case.assertEqual(after.shown([key]), before.shown([key]))
    case.assertIn(key, after.peer)
    case.assertEqual(sorted(after.peer.unknown_frames), sorted(before.peer.unknown_frames))
    changed = [old[:4] for old, new in zip(before.frames, after.frames) if old != new]
    added = after.frames[len(before.frames):]
    case.assertEqual((changed or added)[0][:4].decode(), key[:4])
    case.assertEqual((len(changed) + len(added), len(after.frames)), (1, len(before.frames) + len(added)))
    if not after.tag[5] & EXPERIMENTAL:
        case.assertEqual(len(raw_frames(after.tag)), len(after.frames))
    return after

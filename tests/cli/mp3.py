"""Bytes of MP3 files and their tags, made at test time.

Written from the formats' public descriptions, and independent of the library under test.
"""
import struct

# MPEG 1 Layer III, 128 kbit/s, 44100 Hz, stereo, no padding: ISO/IEC 11172-3 section 2.4.1.3.
FRAME_HEADER = bytes.fromhex("fffb9004")
FRAME_SIZE = 417  # bytes: 144 * 128000 / 44100, rounded down


def audio(frame_count=20):
    """Frames that hold nothing but their header."""
    return (FRAME_HEADER + bytes(FRAME_SIZE - 4)) * frame_count


def vbr_audio(frame_count=20):
    """A first frame with a Xing header that tells frame count and size, and the frames themselves."""
    size = FRAME_SIZE * frame_count
    xing = b"Xing" + struct.pack(">III", 3, frame_count, size)
    first = FRAME_HEADER + bytes(32) + xing
    return first + bytes(FRAME_SIZE - len(first)) + audio(frame_count)


def id3v1(title=b"", artist=b"", album=b"", year=b"", comment=b"", track=None, genre=255):
    """The 128 bytes of an ID3v1 record; of ID3v1.1 with a track."""
    if track is None:
        end = comment.ljust(30, b"\0")[:30]
    else:
        end = comment.ljust(28, b"\0")[:28] + bytes([0, track])
    texts = b"".join(text.ljust(width, b"\0")[:width] for text, width in ((title, 30), (artist, 30), (album, 30), (year, 4)))
    return b"TAG" + texts + end + bytes([genre])


def synchsafe(number):
    return bytes(number >> shift & 0x7F for shift in (21, 14, 7, 0))


def frame23(name, payload):
    """A frame of ID3v2.3.0, section 3.3."""
    return name.encode() + struct.pack(">IH", len(payload), 0) + payload


def frame24(name, payload):
    """A frame of ID3v2.4.0, section 4: as before, but with a synchsafe size."""
    return name.encode() + synchsafe(len(payload)) + bytes(2) + payload


def frame22(name, payload):
    """A frame of ID3v2.2.0, section 3.2."""
    return name.encode() + struct.pack(">I", len(payload))[1:] + payload


def latin1(text):
    return b"\0" + text.encode("cp1252")


def utf16(text):
    return b"\1\xff\xfe" + text.encode("utf-16-le")


def id3v2(frames, major=3, padding=100):
    body = b"".join(frames) + bytes(padding)
    return b"ID3" + bytes([major, 0, 0]) + synchsafe(len(body)) + body


def id3v2_size(content):
    """Bytes of the ID3v2 tag that a file begins with; 0 without one."""
    if content[:3] != b"ID3":
        return 0
    return 10 + sum(byte << shift for byte, shift in zip(content[6:10], (21, 14, 7, 0)))


def picture(image, mime=b"image/png", kind=3, description=b""):
    """The payload of an APIC frame, ID3v2.3.0 section 4.15."""
    return b"\0" + mime + b"\0" + bytes([kind]) + description + b"\0" + image


def png(width, height):
    """A PNG image that goes no further than its header needs."""
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + struct.pack(">I", len(header)) + b"IHDR" + header + bytes(4) + bytes(64)


def lyrics3v2(fields):
    """A Lyrics3 v2.00 tag as it stands in front of the ID3v1 record."""
    body = b"LYRICSBEGIN" + b"".join(name + b"%05d" % len(text) + text for name, text in fields)
    return body + b"%06d" % len(body) + b"LYRICS200"

"""ID3v2 tags made by mutagen, and what an XML document and Corvane's text rules make of their contents."""
import io
import struct
import zlib

from mutagen.id3 import ID3
from mutagen.id3._util import BitPaddedInt, unsynch

import audio
from support import Document, InteropCase

HEADER_SIZE = 10  # bytes of the tag header, and of a frame header
UNSYNCHRONISED_TAG = 0x80
UNSYNCHRONISED_FRAME_24 = 0x02
COMPRESSED_FRAME_23 = 0x80


def tag_bytes(version, *frames, padding=1024):
    """A whole tag as mutagen writes it, frames in its order."""
    tags = ID3()
    for frame in frames:
        tags.add(frame)
    file = io.BytesIO()
    tags.save(file, v1=0, v2_version=version, padding=lambda info: padding)
    return file.getvalue()


def with_body(tag, body, flags=0):
    return tag[:5] + bytes([tag[5] | flags]) + BitPaddedInt.to_str(len(body), width=4) + body


def frame_bits(tag):
    """How many bits of each byte of a frame's size count."""
    return {3: 8, 4: 7}[tag[3]]


def frames_of(tag):
    """[(ID, flags, payload)] of a tag, and its padding."""
    body, frames = tag[HEADER_SIZE:], []
    while body[:1] not in (b"", b"\0"):
        size = int(BitPaddedInt(body[4:8], bits=frame_bits(tag)))
        frames.append((body[:4], body[8:10], body[HEADER_SIZE:HEADER_SIZE + size]))
        body = body[HEADER_SIZE + size:]
    return frames, body


def with_frames(tag, frames, padding, flags=0):
    """The tag with other frames: [(ID, flags, payload)]."""
    body = b"".join(name + BitPaddedInt.to_str(len(payload), width=4, bits=frame_bits(tag)) + frame_flags + payload
                    for name, frame_flags, payload in frames)
    return with_body(tag, body + padding, flags)


def unsynchronised(tag):
    """The tag without a byte pair in its frames that looks like MPEG audio: ID3v2.3 as a whole, ID3v2.4 by frame."""
    if tag[3] == 3:
        return with_body(tag, unsynch.encode(tag[HEADER_SIZE:]), UNSYNCHRONISED_TAG)
    frames, padding = frames_of(tag)
    changed = [(name, bytes([flags[0], flags[1] | UNSYNCHRONISED_FRAME_24]), unsynch.encode(payload))
               for name, flags, payload in frames]
    return with_frames(tag, changed, padding, UNSYNCHRONISED_TAG)


def compressed_23(tag):
    """The tag with every frame deflated."""
    frames, padding = frames_of(tag)
    return with_frames(tag, [(name, bytes([flags[0], flags[1] | COMPRESSED_FRAME_23]),
                              struct.pack(">I", len(payload)) + zlib.compress(payload))
                             for name, flags, payload in frames], padding)


def payload_of(tag, name):
    return next(payload for found, _, payload in frames_of(tag)[0] if found == name.encode("ascii"))


def in_document(text):
    """The text as a document holds it: characters that XML 1.0 forbids, and halves of no pair, are U+FFFD."""
    return "".join(character if character in "\t\n\r" or " " <= character < "\ud800" or "\ue000" <= character < "\ufffe"
                   or character >= "\U00010000" else "\ufffd" for character in text)


def closed(text):
    """What a document shows of a text that mutagen or ffmpeg wrote. They end every text with a zero, as the format
    allows, and the automation interface hands out each character that stands in a frame."""
    return in_document(text + "\0")


def code_page_text(data, dropped=b""):
    """Bytes in Windows-1252, whose undefined ones are the C1 controls of the same code; without those `dropped`."""
    undefined = {0x81, 0x8D, 0x8F, 0x90, 0x9D}
    return "".join(chr(byte) if byte in undefined else bytes([byte]).decode("cp1252")
                   for byte in data if byte not in dropped)


def utf16_text(data):
    """Bytes by Corvane's rule for UTF-16: little-endian at first, each byte-order mark switches, wherever it stands."""
    units, order = [], "<"
    for pair in (data[at:at + 2] for at in range(0, len(data) - 1, 2)):
        if pair in (b"\xff\xfe", b"\xfe\xff"):
            order = "<" if pair == b"\xff\xfe" else ">"
        else:
            units.append(struct.unpack(order + "H", pair)[0])
    return struct.pack(f"<{len(units)}H", *units).decode("utf-16-le", "surrogatepass")


def behind_zero(payload, start):
    """What stands behind the first zero byte at or after `start`: where Corvane's texts and pictures begin."""
    return payload[payload.index(b"\0", start) + 1:]


class TagCase(InteropCase):
    def tagged(self, tag):
        return self.file(tag + audio.plain())

    def read(self, tag):
        """The document of a file with the tag, and what mutagen reads."""
        path = self.tagged(tag)
        return Document(path), ID3(path, translate=False)

    def frames_in(self, document):
        """Names of the properties behind version and size."""
        return [name for name, _, _ in document.properties("ID3V2Tag")][2:]

"""What makes bytes a valid ID3v2.3 tag, checked without any library: http://id3.org/id3v2.3.0, sections 3 and 4.

One rule is left out: UFID asks for an owner, and Corvane writes it without one for its hosts' sake.
"""
import re
import struct

HEADER_SIZE = 10  # bytes of the tag header, and of a frame header
MARKS = {b"\xff\xfe": "utf-16-le", b"\xfe\xff": "utf-16-be"}


class Invalid(Exception):
    """What is wrong with a tag."""


def require(holds, *told):
    if not holds:
        raise Invalid(" ".join(str(each) for each in told))


def tag_size(data):
    """Bytes of the tag that a file begins with, its header included; 0 without one."""
    if data[:3] != b"ID3":
        return 0
    require(all(byte < 0x80 for byte in data[6:10]), "a byte of the tag's size is over 7F")
    return HEADER_SIZE + sum(byte << shift for byte, shift in zip(data[6:10], (21, 14, 7, 0)))


def raw_frames(tag):
    """[(ID, flags, data)] of a tag that is neither unsynchronised nor extended."""
    require(tag[3:6] == b"\x03\x00\x00", "version or flags", tag[3:6])
    require(tag_size(tag) == len(tag), "the header tells", tag_size(tag), "bytes of", len(tag))
    frames, rest = [], tag[HEADER_SIZE:]
    while rest and rest[0]:
        require(len(rest) >= HEADER_SIZE, "no room for a frame:", rest)
        name, size, flags = rest[:4].decode("latin-1"), struct.unpack(">I", rest[4:8])[0], rest[8:10]
        require(size <= len(rest) - HEADER_SIZE, name, "runs over the end of the tag")
        frames.append((name, flags, rest[HEADER_SIZE:HEADER_SIZE + size]))
        rest = rest[HEADER_SIZE + size:]
    require(not any(rest), "the padding is not empty")
    return frames


class Reader:
    """The fields of one frame, front to back."""

    def __init__(self, data):
        self.rest = data
        self.wide = False

    def take(self, count):
        require(len(self.rest) >= count, "the frame ends too early")
        taken, self.rest = self.rest[:count], self.rest[count:]
        return taken

    def encoding(self):
        encoding = self.take(1)[0]
        require(encoding in (0, 1), "encoding", encoding)
        self.wide = encoding == 1

    def language(self):
        require(re.fullmatch(rb"[a-z]{3}|XXX", language := self.take(3)), "language", language)

    def plain(self):
        """A text in ISO-8859-1 with its end."""
        text, end, self.rest = self.rest.partition(b"\0")
        require(end, "a text has no end")
        return self.decoded(text, False)

    def text(self):
        """A text in the frame's encoding with its end."""
        if not self.wide:
            return self.plain()
        at = next((at for at in range(0, len(self.rest) - 1, 2) if self.rest[at:at + 2] == b"\0\0"), None)
        require(at is not None, "a text in UTF-16 has no end")
        text = self.take(at)
        self.take(2)
        return self.decoded(text, True)

    def last(self, wide=None):
        """The text up to the end of the frame, which needs no end of its own."""
        wide = self.wide if wide is None else wide
        text, self.rest = self.rest, b""
        end = b"\0\0" if wide else b"\0"
        return self.decoded(text.removesuffix(end) if len(text) % len(end) == 0 else text, wide)

    @staticmethod
    def decoded(data, wide):
        if wide:
            require(len(data) % 2 == 0 and data[:2] in MARKS, "UTF-16 without its mark or of odd length:", data)
            text = data[2:].decode(MARKS[data[:2]])
        else:
            text = data.decode("latin-1")
            require(not re.search("[\x7f-\x9f]", text), "control characters of ISO-8859-1 in", repr(text))
        require("\0" not in text, "a zero in", repr(text))
        return text


def check_text(reader):
    reader.encoding()
    require(reader.last(), "an empty text")


def check_described(reader):
    reader.encoding()
    reader.text()
    require(reader.last(), "an empty text")


def check_comment(reader):
    reader.encoding()
    reader.language()
    reader.text()
    require(reader.last(), "an empty text")


def check_url(reader):
    require(re.fullmatch("[!-~\xa0-\xff]+", url := reader.last()), "an address with blanks or controls", repr(url))


def check_described_url(reader):
    reader.encoding()
    reader.text()
    require(reader.last(wide=False), "an empty address")


def check_identifier(reader):
    reader.plain()
    require(0 < len(reader.rest) <= 64, len(reader.rest), "bytes of an identifier")


def check_picture(reader):
    reader.encoding()
    require(re.fullmatch(r"image/[a-z]+", mime := reader.plain()), "MIME type", mime)
    require(reader.take(1)[0] <= 20, "type of picture")
    reader.text()
    require(reader.rest, "no picture")


def check_synced_lyrics(reader):
    reader.encoding()
    reader.language()
    require(reader.take(1)[0] in (1, 2), "format of times")
    require(reader.take(1)[0] <= 6, "type of content")
    reader.text()
    times = []
    while reader.rest:
        reader.text()
        times.append(struct.unpack(">I", reader.take(4))[0])
    require(times and times == sorted(times), "times", times)


CHECKS = {"TXXX": check_described, "WXXX": check_described_url, "COMM": check_comment, "USLT": check_comment,
          "SYLT": check_synced_lyrics, "APIC": check_picture, "UFID": check_identifier}


def check_frame(name, flags, data):
    require(re.fullmatch("[A-Z][A-Z0-9]{3}", name), "frame ID", name)
    require(data, name, "is empty")
    require(flags == b"\0\0", name, "has flags", flags)
    check = CHECKS.get(name, check_text if name[0] == "T" else check_url if name[0] == "W" else None)
    require(check, "no rule for", name)
    try:
        check(Reader(data))
    except (Invalid, UnicodeDecodeError) as wrong:
        raise Invalid(f"{name}: {wrong}") from wrong


def check_tag(tag):
    """Fails with Invalid, and has the frames as the result otherwise."""
    frames = raw_frames(tag)
    require(frames, "a tag without frames")
    for frame in frames:
        check_frame(*frame)
    single = [name for name, _, _ in frames if name[0] in "TW" and name[1:] != "XXX"]
    require(len(single) == len(set(single)), "a frame stands there twice:", single)
    return frames

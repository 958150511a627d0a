#!/usr/bin/python3
"""XML documents of files that make it hard: xmllint and expat take them, and read back the text that mutagen reads."""
import base64
import os
import unittest

from mutagen.id3 import APIC, COMM, ID3, PRIV, TALB, TIT2, TPE1, TXXX, USLT

import audio
import pictures
from support import Document, InteropCase, corvane, run
from tags import closed, in_document, tag_bytes, with_frames

LATIN_1, UTF_16 = 0, 1  # encoding bytes

ELEMENTS = ["MPEGHeader", "ID3V1Tag", "ID3V2Tag", "LyricsTag"]


class Documents(InteropCase):
    def document(self, *frames, version=3):
        return Document(self.file(tag_bytes(version, *frames) + audio.plain()))

    def document_of_title(self, payload):
        """With a title of exactly these bytes, the first of which is the encoding."""
        tag = tag_bytes(3, TIT2(text="replaced"))
        return Document(self.file(with_frames(tag, [(b"TIT2", bytes(2), payload)], bytes(100)) + audio.plain()))

    def read_by_xmllint(self, document, name):
        """A value of the ID3v2 tag as libxml2 hears it: another parser than the one that the other tests use."""
        question = f"string(//ID3V2Tag/Properties/Property[@Name = '{name}']/@Value)"
        answer = run("xmllint", "--nonet", "--xpath", question, "-", given=document.bytes).decode("utf-8")
        return answer.removesuffix("\n")

    def assert_text(self, text):
        document = self.document_of_title(b"\x01\xff\xfe" + text.encode("utf-16-le", "surrogatepass"))
        self.assert_values(document, "ID3V2Tag", {"Title": in_document(text)})
        self.assertEqual(self.read_by_xmllint(document, "Title"), in_document(text))


class Texts(Documents):
    def test_markup_is_text(self):
        self.assert_text("<Title a=\"b\" c='d'>&amp; &#65; ]]> <!-- --> <?pi?></Title>")

    def test_line_ends_and_tabs_are_kept(self):
        self.assert_text("a\rb\nc\r\nd\te  f")

    def test_every_character_of_latin_1_that_xml_has_is_itself(self):
        self.assert_text("".join(map(chr, range(0x20, 0x7F))))
        self.assert_text("".join(map(chr, range(0x80, 0x100))))

    def test_characters_outside_latin_1_are_read_back(self):
        self.assert_text("Ž € ‘“ Ω Ж 日本語 ﷽ \ufffd 😀 \U0010fffd")

    def test_characters_that_xml_forbids_are_replaced(self):
        self.assert_text("a" + "".join(map(chr, range(1, 0x20))) + "b\uffff")

    def test_halves_of_surrogate_pairs_are_replaced(self):
        for text in ["\ud800A", "A\udc00", "\udc00\ud800", "\ud83d😀"]:
            with self.subTest(text=ascii(text)):
                self.assert_text(text)

    def test_bytes_of_the_code_page_are_read_back(self):
        # 0x81 and its like are no characters of Windows-1252; they come out as the controls of the same code.
        document = self.document_of_title(b"\0" + bytes(range(0x80, 0x9E)))
        self.assertEqual(self.read_by_xmllint(document, "Title"),
                         "€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x8dŽ\x8f\x90‘’“”•–—˜™š›œ\x9d")


class Pictures(Documents):
    def test_base64_is_read_back_by_another_parser(self):
        document = self.document(APIC(encoding=LATIN_1, mime="image/jpeg", type=3, desc="", data=pictures.jpeg()))
        question = "string(//ID3V2Tag/Properties/Property[@Name = 'Picture']/Value)"
        text = run("xmllint", "--nonet", "--xpath", question, "-", given=document.bytes)
        self.assertEqual(base64.b64decode(text), pictures.jpeg())

    def test_a_picture_as_text_is_well_formed(self):
        every_unit = b"".join(unit.to_bytes(2, "little") for unit in range(0x10000))
        document = self.document(APIC(encoding=LATIN_1, mime="image/x", type=3, desc="", data=every_unit), version=4)
        expected = in_document("".join(map(chr, range(0xD800))))
        self.assertTrue(document.values("ID3V2Tag")["Picture"].startswith(expected))


class Shape(Documents):
    def test_the_declaration_names_the_encoding_of_the_bytes(self):
        document = self.document(TPE1(encoding=LATIN_1, text="Bjørk"))
        self.assertTrue(document.bytes.startswith(b"<?xml version = '1.0' encoding = 'iso-8859-1'?><!--FileHandler-->"))
        self.assertIn("Bjørk".encode("latin-1"), document.bytes)

    def test_the_elements_stand_in_their_order_whatever_tags_the_file_has(self):
        tag = tag_bytes(3, TIT2(encoding=LATIN_1, text="x"))
        for name, data in {"plain": audio.plain(), "tagged": tag + audio.plain(), "tag only": tag, "empty": b"",
                           "no audio": b"no audio at all" * 100}.items():
            with self.subTest(name):
                root = Document(self.file(data)).root
                self.assertEqual([root.tag] + [child.tag for child in root], ["ImportData", "Drive", "Files"])
                self.assertEqual([child.tag for child in root.find("Files/File")], ["Properties"] + ELEMENTS)

    def test_a_document_holds_what_mutagen_reads_from_one_tag_with_everything(self):
        frames = {"Title": TIT2(encoding=LATIN_1, text="Título"), "Artist": TPE1(encoding=UTF_16, text="Ω"),
                  "Album": TALB(encoding=UTF_16, text="日本"), "USLT": USLT(encoding=LATIN_1, lang="eng", text="la\nla"),
                  "Comment": COMM(encoding=LATIN_1, lang="eng", text="¿?")}
        others = [TXXX(encoding=LATIN_1, desc="a", text="b"), PRIV(owner="o", data=b"\0"),
                  APIC(encoding=LATIN_1, mime="image/png", type=3, desc="", data=pictures.png())]
        document = self.document(*frames.values(), *others)
        peer = ID3(self.folder / "song.mp3", translate=False)
        self.assertEqual(len(peer), len(frames) + len(others))
        self.assert_values(document, "ID3V2Tag", {name: closed(str(peer.getall(type(frame).__name__)[0]))
                                                  for name, frame in frames.items()})

    def test_names_of_files_are_read_back_or_replaced(self):
        for name in ["a & b <c> 'd'.mp3", "日本 Größe 😀.mp3", "tab\tline\n.mp3"]:
            with self.subTest(name=name):
                document = Document(self.file(audio.plain(), name))
                self.assertEqual(document.values("File")["Name"], name)

    def test_the_name_of_a_file_need_not_be_text(self):
        path = os.fsencode(self.folder) + b"/caf\xe9 \x01\xff.mp3"
        with open(path, "wb") as file:
            file.write(audio.plain())
        self.assertIn("caf", Document(os.fsdecode(path)).values("File")["Name"])


class Import(Documents):
    def test_a_document_of_a_peers_record_makes_the_same_record(self):
        source = self.file(audio.lame("-b", "128", "--id3v1-only", "--tt", "Große Töne", "--ta", "ÿ & Co <x>",
                                      "--tn", "9", "--tg", "80", "--ty", "1984", "--tc", "\"heard\""))
        document = self.folder / "document.xml"
        document.write_bytes(Document(source).bytes)
        target = self.file(audio.plain(), "target.mp3")
        corvane("import", target, document)
        self.assertEqual(target.read_bytes(), audio.plain() + source.read_bytes()[-128:])


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/python3
"""corvane show: everything about a file, for people."""
import os
import re
import resource
import struct
import sys
import unittest
import zlib

import mp3
from harness import CliTest


class Show(CliTest):
    def sections(self, content):
        """What is shown: the lines below each heading."""
        sections, lines = {}, []
        for line in self.output("show", self.write("a.mp3", content)).splitlines():
            if line and not line.startswith(" "):
                lines = sections.setdefault(line, [])
            else:
                lines.append(line)
        return {heading: lines[:-1] if lines and not lines[-1] else lines for heading, lines in sections.items()}

    def rows(self, content, heading):
        """The lines of a section without their indentation, with one blank between columns."""
        return [re.sub(" {2,}", "  ", line.strip()) for line in self.sections(content)[heading]]


class Sections(Show):
    def test_file_without_tags_has_two_sections_and_says_so(self):
        self.assertEqual(list(self.sections(mp3.audio())), ["File", "Audio", "No tags"])

    def test_file_section_tells_path_type_size_dates_and_drive(self):
        rows = self.rows(mp3.audio(), "File")
        self.assertEqual(rows[:3], [f"Path  {self.folder}/a.mp3", "Type  MP3 (MPEG audio)", "Size  8,340 bytes"])
        date = r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d"
        self.assertRegex("\n".join(rows), f"\nModified  {date}\n")
        self.assertRegex(rows[-1], r"^Drive  .*[KMGTP]iB of .*[KMGTP]iB free$")

    def test_audio_section_tells_everything_about_the_frame(self):
        self.assertEqual(self.rows(mp3.audio(2500), "Audio"),
                         ["Format  MPEG 1.0 Layer 3", "Mode  Stereo", "Bit rate  128 kbit/s (constant)", "Frequency  44100 Hz",
                          "Duration  1:05 (65 s)", "Frames  2,499 of 417 bytes", "Audio size  1,042,498 bytes",
                          "First frame  at byte 0", "Emphasis  None", "Flags  original"])

    def test_variable_bit_rate_is_told(self):
        rows = self.rows(mp3.vbr_audio(100), "Audio")
        self.assertIn("Bit rate  127 kbit/s (variable, average)", rows)
        self.assertIn("Frames  100 of 417 bytes", rows)

    def test_vbr_header_without_frame_count_leaves_things_unknown(self):
        first = mp3.FRAME_HEADER + bytes(32) + b"Xing" + struct.pack(">I", 0)
        rows = self.rows(first + bytes(mp3.FRAME_SIZE - len(first)) + mp3.audio(), "Audio")
        self.assertIn("Bit rate  unknown (variable)", rows)
        self.assertIn("Duration  unknown", rows)

    def test_file_without_audio_says_so(self):
        self.assertEqual(self.rows(b"no audio", "Audio"), ["Frames  no MPEG audio frame found"])

    def test_id3v1_fields_are_listed_with_name_and_number_of_the_genre(self):
        self.assertEqual(self.rows(mp3.audio() + mp3.id3v1(b"T", b"A", b"B", b"1999", b"C", 7, 17), "ID3v1.1 tag"),
                         ["Title  T", "Artist  A", "Album  B", "Year  1999", "Comment  C", "Track  7", "Genre  Rock (17)"])
        self.assertEqual(self.rows(mp3.audio() + mp3.id3v1(b"T", genre=200), "ID3v1 tag"),
                         ["Title  T", "Artist  -", "Album  -", "Year  -", "Comment  -", "Genre  no name (200)"])

    def test_lyrics3_fields_are_listed_and_lines_indented(self):
        lyrics = mp3.lyrics3v2([(b"IND", b"10"), (b"LYR", b"[00:01]one\r\n[00:02]two"), (b"XYZ", b"x")])
        shown = self.sections(mp3.audio() + lyrics + mp3.id3v1())[f"Lyrics3 v2.00 tag, {len(lyrics) - 15} bytes"]
        self.assertEqual(shown, ["  IND  Indications  10", "  LYR  Lyrics       [00:01]one", "                    [00:02]two",
                                 "  XYZ  Field        x"])

    def test_lyrics3_v1_shows_what_stands_behind_its_beginning(self):
        lyrics = b"LYRICSBEGIN" + b"la la la" + b"??????" + b"LYRICSEND"
        self.assertEqual(self.rows(mp3.audio(20) + lyrics + mp3.id3v1(), "Lyrics3 v1.00 tag"), ["Lyrics  la la la"])

    def test_lyrics3_tag_that_cannot_be_read_says_so(self):
        broken = b"LYRICSBEGIN" + b"999999" + b"LYRICS200"
        rows = self.rows(mp3.audio() + broken + mp3.id3v1(), "Lyrics3 tag")
        self.assertRegex(rows[0], "^Fields  not all read: .")

    def test_several_files_stand_apart(self):
        song = self.write("a.mp3", mp3.audio())
        text = self.output("show", song, song)
        self.assertEqual(text.count("\n\n\nFile\n"), 1)
        self.assertTrue(text.startswith("File\n"))


class Frames(Show):
    def frames(self, *frames, major=3, padding=100):
        tag = mp3.id3v2(frames, major, padding)
        heading = f"ID3v2.{major}.0 tag, {len(tag):,} bytes"
        return self.rows(tag + mp3.audio(), heading)

    def test_frames_have_id_name_and_text(self):
        self.assertEqual(self.frames(mp3.frame23("TIT2", mp3.utf16("日本語")), mp3.frame23("TPE1", mp3.latin1("Artist")),
                                     mp3.frame23("TCON", mp3.latin1("(17)")), mp3.frame23("TZZZ", mp3.latin1("x"))),
                         ["TIT2  Title  日本語", "TPE1  Artist  Artist", "TCON  Genre  Rock", "TZZZ  Text  x",
                          "Padding  100 bytes"])

    def test_every_frame_of_an_id_is_listed_with_what_tells_it_from_others(self):
        self.assertEqual(self.frames(mp3.frame23("COMM", b"\0eng\0one"), mp3.frame23("COMM", b"\0deuinfo\0zwei"),
                                     mp3.frame23("TXXX", b"\0key\0value"), mp3.frame23("WXXX", b"\0home\0http://x"))[:4],
                         ["COMM  Comment (eng)  one", 'COMM  Comment (deu) "info"  zwei', 'TXXX  Text "key"  value',
                          'WXXX  Web address "home"  http://x'])

    def test_picture_is_shown_as_type_and_size(self):
        image = mp3.png(300, 200)
        self.assertEqual(self.frames(mp3.frame23("APIC", mp3.picture(image, description=b"cover")),
                                     mp3.frame23("APIC", mp3.picture(image, mime=b"image/jpeg", kind=4)),
                                     mp3.frame23("APIC", mp3.picture(b"junk", mime=b"", kind=77)),
                                     mp3.frame23("APIC", mp3.picture(b"http://x/y.png", mime=b"-->", kind=0)),
                                     mp3.frame23("APIC", b"\0"))[:5],
                         [f'APIC  Picture  image/png, 300 x 200, {len(image)} bytes, front cover, "cover"',
                          f"APIC  Picture  image/png, 300 x 200, {len(image)} bytes, back cover",
                          "APIC  Picture  no type, 4 bytes, no image that is known here, kind 77",
                          "APIC  Picture  at http://x/y.png, other", "APIC  Picture  1 byte, no picture"])

    def test_binary_frames_are_shown_as_sizes(self):
        self.assertEqual(self.frames(mp3.frame23("PRIV", b"owner\0" + bytes(1500)), mp3.frame23("MCDI", b"x"),
                                     mp3.frame23("GEOB", b"\0text/plain\0a.txt\0why\0data"),
                                     mp3.frame23("ZZZZ", bytes(5)))[:4],
                         ['PRIV  Private data "owner"  1,506 bytes', "MCDI  CD identifier  1 byte",
                          'GEOB  File "a.txt"  26 bytes', "ZZZZ  Frame  5 bytes"])

    def test_encrypted_frame_is_shown_as_its_size(self):
        encrypted = b"TIT2" + struct.pack(">IBB", 6, 0, 0x40) + b"\x80secre"
        self.assertEqual(self.frames(encrypted)[0], "TIT2  Title  5 bytes, encrypted")

    def test_lines_of_lyrics_stand_below_each_other(self):
        tag = mp3.id3v2([mp3.frame23("USLT", b"\0eng\0one\r\n\ntwo\n")])
        lines = self.sections(tag + mp3.audio())[f"ID3v2.3.0 tag, {len(tag)} bytes"]
        column = lines[0].index("one")
        self.assertEqual(lines[:3], ["  USLT  Lyrics (eng)  one", "", " " * column + "two"])

    def test_versions_2_2_and_2_4_are_shown_alike(self):
        image = mp3.png(2, 1)
        self.assertEqual(self.frames(mp3.frame22("TT2", mp3.latin1("T")), mp3.frame22("PIC", b"\0PNG\3\0" + image), major=2)[:2],
                         ["TT2  Title  T", f"PIC  Picture  image/png, 2 x 1, {len(image)} bytes, front cover"])
        self.assertEqual(self.frames(mp3.frame24("TIT2", b"\3caf\xc3\xa9"), mp3.frame24("TDRC", mp3.latin1("1999")), major=4)[:2],
                         ["TIT2  Title  café", "TDRC  Recording time  1999"])

    def test_frames_in_front_of_damage_are_shown(self):
        runs_over = b"TPE1" + struct.pack(">IH", 5000, 0) + b"x"
        self.assertEqual(self.frames(mp3.frame23("TIT2", mp3.utf16("語")), mp3.frame23("APIC", mp3.picture(mp3.png(3, 2))), runs_over),
                         ["TIT2  Title  語", "APIC  Picture  image/png, 3 x 2, 97 bytes, front cover",
                          "More frames  Unable to load this tag.",
                          "Saving  not possible: the frame TPE1 runs past the end of the tag"])

    def test_tag_that_cannot_be_read_says_so(self):
        tag = mp3.id3v2([b"TIT2" + struct.pack(">IH", 5000, 0) + b"x"])
        self.assertEqual(self.rows(tag + mp3.audio(), f"ID3v2.3.0 tag, {len(tag)} bytes"),
                         ["Frames  Unable to load this tag.",
                          "Saving  not possible: the frame TIT2 runs past the end of the tag"])

    def test_tag_of_an_unknown_version_says_so(self):
        tag = mp3.id3v2([], major=5)
        self.assertEqual(self.rows(tag + mp3.audio(), "ID3v2.5.0 tag, 110 bytes"),
                         ["Frames  not read: the version is not known",
                          "Saving  not possible: the ID3v2 tag is of version 2.5, only 2.3 can be changed"])

    def test_tag_that_can_be_changed_says_nothing_of_saving(self):
        self.assertNotIn("Saving", "".join(self.frames(mp3.frame23("TIT2", mp3.latin1("T")))))

    def test_tag_that_cannot_be_changed_says_why(self):
        for tag, heading, reason in (
                (mp3.id3v2([mp3.frame22("TT2", mp3.latin1("T"))], major=2), "ID3v2.2.0", "the ID3v2 tag is of version 2.2, only 2.3 can be changed"),
                (mp3.id3v2([mp3.frame24("TIT2", mp3.latin1("T"))], major=4), "ID3v2.4.0", "the ID3v2 tag is of version 2.4, only 2.3 can be changed"),
                (mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("T")), bytes(20), b"x"]), "ID3v2.3.0", "the padding behind the frames is not empty")):
            rows = self.rows(tag + mp3.audio(), f"{heading} tag, {len(tag)} bytes")
            self.assertIn("Title", rows[0])
            self.assertRegex(rows[-1], f"^Saving +not possible: {reason}$")

    def test_missing_id3lib_is_told_and_everything_is_shown(self):
        tag = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("T"))])
        song = self.write("a.mp3", tag + mp3.audio())
        text = self.output("show", song, environment=self.without_id3lib())
        self.assertIn("  TIT2  Title    T\n", text)
        self.assertIn("  Saving   not possible: The DLL 'libid3-3.8.so.3' is not present. Please install it into the program "
                      "directory.\n", text)

    def test_columns_are_aligned(self):
        tag = mp3.id3v2([mp3.frame23("TIT2", mp3.latin1("value")), mp3.frame23("TENC", mp3.latin1("value")),
                         mp3.frame23("COMM", "\0eng日本\0value".encode("latin-1", "replace"))])
        lines = self.sections(tag + mp3.audio())[f"ID3v2.3.0 tag, {len(tag)} bytes"]
        self.assertEqual(len({line.index("value") for line in lines[:3]}), 1)


class Compressed(Show):
    def test_frames_beyond_the_limit_of_the_tag_are_named_and_cost_nothing(self):
        comment = b"\0eng\0" + bytes(100_000_000)
        data = struct.pack(">I", len(comment)) + zlib.compress(comment)
        bomb = b"COMM" + struct.pack(">IBB", len(data), 0, 0x80) + data
        path = self.write("a.mp3", mp3.id3v2([bomb] * 20 + [mp3.frame23("TIT2", mp3.latin1("Title"))]) + mp3.audio())
        before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        done = self.run_command("show", path, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (2**29, 2**29)))
        self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before, 10)
        text = done.stdout.decode()
        self.assertEqual(text.count("The compressed frames of a tag may not make more than 67108864 bytes beyond"), 20)
        self.assertRegex(text, r"Title +Title")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

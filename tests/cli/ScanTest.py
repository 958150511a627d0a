#!/usr/bin/python3
"""corvane scan: lists of files as JSON lines and CSV."""
import csv
import io
import json
import os
import sys
import unittest

import mp3
from harness import DONE, FILE_FAILED, ODD_NAMES, CliTest

KEYS = ["path", "title", "artist", "album", "year", "track", "genre", "comment", "duration", "bitRate", "frequency", "vbr",
        "tags"]


class Scan(CliTest):
    def scan(self, *words, code=DONE):
        """The objects of the lines, and standard error."""
        done = self.run_command("scan", *words, code=code)
        lines = done.stdout.decode("utf-8").split("\n")
        self.assertEqual(lines.pop(), "", "the last line has its line break")
        return [json.loads(line) for line in lines], done.stderr.decode("utf-8", "surrogateescape")

    def paths(self, *words):
        return [line["path"] for line in self.scan(*words)[0]]

    def only(self, *words):
        (line,) = self.scan(*words)[0]
        return line


class Values(Scan):
    def test_every_line_has_these_values_in_this_order(self):
        song = self.write("a.mp3", mp3.audio(1000) + mp3.id3v1(b"T", b"A", b"B", b"1999", b"C", 7, 17))
        line = self.only(song)
        self.assertEqual(list(line), KEYS)
        # 417000 + 128 bytes, less 2, at 128 kbit/s
        self.assertEqual(line, {"path": song, "title": "T", "artist": "A", "album": "B", "year": "1999", "track": "7",
                                "genre": "Rock", "comment": "C", "duration": 26, "bitRate": 128, "frequency": 44100,
                                "vbr": False, "tags": ["ID3v1.1"]})

    def test_file_without_tags_has_empty_texts(self):
        line = self.only(self.write("a.mp3", mp3.audio()))
        self.assertEqual([line[key] for key in KEYS[1:8]], [""] * 7)
        self.assertEqual(line["tags"], [])

    def test_file_without_audio_has_no_duration(self):
        line = self.only(self.write("a.mp3", b"no audio at all"))
        self.assertEqual((line["duration"], line["bitRate"], line["frequency"], line["vbr"]), (-1, 0, 0, False))

    def test_text_of_id3v2_comes_before_that_of_id3v1(self):
        tag = mp3.id3v2([mp3.frame23("TIT2", mp3.utf16("新しい")), mp3.frame23("TPE1", mp3.latin1("Second"))])
        line = self.only(self.write("a.mp3", tag + mp3.audio() + mp3.id3v1(b"old", b"first", b"only here")))
        self.assertEqual((line["title"], line["artist"], line["album"]), ("新しい", "Second", "only here"))
        self.assertEqual(line["tags"], ["ID3v2.3.0", "ID3v1"])

    def test_all_kinds_of_tags_are_listed(self):
        lyrics = mp3.lyrics3v2([(b"IND", b"00"), (b"LYR", b"la la")])
        tag = mp3.id3v2([mp3.frame24("TIT2", mp3.latin1("T"))], major=4)
        line = self.only(self.write("a.mp3", tag + mp3.audio() + lyrics + mp3.id3v1(track=1)))
        self.assertEqual(sorted(line["tags"]), ["ID3v1.1", "ID3v2.4.0", "Lyrics3v2"])

    def test_variable_bit_rate_is_told(self):
        line = self.only(self.write("a.mp3", mp3.vbr_audio(100)))
        self.assertIs(line["vbr"], True)
        self.assertEqual(line["bitRate"], 127)

    def test_control_characters_and_escapes_are_valid_json(self):
        title = b"\x01\x1b[31m\"\\\x7f\x81\t"
        line = self.run_command("scan", self.write("a.mp3", mp3.audio() + mp3.id3v1(title))).stdout
        self.assertFalse([byte for byte in line if byte < 0x20 and byte != 0x0A or byte == 0x7F])
        self.assertEqual(json.loads(line)["title"], title.decode("latin-1"))


class Folders(Scan):
    def test_every_mp3_file_below_is_listed_whatever_its_case(self):
        for name in ("a.mp3", "b.MP3", "c/d/e.Mp3", "f.mp4", "g.mp3.bak", ".hidden.mp3", ".hidden/h.mp3"):
            self.write(name, mp3.audio())
        found = self.paths(str(self.folder))
        self.assertEqual([path[len(str(self.folder)) + 1:] for path in found],
                         [".hidden.mp3", ".hidden/h.mp3", "a.mp3", "b.MP3", "c/d/e.Mp3"])

    def test_empty_folder_gives_nothing(self):
        self.assertEqual(self.output("scan", str(self.folder)), "")

    def test_file_is_taken_whatever_its_name(self):
        song = self.write("song.bin", mp3.audio())
        self.assertEqual(self.paths(song), [song])

    def test_order_is_that_of_bytes_and_of_the_arguments(self):
        names = [b"b/z.mp3", b"b.mp3", b"b-c/a.mp3", b"B.mp3", b"b/a.mp3", b"\xc3\xa9.mp3", b"a b.mp3", b"~.mp3"]
        for name in names:
            self.write(name, mp3.audio())
        self.assertEqual([os.fsencode(path) for path in self.paths(str(self.folder))],
                         [os.fsencode(self.folder) + b"/" + name for name in sorted(names)])
        first, second = str(self.folder / "b"), str(self.folder / "b-c")
        self.assertEqual(self.paths(second, first),
                         [f"{second}/a.mp3", f"{first}/a.mp3", f"{first}/z.mp3"])

    def test_paths_begin_with_the_argument_as_given(self):
        self.write("x/a.mp3", mp3.audio())
        for argument, path in ((".", "./x/a.mp3"), ("x", "x/a.mp3"), ("x/", "x/a.mp3"), ("./x//", "./x//a.mp3"),
                               ("x/a.mp3", "x/a.mp3")):
            lines = self.run_command("scan", argument, cwd=self.folder).stdout.splitlines()
            self.assertEqual([json.loads(line)["path"] for line in lines], [path])

    def test_links_to_folders_below_are_not_followed(self):
        self.write("real/a.mp3", mp3.audio())
        os.symlink("real", self.folder / "link")
        os.symlink("..", self.folder / "real" / "up")
        self.assertEqual(self.paths(str(self.folder)), [f"{self.folder}/real/a.mp3"])
        self.assertEqual(self.paths(str(self.folder / "link")), [f"{self.folder}/link/a.mp3"])

    def test_unreadable_folder_is_named_and_the_run_goes_on(self):
        self.write("a.mp3", mp3.audio())
        self.write("closed/b.mp3", mp3.audio())
        self.write("z.mp3", mp3.audio())
        os.chmod(self.folder, 0o755)
        os.chmod(self.folder / "closed", 0)
        self.addCleanup(os.chmod, self.folder / "closed", 0o755)
        user = {"user": "nobody"} if os.geteuid() == 0 else {}
        done = self.run_command("scan", str(self.folder), code=FILE_FAILED, **user)
        self.assertEqual([json.loads(line)["path"][-5:] for line in done.stdout.splitlines()], ["a.mp3", "z.mp3"])
        self.assertEqual(done.stderr.decode(), f"corvane: {self.folder}/closed: Permission denied\n")


class BadFiles(Scan):
    def test_bad_file_gives_path_and_error_and_does_not_stop_the_run(self):
        self.write("a.mp3", mp3.audio())
        self.write("b.mp3", b"PK\3\4" + bytes(100))
        self.write("c.mp3", mp3.audio())
        lines, errors = self.scan(str(self.folder), code=FILE_FAILED)
        self.assertEqual(lines[1], {"path": f"{self.folder}/b.mp3", "error": "This is a ZIP-File"})
        self.assertEqual([list(line) for line in lines], [KEYS, ["path", "error"], KEYS])
        self.assertEqual(errors, f"corvane: {self.folder}/b.mp3: This is a ZIP-File\n")

    def test_missing_path_is_a_bad_file(self):
        lines, _ = self.scan("missing", code=FILE_FAILED)
        self.assertEqual(lines, [{"path": "missing", "error": "No such file or directory"}])

    def test_link_that_leads_nowhere_pipe_and_socket_are_bad_files(self):
        os.symlink("nowhere", self.folder / "a.mp3")
        os.mkfifo(self.folder / "b.mp3")
        lines, _ = self.scan(str(self.folder), code=FILE_FAILED)
        self.assertEqual([line["error"] for line in lines], ["No such file or directory", "Not a regular file"])

    def test_empty_file_is_listed(self):
        self.assertEqual(self.only(self.write("a.mp3", b""))["tags"], [])


class Names(Scan):
    def test_json_stays_valid_for_any_name(self):
        for name in ODD_NAMES:
            path = self.write(name + b".mp3", mp3.audio())
            line = self.run_command("scan", "--", path).stdout
            shown = path.decode("utf-8", "replace")
            # Python replaces a sequence that is cut short as the Unicode standard recommends; so does the command.
            self.assertEqual(json.loads(line.decode("utf-8"))["path"], shown)

    def test_all_odd_names_of_a_folder_are_found(self):
        for name in ODD_NAMES:
            self.write(name + b".mp3", mp3.audio())
        for words in ([], ["--format", "csv"]):
            done = self.run_command("scan", *words, str(self.folder))
            done.stdout.decode("utf-8")
        self.assertEqual(len(self.paths(str(self.folder))), len(ODD_NAMES))


class Jobs(Scan):
    def test_order_and_lines_do_not_depend_on_the_number_of_jobs(self):
        for number in range(700):
            content = b"PK\3\4" if number % 50 == 0 else mp3.audio(number % 9) + mp3.id3v1(b"%d" % number)
            self.write(f"{number % 10}/{number}.mp3", content)
        expected = self.run_command("scan", str(self.folder), "--jobs", "1", code=FILE_FAILED)
        self.assertEqual(len(expected.stdout.splitlines()), 700)
        for words in (["--jobs", "2"], ["--jobs=4"], ["-j", "4"], ["-j32"], []):
            done = self.run_command("scan", str(self.folder), *words, code=FILE_FAILED)
            self.assertEqual(done.stdout, expected.stdout)
            self.assertEqual(done.stderr, expected.stderr)


class Csv(Scan):
    def rows(self, *words, code=DONE):
        text = self.run_command("scan", "--format", "csv", *words, code=code).stdout.decode("utf-8")
        self.assertTrue(text.endswith("\r\n"))
        return list(csv.reader(io.StringIO(text, newline=""), strict=True))

    def test_columns_are_the_values_and_an_error(self):
        self.assertEqual(self.rows(str(self.folder)), [KEYS + ["error"]])

    def test_rows_say_the_same_as_json(self):
        tag = mp3.id3v2([mp3.frame23("COMM", b"\0eng\0a \"quoted\", long\nand broken\r\nline")])
        self.write("a,b\".mp3", tag + mp3.vbr_audio() + mp3.id3v1(b" x,", b"\"", track=3))
        self.write("c\nd.mp3", mp3.audio())
        objects = self.scan(str(self.folder))[0]
        rows = self.rows(str(self.folder))[1:]
        self.assertEqual(len(rows), 2)
        for row, line in zip(rows, objects):
            expected = [";".join(value) if isinstance(value, list) else str(value).lower() if isinstance(value, bool) else str(value)
                        for value in line.values()]
            self.assertEqual(row, expected + [""])

    def test_bad_file_has_its_reason_in_the_last_column(self):
        path = self.write("b.mp3", b"PK\3\4")
        self.assertEqual(self.rows(path, code=FILE_FAILED)[1], [path] + [""] * 12 + ["This is a ZIP-File"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

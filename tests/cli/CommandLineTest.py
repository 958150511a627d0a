#!/usr/bin/python3
"""What all subcommands have in common: help, exit codes, streams, and names of files."""
import os
import resource
import signal
import subprocess
import sys
import unittest

import mp3
from harness import COMMAND, FILE_FAILED, ODD_NAMES, WRONG_USE, CliTest, hash_of

COMMANDS = ["show", "xml", "scan", "set", "remove", "import", "genres", "selftest"]
VERSION = os.environ["CORVANE_VERSION"]


class Help(CliTest):
    def test_value_that_is_missing_is_named_in_a_sentence(self):
        for words, name in ((["set", "a.mp3", "--title"], "--title"), (["scan", "a.mp3", "-j"], "-j")):
            self.assertEqual(self.error(*words, code=WRONG_USE),
                             f'corvane: {words[0]}: {name} needs a value. See "corvane {words[0]} --help".')

    def test_value_that_cannot_be_meant_is_named_in_a_sentence(self):
        for words, message in ((["set", "--track", "abc"], '--track: "abc" is not a track number'),
                               (["set", "--track", "5/x"], '--track: "5/x" is not a track number'),
                               (["set", "--genre", "300"], '--genre: "300" is not a genre number from 0 to 255'),
                               (["set", "--tag", "v3"], '--tag: "v3" is not one of v1|v2|both'),
                               (["set", "--color", "red"], '--color: "red" is not one of auto|always|never'),
                               (["scan", "--format", "xml"], '--format: "xml" is not one of json|csv'),
                               (["set", "--title", "a", "--title", "b"], "--title may be given only once"),
                               (["set", "--dry-run=1", "--title", "b"], "--dry-run takes no value"),
                               (["scan", "--jobs", "x"], '--jobs: "x" is not a number from 1 to 256')):
            with self.subTest(words=words):
                self.assertEqual(self.error(*words, "a.mp3", code=WRONG_USE),
                                 f'corvane: {words[0]}: {message}. See "corvane {words[0]} --help".')

    def test_help_lists_every_command_and_has_examples(self):
        for words in (["--help"], ["-h"], ["help"]):
            text = self.output(*words)
            self.assertIn("Usage: corvane ", text)
            self.assertIn("Examples:", text)
            for command in COMMANDS:
                self.assertIn(f"\n  {command} ", text)

    def test_help_of_every_command_has_usage_options_and_examples(self):
        for command in COMMANDS:
            for words in ([command, "--help"], [command, "-h"], ["help", command]):
                text = self.output(*words)
                self.assertIn(f"Usage: corvane {command} [OPTIONS]", text)
                self.assertIn("--help", text)
                self.assertIn(f"Examples:\n  corvane {command}", text)
                self.assertLess(max(map(len, text.splitlines())), 120)

    def test_version_is_that_of_the_project(self):
        self.assertEqual(self.output("--version"), f"corvane {VERSION}\n")


class WrongUse(CliTest):
    def test_wrong_use_ends_with_2_and_one_line(self):
        song = self.write("a.mp3", mp3.audio())
        for words in ([], ["nonesuch"], ["--nonesuch"], ["help", "nonesuch"], ["show"], ["xml"], ["xml", song, song], ["scan"],
                      ["set"], ["set", song], ["remove"], ["import", song], ["import", song, song, song], ["genres", "x"],
                      ["selftest", "a", "b"], ["scan", "--format", "yaml", song], ["scan", "--jobs", "0", song],
                      ["scan", "--jobs", "many", song], ["scan", "--jobs", "-1", song], ["show", "--color", "blue", song],
                      ["show", "--nonesuch", song], ["genres", "--json=no"], ["scan", "--format"],
                      ["scan", "--format", "csv", "--format", "json", song]):
            with self.subTest(words=words):
                self.error(*words, code=WRONG_USE)

    def test_wrong_use_names_the_command_and_its_help(self):
        self.assertEqual(self.error("xml", code=WRONG_USE), 'corvane: xml: FILE is missing. See "corvane xml --help".')
        self.assertEqual(self.error("genres", "--colour", code=WRONG_USE),
                         'corvane: genres: There is no option "--colour". See "corvane genres --help".')


class Streams(CliTest):
    def test_full_standard_output_is_a_failure(self):
        song = self.write("a.mp3", mp3.audio())
        for words in (["genres"], ["show", song], ["xml", song], ["scan", song], ["--help"], ["--version"], ["selftest"]):
            with self.subTest(words=words), open("/dev/full", "wb") as full:
                done = self.run_command(*words, code=FILE_FAILED, stdout=full)
                self.assertEqual(done.stderr, b"corvane: standard output: No space left on device\n")

    def test_closed_reader_ends_the_process_by_its_signal(self):
        reader, writer = os.pipe()
        os.close(reader)
        with open(writer, "wb", buffering=0) as pipe:
            done = subprocess.run([COMMAND, "genres"], stdout=pipe, stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, -signal.SIGPIPE)
        self.assertEqual(done.stderr, b"")

    def test_closed_reader_is_a_failure_when_the_signal_is_ignored(self):
        reader, writer = os.pipe()
        os.close(reader)
        with open(writer, "wb", buffering=0) as pipe:
            done = self.run_command("genres", code=FILE_FAILED, stdout=pipe, restore_signals=False,
                                    preexec_fn=lambda: signal.signal(signal.SIGPIPE, signal.SIG_IGN))
        self.assertEqual(done.stderr, b"corvane: standard output: Broken pipe\n")

    def test_output_never_lands_in_a_file_that_takes_the_number_of_a_closed_stream(self):
        song = self.write("a.mp3", mp3.audio() + mp3.id3v1(title=b"old"))
        for closed in ([1], [2], [0, 1, 2]):
            self.write("a.mp3", mp3.audio() + mp3.id3v1(title=b"old"))

            def close_streams(streams=closed):
                for stream in streams:
                    os.close(stream)

            subprocess.run([COMMAND, "set", song, "--title", "new", "--year", "too long"], stdin=subprocess.DEVNULL,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=close_streams, check=False)
            with open(song, "rb") as file:
                self.assertEqual(file.read(), mp3.audio() + mp3.id3v1(title=b"new", year=b"too "))

    def test_size_limit_is_a_failure_and_changes_nothing(self):
        song = self.write("a.mp3", mp3.audio())
        before = hash_of(song)

        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        error = self.error("set", song, "--title", "x", preexec_fn=limit)
        self.assertTrue(error.startswith(f"corvane: {song}: "), error)
        self.assertEqual(hash_of(song), before)

    def test_reports_that_cannot_be_written_stop_further_changes(self):
        songs = [self.write(f"{'x' * 200}{number}.mp3", mp3.audio()) for number in range(400)]
        with open("/dev/full", "wb") as full:
            self.run_command("set", *songs, "--title", "x", code=FILE_FAILED, stdout=full)
        changed = [song for song in songs if os.path.getsize(song) > len(mp3.audio())]
        self.assertLess(len(changed), len(songs))


class FileNames(CliTest):
    def test_any_file_name_works_with_every_command(self):
        for name in ODD_NAMES:
            with self.subTest(name=name):
                self.write(name, mp3.audio())
                here = {"cwd": self.folder}
                self.run_command("set", "--title", "T", "--", name, **here)
                self.run_command("show", "--", name, **here)
                self.run_command("scan", "--", name, **here)
                self.run_command("xml", "--output", "document.xml", "--", name, **here)
                self.run_command("remove", "--", name, **here)
                self.run_command("import", "--", name, b"document.xml", **here)
                with open(os.path.join(os.fsencode(self.folder), name), "rb") as file:
                    self.assertEqual(file.read()[-128:-95], b"TAG" + b"T".ljust(30, b"\0"))

    def test_failed_file_is_named_with_its_bytes_in_one_line(self):
        for name in (b"caf\xe9.mp3", "日本.mp3".encode(), b"quote\"'.mp3"):
            done = self.run_command("xml", name, code=FILE_FAILED)
            self.assertEqual(done.stderr, b"corvane: " + name + b": No such file or directory\n")

    def test_control_characters_of_a_name_do_not_reach_the_reader_of_errors(self):
        done = self.run_command("xml", b"a\n\x1b[31m.mp3", code=FILE_FAILED)
        self.assertEqual(done.stderr.decode(), "corvane: a␊␛[31m.mp3: No such file or directory\n")

    def test_name_that_looks_like_an_option_works_behind_two_dashes(self):
        self.write("-x.mp3", mp3.audio())
        self.error("xml", "-x.mp3", code=WRONG_USE, cwd=self.folder)
        self.assertIn("<ImportData>", self.run_command("xml", "--", "-x.mp3", cwd=self.folder).stdout.decode("latin-1"))


class Failures(CliTest):
    """Files that cannot be read, for every command that reads any."""

    def commands(self, path):
        document = self.write("document.xml", b"<ID3V1Tag/>")
        return {"show": ["show", path], "xml": ["xml", path], "set": ["set", path, "--title", "x"],
                "remove": ["remove", path], "scan": ["scan", path], "import": ["import", path, document]}

    def check(self, path, reason, **options):
        for command, words in self.commands(path).items():
            if command == "import":
                continue  # its document is looked at first, see ImportTest
            with self.subTest(command=command):
                done = self.run_command(*words, code=FILE_FAILED, timeout=5, **options)
                self.assertEqual(done.stderr.decode(), f"corvane: {path}: {reason}\n")
                if command != "scan":
                    self.assertEqual(done.stdout, b"")

    def test_missing_file_is_named(self):
        self.check(str(self.folder / "missing.mp3"), "No such file or directory")

    def test_pipe_ends_at_once(self):
        path = str(self.folder / "pipe.mp3")
        os.mkfifo(path)
        self.check(path, "Not a regular file")

    def test_device_ends_at_once(self):
        self.check("/dev/zero", "Not a regular file")

    def test_unreadable_file_is_named(self):
        path = self.write("secret.mp3", mp3.audio())
        os.chmod(path, 0)
        os.chmod(self.folder, 0o755)
        self.check(path, "Permission denied", **({"user": "nobody"} if os.geteuid() == 0 else {}))

    def test_archive_is_no_mp3_file(self):
        self.check(self.write("archive.mp3", b"PK\3\4" + bytes(100)), "This is a ZIP-File")

    def test_folder_is_no_file(self):
        for command, words in self.commands(str(self.folder)).items():
            if command in ("show", "xml", "set", "remove"):
                self.assertEqual(self.error(*words), f"corvane: {self.folder}: Is a directory")

    def test_one_bad_file_does_not_stop_the_others(self):
        songs = [self.write("a.mp3", mp3.audio()), str(self.folder / "missing"), self.write("b.mp3", mp3.audio())]
        for words in (["show", *songs], ["scan", *songs], ["set", *songs, "--title", "x"], ["remove", *songs]):
            done = self.run_command(*words, code=FILE_FAILED)
            self.assertIn(b"a.mp3", done.stdout)
            self.assertIn(b"b.mp3", done.stdout)
            self.assertEqual(done.stderr.count(b"\n"), 1)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

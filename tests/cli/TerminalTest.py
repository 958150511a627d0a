#!/usr/bin/python3
"""What a run looks like on a terminal: colours, the progress bar, and nothing that a tag could do to it."""
import fcntl
import os
import pty
import re
import select
import struct
import subprocess
import sys
import termios
import time
import unittest

import mp3
from harness import COMMAND, CliTest, environment

COLOUR = re.compile(rb"\x1b\[[0-9;]*m")


def read_terminal(terminal, process):
    """Everything that reaches the terminal until the process ends."""
    shown = b""
    deadline = time.monotonic() + 20
    while time.monotonic() < deadline:
        if select.select([terminal], [], [], 0.05)[0]:
            try:
                block = os.read(terminal, 65536)
            except OSError:  # the other end is closed
                break
            if not block:
                break
            shown += block
        elif process.poll() is not None:
            break
    process.wait(timeout=5)
    return shown


class Terminal(CliTest):
    def on_terminal(self, *words, streams=("stdout", "stderr"), columns=80, **options):
        """Exit code, what the terminal shows, and what the other stream holds."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        others = {name: subprocess.PIPE for name in ("stdout", "stderr") if name not in streams}
        options.setdefault("env", environment(TERM="xterm"))
        process = subprocess.Popen([COMMAND, *words], stdin=subprocess.DEVNULL, **{name: theirs for name in streams}, **others,
                                   **options)
        os.close(theirs)
        shown = read_terminal(ours, process)
        os.close(ours)
        other = b"".join(getattr(process, name).read() for name in others)
        for name in others:
            getattr(process, name).close()
        return process.returncode, shown, other


class Colours(Terminal):
    def setUp(self):
        super().setUp()
        self.song = self.write("a.mp3", mp3.audio() + mp3.id3v1(b"T"))
        self.commands = [["show", self.song], ["selftest"], ["set", "--dry-run", "--title", "x", self.song],
                         ["remove", "--dry-run", self.song]]

    def test_terminal_has_colours(self):
        for words in self.commands:
            self.assertRegex(self.on_terminal(*words)[1], COLOUR)

    def test_pipe_has_none(self):
        for words in self.commands:
            self.assertNotIn("\x1b", self.output(*words))

    def test_no_color_is_honoured_unless_empty(self):
        for words in self.commands:
            self.assertNotRegex(self.on_terminal(*words, env=environment(TERM="xterm", NO_COLOR="1"))[1], COLOUR)
            self.assertRegex(self.on_terminal(*words, env=environment(TERM="xterm", NO_COLOR=""))[1], COLOUR)

    def test_dumb_terminal_has_none(self):
        self.assertNotRegex(self.on_terminal("show", self.song, env=environment(TERM="dumb"))[1], COLOUR)

    def test_option_decides_over_terminal_and_environment(self):
        for words in self.commands:
            self.assertNotRegex(self.on_terminal(*words, "--color=never")[1], COLOUR)
            self.assertIn("\x1b[", self.output(*words, "--color", "always", environment=environment(NO_COLOR="1")))

    def test_colours_change_nothing_else(self):
        for words in self.commands:
            plain = self.output(*words)
            coloured = self.output(*words, "--color=always")
            self.assertEqual(COLOUR.sub(b"", coloured.encode()).decode(), plain)


class Width(Terminal):
    def test_values_are_wrapped_to_the_terminal_and_to_nothing_else(self):
        title = "a title of many words " * 20
        song = self.write("a.mp3", mp3.id3v2([mp3.frame23("TIT2", mp3.latin1(title.strip()))]) + mp3.audio())
        _, shown, _ = self.on_terminal("show", song, "--color=never", columns=60)
        lines = shown.decode().splitlines()
        self.assertLessEqual(max(map(len, lines)), 60)
        self.assertIn(title.strip(), " ".join(" ".join(lines).split()))
        self.assertIn(title.strip(), self.output("show", song))


class ProgressBar(Terminal):
    def setUp(self):
        super().setUp()
        for number in range(100):
            self.write(f"{number:03}.mp3", b"PK\3\4" if number == 50 else mp3.audio(3))

    def test_bar_is_shown_on_standard_error_and_taken_away(self):
        code, shown, lines = self.on_terminal("scan", "--jobs=1", str(self.folder), streams=["stderr"])
        self.assertEqual(code, 1)
        self.assertRegex(shown, rb"\r\x1b\[K\[[#-]+\] \d+/100 +\d+%")
        self.assertTrue(shown.endswith(b"\r\x1b[K"))
        self.assertEqual(lines.count(b"\n"), 100)
        self.assertNotIn(b"\x1b", lines)

    def test_failed_file_stands_on_a_line_of_its_own(self):
        _, shown, _ = self.on_terminal("scan", "--jobs=1", str(self.folder), streams=["stderr"])
        self.assertRegex(shown, rb"\r\x1b\[Kcorvane: [^\r\n]*050\.mp3: This is a ZIP-File\r\n")

    def test_bar_fits_a_narrow_terminal(self):
        _, shown, _ = self.on_terminal("scan", str(self.folder), streams=["stderr"], columns=20)
        for bar in re.findall(rb"\x1b\[K(\[[^\r\n]*%)", shown):
            self.assertLess(len(bar), 20)

    def test_quiet_run_has_none(self):
        _, shown, _ = self.on_terminal("scan", "--quiet", str(self.folder), streams=["stderr"])
        self.assertNotIn(b"[", shown)

    def test_list_on_the_terminal_has_none(self):
        _, shown, _ = self.on_terminal("scan", str(self.folder))
        self.assertNotIn(b"\x1b", shown)
        self.assertEqual(shown.count(b"\n"), 101)

    def test_no_terminal_has_none(self):
        done = self.run_command("scan", str(self.folder), code=1)
        self.assertEqual(done.stderr.count(b"\n"), 1)


class Injection(Terminal):
    """A tag tries to move the cursor, set the title and turn the reading direction around."""

    EVIL = b"\x1b]0;owned\x07\x1b[2J\x9b31m\r\x08"

    def test_nothing_of_a_tag_or_a_name_controls_the_terminal(self):
        lyrics = mp3.lyrics3v2([(b"LYR", self.EVIL), (b"EVL", self.EVIL)])
        tag = mp3.id3v2([mp3.frame23("TIT2", b"\0" + self.EVIL), mp3.frame23("TPE1", mp3.utf16("\u202eevil\u009b31m")),
                         mp3.frame23("COMM", b"\0\x1b[m" + self.EVIL + b"\0" + self.EVIL), mp3.frame23("WXXX", b"\0" + self.EVIL + b"\0" + self.EVIL),
                         mp3.frame23("APIC", mp3.picture(mp3.png(1, 1), mime=self.EVIL, description=self.EVIL)),
                         mp3.frame23("TXXX", b"\0" + self.EVIL + b"\0" + self.EVIL), mp3.frame23("PRIV", self.EVIL + b"\0" + self.EVIL),
                         mp3.frame23("\x1b[2J", self.EVIL)])
        content = tag + mp3.audio() + lyrics + mp3.id3v1(self.EVIL, self.EVIL, self.EVIL, b"\x1bc\x9bA", self.EVIL)
        path = self.write(b"evil\x1b[31m\x9b\xc2\x9b.mp3", content)
        bad = self.write(b"bad\x1b[31m\x9b\xc2\x9b.mp3", b"PK\3\4")
        for words in (["show", path, bad], ["scan", path, bad], ["scan", "--format", "csv", path],
                      ["set", path, bad, "--title", "x", "--dry-run"], ["set", path, "--title", "x", "--dry-run", "--json"],
                      ["remove", path, "--dry-run"]):
            with self.subTest(words=words):
                shown = COLOUR.sub(b"", self.on_terminal(*words)[1]).replace(b"\r\n", b"\n")
                text = shown.decode("utf-8")  # and well-formed
                self.assertEqual([c for c in text if c < " " and c != "\n" or "\x7f" <= c < "\xa0" or c == "\u202e"], [])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

"""Runs the command as its users do, and checks what every run must keep to."""
import hashlib
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

COMMAND = os.environ["CORVANE_COMMAND"]

DONE, FILE_FAILED, WRONG_USE = 0, 1, 2

# Names that mean something to a shell, to a terminal or to a library, and bytes that are no text.
ODD_NAMES = [b"caf\xe9.mp3", b"\xff\xfe\x80.mp3", b"line\nbreak.mp3", b"tab\tand\x1b[31mescape.mp3", b"quote\"'`$(x).mp3",
             b"-dash.mp3", b"--", b"--help", b"[a,b]", b"{}", b"%%", b"%s%n", b" ", b"back\\slash", "日本語 🎵.mp3".encode()]


def hash_of(path):
    return hashlib.sha256(Path(os.fsdecode(path)).read_bytes()).hexdigest()


def environment(**changes):
    """The environment without anything that would change the output, and with these changes."""
    kept = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "TERM", "TMPDIR")}
    return kept | changes


class CliTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="corvane-cli-")
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)

    def write(self, name, content):
        """Writes a file into the test's own folder; the name may be bytes. Gives its path."""
        path = os.path.join(os.fsencode(self.folder), os.fsencode(name))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        return path if isinstance(name, bytes) else os.fsdecode(path)

    def without_id3lib(self):
        """An environment in which the loader finds an id3lib that is none."""
        folder = tempfile.TemporaryDirectory(prefix="corvane-no-id3lib-")
        self.addCleanup(folder.cleanup)
        Path(folder.name, "libid3-3.8.so.3").touch()
        return environment(LD_LIBRARY_PATH=folder.name)

    def names(self):
        return sorted(os.listdir(self.folder))

    def run_command(self, *words, code=DONE, environment=environment(), timeout=20, **options):
        """Runs the command and checks its exit code; a run that is all done says nothing on standard error."""
        options.setdefault("stdin", subprocess.DEVNULL)
        if "input" in options:
            del options["stdin"]
        options.setdefault("stdout", subprocess.PIPE)
        done = subprocess.run([COMMAND, *words], stderr=subprocess.PIPE, env=environment, timeout=timeout, check=False,
                              **options)
        self.assertEqual(done.returncode, code, f"{words}: {done.stdout!r} {done.stderr!r}")
        if code != DONE:
            self.assertTrue(done.stderr.startswith(b"corvane: "), done.stderr)
        return done

    def output(self, *words, **options):
        """Standard output of a run that is all done and has no warnings, as text."""
        done = self.run_command(*words, **options)
        self.assertEqual(done.stderr, b"")
        return done.stdout.decode("utf-8")

    def error(self, *words, code=FILE_FAILED, **options):
        """The one line on standard error of a run that fails and has no other output."""
        done = self.run_command(*words, code=code, **options)
        self.assertEqual(done.stdout, b"")
        self.assertEqual(done.stderr.count(b"\n"), 1, done.stderr)
        return done.stderr.decode("utf-8", "surrogateescape").removesuffix("\n")

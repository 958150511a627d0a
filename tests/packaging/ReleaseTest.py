#!/usr/bin/python3
"""The packages that are given away keep Debian's policy.

    ReleaseTest.py FOLDER PACKAGE_VERSION
"""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from debs import debs_in, run, unpack

DEBS = debs_in(Path(sys.argv[1]).resolve(), sys.argv[2])
ELF = b"\x7fELF"


class Release(unittest.TestCase):
    def test_lintian_finds_neither_errors_nor_warnings(self):
        self.assertGreater(len(DEBS), 1)
        done = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning", *(deb.path for deb in DEBS)],
                              capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr)

    def test_binaries_are_hardened_and_stripped(self):
        with tempfile.TemporaryDirectory() as root:
            unpack(DEBS, Path(root))
            binaries = [path for path in Path(root).rglob("*")
                        if path.is_file() and not path.is_symlink() and path.read_bytes()[:4] == ELF]
            self.assertGreaterEqual(len(binaries), 5)
            for path in binaries:
                with self.subTest(path.name):
                    told = run("readelf", "--file-header", "--segments", "--dynamic", "--sections", "--dyn-syms", "--wide", path)
                    self.assertRegex(told, r"Type:\s+DYN")
                    self.assertRegex(told, r"GNU_RELRO")
                    self.assertRegex(told, r"BIND_NOW|FLAGS_1.*NOW")
                    self.assertRegex(told, r"__stack_chk_fail")
                    self.assertNotRegex(told, r"RPATH|RUNPATH|\.symtab|\.debug_info")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

#!/usr/bin/python3
"""What the start of a process costs: the libraries that it loads."""
import os
import subprocess
import sys
import unittest

from harness import COMMAND


class Startup(unittest.TestCase):
    def test_only_the_c_library_is_loaded(self):
        done = subprocess.run([COMMAND], env=dict(os.environ, LD_TRACE_LOADED_OBJECTS="1"), capture_output=True, text=True,
                              check=True)
        loaded = {os.path.basename(line.split()[0]).split(".so")[0] for line in done.stdout.splitlines()}
        self.assertIn("libc", loaded)
        self.assertEqual({name for name in loaded if not name.startswith(("linux-vdso", "ld-linux"))} - {"libm"}, {"libc"})


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

#!/usr/bin/python3
"""tools/check-layers finds each kind of violation, and nothing in a tree that keeps the order."""
import subprocess
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "check-layers"


def check(files):
    """Exit code and printed lines for a tree of {path: text}."""
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            target = Path(root) / path
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text(text, encoding="utf-8")
        done = subprocess.run([TOOL, root], capture_output=True, text=True, check=False)
        return done.returncode, done.stdout.splitlines()


class CheckLayers(unittest.TestCase):
    def assert_violation(self, files, *words):
        code, lines = check(files)
        self.assertEqual(code, 1)
        self.assertEqual(len(lines), 1, lines)
        for word in words:
            self.assertIn(word, lines[0])

    def test_a_tree_in_order_passes(self):
        code, lines = check({
            "corvane/platform/Bytes.h": "#include <vector>\n",
            "corvane/core/cError.h": '#include "corvane/platform/Bytes.h"\n',
            "corvane/id3v1/Genre.h": '#include "corvane/core/cError.h"\n',
            "corvane/id3v230/Encoder.cpp": "#include <id3.h>\n",
            "corvane/core/FileHandler.h": '#include "corvane/id3v1/Genre.h"\n#include "corvane/Version.h"\n',
            "corvane/controls/Lyrics.h": '#include "corvane/core/FileHandler.h"\n#include <QWidget>\n',
            "corvane/corvane.h": '#include "corvane/selftest/TestFixture.h"\n',
            "corvane/selftest/TestFixture.h": '#include "corvane/core/FileHandler.h"\n',
            "apps/cli/main.cpp": '#include "corvane/core/FileHandler.h"\n',
            "tests/id3v1/GenreTest.cpp": '#include "corvane/id3v1/Genre.h"\n',
        })
        self.assertEqual((code, lines), (0, []))

    def test_an_include_upward_is_found(self):
        self.assert_violation({"corvane/platform/A.h": '\n#include "corvane/xml/B.h"\n', "corvane/xml/B.h": ""},
                              "corvane/platform/A.h:2", "platform must not include xml")

    def test_the_error_records_do_not_know_the_tags(self):
        self.assert_violation({"corvane/core/cError.h": '#include "corvane/mpeg/M.h"\n', "corvane/mpeg/M.h": ""},
                              "core errors must not include mpeg")

    def test_the_tags_do_not_know_the_file_handler(self):
        self.assert_violation({"corvane/id3v1/A.h": '#include "corvane/core/FileHandler.h"\n',
                               "corvane/core/FileHandler.h": ""}, "id3v1 must not include core")

    def test_siblings_do_not_know_each_other(self):
        self.assert_violation({"apps/cli/a.cpp": '#include "apps/editor/b.h"\n', "apps/editor/b.h": ""},
                              "apps/cli must not include apps/editor")

    def test_the_module_and_the_command_share_the_scan_and_no_more(self):
        self.assertEqual(check({"apps/scan/S.h": "", "apps/cli/a.cpp": '#include "apps/scan/S.h"\n',
                                "python/b.cpp": '#include "apps/scan/S.h"\n#include <pybind11/pybind11.h>\n'}), (0, []))
        self.assert_violation({"python/b.cpp": '#include "apps/cli/C.h"\n', "apps/cli/C.h": ""},
                              "python must not include apps/cli")

    def test_the_library_does_not_know_its_tests(self):
        self.assert_violation({"corvane/xml/A.cpp": '#include "tests/support/T.h"\n', "tests/support/T.h": ""},
                              "xml must not include outside")

    def test_the_library_does_not_use_its_umbrella(self):
        self.assert_violation({"corvane/selftest/A.cpp": '#include "corvane/corvane.h"\n', "corvane/corvane.h": ""},
                              "selftest must not include library")

    def test_only_the_encoder_includes_id3lib(self):
        self.assert_violation({"corvane/id3v2/A.cpp": "#include <id3.h>\n"}, "id3v2 must not include id3lib")

    def test_only_the_controls_include_qt(self):
        for header in ["QString", "QtWidgets/QLabel", "qglobal.h"]:
            with self.subTest(header):
                self.assert_violation({"corvane/core/A.cpp": f"#include <{header}>\n"}, "core must not include Qt")

    def test_a_circle_is_found(self):
        self.assert_violation({"corvane/xml/A.h": '#include "corvane/xml/B.h"\n',
                               "corvane/xml/B.h": '#include "corvane/xml/C.h"\n',
                               "corvane/xml/C.h": '#include "corvane/xml/A.h"\n'},
                              "circle of includes", "corvane/xml/A.h -> corvane/xml/B.h -> corvane/xml/C.h")

    def test_an_include_that_is_not_rooted_at_the_repository_is_found(self):
        self.assert_violation({"corvane/xml/A.h": '#include "B.h"\n', "corvane/xml/B.h": ""}, '"B.h" is no file')

    def test_a_folder_without_a_place_is_found(self):
        self.assert_violation({"corvane/misc/A.h": ""}, "no place in the order")

    def test_a_tree_without_sources_is_found(self):
        self.assert_violation({"README.md": ""}, "no source files")


if __name__ == "__main__":
    unittest.main()

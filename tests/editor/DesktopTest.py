#!/usr/bin/python3
"""What the desktop is told of the editor is right by its own validators, and installed where desktops look for it."""
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ["CORVANE_SOURCE"]) / "apps" / "editor"


def run(*words, **options):
    return subprocess.run(words, capture_output=True, text=True, check=False, **options)


class Desktop(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(scratch.cleanup)
        cls.prefix = Path(scratch.name)
        subprocess.run(["cmake", "--install", os.environ["CORVANE_BUILD"], "--prefix", cls.prefix, "--component", "editor"],
                       check=True, capture_output=True)
        cls.share = cls.prefix / "share"
        cls.entry = cls.share / "applications" / "corvane-editor.desktop"
        cls.metainfo = cls.share / "metainfo" / "org.corvane.editor.metainfo.xml"

    def test_every_file_has_its_place(self):
        files = {str(path.relative_to(self.prefix)) for path in self.prefix.rglob("*") if path.is_file()}
        self.assertEqual(files, {"bin/corvane-editor", "share/applications/corvane-editor.desktop",
                                 "share/metainfo/org.corvane.editor.metainfo.xml",
                                 "share/icons/hicolor/scalable/apps/corvane-editor.svg",
                                 "share/man/man1/corvane-editor.1"})

    def test_desktop_entry_is_valid_and_takes_music_and_folders(self):
        done = run("desktop-file-validate", self.entry)
        self.assertEqual((done.returncode, done.stdout + done.stderr), (0, ""))
        types = re.search(r"(?m)^MimeType=(.*)$", self.entry.read_text(encoding="utf-8")).group(1).split(";")
        self.assertLessEqual({"audio/mpeg", "inode/directory"}, set(types))

    def test_metainfo_is_valid_and_leads_to_the_entry(self):
        done = run("appstreamcli", "validate", "--no-net", "--strict", self.metainfo)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        text = self.metainfo.read_text(encoding="utf-8")
        self.assertIn(f">{self.entry.name}<", text)
        self.assertIn(f'version="{os.environ["CORVANE_VERSION"]}"', text)

    def test_icon_is_well_formed(self):
        done = run("xmllint", "--noout", self.share / "icons/hicolor/scalable/apps/corvane-editor.svg")
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_manual_page_is_clean_for_its_formatter(self):
        done = run("groff", "-man", "-ww", "-z", "-Tutf8", self.share / "man/man1/corvane-editor.1")
        self.assertEqual(done.stderr, "")

    def test_manual_page_names_every_key_of_the_menus(self):
        page = (SOURCE / "desktop" / "corvane-editor.1").read_text(encoding="utf-8")
        source = "".join((SOURCE / name).read_text(encoding="utf-8") for name in ("MainMenus.cpp", "ToolMenu.cpp"))
        keys = set(re.findall(r'"(Ctrl\+[A-Za-z0-9+]+)"', source)) - {"Ctrl+Y", "Ctrl+Shift+W"}
        self.assertGreater(len(keys), 7)
        for key in keys:
            self.assertIn(key, page)

    def test_installed_editor_runs_on_its_own(self):
        environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
        done = run(self.prefix / "bin" / "corvane-editor", "--version", env=environment | {"QT_QPA_PLATFORM": "offscreen"})
        self.assertEqual((done.returncode, done.stdout), (0, f"corvane-editor {os.environ['CORVANE_VERSION']}\n"))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

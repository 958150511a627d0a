#!/usr/bin/python3
"""Builds the API reference of the published headers with Doxygen; a member without a comment is an error.

    build.py FOLDER [--list | --everything]

The pages go into FOLDER/html. With --list the headers are named and nothing is built. With --everything all members are
written into FOLDER/xml, those too of which nothing is said: Doxygen does not miss a word about each kind of them.
"""
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

# Umbrellas, and what hosts have no use for but in the other headers.
LEFT_OUT = {"corvane/corvane.h", "corvane/controls/Controls.h", "corvane/platform/Export.h",
            "corvane/controls/Export.h", "corvane/platform/Internals.h"}


def published_headers():
    """What the CMake files of the library install."""
    headers = set()
    for file in sorted((ROOT / "corvane").rglob("CMakeLists.txt")):
        text = file.read_text(encoding="utf-8")
        for listed in re.findall(r"corvane_published\(([^)]*)\)|FILE_SET HEADERS BASE_DIRS \S+ FILES\s([^)]*)\)", text):
            names = " ".join(listed).split()
            headers |= {str((file.parent / name).relative_to(ROOT)) for name in names if name.endswith(".h")}
    return sorted(headers - LEFT_OUT)


EVERYTHING = """
EXTRACT_ALL = YES
WARNINGS = NO
WARN_AS_ERROR = NO
GENERATE_HTML = NO
GENERATE_XML = YES
XML_PROGRAMLISTING = NO
"""


def build(folder, more=""):
    folder.mkdir(parents=True, exist_ok=True)
    version = re.search(r"project\(Corvane VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]
    settings = (ROOT / "docs/reference/Doxyfile").read_text(encoding="utf-8")
    settings += f'\nPROJECT_NUMBER = {version}\nOUTPUT_DIRECTORY = "{folder}"\nINPUT = docs/reference/Main.dox {" ".join(published_headers())}\n{more}'
    done = subprocess.run(["doxygen", "-"], input=settings, text=True, cwd=ROOT, check=False)
    return done.returncode


def main():
    if "--list" in sys.argv:
        print("\n".join(published_headers()))
        return 0
    return build(Path(sys.argv[1]).resolve(), EVERYTHING if "--everything" in sys.argv else "")


if __name__ == "__main__":
    sys.exit(main())

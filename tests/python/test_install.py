"""The module as `cmake --install` puts it."""
import os
import subprocess
import sys
from pathlib import Path

import mp3


def test_the_component_is_a_package_that_works_on_its_own(tmp_path, write):
    subprocess.run(["cmake", "--install", os.environ["CORVANE_BUILD"], "--component", "python", "--prefix", tmp_path],
                   check=True, stdout=subprocess.DEVNULL)
    package, = tmp_path.rglob("corvane")
    assert package.parent.name == "dist-packages"
    files = {path.name for path in tmp_path.rglob("*") if path.is_file()}
    module, = files - {"__init__.pyi", "py.typed"}
    assert module.startswith("__init__.cpython-3") and module.endswith(".so")
    # The library itself belongs to another component.
    path = write(mp3.audio() + mp3.id3v1(b"Title"))
    program = f"import corvane; print(corvane.__file__, [file['title'] for file in corvane.scan({path!r})])"
    done = subprocess.run([sys.executable, "-c", program], env=os.environ | {
        "PYTHONPATH": str(package.parent), "LD_LIBRARY_PATH": os.path.dirname(os.environ["CORVANE_LIBRARY"])},
        capture_output=True, text=True, check=True)
    assert done.stdout == f"{package / module} ['Title']\n"


def test_nothing_but_the_library_and_the_system_is_needed():
    module = Path(os.environ["CORVANE_MODULE"])
    done = subprocess.run(["readelf", "--dynamic", module], capture_output=True, text=True, check=True)
    needed = {line.split("[")[1].rstrip("]") for line in done.stdout.splitlines() if "(NEEDED)" in line}
    names = {name.split(".so")[0] for name in needed if not name.startswith("ld-linux")}
    assert names <= {"libcorvane", "libstdc++", "libgcc_s", "libc", "libm"}

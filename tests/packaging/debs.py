"""Debian packages as the tests look at them: made of a build, unpacked side by side into one folder."""
import os
import re
import subprocess


def run(*command, **options):
    """What a command prints; its whole output when it fails."""
    words = [str(word) for word in command]
    done = subprocess.run(words, capture_output=True, text=True, check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(words)}\n{done.stdout}{done.stderr}")
    return done.stdout


class Deb:
    """One package file."""

    def __init__(self, path):
        self.path = path
        self.fields = dict(line.split(": ", 1) for line in run("dpkg-deb", "--field", path).splitlines()
                           if re.match(r"[A-Z]", line))
        self.depends = set(self.fields.get("Depends", "").split(", "))
        self.files = {line.split(None, 5)[5].split(" -> ")[0].lstrip(".") for line in self.listing()
                      if not line.startswith("d")}

    def listing(self):
        return run("dpkg-deb", "--contents", self.path).splitlines()

    def control(self, name):
        """A file of the control part, or nothing."""
        done = subprocess.run(["dpkg-deb", "--info", self.path, name], capture_output=True, text=True, check=False)
        return done.stdout if done.returncode == 0 else None


def debs_in(folder, version):
    return [Deb(path) for path in sorted(folder.glob(f"*_{version}_*.deb"))]


def make(build, folder, version):
    """The packages of a build tree, made into a folder of their own."""
    run("cpack", "-G", "DEB", "--config", build / "CPackConfig.cmake", "-B", folder, cwd=build)
    return debs_in(folder, version)


def unpack(debs, root):
    for deb in debs:
        run("dpkg-deb", "--extract", deb.path, root)


def environment_of(root):
    """The variables with which programs see what is unpacked below root as if it were installed."""
    libraries = next(root.rglob("libcorvane.so.1")).parent
    modules = [marker.parent.parent for marker in root.rglob("corvane/py.typed")]
    show_rest_of_the_machine(root)
    return dict(
        os.environ,
        PATH=f"{root}/usr/bin:{os.environ['PATH']}",
        LD_LIBRARY_PATH=str(libraries),
        CMAKE_PREFIX_PATH=f"{root}/usr",
        PKG_CONFIG_PATH=str(libraries / "pkgconfig"),
        PKG_CONFIG_SYSROOT_DIR=str(root),
        PYTHONPATH=os.pathsep.join(map(str, modules)),
        PYTHONDONTWRITEBYTECODE="1",
        QT_QPA_PLATFORM="offscreen",
    )


def show_rest_of_the_machine(root):
    """pkg-config looks for the headers of Qt below the same root."""
    headers = subprocess.run(["pkg-config", "--variable=includedir", "Qt6Core"], capture_output=True, text=True,
                             check=False).stdout.strip()
    if headers:
        link = root / headers.lstrip("/")
        link.parent.mkdir(parents=True, exist_ok=True)
        link.symlink_to(headers)

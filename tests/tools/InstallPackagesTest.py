#!/usr/bin/python3
"""tools/install-packages asks apt for what is missing and for nothing else; dpkg, apt and sudo are stand-ins here."""
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "install-packages"

STAND_INS = {
    "dpkg-query": 'for name in $INSTALLED; do echo "$name installed"; done\necho "half-there config-files"\nexit 1',
    "apt-get": 'echo "apt-get $*" >>"$LOG"\ncase "$*" in *$FAILING*) exit 100;; esac',
    "sudo": 'echo sudo >>"$LOG"\n"$@"',
    "id": 'echo "$USER_ID"',
}


class InstallPackages(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        (self.root / "bin").mkdir()
        shutil.copy(TOOL, self.root)
        (self.root / "packages.txt").write_text("# tools\ncmake  # builds\n\ng++\nhalf-there\n", encoding="utf-8")
        for name in ["bash", "env", "sed", "grep", "dirname", "cat"]:
            (self.root / "bin" / name).symlink_to(shutil.which(name))
        for name, body in STAND_INS.items():
            self.add(name, body)

    def add(self, name, body):
        script = self.root / "bin" / name
        script.write_text(f"#!/bin/sh\n{body}\n", encoding="utf-8")
        script.chmod(0o755)

    def run_tool(self, installed, failing="nothing", user_id=0):
        log = self.root / "log"
        log.write_text("", encoding="utf-8")
        done = subprocess.run(
            [self.root / "install-packages"], capture_output=True, text=True, check=False,
            env={"PATH": str(self.root / "bin"), "INSTALLED": installed, "FAILING": failing,
                 "USER_ID": str(user_id), "LOG": str(log)})
        calls = [" ".join(word for word in line.split() if not word.startswith(("-", "DPkg")))
                 for line in log.read_text(encoding="utf-8").splitlines()]
        return done, calls

    def test_nothing_missing_calls_no_apt(self):
        done, calls = self.run_tool("cmake g++ half-there")
        self.assertEqual((done.returncode, calls, done.stdout), (0, [], ""))

    def test_what_is_missing_is_installed_and_nothing_else(self):
        done, calls = self.run_tool("cmake")
        self.assertEqual((done.returncode, calls), (0, ["apt-get update", "apt-get install g++ half-there"]))

    def test_a_removed_package_that_left_its_settings_counts_as_missing(self):
        _, calls = self.run_tool("cmake g++")
        self.assertEqual(calls, ["apt-get update", "apt-get install half-there"])

    def test_a_failed_update_does_not_stop_the_installation(self):
        done, calls = self.run_tool("cmake half-there", failing="update")
        self.assertEqual((done.returncode, calls), (0, ["apt-get update", "apt-get install g++"]))

    def test_a_failed_installation_is_told_with_the_names(self):
        done, _ = self.run_tool("cmake", failing="install")
        self.assertEqual(done.returncode, 1)
        self.assertIn("could not install: g++ half-there", done.stderr)

    def test_another_user_installs_through_sudo(self):
        done, calls = self.run_tool("cmake half-there", user_id=1000)
        self.assertEqual((done.returncode, calls), (0, ["sudo", "apt-get update", "sudo", "apt-get install g++"]))

    def test_another_user_without_sudo_is_told_what_to_run(self):
        (self.root / "bin" / "sudo").unlink()
        done, calls = self.run_tool("cmake half-there", user_id=1000)
        self.assertEqual((done.returncode, calls), (1, []))
        self.assertIn("as root run: apt-get install g++", done.stderr)

    def test_a_system_without_apt_is_told_so(self):
        (self.root / "bin" / "apt-get").unlink()
        done, _ = self.run_tool("")
        self.assertEqual(done.returncode, 1)
        self.assertIn("no Debian system", done.stderr)


if __name__ == "__main__":
    unittest.main()

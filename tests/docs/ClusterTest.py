#!/usr/bin/python3
"""examples/cluster/scan_tree.py on two worker processes finds what one process finds, also when one of them dies.

    ClusterTest.py FOLDER_OF_THE_MODULE SAMPLE_FILE
"""
import contextlib
import importlib.util
import io
import json
import os
import pty
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

MODULE, SAMPLE = Path(sys.argv[1]), Path(sys.argv[2])
EXAMPLES = Path(__file__).resolve().parents[2] / "examples" / "cluster"
SCRIPT = EXAMPLES / "scan_tree.py"

os.environ["PYTHONPATH"] = str(MODULE)  # of the workers, too
sys.path[:0] = [str(MODULE), str(EXAMPLES)]

import corvane  # noqa: E402
import scan_tree  # noqa: E402

SECONDS_OF_A_BATCH = 0.05


def scan_slowly(paths):
    import time  # pylint: disable=import-outside-toplevel,redefined-outer-name,reimported  # a worker runs this

    import corvane  # pylint: disable=import-outside-toplevel,redefined-outer-name,reimported

    time.sleep(SECONDS_OF_A_BATCH)
    return list(corvane.scan(paths, jobs=1))


def scan_in_vain(paths):
    if any(path.endswith("/5.mp3") for path in paths):
        raise ModuleNotFoundError("no module for 5")
    return scan_slowly(paths)


class Cluster(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="corvane-cluster-")
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        self.tree = self.folder / "music"

    def write(self, name, content=None):
        path = os.path.join(os.fsencode(self.tree), os.fsencode(name))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        if content is None:
            shutil.copy(SAMPLE, path)
        else:
            Path(os.fsdecode(path)).write_bytes(content)

    def fill(self):
        """A tree with what makes a walk hard, and files that cannot be read."""
        for name in ["b/2.mp3", "b/10.MP3", "b.mp3", "b!/x.mp3", "a/deep/er/1.mp3", "not listed.txt", "c.mp3/in a folder.mp3",
                     b"odd \xff\n.mp3"]:
            self.write(name)
        self.write("zip.mp3", b"PK\3\4" + bytes(100))
        self.write("empty.mp3", b"")
        (self.tree / "gone.mp3").symlink_to("nowhere")
        (self.tree / "circle.mp3").symlink_to("circle.mp3")
        (self.tree / "loop").symlink_to(self.tree, target_is_directory=True)
        for number in range(101):
            self.write(f"many/{number}.mp3")

    def run_script(self, *words):
        return subprocess.run([sys.executable, SCRIPT, *words], capture_output=True, text=True, timeout=100, check=False)

    def run_on_terminal(self, *words):
        """Exit code, standard output, and what a terminal shows of standard error."""
        terminal, end = pty.openpty()
        self.addCleanup(os.close, terminal)
        output = self.folder / "output"
        with open(output, "wb") as file:
            process = subprocess.Popen([sys.executable, SCRIPT, *words], stdout=file, stderr=end)
        os.close(end)
        shown = b""
        with contextlib.suppress(OSError):  # once nobody has it open any more
            while part := os.read(terminal, 4096):
                shown += part
        return process.wait(100), output.read_text("utf-8"), shown.decode("utf-8", "replace")

    def test_the_walk_is_that_of_a_scan(self):
        self.fill()
        unreadable = []
        roots = [self.tree, self.tree / "b.mp3", f"{self.tree}//"]
        paths = list(scan_tree.walk(roots, lambda *what: unreadable.append(what)))
        self.assertEqual(paths, [song["path"] for song in corvane.scan(roots)])
        self.assertEqual((len(paths), unreadable), (112 + 1 + 112, []))
        self.assertEqual(list(scan_tree.walk([self.tree / "nothing.mp3"], None)), [str(self.tree / "nothing.mp3")])

    def test_two_processes_write_what_one_finds_and_list_what_failed(self):
        self.fill()
        output = self.folder / "songs.jsonl"
        done = self.run_script(self.tree, "--output", output, "--batch", "10")
        expected = list(corvane.scan(self.tree))
        self.assertEqual([json.loads(line) for line in output.read_text("utf-8").splitlines()], expected)
        failed = [f"{song['path']}: {song['error']}" for song in expected if "error" in song]
        self.assertEqual(len(failed), 3)  # the archive and the links
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        # A busy machine makes Dask talk as well.
        self.assertEqual([line for line in done.stderr.splitlines() if line.startswith(str(self.tree))], failed)
        self.assertRegex(done.stderr, r"(?m)^dashboard: http://\S+$")

    def test_a_cluster_that_is_there_already_finds_the_same(self):
        self.fill()
        address = self.folder / "scheduler.json"

        def start(*words):
            process = subprocess.Popen([*map(str, words)], stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
            self.addCleanup(process.wait)
            self.addCleanup(process.terminate)

        start("dask-scheduler", "--port", 0, "--dashboard-address", ":0", "--host", "127.0.0.1", "--scheduler-file", address)
        start("dask-worker", "--scheduler-file", address, "--nthreads", 1, "--no-dashboard")
        while not address.exists() or not address.read_text("utf-8").endswith("}"):
            time.sleep(0.05)
        code, printed, shown = self.run_on_terminal(self.tree, "--scheduler", json.loads(address.read_text("utf-8"))["address"])
        self.assertEqual(code, 1, shown)
        self.assertEqual([json.loads(line) for line in printed.splitlines()], list(corvane.scan(self.tree)))
        self.assertIn("% Completed", shown)  # the bar stands on the terminal and not between the lines

    def test_wrong_use_is_told_before_a_cluster_is_asked_for(self):
        for words, reason in ((["--workers", "0"], "workers"), (["--batch", "-1"], "batch"),
                              (["--scheduler", "tcp://nowhere:1"], "whole paths")):
            said = io.StringIO()
            with self.subTest(words), self.assertRaises(SystemExit) as ended, contextlib.redirect_stderr(said):
                scan_tree.options(["music", *words])
            self.assertEqual(ended.exception.code, 2)
            self.assertIn(reason, said.getvalue())
        with self.assertRaisesRegex(SystemExit, "^scan_tree: /nowhere/songs.jsonl: No such file or directory$"):
            scan_tree.output_of("/nowhere/songs.jsonl")

    def test_a_worker_that_is_killed_loses_nothing_and_a_batch_that_nobody_can_do_is_listed(self):
        for number in range(600):
            self.write(f"{number}.mp3", b"no audio")
        expected = list(corvane.scan(self.tree))
        scan_tree.scan_batch = scan_slowly
        with scan_tree.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=":0") as cluster, \
                scan_tree.Client(cluster) as client:
            pids = client.run(os.getpid)
            found = scan_tree.rows(client, scan_tree.walk([self.tree], None), batch_size=10)
            first = [next(found) for _ in range(100)]
            os.kill(next(iter(pids.values())), signal.SIGKILL)
            killed_at = time.monotonic()
            rest = list(found)
            self.assertGreater(time.monotonic() - killed_at, SECONDS_OF_A_BATCH)  # there was work left
            self.assertNotEqual(client.run(os.getpid), pids)
            scan_tree.scan_batch = scan_in_vain
            found = list(scan_tree.rows(client, [f"{self.tree}/{number}.mp3" for number in range(9)], batch_size=3))
            self.assertEqual([song.get("error") for song in found],
                             3 * [None] + 3 * ["ModuleNotFoundError: no module for 5"] + 3 * [None])
        self.assertEqual(first + rest, expected)

    def test_parquet_holds_the_same(self):
        self.fill()
        output = self.folder / "songs.parquet"
        done = self.run_script(self.tree, "--output", output)
        if not importlib.util.find_spec("pyarrow"):
            self.assertEqual(done.stderr, "scan_tree: Parquet needs the Python package pyarrow; without it, name the output "
                                          "FILE.jsonl\n")
            return
        from pyarrow import parquet  # pylint: disable=import-outside-toplevel

        rows = [{name: value for name, value in row.items() if value is not None}
                for row in parquet.read_table(output).to_pylist()]
        expected = list(corvane.scan(self.tree))
        for song in expected:
            song["path"] = song["path"].encode("utf-8", "backslashreplace").decode()
        self.assertEqual(rows, expected)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

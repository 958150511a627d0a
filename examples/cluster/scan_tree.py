#!/usr/bin/python3
"""Scans a tree of MP3 files with Dask distributed: many processes, on this machine or on a cluster.

    scan_tree.py FOLDER... --output songs.jsonl                             two processes on this machine
    scan_tree.py FOLDER... --output songs.jsonl --scheduler tcp://HOST:8786   a cluster that is there already

The output has one JSON object a file, in the order of the paths: what `corvane scan` prints and `corvane.scan` yields. A
name that ends in .parquet gives Parquet instead, where pyarrow is installed. Files that cannot be read are in it with
their reason, and are listed at the end; the exit code is 1 then. A worker that dies loses nothing: what it was doing, and
what it had done and not handed over, is done again by others.
"""
import argparse
import contextlib
import json
import os
import stat
import sys
import threading
import warnings

from distributed import Client, LocalCluster, progress

FIELDS = ("path", "title", "artist", "album", "year", "track", "genre", "comment", "duration", "bitRate", "frequency",
          "vbr", "tags", "error")
SUFFIX = b".mp3"


def leads_to_folder(entry, follow_links):
    """False for a link that leads nowhere or round in a circle: that is a file which cannot be read."""
    with contextlib.suppress(OSError):
        return entry.is_dir(follow_symlinks=follow_links)
    return False


def entries(folder, report):
    """Names in a folder, those of folders with a separator at the end; in the order of whole paths."""
    names = []
    try:
        with os.scandir(folder) as found:
            for entry in found:
                if leads_to_folder(entry, False):
                    names.append(entry.name + b"/")
                elif entry.name.lower().endswith(SUFFIX) and not leads_to_folder(entry, True):
                    names.append(entry.name)
    except OSError as problem:
        report(os.fsdecode(folder), problem.strerror)
    return sorted(names)


def is_folder(path):
    with contextlib.suppress(OSError):
        return stat.S_ISDIR(os.stat(path).st_mode)
    return False


def walk(roots, report):
    """The files of a scan in its order, as `corvane.scan` finds them; nothing is read but folders."""
    waiting = [os.fsencode(root) for root in reversed(roots)]
    waiting = [root + b"/" if is_folder(root) and not root.endswith(b"/") else root for root in waiting]
    while waiting:
        path = waiting.pop()
        if path.endswith(b"/"):
            waiting += [path + name for name in reversed(entries(path, report))]
        else:
            yield os.fsdecode(path)


def batches(paths, size):
    batch = []
    for path in paths:
        batch.append(path)
        if len(batch) == size:
            yield batch
            batch = []
    if batch:
        yield batch


def scan_batch(paths):
    """What a worker does: files in, dictionaries out."""
    import corvane  # pylint: disable=import-outside-toplevel  # where the work is done

    return list(corvane.scan(paths, jobs=1))


def result_of(future, batch):
    """The dictionaries of a batch; those of files that cannot be read when no worker could do it, whatever the reason."""
    try:
        return future.result()
    except Exception as problem:  # pylint: disable=broad-exception-caught  # a worker without the module, or out of memory
        reason = f"{type(problem).__name__}: {problem}".splitlines()[0]
        return [{"path": path, "error": reason} for path in batch]


def rows(client, paths, batch_size=200, show_progress=False):
    """The dictionaries of all files in the order of the paths, while the cluster goes on behind them."""
    waiting = list(batches(paths, batch_size))
    futures = client.map(scan_batch, waiting, pure=False, retries=2)
    bar = threading.Thread(target=progress, args=(futures,), daemon=True)
    if show_progress and futures:
        bar.start()
    for number, future in enumerate(futures):
        yield from result_of(future, waiting[number])
        futures[number] = None  # the workers may forget it now
    if bar.is_alive():
        bar.join(1)  # it takes itself off the terminal


class JsonLines:
    def __init__(self, path):
        self.file = sys.__stdout__ if path == "-" else open(path, "w", encoding="utf-8")

    def write(self, row):
        self.file.write(json.dumps(row) + "\n")

    def close(self):
        self.file.flush()
        if self.file is not sys.__stdout__:
            self.file.close()


class Parquet:
    """Row groups of some thousand files."""

    ROWS = 20_000

    def __init__(self, path):
        import pyarrow  # pylint: disable=import-outside-toplevel  # not everybody has it
        from pyarrow import parquet

        texts = [(name, pyarrow.string()) for name in FIELDS]
        types = dict(texts) | {name: pyarrow.int32() for name in ("duration", "bitRate", "frequency")}
        types |= {"vbr": pyarrow.bool_(), "tags": pyarrow.list_(pyarrow.string())}
        self.table, self.schema, self.waiting = pyarrow.Table, pyarrow.schema(list(types.items())), []
        self.writer = parquet.ParquetWriter(path, self.schema)

    def write(self, row):
        # A name that is no text has no place in Parquet: its bytes are shown as escapes.
        self.waiting.append({name: value.encode("utf-8", "backslashreplace").decode() if isinstance(value, str) else value
                             for name, value in row.items()})
        if len(self.waiting) == self.ROWS:
            self.flush()

    def flush(self):
        self.writer.write_table(self.table.from_pylist(self.waiting, schema=self.schema))
        self.waiting = []

    def close(self):
        self.flush()
        self.writer.close()


def output_of(path):
    try:
        return Parquet(path) if path.endswith(".parquet") else JsonLines(path)
    except ModuleNotFoundError:
        sys.exit("scan_tree: Parquet needs the Python package pyarrow; without it, name the output FILE.jsonl")
    except OSError as problem:
        sys.exit(f"scan_tree: {path}: {problem.strerror}")


def connect(stack, scheduler, workers):
    """A cluster that is there, or one of processes on this machine."""
    if scheduler:
        return stack.enter_context(Client(scheduler))
    with warnings.catch_warnings():
        # Where the usual port of the dashboard is taken it gets another one, which is told anyway.
        warnings.simplefilter("ignore", UserWarning)
        cluster = stack.enter_context(LocalCluster(n_workers=workers, threads_per_worker=1, processes=True,
                                                   dashboard_address=":8787"))
    return stack.enter_context(Client(cluster))


def positive(word):
    number = int(word)
    if number < 1:
        raise ValueError
    return number


def options(words=None):
    parser = argparse.ArgumentParser(description="Scan a tree of MP3 files with Dask distributed.")
    parser.add_argument("folders", nargs="+", metavar="FOLDER")
    parser.add_argument("--output", default="-", metavar="FILE", help=".jsonl, or .parquet; standard output by default")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of a cluster; without it one is started on this machine")
    parser.add_argument("--workers", type=positive, default=2, metavar="N", help="processes on this machine (2)")
    parser.add_argument("--batch", type=positive, default=200, metavar="N", help="files that a worker takes at once (200)")
    parser.add_argument("--quiet", action="store_true", help="no progress bar")
    chosen = parser.parse_args(words)
    if chosen.scheduler and not all(map(os.path.isabs, chosen.folders)):
        parser.error("with --scheduler, name the folders by their whole paths: workers have other current folders")
    return chosen


def main():
    chosen = options()
    failures = []
    paths = walk(chosen.folders, lambda folder, reason: failures.append((folder, reason)))
    output = output_of(chosen.output)
    shows_progress = sys.stderr.isatty() and not chosen.quiet and not (chosen.output == "-" and sys.stdout.isatty())
    sys.stdout = sys.stderr  # where Dask draws its bar: not between the lines of the output
    with contextlib.ExitStack() as stack, contextlib.closing(output):
        client = connect(stack, chosen.scheduler, chosen.workers)
        print(f"dashboard: {client.dashboard_link}", file=sys.stderr)
        for row in rows(client, paths, chosen.batch, shows_progress):
            output.write(row)
            if "error" in row:
                failures.append((row["path"], row["error"]))
    for path, reason in failures:
        print(f"{path}: {reason}".encode("utf-8", "backslashreplace").decode(), file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

"""Objects on different threads work in parallel, and the interpreter is not locked while a file is worked on."""
import threading
from concurrent.futures import ThreadPoolExecutor

import mp3

import corvane


def edit(path, number):
    for turn in range(20):
        handler = corvane.FileHandler()
        assert handler.Create(path)
        assert handler.ID3V2Tag.Title is not None
        handler.ID3V2Tag.Title = f"Title {number}, turn {turn}"
        assert handler.ID3V2Tag.saveTag()
        handler.ID3v1xTag.Title = f"File {number}"
        handler.ID3v1xTag.TagType = corvane.EID3TagConstants.ID3v1
        assert handler.writeID3v1xTag()
        assert handler.xml()
    return path


def test_many_threads_change_as_many_files(write, tag23):
    paths = [write(tag23, f"{number}.mp3") for number in range(8)]
    with ThreadPoolExecutor(len(paths)) as pool:
        assert list(pool.map(edit, paths, range(8))) == paths
    for number, path in enumerate(paths):
        handler = corvane.FileHandler()
        assert handler.Create(path)
        assert handler.ID3V2Tag.Title == f"Title {number}, turn 19"
        assert handler.ID3v1xTag.Title == f"File {number}"
        with open(path, "rb") as file:
            assert file.read().endswith(mp3.audio() + mp3.id3v1(b"File %d" % number))


def count_while(work):
    """How often another thread gets to count while this one works."""
    counted, stop = [0], threading.Event()

    def count():
        while not stop.is_set():
            counted[0] += 1
            stop.wait(0.001)

    thread = threading.Thread(target=count)
    thread.start()
    before = counted[0]
    work()
    counts = counted[0] - before
    stop.set()
    thread.join()
    return counts


def test_another_thread_goes_on_during_a_long_operation(tmp_path):
    """Cutting the record off a large file copies it, which is one call into the library."""
    path = tmp_path / "large.mp3"
    with open(path, "wb") as file:
        file.write(mp3.audio())
        for _ in range(128):
            file.write(bytes(1 << 20))
        file.write(mp3.id3v1(b"T"))
    handler = corvane.FileHandler()
    assert handler.Create(path)
    removed = []
    counts = count_while(lambda: removed.append(handler.removeID3V1xTag()))
    assert removed == [True]
    assert counts >= 5

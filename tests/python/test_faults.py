"""Every system call of an operation of the module that opens, reads or writes files goes wrong in turn.

Whatever happens, the file is what it was or what it was to become, and the result is true. The process runs with the
library of tests/faults/FaultShim.cpp preloaded; each run is a child of its own.
"""
import ctypes
import errno
import os
import shutil
import signal

import mp3
import pytest

import corvane

MODE = 0o640
COVER = mp3.picture(mp3.png(3, 4) + b"\xe5" * 90_000)
AUDIO = mp3.audio()
FRAMES = [mp3.frame23("TIT2", mp3.latin1("old")), mp3.frame23("PRIV", bytes(700)), mp3.frame23("APIC", COVER),
          mp3.frame23("TPE1", mp3.latin1("an artist"))]
TITLE = mp3.frame23("TIT2", mp3.latin1("old"))
WHOLE = mp3.id3v2(FRAMES) + AUDIO
TITLE_ALONE = mp3.id3v2([TITLE]) + AUDIO
TWO_TAGS = mp3.id3v2([TITLE]) + mp3.id3v2(FRAMES) + AUDIO

WAYS = [("once", errno.ENOSPC), ("once", errno.EIO), ("once", errno.EMFILE), ("from-then-on", errno.ENOSPC), ("short", 0),
        ("short-then-on", errno.EIO), ("kill", 0), ("kill-half", 0), ("kill-after", 0)]

DONE, FAILED, FAILED_IN_STEP_2, DAMAGED, HARM = range(5)


@pytest.fixture(scope="module")
def faults():
    """The preloaded library."""
    library = ctypes.CDLL(None)
    assert hasattr(library, "corvaneFaultsBegin"), "LD_PRELOAD must name corvane-fault-shim"
    return library


def opened(path):
    """The tag of a file, read as hosts do it; None when the file cannot be opened."""
    handler = corvane.FileHandler()
    if not handler.Create(path):
        return None
    tag = handler.ID3V2Tag
    return tag if tag.ID3V23Tag else None


def first_step(done):
    """How an operation ended that has one step."""
    return DONE if done else FAILED


def refused(tag):
    """A save that would be a loss."""
    return HARM if tag.saveTag() else DONE


def change(path, _):
    tag = opened(path)
    if tag is None:
        return FAILED
    tag.Title, tag.Comment = "t" * 3000, "a comment"
    return first_step(tag.saveTag())


def save_unchanged(path, _):
    tag = opened(path)
    return first_step(tag is not None and tag.saveTag())


def without_title(path):
    """The tag of a file whose title was deleted and saved; None when that has failed."""
    tag = opened(path)
    if tag is None or tag.Title != "old":
        return None
    tag.Title = ""
    return tag if tag.saveTag() else None


def delete_the_last_frame(path, _):
    return first_step(without_title(path))


def delete_the_first_of_two_tags(path, _):
    tag = without_title(path)
    if tag is None:
        return FAILED
    tag.Title = "third"
    return refused(tag)


def remove_the_first_of_two_tags(path, _):
    tag = opened(path)
    if tag is None or not tag.ID3V23Tag.removeTag():
        return FAILED
    return refused(tag)


def remove(path, _):
    tag = opened(path)
    return first_step(tag is not None and tag.ID3V23Tag.removeTag())


def remove_and_save(path, _):
    tag = opened(path)
    if tag is None:
        return FAILED
    was_read = tag.Title == "old"
    if not tag.ID3V23Tag.removeTag():
        return FAILED
    return DONE if tag.saveTag() and was_read else FAILED_IN_STEP_2


def take_the_picture_out(path, _):
    tag = opened(path)
    if tag is None or tag.Picture is None:
        return FAILED
    tag.Picture = None
    return first_step(tag.saveTag())


def put_the_picture_back(path, _):
    tag = opened(path)
    picture = tag.Picture if tag is not None else None
    if picture is None:
        return FAILED
    tag.Picture = None
    if not tag.saveTag():
        return FAILED
    tag.Picture = picture
    return DONE if tag.saveTag() else FAILED_IN_STEP_2


def change_unseen(path):
    """Another artist, with the size and the modification time of before."""
    before = os.stat(path)
    with open(path, "r+b") as file:
        content = file.read()
        file.seek(content.index(b"an artist"))
        file.write(b"AN ARTIST")
    while True:  # the system's clock for files goes in steps
        os.utime(path, ns=(before.st_atime_ns, before.st_mtime_ns))
        if os.stat(path).st_ctime_ns != before.st_ctime_ns:
            return


def save_over_an_unseen_change(path, faults):
    tag = opened(path)
    if tag is None:
        return FAILED
    faults.corvaneFaultsArePaused(1)
    change_unseen(path)
    faults.corvaneFaultsArePaused(0)
    tag.Title = "after"
    return refused(tag)


def create(path, _):
    handler = corvane.FileHandler()
    if not handler.Create(path):
        return FAILED
    values = corvane.ID3V230()
    values.Title, values.Comments = "t" * 3000, "a comment"
    return first_step(handler.createID3V2Tag(values))


def write_the_record(path, _):
    handler = corvane.FileHandler()
    if not handler.Create(path):
        return FAILED
    handler.ID3v1xTag.TagType = corvane.EID3TagConstants.ID3v1
    handler.ID3v1xTag.Title = "new"
    if handler.writeID3v1xTag():
        return DONE
    return DAMAGED if "could not be taken back" in handler.LastError.Stream() else FAILED


def remove_the_record(path, _):
    handler = corvane.FileHandler()
    return first_step(handler.Create(path) and handler.removeID3V1xTag())


# operation, content of the file, the operation that makes the first of two steps alone
OPERATIONS = [
    (change, WHOLE, None),
    (save_unchanged, WHOLE, None),
    (delete_the_last_frame, TITLE_ALONE, None),
    (delete_the_first_of_two_tags, TWO_TAGS, None),
    (remove_the_first_of_two_tags, TWO_TAGS, None),
    (remove_and_save, WHOLE, remove),
    (put_the_picture_back, WHOLE, take_the_picture_out),
    (save_over_an_unseen_change, WHOLE, None),
    (create, AUDIO, None),
    (write_the_record, WHOLE, None),
    (remove_the_record, WHOLE + b"TAG" + bytes(125), None),
]


class Run:
    """One run of an operation in a child process, with one call going wrong."""

    def __init__(self, faults, operation, path, kind="", error=0, at=0):
        reading, writing = os.pipe()
        child = os.fork()
        if child == 0:
            result = HARM
            try:
                faults.corvaneFaultsBegin(kind.encode(), error, ctypes.c_long(at), writing)
                result = operation(path, faults)
            except corvane.Error:
                result = FAILED
            finally:
                faults.corvaneFaultsAreOver()
                os._exit(result)
        os.close(writing)
        with os.fdopen(reading, "rb") as report:
            self.call = report.read().decode().strip()  # the one that went wrong; "" when the run has not come so far
        status = os.waitpid(child, 0)[1]
        self.is_killed = os.WIFSIGNALED(status) and os.WTERMSIG(status) == signal.SIGKILL
        self.result = None if self.is_killed else os.waitstatus_to_exitcode(status)


class Folder:
    """A folder with one file, and one for temporary files."""

    def __init__(self, path, content):
        self.content = content
        self.music, self.temporary = os.path.join(path, "music"), os.path.join(path, "temporary")
        self.file = os.path.join(self.music, "f.mp3")

    def prepare(self):
        for folder in (self.music, self.temporary):
            shutil.rmtree(folder, ignore_errors=True)
            os.mkdir(folder)
        with open(self.file, "wb") as file:
            file.write(self.content)
        os.chmod(self.file, MODE)

    def content_now(self):
        with open(self.file, "rb") as file:
            return file.read()

    def left_behind(self):
        return [name for name in os.listdir(self.music) if name != "f.mp3"] + os.listdir(self.temporary)


def content_after(faults, folder, operation):
    folder.prepare()
    assert Run(faults, operation, folder.file).result == DONE
    assert folder.left_behind() == []
    return folder.content_now()


@pytest.mark.parametrize("operation, content, first", OPERATIONS, ids=[row[0].__name__ for row in OPERATIONS])
def test_every_call_may_go_wrong_without_harm(faults, tmp_path, monkeypatch, operation, content, first):
    folder = Folder(tmp_path, content)
    monkeypatch.setenv("TMPDIR", folder.temporary)
    after = content_after(faults, folder, operation)
    between = content if first is None else content_after(faults, folder, first)
    expected = {DONE: after, FAILED: content, FAILED_IN_STEP_2: between}
    points = 0
    for kind, error in WAYS:
        for at in range(1, 10_000):
            folder.prepare()
            run = Run(faults, operation, folder.file, kind, error, at)
            where = f"{kind} {errno.errorcode.get(error, '')}, call {at} ({run.call})"
            now = folder.content_now()
            # The record is written in place: an end of the process, or a medium that goes on failing, leaves a part.
            is_part = operation is write_the_record and now.startswith(content) and after.startswith(now)
            if run.is_killed:
                assert is_part or now in (content, between, after), where
            elif run.result == DAMAGED:
                assert is_part and kind.endswith("then-on"), where
            else:
                assert run.result in expected, where
                assert now == expected[run.result], f"{where}: the result {run.result} is not true"
                assert os.stat(folder.file).st_mode & 0o7777 == MODE, where
                assert run.call == "unlink" or folder.left_behind() == [], where
            if not run.call:
                break
            points += 1
    assert points > 0

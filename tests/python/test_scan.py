"""Going through folders: the same as the command's lines."""
import json
import os
import subprocess
import threading

import mp3
import pytest
from conftest import PNG

import corvane

RECORD = mp3.id3v1(b"Old", b"Artist", track=7, genre=17)


@pytest.fixture
def tree(tmp_path):
    """Files of every kind that a scan meets, more than one batch of them."""
    contents = {
        "b/vbr.mp3": mp3.vbr_audio(), "b/UPPER.MP3": mp3.audio() + RECORD, "b.mp3": mp3.audio(), "empty.mp3": b"",
        "zip.mp3": b"PK\3\4" + bytes(200), "no mp3.txt": mp3.audio(),
        "ü/tag.mp3": mp3.id3v2([mp3.frame23("TIT2", mp3.utf16("Tïtle \" ł 🎵"))]) + mp3.audio() + RECORD,
        "lyrics.mp3": mp3.audio() + mp3.lyrics3v2([(b"LYR", b"la")]) + RECORD,
        "picture.mp3": mp3.id3v2([mp3.frame23("APIC", mp3.picture(PNG))]) + mp3.audio(),
    }
    contents |= {f"many/{number:03}.mp3": mp3.audio() + RECORD for number in range(150)}
    for name, content in contents.items():
        path = tmp_path / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(content)
    (tmp_path / "gone.mp3").symlink_to("nowhere")
    return tmp_path


def command_lines(*words):
    """What the command says, as dictionaries."""
    done = subprocess.run([os.environ["CORVANE_COMMAND"], "scan", *words], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False)
    return [json.loads(line) for line in done.stdout.splitlines()]


@pytest.mark.parametrize("jobs", [None, 1, 2, 8])
def test_gives_the_dictionaries_of_the_commands_lines_in_order(tree, jobs):
    found = list(corvane.scan(tree, jobs=jobs))
    assert found == command_lines(tree)
    assert len(found) == 159
    assert [list(values) for values in found] == [list(values) for values in command_lines(tree)]


def test_values_have_their_types(tree):
    values, = corvane.scan(tree / "ü" / "tag.mp3")
    assert values == {
        "path": str(tree / "ü" / "tag.mp3"), "title": "Tïtle \" ł 🎵", "artist": "Artist", "album": "", "year": "",
        "track": "7", "genre": "Rock", "comment": "", "duration": 0, "bitRate": 128, "frequency": 44100, "vbr": False,
        "tags": ["ID3v2.3.0", "ID3v1.1"]}
    assert type(values["vbr"]) is bool and type(values["bitRate"]) is int


def test_a_file_that_cannot_be_read_has_a_reason_and_stops_nothing(tree):
    failed = {os.path.basename(values["path"]): values["error"] for values in corvane.scan(tree) if "error" in values}
    assert failed == {"gone.mp3": "No such file or directory", "zip.mp3": "This is a ZIP-File"}


def test_takes_one_path_or_many_of_every_kind(tree):
    names = ["b", "b.mp3", "ü"]
    paths = [tree / names[0], str(tree / names[1]), os.fsencode(tree / names[2])]
    expected = command_lines(*paths)
    assert list(corvane.scan(paths)) == list(corvane.scan(path for path in paths)) == expected
    assert [values for path in paths for values in corvane.scan(path)] == expected
    assert list(corvane.scan([])) == []


def test_a_name_that_is_no_text_can_be_opened_again(write):
    path = write(mp3.audio(), b"caf\xe9.mp3")
    values, = corvane.scan(os.path.dirname(path))
    assert values["path"] == path
    assert os.path.exists(values["path"])


@pytest.mark.parametrize("jobs", [0, -1, 257, 10**30])
def test_another_number_of_jobs_is_a_value_error(tmp_path, jobs):
    with pytest.raises(ValueError):
        corvane.scan(tmp_path, jobs=jobs)


@pytest.mark.parametrize("jobs", ["2", 2.0])
def test_a_number_of_jobs_that_is_none_is_a_type_error(tmp_path, jobs):
    with pytest.raises(TypeError):
        corvane.scan(tmp_path, jobs=jobs)


@pytest.mark.parametrize("function", [3, "print"])
def test_what_cannot_be_called_is_a_type_error_before_the_scan_begins(tmp_path, function):
    with pytest.raises(TypeError):
        corvane.scan(tmp_path, onerror=function)


@pytest.mark.parametrize("paths", [3, None, [3]])
def test_what_is_no_path_is_a_type_error(paths):
    with pytest.raises(TypeError):
        corvane.scan(paths)


def unreadable(folder):
    """A folder that nobody can read, not even root: its name is too long for one system call."""
    inner = folder
    here = os.open(folder, os.O_RDONLY)
    for _ in range(25):
        os.mkdir("d" * 200, dir_fd=here)
        deeper = os.open("d" * 200, os.O_RDONLY, dir_fd=here)
        os.close(here)
        here = deeper
        inner = inner / ("d" * 200)
    os.close(here)


def test_a_folder_that_cannot_be_read_is_a_warning(tmp_path):
    unreadable(tmp_path)
    with pytest.warns(RuntimeWarning, match="File name too long"):
        assert list(corvane.scan(tmp_path)) == []


def test_or_is_handed_to_onerror(tmp_path):
    unreadable(tmp_path)
    told = []
    assert list(corvane.scan(tmp_path, onerror=lambda path, reason: told.append((path, reason)))) == []
    (path, reason), = told
    assert path.startswith(str(tmp_path)) and reason == "File name too long"


def test_is_an_iterator_that_begins_at_once_and_can_be_left(tree):
    scan = corvane.scan(tree, jobs=2)
    assert iter(scan) is scan
    assert next(scan) == command_lines(tree)[0]
    scan.close()
    assert list(scan) == []
    del scan
    corvane.scan(tree)  # never asked for anything


def bytes_read():
    """Bytes that this process has read with system calls."""
    with open("/proc/self/io", encoding="ascii") as file:
        return int(file.readline().removeprefix("rchar: "))


def test_pictures_are_not_read(tmp_path):
    size = 20 << 20
    frames = [mp3.frame23("TIT2", mp3.latin1("T")), mp3.frame23("APIC", mp3.picture(PNG).ljust(size, b"\0"))]
    path = tmp_path / "big.mp3"
    path.write_bytes(mp3.id3v2(frames) + mp3.audio())
    before = bytes_read()
    values, = corvane.scan(path)
    assert (values["title"], values["bitRate"]) == ("T", 128)
    assert bytes_read() - before < 1 << 20


def test_two_threads_may_scan_at_once(tree):
    expected = list(corvane.scan(tree))
    found = [None] * 4

    def work(number):
        found[number] = list(corvane.scan(tree, jobs=2))

    threads = [threading.Thread(target=work, args=[number]) for number in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert found == [expected] * 4

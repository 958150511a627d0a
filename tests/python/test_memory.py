"""Objects that nobody holds any more leave nothing behind."""
import gc

import mp3
import pytest
from conftest import PNG

import corvane

OBJECTS = 10_000


def resident_bytes():
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * 4096


def growth(make):
    """Bytes by which memory grows while objects are made and dropped, once everything is warm."""
    for _ in range(OBJECTS // 5):
        make()
    gc.collect()
    before = resident_bytes()
    for _ in range(OBJECTS):
        make()
    gc.collect()
    return resident_bytes() - before


def open_and_read(path):
    handler = corvane.FileHandler()
    assert handler.Create(path)
    assert handler.ID3V2Tag.Title == "Title"
    assert handler.ID3V2Tag.Picture.bytes == PNG
    assert handler.ID3v1xTag.GenreList[1].Num == 0
    assert handler.LastError.Stream()
    handler.ID3V2Tag.Title = "New"
    assert handler.ID3V2Tag.ID3V23Tag.GetFrameByIndex(1).ID == "TIT2"


def import_xml(element):
    corvane.ID3V1Tag().Tag = element


def fail():
    with pytest.raises(corvane.Error):
        corvane.File.ofPath("/nowhere")
    with pytest.raises(corvane.Error):
        corvane.Genre().Num = 99999


def fill_updatable():
    tag = corvane.ID3V230()
    tag.Title, tag.Year, tag.Picture = "T", 1999, corvane.Picture.fromBytes(PNG)
    assert [frame.vValue for frame in tag.Frames][:2] == ["T", 1999]


def set_up_fixture():
    fixture = corvane.TestFixture()
    fixture.Setup(corvane.ITestManager(), "")


@pytest.mark.parametrize("kind", ["files", "xml", "failures", "updatable", "fixtures", "scans", "hooks"])
def test_ten_thousand_objects_leave_memory_flat(write, tag23, kind):
    path = write(tag23 + mp3.id3v1(b"T"))
    element = corvane.ID3V1Tag().xml_element()
    make = {
        "files": lambda: open_and_read(path), "xml": lambda: import_xml(element), "failures": fail,
        "updatable": fill_updatable, "fixtures": set_up_fixture, "scans": lambda: list(corvane.scan(path)),
        "hooks": lambda: corvane.setMessageBoxHook(lambda *box: None),
    }[kind]
    grown = growth(make)
    corvane.setMessageBoxHook(None)
    assert grown < 1 << 20, f"{grown / OBJECTS:.0f} bytes an object"

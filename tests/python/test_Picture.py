"""Pictures, and what the file system says of a file."""
import mp3
import pytest
from conftest import PNG

import corvane


@pytest.mark.parametrize("kind", [bytes, bytearray, memoryview])
def test_the_bytes_that_go_in_come_out(kind):
    picture = corvane.Picture.fromBytes(kind(PNG))
    assert picture.bytes == PNG and isinstance(picture.bytes, bytes)
    assert (picture.mimeType, picture.width, picture.height) == ("image/png", 3, 4)


def test_every_picture_has_a_handle_of_its_own():
    first, second = corvane.Picture.fromBytes(PNG), corvane.Picture.fromBytes(PNG)
    assert 0 != first.handle != second.handle != 0


def test_what_is_no_image_is_none():
    assert corvane.Picture.fromBytes(b"no image") is None
    assert corvane.Picture.fromBytes(b"") is None


@pytest.mark.parametrize("value", ["text", None, 3])
def test_what_has_no_bytes_is_a_type_error(value):
    with pytest.raises(TypeError):
        corvane.Picture.fromBytes(value)


def test_a_file(write):
    path = write(mp3.audio())
    file = corvane.File.ofPath(path)
    assert (file.Name, file.Path, file.Size, file.TypeName) == ("a.mp3", path, len(mp3.audio()), "MPEG audio")
    assert len(file.DateLastModified) == len("dd/mm/yyyy hh:mm:ss")


def test_a_drive(tmp_path):
    drive = corvane.Drive.ofFile(tmp_path)
    assert drive.TotalSize >= drive.FreeSpace >= drive.AvailableSpace > 0
    assert drive.RootFolder.endswith("/") and drive.DriveLetter == ""
    with pytest.raises(corvane.Error):
        corvane.Drive.ofFile(tmp_path / "no")

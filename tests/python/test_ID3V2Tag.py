"""The facade of all ID3v2 versions, and the readers behind it."""
import pathlib
import struct
import zlib

import mp3
import pytest
from conftest import PNG

import corvane

PROPERTIES = {
    "Artist": "Ärtist ł", "Album": "Album", "Title": "Title", "Genre": "(17)Rock", "Track": "3/12", "Year": "1999",
    "LyricsUnsynced": "Lyrics", "LyricsSynced": "", "UserURL": "http://u", "Comment": "Comment",
    "Composer": "Composer", "OriginalArtist": "Original", "Copyright": "Copyright", "EncodedBy": "Encoder",
}


@pytest.fixture
def tag(open_mp3, tag23):
    return open_mp3(tag23).ID3V2Tag


@pytest.mark.parametrize("name", PROPERTIES)
def test_properties_of_version_3(tag, name):
    assert getattr(tag, name) == PROPERTIES[name]


def test_version_and_size_come_from_the_header(tag, tag23):
    assert (tag.Version.Major, tag.Version.Minor, tag.Version.Revision) == (2, 3, 0)
    assert tag.Size == len(tag23) - len(mp3.audio())
    assert corvane.ID3V2Tag().Size == 0


def test_only_the_reader_of_the_tags_version_is_there(tag):
    assert tag.ID3V22Tag is None and tag.ID3V24Tag is None
    assert tag.ID3V23Tag.Title == "Title"


def test_a_write_before_the_first_read_is_a_failure(tag):
    with pytest.raises(corvane.Error) as failed:
        tag.Title = "New"
    assert failed.value.number == 91
    with pytest.raises(corvane.Error):
        tag.Picture = None
    assert tag.Title == "Title"


@pytest.mark.parametrize("name", [name for name in PROPERTIES if name not in ("Track", "Year", "LyricsSynced")])
def test_what_is_written_is_saved_and_read_back(open_mp3, tag23, name):
    handler = open_mp3(tag23)
    tag = handler.ID3V2Tag
    assert tag.canSave
    new = "http://new/" if name == "UserURL" else "Nëw ł"
    setattr(tag, name, new)
    assert getattr(tag, name) == new
    assert tag.saveTag() is True
    again = corvane.FileHandler()
    assert again.Create(handler.FileName)
    read = {other: getattr(again.ID3V2Tag, other) for other in PROPERTIES}
    assert read == PROPERTIES | {name: new}
    assert pathlib.Path(handler.FileName).read_bytes().endswith(mp3.audio())


@pytest.mark.parametrize("year, number", [("MCM", 13), ("99999", 6)])
def test_a_year_that_is_no_number_raises(tag, year, number):
    assert tag.Year == "1999"
    with pytest.raises(corvane.Error) as failed:
        tag.Year = year
    assert failed.value.number == number
    assert tag.Year == "1999"


def test_the_picture_is_read_replaced_and_removed(open_mp3, tag23):
    tag = open_mp3(tag23).ID3V2Tag
    assert tag.Picture.bytes == PNG
    other = corvane.Picture.fromBytes(mp3.png(7, 8))
    tag.Picture = other
    assert tag.Picture.width == 7
    assert tag.saveTag()
    tag.Picture = None
    assert tag.Picture is None
    assert tag.saveTag()


def test_splitted_genre_comes_back_as_a_tuple(tag):
    assert tag.splittedGenre() == (True, 17, "Rock")
    assert tag.ID3V23Tag.splittedGenre() == (True, 17, "Rock")
    assert tag.ID3V23Tag.GenreID == "17"


def test_splitted_genre_of_another_version(open_mp3):
    tag = open_mp3(mp3.id3v2([mp3.frame24("TCON", mp3.latin1("(17)Rock"))], major=4) + mp3.audio()).ID3V2Tag
    assert tag.splittedGenre() == (False, 0, "")


def test_saving_options_have_no_effect(tag):
    assert tag.SavingOptions(1) is None
    assert tag.SavingOptions(Options=1, SynchronizationOptions=2) is None


def test_xml(tag):
    assert tag.xml_element().tag == "ID3V2Tag"
    assert "Ärtist ł" in tag.xml()


def test_frames_of_version_3(tag):
    reader = tag.ID3V23Tag
    names = reader.FrameList.split(";")[:-1]
    frames = [reader.GetFrameByIndex(position) for position in range(1, reader.FrameCount + 1)]
    assert [frame.ID for frame in frames] == names
    for name in ("XXXX", "", "\ud800", "TIT2\udc80"):
        assert reader.GetFrameByID(name) is None and reader.GetText(name) == ""
    for position in (0, 2**31, 2**40, -2**70, 1.5):
        assert reader.GetFrameByIndex(position) is None
    assert reader.GetFrameByIndex(1.0).ID == reader.GetFrameByIndex(1).ID
    assert reader.GetText("TIT2") == "Title"
    picture = reader.GetFrameByID("APIC")
    assert picture.IsPicture and not picture.IsTitle
    assert picture.PictureRAW == PNG and picture.removeHeader() == PNG
    assert picture.createPicture().mimeType == "image/png"
    comment = reader.GetFrameByID("COMM")
    assert (comment.IsComment, comment.TextData, comment.Language, comment.Description) == (True, "Comment", "eng", "")
    assert reader.GetFrameByID("TIT2").RawData == b"\0Title"
    flags = {"TPE1": "IsArtist", "TALB": "IsAlbum", "TIT2": "IsTitle", "TCON": "IsGenre", "TRCK": "IsTrack",
             "TYER": "IsYear", "COMM": "IsComment", "APIC": "IsPicture"}
    for name, flag in flags.items():
        frame = reader.GetFrameByID(name)
        assert [other for other in flags.values() if getattr(frame, other)] == [flag]


def test_a_tag_of_version_3_is_removed(open_mp3, tag23):
    handler = open_mp3(tag23)
    assert handler.ID3V2Tag.ID3V23Tag.removeTag()
    assert pathlib.Path(handler.FileName).read_bytes() == mp3.audio()


def test_version_4_is_read_only(open_mp3):
    frames = [mp3.frame24("TIT2", mp3.latin1("T")), mp3.frame24("TCON", mp3.latin1("(17)Rock")),
              mp3.frame24("APIC", mp3.picture(PNG))]
    tag = open_mp3(mp3.id3v2(frames, major=4) + mp3.audio()).ID3V2Tag
    reader = tag.ID3V24Tag
    assert (tag.Title, tag.Year, reader.Title, reader.GenreID, reader.Genre) == ("T", "", "T", "17", "Rock")
    assert reader.FrameCount == 3 and not hasattr(reader, "Year")
    picture = reader.GetFrameByID("APIC")
    assert picture.removeHeader == PNG and picture.createPicture().height == 4
    tag.Title = "ignored"
    assert tag.Title == "T"
    assert reader.canSave is False and reader.saveTag() is False and reader.removeTag() is False
    assert reader.LastError.Stream() == "0, removeTag, Removing is not supported."
    with pytest.raises(AttributeError):
        reader.Title = "x"


def test_version_2_is_read_only(open_mp3):
    frames = [mp3.frame22("TT2", mp3.latin1("T")), mp3.frame22("TYE", mp3.latin1("1999"))]
    tag = open_mp3(mp3.id3v2(frames, major=2) + mp3.audio()).ID3V2Tag
    reader = tag.ID3V22Tag
    assert (tag.Title, reader.Title, reader.Year, reader.FrameList) == ("T", "T", "1999", "TT2;TYE;")
    assert reader.GetFrameByID("TYE").IsYear and reader.GetFrameByIndex(1).IsTitle
    assert reader.saveTag() is False
    assert reader.LastError.Stream() == "0, saveTag, Saving is not supported."


def test_frames_beyond_the_limit_for_compressed_ones_cannot_be_read(open_mp3):
    payload = mp3.latin1("x" * 100_000)
    data = struct.pack(">I", len(payload)) + zlib.compress(payload)
    file = mp3.id3v2([b"TIT2" + struct.pack(">IBB", len(data), 0, 0x80) + data]) + mp3.audio()
    corvane.setInflationLimit(50_000)
    try:
        tag = open_mp3(file).ID3V2Tag
        assert tag.Title == ""
        assert tag.ID3V23Tag.LastError.Stream().startswith("27, ID3v2 frame, ")
        with pytest.raises(corvane.Error):
            tag.xml()
    finally:
        corvane.setInflationLimit(64 * 1024 * 1024)
    assert open_mp3(file).ID3V2Tag.Title == "x" * 100_000
    with pytest.raises(corvane.Error):
        corvane.setInflationLimit(-1)

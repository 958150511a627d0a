"""One MP3 file."""
import os
import pathlib

import mp3
import pytest

import corvane
from corvane import EID3TagConstants

AUDIO = mp3.audio()
RECORD = mp3.id3v1(b"Title", b"Artist", b"Album", b"1999", b"Comment", track=7, genre=17)


def test_a_new_handler_knows_nothing():
    handler = corvane.FileHandler()
    assert (handler.FileName, handler.FileType, handler.FileTypeName, handler.Size) == ("", 0, "Unknown", 0)
    assert not (handler.HasID3V2Tag or handler.HasID3V1Tag)
    assert handler.LastError.Stream() == "0, , "


def test_an_mp3_file_is_analysed(open_mp3):
    handler = open_mp3(AUDIO + RECORD)
    assert (handler.FileTypeName, handler.Size, handler.HasID3V1Tag) == ("MP3", len(AUDIO) + 128, True)
    tag = handler.ID3v1xTag
    assert (tag.Title, tag.Artist, tag.Album, tag.Year, tag.Comment) == ("Title", "Artist", "Album", "1999", "Comment")
    assert (tag.Track, tag.Genre, tag.TagType) == (7, 17, EID3TagConstants.ID3V11)
    assert handler.MPEGHeader.BitRate == 128


def test_a_name_may_be_str_bytes_or_path(write):
    path = write(AUDIO)
    for name in (path, os.fsencode(path), pathlib.Path(path)):
        handler = corvane.FileHandler()
        assert handler.Create(name)
        assert handler.FileName == path


def test_a_name_that_is_no_text_is_opened_and_comes_out_as_python_spells_it(write):
    path = write(AUDIO + RECORD, b"caf\xe9.mp3")
    handler = corvane.FileHandler()
    assert handler.Create(path)
    assert handler.FileName == path
    assert handler.File().Name == "caf\udce9.mp3"
    assert handler.xml_element() is not None


@pytest.mark.parametrize("name", [3, None, ["a.mp3"]])
def test_what_is_no_name_is_a_type_error(name):
    with pytest.raises(TypeError):
        corvane.FileHandler().Create(name)


def test_a_name_with_a_zero_is_a_value_error():
    with pytest.raises(ValueError):
        corvane.FileHandler().Create("a\0b")


def test_a_missing_file_fails_with_the_text_of_the_system(tmp_path):
    handler = corvane.FileHandler()
    assert handler.Create(tmp_path / "no.mp3") is False
    assert handler.LastError.Stream().startswith("2, ")


def test_a_message_with_a_name_that_is_no_text_can_be_read(tmp_path):
    handler = corvane.FileHandler()
    assert not handler.Create(os.fsencode(tmp_path) + b"/\xff")
    assert isinstance(handler.LastError.Stream(), str)


def test_a_file_without_audio_opens_and_the_record_tells_of_the_last_thing_that_it_lacks(open_mp3):
    assert open_mp3(bytes(500)).LastError.Stream() == "0, Read Tag, The file contains no tag."
    assert ", LoadHeaderEx, " in open_mp3(bytes(500) + RECORD).LastError.Stream()


def test_a_file_of_two_gigabytes_has_its_size_in_the_file_system_only(tmp_path):
    path = tmp_path / "huge.mp3"
    with open(path, "wb") as file:
        file.write(AUDIO)
        file.truncate(2**31)
    handler = corvane.FileHandler()
    assert handler.Create(path)
    assert (handler.Size, handler.MPEGHeader.FileSize, handler.File().Size) == (0, 0, 2**31)
    os.truncate(path, 2**31 - 1)
    assert handler.Create(path)
    assert (handler.Size, handler.MPEGHeader.BitRate) == (2**31 - 1, 128)


def test_a_record_is_appended_replaced_and_removed(write):
    path = write(AUDIO)
    handler = corvane.FileHandler()
    assert handler.Create(path)
    handler.ID3v1xTag.Title = "New"
    handler.ID3v1xTag.TagType = EID3TagConstants.ID3v1
    assert handler.writeID3v1xTag()
    assert pathlib.Path(path).read_bytes() == AUDIO + mp3.id3v1(b"New")
    handler.ID3v1xTag.Title = "Newer"
    assert handler.writeID3v1xTag()
    assert pathlib.Path(path).read_bytes() == AUDIO + mp3.id3v1(b"Newer")
    assert handler.HasTag()
    assert handler.removeID3V1xTag()
    assert pathlib.Path(path).read_bytes() == AUDIO
    assert not handler.HasTag()


def test_a_hosts_own_tag_object_is_written(open_mp3):
    handler = open_mp3(AUDIO)
    own = corvane.ID3V1Tag()
    own.Title, own.TagType = "Own", EID3TagConstants.ID3v1
    handler.ID3v1xTag = own
    assert handler.ID3v1xTag is own
    assert handler.writeID3v1xTag()
    assert pathlib.Path(handler.FileName).read_bytes() == AUDIO + mp3.id3v1(b"Own")


def test_without_a_tag_object_nothing_is_written_and_there_is_no_document(open_mp3):
    handler = open_mp3(AUDIO)
    handler.ID3v1xTag = None
    assert handler.ID3v1xTag is None and not handler.HasID3V1Tag
    assert handler.writeID3v1xTag() is False
    with pytest.raises(corvane.Error) as failed:
        handler.xml()
    assert failed.value.number == 91


def test_a_track_that_no_byte_holds_fails_the_write_and_leaves_the_file(open_mp3):
    handler = open_mp3(AUDIO + RECORD)
    handler.ID3v1xTag.Track = 256
    assert handler.writeID3v1xTag() is False
    assert handler.LastError.Stream().startswith("6, ")
    assert pathlib.Path(handler.FileName).read_bytes() == AUDIO + RECORD


def test_read_tag_reads_nothing(open_mp3):
    assert open_mp3(AUDIO + RECORD).readTag() is EID3TagConstants.ID3Unknown


def test_tags_live_on_when_the_handler_is_gone(open_mp3, tag23):
    handler = open_mp3(tag23)
    tag, header = handler.ID3V2Tag, handler.MPEGHeader
    del handler
    assert tag.Title == "Title"
    assert header.BitRate == 128


def test_path_drive_and_file_are_methods(open_mp3):
    handler = open_mp3(AUDIO)
    assert handler.Path() == os.path.dirname(handler.FileName)[1:] + "/"
    assert handler.File().Size == len(AUDIO)
    assert handler.File().Path == handler.FileName
    assert handler.Drive().TotalSize > 0
    os.remove(handler.FileName)
    assert handler.File() is None


def test_the_lyrics_tag_is_loaded_when_it_is_first_asked_for(open_mp3):
    handler = open_mp3(AUDIO + mp3.lyrics3v2([(b"LYR", b"la")]) + RECORD)
    assert handler.LyricsTag.Lyrics == ""
    assert handler.HasLyricsTag
    assert handler.LyricsTag.Lyrics == "la"


def test_xml_holds_all_tags(open_mp3, tag23):
    handler = open_mp3(tag23 + mp3.lyrics3v2([(b"LYR", b"la")]) + RECORD)
    tags = {element.tag for element in handler.xml_element().iter()}
    assert {"ID3V1Tag", "ID3V2Tag", "LyricsTag", "MPEGHeader"} <= tags
    assert "Ärtist ł" in handler.xml()


def test_xml_of_a_file_that_is_gone_raises(open_mp3):
    handler = open_mp3(AUDIO)
    os.remove(handler.FileName)
    with pytest.raises(corvane.Error):
        handler.xml()


def new_values():
    values = corvane.ID3V230()
    values.Title, values.Artist, values.Track, values.Year = "Tïtle", "ł", "3", 2001
    return values


def test_a_new_tag_is_made_of_an_updatable_one(open_mp3):
    handler = open_mp3(AUDIO)
    assert handler.createID3V2Tag(new_values())
    content = pathlib.Path(handler.FileName).read_bytes()
    assert content.endswith(AUDIO)
    again = corvane.FileHandler()
    assert again.Create(handler.FileName)
    tag = again.ID3V2Tag
    assert (tag.Title, tag.Artist, tag.Track, tag.Year) == ("Tïtle", "ł", "3", "2001")


def test_a_file_with_a_tag_gets_no_other(open_mp3, tag23):
    handler = open_mp3(tag23)
    assert handler.createID3V2Tag(new_values()) is False
    assert pathlib.Path(handler.FileName).read_bytes() == tag23


def test_no_tag_at_all_is_refused_and_the_file_stays(open_mp3):
    handler = open_mp3(AUDIO)
    assert handler.createID3V2Tag(None) is False
    assert pathlib.Path(handler.FileName).read_bytes() == AUDIO

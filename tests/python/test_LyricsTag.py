"""The Lyrics3 tag and its fields."""
from xml.etree import ElementTree

import mp3
import pytest

import corvane
from corvane import ELyricsVersionConstants

FIELDS = [(b"IND", b"100"), (b"EAL", b"Album"), (b"EAR", b"Artist"), (b"AUT", b"Author"), (b"ETT", b"T\xefle"),
          (b"LYR", b"one\r\ntwo")]


@pytest.fixture
def loaded(open_mp3):
    handler = open_mp3(mp3.audio() + mp3.lyrics3v2(FIELDS) + mp3.id3v1(b"T"))
    assert handler.HasLyricsTag
    return handler.LyricsTag


def test_a_new_tag_is_empty():
    tag = corvane.LyricsTag()
    assert (tag.Version, tag.Size, tag.FieldCount) == (ELyricsVersionConstants.lvcUnknown, 0, 0)
    assert (tag.Lyrics, tag.Author, tag.Album, tag.Artist, tag.Title) == ("",) * 5


def test_reads_every_field_of_version_2(loaded):
    assert loaded.Version is ELyricsVersionConstants.lvcV200
    assert (loaded.Author, loaded.Album, loaded.Artist, loaded.Title) == ("Author", "Album", "Artist", "Tïle")
    assert loaded.Lyrics == "one\r\ntwo"
    assert loaded.FieldCount == len(FIELDS)


def test_fields_keep_the_order_of_the_file(loaded):
    fields = [loaded.getFieldByIndex(position) for position in range(1, loaded.FieldCount + 1)]
    assert [(field.ID.encode(), field.TextData.encode("cp1252")) for field in fields] == FIELDS
    assert [field.Size for field in fields] == [len(text) for _, text in FIELDS]


def test_a_field_knows_what_it_is(loaded):
    kinds = {"LYR": "IsLyrics", "EAR": "IsArtist", "EAL": "IsAlbum", "ETT": "IsTitle", "AUT": "IsAuthor"}
    for identity, kind in kinds.items():
        field = loaded.getFieldByID(identity)
        assert [name for name in kinds.values() if getattr(field, name)] == [kind]


def test_an_id_is_looked_up_exactly(loaded):
    for identity in ("lyr", "", "LYR\0", "\ud800", "LY\udc80"):
        assert loaded.getFieldByID(identity) is None


def test_a_position_that_no_field_has_gives_nothing(loaded):
    for position in (0, -1, 7, 2**31, 2**40, -2**70, 1.5, float("nan")):
        assert loaded.getFieldByIndex(position) is None
    assert loaded.getFieldByIndex(2.0).ID == "EAL"


def test_a_field_outlives_its_tag(open_mp3):
    handler = open_mp3(mp3.audio() + mp3.lyrics3v2(FIELDS) + mp3.id3v1(b"T"))
    assert handler.HasLyricsTag
    field = handler.LyricsTag.getFieldByID("LYR")
    del handler
    assert field.TextData == "one\r\ntwo"


def test_what_xml_writes_reads_back(loaded):
    copy = corvane.LyricsTag()
    assert copy.CreateFromTag(loaded.xml_element())
    assert copy.Version is ELyricsVersionConstants.lvcV200
    assert (copy.Author, copy.Album, copy.Artist, copy.Title) == ("Author", "Album", "Artist", "Tïle")


def test_an_element_of_another_name_is_refused_and_recorded():
    tag = corvane.LyricsTag()
    assert tag.CreateFromTag(ElementTree.Element("ID3V1Tag")) is False
    assert tag.LastError.Stream() != "0, , "

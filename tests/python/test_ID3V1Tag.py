"""The ID3v1 tag object and its XML."""
from xml.etree import ElementTree

import pytest

import corvane
from corvane import EID3TagConstants

TEXTS = ["Title", "Artist", "Album", "Year", "Comment"]


def test_a_new_one_is_empty_and_of_unknown_type():
    tag = corvane.ID3V1Tag()
    assert [getattr(tag, name) for name in TEXTS] == [""] * 5
    assert (tag.Track, tag.Genre, tag.TagType) == (0, 255, EID3TagConstants.ID3Unknown)


@pytest.mark.parametrize("name", TEXTS)
def test_texts_of_any_length_are_kept_as_given(name):
    tag = corvane.ID3V1Tag()
    text = "Füße 日本 🎵" * 50
    setattr(tag, name, text)
    assert getattr(tag, name) == text


def test_numbers_of_the_whole_width_are_kept():
    tag = corvane.ID3V1Tag()
    for track in (-32768, 32767):
        tag.Track = track
        assert tag.Track == track
    tag.Genre = 0
    assert tag.Genre == 0
    for genre in (-1, 256):
        with pytest.raises(corvane.Error):
            tag.Genre = genre


def test_constants_describe_the_record():
    tag = corvane.ID3V1Tag()
    assert (tag.TagLength, tag.TagIdentifier, tag.TagTerminator) == (128, "TAG", "0")
    with pytest.raises(AttributeError):
        tag.TagLength = 127


def test_the_genre_list_is_the_tags_own():
    tag = corvane.ID3V1Tag()
    assert tag.GenreList is tag.GenreList
    assert tag.GenreList["17"].Description == "Rock"


def test_a_misspelt_property_is_an_error():
    with pytest.raises(AttributeError):
        corvane.ID3V1Tag().title = "lost"


def filled():
    tag = corvane.ID3V1Tag()
    tag.Title, tag.Artist, tag.Album, tag.Year, tag.Comment = "T & <ł>", "A", "B", "1999", "C"
    tag.Track, tag.Genre, tag.TagType = 7, 17, EID3TagConstants.ID3V11
    return tag


def test_xml_is_text_and_xml_element_its_root():
    tag = filled()
    assert tag.xml().startswith("<?xml version = '1.0' encoding = 'iso-8859-1'?>")
    element = tag.xml_element()
    assert isinstance(element, ElementTree.Element)
    assert element.tag == "ID3V1Tag"


def test_what_xml_writes_reads_back():
    tag = corvane.ID3V1Tag()
    tag.Tag = filled().xml_element()
    assert [getattr(tag, name) for name in TEXTS] == ["T & <ł>", "A", "B", "1999", "C"]
    assert (tag.Track, tag.Genre, tag.TagType) == (7, 17, EID3TagConstants.ID3V11)


def test_an_element_of_another_name_fails_and_changes_nothing():
    tag = filled()
    with pytest.raises(corvane.Error) as failed:
        tag.Tag = ElementTree.Element("LyricsTag")
    assert failed.value.number == -2147221504
    assert failed.value.source == "ID3V1Tag::Tag"
    assert tag.Title == "T & <ł>"


def test_a_missing_property_is_an_object_that_is_not_set():
    with pytest.raises(corvane.Error) as failed:
        corvane.ID3V1Tag().Tag = ElementTree.Element("ID3V1Tag")
    assert failed.value.number == 91


@pytest.mark.parametrize("value", [None, "<ID3V1Tag/>", 3])
def test_what_is_no_element_is_a_type_error(value):
    with pytest.raises(TypeError):
        corvane.ID3V1Tag().Tag = value


def test_the_import_cannot_be_read():
    with pytest.raises(AttributeError):
        corvane.ID3V1Tag().Tag


PROPERTIES = "".join(f'<Property Name="{name}" ID="17" Value="{value}"/>' for name, value in (
    ("Title", "T"), ("Artist", ""), ("Album", ""), ("Year", ""), ("Comment", ""), ("Genre", ""), ("Track", "")))


def test_element_inside_a_document_is_taken_without_what_follows_it():
    document = ElementTree.fromstring(f"<a><ID3V1Tag><Properties>{PROPERTIES}</Properties></ID3V1Tag>text</a>")
    tag = corvane.ID3V1Tag()
    tag.Tag = document[0]
    assert tag.Title == "T"
    assert document[0].tail == "text"


def test_properties_in_a_namespace_are_not_those_of_the_tag():
    tag = corvane.ID3V1Tag()
    with pytest.raises(corvane.Error) as failure:
        tag.Tag = ElementTree.fromstring(f"<ID3V1Tag xmlns='urn:x'><Properties>{PROPERTIES}</Properties></ID3V1Tag>")
    assert failure.value.number == 91
    tag.Tag = ElementTree.fromstring(f"<t:ID3V1Tag xmlns:t='urn:x'><Properties>{PROPERTIES}</Properties></t:ID3V1Tag>")
    assert tag.Title == "T"


def test_element_that_no_document_can_hold_raises():
    element = filled().xml_element()
    element[0][0].set("Value", "\x01")
    with pytest.raises(corvane.Error) as failure:
        corvane.ID3V1Tag().Tag = element
    assert failure.value.number == -2147221504

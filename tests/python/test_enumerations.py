"""Enumerations have the published names and numbers, those of the library's headers."""
import enum
import os
import re
from pathlib import Path

import pytest

import corvane

HEADERS = {
    "EID3TagConstants": "id3v1", "ELyricsVersionConstants": "lyrics", "ID3_FieldID": "id3v230",
    "ID3_FieldType": "id3v230", "ID3_FrameID": "id3v230", "ID3_TagType": "id3v230", "enumShortOrLongText": "id3v230",
}


def members_in_header(name):
    source = Path(os.environ["CORVANE_SOURCE"], "corvane", HEADERS[name], name + ".h").read_text(encoding="utf-8")
    body = re.sub(r"//.*", "", source[source.index("enum class"):])
    members = {}
    for member, value in re.findall(r"(\w+) = (-?\w+)", body):
        members[member] = members[value] if value in members else int(value)
    return members


@pytest.mark.parametrize("name", HEADERS)
def test_has_every_member_of_the_header_and_no_other(name):
    members = {member: int(value) for member, value in getattr(corvane, name).__members__.items()}
    assert members == members_in_header(name)


@pytest.mark.parametrize("name", HEADERS)
def test_is_an_int_enumeration_of_the_module(name):
    enumeration = getattr(corvane, name)
    assert issubclass(enumeration, enum.IntEnum)
    assert enumeration.__module__ == "corvane"
    assert enumeration.__doc__


def test_a_member_comes_out_and_any_int_goes_in():
    tag = corvane.ID3V1Tag()
    assert tag.TagType is corvane.EID3TagConstants.ID3Unknown
    tag.TagType = corvane.EID3TagConstants.ID3V11
    assert tag.TagType is corvane.EID3TagConstants.ID3V11
    tag.TagType = 1
    assert tag.TagType is corvane.EID3TagConstants.ID3v1


def test_a_number_without_a_name_comes_out_as_it_is():
    tag = corvane.ID3V1Tag()
    tag.TagType = 77
    assert tag.TagType == 77


def test_two_names_of_one_frame():
    assert corvane.ID3_FrameID.ID3EZFID_Artist is corvane.ID3_FrameID.ID3FID_LEADARTIST

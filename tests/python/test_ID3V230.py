"""The ID3v2.3 tag that can be changed, and its records."""
import pytest
from conftest import PNG

import corvane
from corvane import ID3_FrameID

TEXTS = {
    "Title": "TIT2", "Song": "TIT2", "Artist": "TPE1", "ArtistURL": "WOAR", "UserURL": "WXXX", "Album": "TALB",
    "Track": "TRCK", "Composer": "TCOM", "OriginalArtist": "TOPE", "Copyright": "TCOP", "EncodedBy": "TENC",
    "Comments": "COMM", "UniqueKey": "UFID", "Genre": "TCON", "UserText": "TXXX", "LyricsUnsynced": "USLT",
    "LyricsSynced": "SYLT", "Tempo": "COMM", "Mood": "COMM", "Situation": "COMM", "Preference": "COMM",
}


def test_a_new_object_holds_nothing():
    tag = corvane.ID3V230()
    assert [getattr(tag, name) for name in TEXTS] == [""] * len(TEXTS)
    assert (tag.Year, tag.TotalTracks, tag.FrameCount, tag.FramesSize, len(tag.Frames)) == (0, 0, 0, 0, 0)
    assert tag.Picture is None
    assert (tag.HadError, tag.ErrorDescription, tag.UseTempCopy) == (False, "", True)


@pytest.mark.parametrize("name", TEXTS)
def test_a_text_property_is_the_value_of_its_frame(name):
    tag = corvane.ID3V230()
    setattr(tag, name, "Tëxt ł")
    assert getattr(tag, name) == "Tëxt ł"
    assert tag.Frames[1].FrameAbbr == TEXTS[name]
    assert tag.Frames[1].vValue == "Tëxt ł"


def test_state_is_for_hosts():
    tag = corvane.ID3V230()
    tag.HadError, tag.ErrorDescription, tag.UseTempCopy = True, "why", False
    assert (tag.HadError, tag.ErrorDescription, tag.UseTempCopy) == (True, "why", False)


def test_numbers():
    tag = corvane.ID3V230()
    tag.Track, tag.Year = "3", 1999
    tag.TotalTracks = 12
    assert (tag.Track, tag.TotalTracks, tag.Year) == ("3/12", 12, 1999)
    tag.Track = "3/99999"
    with pytest.raises(corvane.Error) as failed:
        tag.TotalTracks
    assert failed.value.number == 6


def test_frame_value_takes_a_number_and_an_optional_description():
    tag = corvane.ID3V230()
    tag.Title, tag.Year, tag.Mood = "T", 1999, "calm"
    tag.Picture = corvane.Picture.fromBytes(PNG)
    assert tag.FrameValue(ID3_FrameID.ID3FID_TITLE) == "T"
    assert tag.FrameValue(36) == "T"
    assert tag.FrameValue(ID3_FrameID.ID3FID_YEAR) == 1999
    assert tag.FrameValue(ID3_FrameID.ID3FID_COMMENT) is None
    assert tag.FrameValue(ID3_FrameID.ID3FID_COMMENT, "\ud800") is None
    assert tag.FrameValue(eFrameID=ID3_FrameID.ID3FID_COMMENT, Descriptor="MusicMatch_Mood") == "calm"
    assert tag.FrameValue(ID3_FrameID.ID3FID_PICTURE).bytes == PNG


def test_frames_index_from_1_iterate_and_are_the_tags_own():
    tag = corvane.ID3V230()
    tag.Title, tag.Artist = "T", "A"
    frames = tag.Frames
    assert frames.Count == len(frames) == 2
    assert [frame.FrameAbbr for frame in frames] == ["TIT2", "TPE1"]
    assert frames[1] is frames.Item(1)
    assert frames[0] is None and frames[3] is None
    frames[1].vValue = "New"
    assert tag.Title == "New"


def test_a_tag_may_grow_while_it_is_iterated():
    tag = corvane.ID3V230()
    tag.Title = "T"
    for _ in tag.Frames:
        tag.Artist = "A"
    assert len(tag.Frames) == 2


def test_every_member_of_a_record_is_read_and_written():
    tag = corvane.ID3V230()
    tag.Comments = "C"
    record = tag.Frames[1]
    assert (record.eType, record.FrameHandle, record.Position) == (ID3_FrameID.ID3FID_COMMENT, 0, 1)
    assert (record.Deleted, record.bChanged, record.IsNew, record.bDupe) == (False, True, True, False)
    for name, value in {"FrameHandle": 7, "Position": 9, "Deleted": True, "bChanged": False, "IsNew": False,
                        "bDupe": True, "sDescription": "D", "vLanguage": "deu", "eType": 36}.items():
        setattr(record, name, value)
        assert getattr(record, name) == value
    record.vLanguage = None
    assert record.vLanguage is None
    assert (record.FrameAbbr, record.FrameTitle) == ("TIT2", "Title/songname/content description")


@pytest.mark.parametrize("value", [None, 5, -1, 40000, 2**31 - 1, "text", ""])
def test_a_value_comes_out_as_it_went_in(value):
    tag = corvane.ID3V230()
    tag.Title = "T"
    record = tag.Frames[1]
    record.vValue = value
    assert record.vValue == value


def test_what_no_frame_holds_is_refused():
    tag = corvane.ID3V230()
    tag.Title = "T"
    with pytest.raises(TypeError):
        tag.Frames[1].vValue = 1.5
    with pytest.raises(TypeError):
        tag.Frames[1].vLanguage = 3
    with pytest.raises(corvane.Error):
        tag.Frames[1].vValue = 2**31
    assert tag.Title == "T"


def test_delete_only_marks():
    tag = corvane.ID3V230()
    tag.Title = "T"
    assert tag.Frames[1].Delete() is None
    assert tag.Frames[1].Deleted and len(tag.Frames) == 1


def test_a_position_that_no_record_has_gives_nothing():
    tag = corvane.ID3V230()
    tag.Title = "T"
    for position in (0, 2, 2**31, 2**40, -2**70, 1.5):
        assert tag.Frames.Item(position) is None and tag.Frames[position] is None
    assert tag.Frames.Item(1.0) is tag.Frames[1]


def test_a_picture_as_value_is_the_picture():
    tag = corvane.ID3V230()
    picture = corvane.Picture.fromBytes(PNG)
    tag.Picture = picture
    record = tag.Frames[1]
    assert record.vValue.handle == record.Picture.handle == picture.handle
    assert record.PictureRAW == PNG
    record.Picture = None
    assert record.Picture is None


def test_a_record_lives_on_when_its_tag_is_gone():
    tag = corvane.ID3V230()
    tag.Title = "T"
    record = tag.Frames[1]
    del tag
    assert record.vValue == "T"


def test_records_are_made_by_their_tag():
    for name in ("ID3V230Frame", "ID3V230Frames"):
        with pytest.raises(TypeError):
            getattr(corvane, name)()


def test_a_field_holds_what_a_host_puts_into_it():
    field = corvane.ID3V230Field()
    assert (field.FieldID, field.FieldType, field.NumTextItems, field.Size) == (0, -1, 0, 0)
    field.FieldID, field.FieldType = corvane.ID3_FieldID.ID3FN_TEXT, corvane.ID3_FieldType.ID3FTY_TEXTSTRING
    field.NumTextItems, field.Size = 2, 7
    assert field.FieldID is corvane.ID3_FieldID.ID3FN_TEXT
    assert field.FieldType is corvane.ID3_FieldType.ID3FTY_TEXTSTRING
    assert (field.NumTextItems, field.Size) == (2, 7)
    with pytest.raises(corvane.Error):
        field.Size = 2**31

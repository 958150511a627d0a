"""The technical data of the first frame."""
import mp3
import pytest

import corvane


def test_an_object_that_was_never_filled_answers_as_the_zero_header():
    header = corvane.MPEGHeader()
    assert (header.Version, header.Layer, header.Mode, header.Frequency) == ("MPEG 2.5", "Reserved", "Stereo", 32000)
    assert (header.BitRate, header.Duration, header.FrameSize, header.CRC, header.VBR) == (0, 0, 0, True, False)


def test_every_property_tells_of_the_first_frame(open_mp3):
    header = open_mp3(mp3.audio(100)).MPEGHeader
    assert (header.Version, header.VersionID, header.Layer, header.LayerID) == ("MPEG 1.0", 3, "3", 1)
    assert (header.Mode, header.ModeID, header.BitRate, header.Frequency) == ("Stereo", 0, 128, 44100)
    assert (header.Emphasis, header.EmphasisID, header.FrameSize) == ("None", 0, 417)
    assert (header.FileSize, header.AudioSize) == (41700, 41698)
    assert (header.Duration, header.NumFrames) == (2, 41698 // 417)
    assert not header.CRC and header.ProtectionBit and header.Original
    assert not (header.Copyright or header.VBR or header.PaddingBit or header.PrivateBit)


def test_a_xing_header_makes_it_vbr(open_mp3):
    header = open_mp3(mp3.vbr_audio(100)).MPEGHeader
    assert (header.VBR, header.NumFrames) == (True, 100)


@pytest.mark.parametrize("name", ["BitRate", "Duration", "VBR"])
def test_is_read_only(name):
    with pytest.raises(AttributeError):
        setattr(corvane.MPEGHeader(), name, 1)


def test_xml(open_mp3):
    element = open_mp3(mp3.audio()).MPEGHeader.xml_element()
    assert element.tag == "MPEGHeader"
    values = {node.get("Name"): node.get("Value") for node in element.iter("Property")}
    assert values["BitRate"] == "128"

#!/usr/bin/python3
"""Technical data of files by lame, ffmpeg and sox: as ffprobe, mutagen and TagLib see them, but for own rules.

Corvane departs from the published formats in places, for the sake of what its hosts have stored. A test named
"..._on_purpose" expects Corvane's value, and shows the peers' beside it.
"""
import functools
import struct
import unittest
from types import SimpleNamespace

from mutagen.id3 import APIC, ID3, TIT2
from mutagen.mp3 import MP3, BitrateMode, HeaderNotFoundError

import audio
from support import RECORD_SIZE, Document, InteropCase, corvane, ffprobe, scan, taglib

MPEG_1_CBR = {
    "lame joint 128": lambda: audio.lame("-b", "128", "-m", "j"),
    "lame stereo 192 48000": lambda: audio.lame("-b", "192", "-m", "s", "--resample", "48"),
    "lame dual 256 32000": lambda: audio.lame("-b", "256", "-m", "d", "--resample", "32"),
    "lame mono 56": lambda: audio.lame("-b", "56", "-m", "m"),
    "lame 32": lambda: audio.lame("-b", "32", "-m", "m"),
    "lame preset 224": lambda: audio.lame("--preset", "cbr", "224"),
    "lame without Info frame": lambda: audio.lame("-b", "128", "-t"),
    "lame with CRC": lambda: audio.lame("-b", "128", "-p"),
    "lame copyrighted copy": lambda: audio.lame("-b", "128", "-c", "-o"),
    "lame emphasis": lambda: audio.lame("-b", "128", "-e", "5"),
    "ffmpeg 128": lambda: audio.ffmpeg("-b:a", "128k"),
    "ffmpeg without Info frame": lambda: audio.ffmpeg("-b:a", "160k", "-write_xing", "0"),
    "ffmpeg mono": lambda: audio.ffmpeg("-b:a", "64k", channels=1),
    "ffmpeg Layer II": lambda: audio.ffmpeg("-c:a", "mp2", "-b:a", "192k", "-f", "mp2"),
    "sox 128": lambda: audio.sox("-C", "128.2"),
    "sox mono 96": lambda: audio.sox("-C", "96.2", channels=1),
}
MPEG_2_CBR = {
    "lame MPEG 2 joint 64": lambda: audio.lame("-b", "64", "-m", "j", "--resample", "22.05"),
    "lame MPEG 2 mono 8": lambda: audio.lame("-b", "8", "-m", "m", "--resample", "16"),
    "lame MPEG 2 at its highest rate": lambda: audio.lame("-b", "160", "--resample", "24"),
    "ffmpeg MPEG 2 mono": lambda: audio.ffmpeg("-b:a", "64k", "-ar", "24000", channels=1),
    "sox MPEG 2": lambda: audio.sox("-C", "64.2", rate=22050),
}
MPEG_2_LAYER_2 = {
    "ffmpeg MPEG 2 Layer II": lambda: audio.ffmpeg("-c:a", "mp2", "-b:a", "64k", "-ar", "22050", "-f", "mp2"),
}
MPEG_25_CBR = {
    "lame MPEG 2.5 11025": lambda: audio.lame("-b", "24", "-m", "j", "--resample", "11.025"),
    "lame MPEG 2.5 12000": lambda: audio.lame("-b", "32", "-m", "s", "--resample", "12"),
    "lame MPEG 2.5 mono 16": lambda: audio.lame("-b", "16", "-m", "m", "--resample", "8"),
    "sox MPEG 2.5": lambda: audio.sox("-C", "24.2", rate=11025, channels=1),
}
MPEG_1_VBR = {
    "lame VBR": lambda: audio.lame("-V", "2"),
    "lame VBR mono": lambda: audio.lame("-V", "4", "-m", "m"),
    "lame VBR 48000": lambda: audio.lame("-V", "0", "--resample", "48"),
    "lame ABR": lambda: audio.lame("--abr", "128"),
    "lame VBR with CRC": lambda: audio.lame("-V", "2", "-p"),
    "ffmpeg VBR": lambda: audio.ffmpeg("-q:a", "4"),
    "sox VBR": lambda: audio.sox("-C", "-4.2"),
}
MPEG_2_VBR = {
    "lame VBR MPEG 2": lambda: audio.lame("-V", "4", "--resample", "22.05"),
    "lame VBR MPEG 2 mono": lambda: audio.lame("-V", "4", "-m", "m", "--resample", "24"),
}
MPEG_25_VBR = {
    "lame VBR MPEG 2.5": lambda: audio.lame("-V", "5", "--resample", "11.025"),
    "lame VBR MPEG 2.5 mono": lambda: audio.lame("-V", "5", "-m", "m", "--resample", "8"),
}
CBR = MPEG_1_CBR | MPEG_2_CBR | MPEG_2_LAYER_2 | MPEG_25_CBR
VBR = MPEG_1_VBR | MPEG_2_VBR | MPEG_25_VBR
ALL = CBR | VBR

MODES = {0: "Stereo", 1: "Joint Stereo", 2: "Dual Channel", 3: "Single Channel"}
OWN_MPEG_25_FREQUENCIES = {11025: 32000, 12000: 16000, 8000: 8000}  # Hz, by index of the sampling rate


def is_accepted(word):
    """Whether Corvane takes a header word for that of a frame. The last two rules refuse valid frames on purpose."""
    version, layer, index = word >> 19 & 3, word >> 17 & 3, word >> 12 & 15
    if word >> 21 != 0x7FF or index in (0, 15) or version == 1 or layer == 0 or word >> 10 & 3 == 3 or word & 3 == 2:
        return False
    return not (index == 14 and version == 3) and not (index == 2 and version >= 2)


def first_accepted(data, offset=0):
    """The offset at which Corvane's search ends; nothing when it finds no header."""
    for position in range(offset, min(offset + 15001, len(data) - 5)):
        if is_accepted(int.from_bytes(data[position:position + 4], "big")):
            return position
    return None


def xing_fields(data):
    """(number of frames, number of bytes) of a Xing header that tells both."""
    at = data.index(b"Xing")
    flags, frames, size = struct.unpack_from(">III", data, at + 4)
    if flags & 3 != 3:
        raise AssertionError("this encoder's header does not tell frames and bytes")
    return frames, size


@functools.cache
def reading(name):
    """What everybody reads from one variant; `own` are Corvane's values, `ids` the numbers beside them."""
    path = audio.stored(ALL[name](), f"{name}.mp3")
    document = Document(path)
    own = document.values("MPEGHeader")
    numbers = {key: int(value) for key, value in own.items() if value.lstrip("-").isdigit()}
    return SimpleNamespace(data=path.read_bytes(), own=own | numbers, ids=document.identifiers("MPEGHeader"),
                           listed=scan(path)[0], mutagen=MP3(path).info, ffprobe=ffprobe(path),
                           taglib=taglib(path)["audio"])


def for_each(variants):
    """Runs a test with the reading of each variant."""
    def repeated(test):
        @functools.wraps(test)
        def run_each(self):
            for name in variants:
                with self.subTest(name):
                    test(self, reading(name))
        return run_each
    return repeated


class MpegCase(InteropCase):
    def assert_near(self, own, others, share):
        self.assertLessEqual(abs(own - others), share * others, (own, others))


class FirstFrame(MpegCase):
    @for_each(CBR)
    def test_the_frame_is_found_where_mutagen_finds_it(self, read):
        # The audio is what follows the header's first byte, less 2 bytes.
        self.assertEqual(read.own["FileSize"] - read.own["AudioSize"] - 2, read.mutagen.frame_offset)

    @for_each(ALL)
    def test_version_layer_and_mode_agree(self, read):
        version = {1: ("MPEG 1.0", "3"), 2: ("MPEG 2.0", "2"), 2.5: ("MPEG 2.5", "0")}[read.mutagen.version]
        self.assertEqual((read.own["Version"], read.ids["Version"]), version)
        self.assertEqual(read.own["Layer"], read.mutagen.layer)
        self.assertEqual(read.ids["Layer"], str(4 - read.mutagen.layer))
        self.assertEqual((read.own["Mode"], read.ids["Mode"]), (MODES[read.mutagen.mode], str(read.mutagen.mode)))
        self.assertEqual(read.taglib["channelMode"], read.mutagen.mode)

    @for_each(ALL)
    def test_one_channel_is_what_ffprobe_calls_mono(self, read):
        self.assertEqual(read.own["Mode"] == "Single Channel", read.ffprobe["channels"] == 1)

    @for_each(ALL)
    def test_the_flags_agree(self, read):
        self.assertEqual(read.own["PaddingBit"], int(read.mutagen.padding))
        self.assertEqual(read.own["CRC"], int(read.mutagen.protected))
        self.assertEqual(read.own["ProtectionBit"], int(not read.taglib["hasCrc"]))
        self.assertEqual(read.own["Copyright"], int(read.taglib["isCopyrighted"]))
        self.assertEqual(read.own["Original"], int(read.taglib["isOriginal"]))

    def test_the_flags_are_those_that_were_asked_for(self):
        self.assertEqual(reading("lame with CRC").own["CRC"], 1)
        copied = reading("lame copyrighted copy").own
        self.assertEqual((copied["Copyright"], copied["Original"]), (1, 0))

    @for_each(MPEG_1_CBR | MPEG_2_CBR | MPEG_2_LAYER_2 | MPEG_1_VBR | MPEG_2_VBR)
    def test_the_frequency_of_mpeg_1_and_2_agrees(self, read):
        self.assertEqual(read.own["Frequency"], read.mutagen.sample_rate)
        self.assertEqual(read.own["Frequency"], int(read.ffprobe["sample_rate"]))
        self.assertEqual(read.own["Frequency"], read.taglib["frequencyHz"])

    @for_each(MPEG_25_CBR | MPEG_25_VBR)
    def test_the_frequency_of_mpeg_25_differs_on_purpose(self, read):
        self.assertEqual(int(read.ffprobe["sample_rate"]), read.mutagen.sample_rate)
        self.assertEqual(read.own["Frequency"], OWN_MPEG_25_FREQUENCIES[read.mutagen.sample_rate])

    def test_emphasis_is_named_otherwise_on_purpose(self):
        # lame was asked for 50/15 microseconds, which the standard numbers 1.
        read = reading("lame emphasis")
        self.assertEqual(read.data[read.mutagen.frame_offset + 3] & 3, 1)
        self.assertEqual((read.own["Emphasis"], read.ids["Emphasis"]), ("Unknown", "1"))
        plain = reading("lame joint 128")
        self.assertEqual((plain.own["Emphasis"], plain.ids["Emphasis"]), ("None", "0"))

    @for_each(ALL)
    def test_the_list_tells_what_the_document_tells(self, read):
        listed = {"BitRate": "bitRate", "Duration": "duration", "Frequency": "frequency", "VBR": "vbr"}
        self.assertEqual({name: int(read.listed[key]) for name, key in listed.items()},
                         {name: read.own[name] for name in listed})


class ConstantBitRate(MpegCase):
    @for_each(CBR)
    def test_the_bit_rate_agrees(self, read):
        self.assertEqual(read.own["BitRate"], round(read.mutagen.bitrate / 1000))
        self.assertEqual(read.own["BitRate"], int(read.ffprobe["bit_rate"]) // 1000)

    @for_each(CBR)
    def test_an_info_frame_means_a_constant_bit_rate_as_mutagen_says(self, read):
        self.assertIn(read.mutagen.bitrate_mode, (BitrateMode.CBR, BitrateMode.UNKNOWN))
        self.assertEqual(read.own["VBR"], 0)
        self.assertIn(b"Info", reading("lame joint 128").data)
        self.assertIn(b"Info", reading("ffmpeg 128").data)

    def test_the_frame_of_an_info_header_gives_the_bit_rate_on_purpose(self):
        # ffmpeg puts the header into a frame that is larger than those of the audio; the peers look behind it.
        path = self.file(audio.ffmpeg("-b:a", "48k", "-ar", "24000", channels=1))
        self.assertEqual(round(MP3(path).info.bitrate / 1000), 48)
        self.assertEqual(Document(path).values("MPEGHeader")["BitRate"], "64")

    @for_each(CBR)
    def test_the_duration_in_whole_seconds_agrees(self, read):
        self.assertEqual(read.own["Duration"], int(read.mutagen.length))
        self.assertEqual(read.own["Duration"], int(float(read.ffprobe["duration"])))

    @for_each(MPEG_1_CBR | MPEG_2_LAYER_2)
    def test_the_number_of_frames_of_mpeg_1_is_that_of_ffprobe(self, read):
        info_frames = int(b"Info" in read.data[:200])  # ffprobe does not count a frame without audio
        self.assert_near(read.own["NumFrames"], int(read.ffprobe["nb_read_packets"]) + info_frames, 0.02)

    @for_each(MPEG_2_CBR)
    def test_frames_of_mpeg_2_layer_3_are_twice_as_long_and_half_as_many_on_purpose(self, read):
        # Frame sizes take the coefficient 144 in every version; the standard has 72 here.
        frame_size = int(read.own["BitRate"] / read.mutagen.sample_rate * 144000)
        self.assertEqual(read.own["FrameSize"], frame_size + read.own["PaddingBit"])
        self.assert_near(2 * read.own["NumFrames"], int(read.ffprobe["nb_read_packets"]), 0.05)

    @for_each(MPEG_25_CBR)
    def test_frames_of_mpeg_25_have_the_size_of_their_own_frequency_on_purpose(self, read):
        frame_size = int(read.own["BitRate"] / OWN_MPEG_25_FREQUENCIES[read.mutagen.sample_rate] * 144000)
        self.assertEqual(read.own["FrameSize"], frame_size + read.own["PaddingBit"])
        self.assertEqual(read.own["NumFrames"], read.own["AudioSize"] // read.own["FrameSize"])

    def test_tags_at_the_end_count_as_audio_on_purpose(self):
        plain = reading("lame joint 128")
        path = self.file(plain.data, "tagged.mp3")
        corvane("set", path, "--tag", "v1", "--quiet", "--title", "x")
        tagged = Document(path).values("MPEGHeader")
        self.assertEqual(int(tagged["AudioSize"]), plain.own["AudioSize"] + RECORD_SIZE)
        self.assertEqual(int(tagged["FileSize"]), len(plain.data) + RECORD_SIZE)


class VariableBitRate(MpegCase):
    @for_each(VBR)
    def test_a_xing_header_means_vbr_as_mutagen_says(self, read):
        self.assertIn(read.mutagen.bitrate_mode, (BitrateMode.VBR, BitrateMode.ABR))
        self.assertEqual(read.own["VBR"], 1)

    @for_each(VBR)
    def test_the_number_of_frames_is_what_ffprobe_counts(self, read):
        self.assertEqual(read.own["NumFrames"], xing_fields(read.data)[0])
        self.assertEqual(read.own["NumFrames"], int(read.ffprobe["nb_read_packets"]))

    @for_each(VBR)
    def test_the_audio_size_is_that_of_the_header(self, read):
        self.assertEqual(read.own["AudioSize"], xing_fields(read.data)[1])

    @for_each(VBR)
    def test_the_frame_size_is_the_average_one(self, read):
        frames, size = xing_fields(read.data)
        self.assertEqual(read.own["FrameSize"], round(size / frames))

    @for_each(MPEG_1_VBR)
    def test_the_bit_rate_and_duration_of_mpeg_1_agree(self, read):
        self.assert_near(read.own["BitRate"], read.mutagen.bitrate / 1000, 0.04)
        self.assert_near(read.own["BitRate"], read.taglib["bitRateKbps"], 0.04)
        self.assertEqual(read.own["Duration"], int(read.mutagen.length))
        self.assertEqual(read.own["Duration"], int(float(read.ffprobe["duration"])))

    @for_each(MPEG_2_VBR | MPEG_25_VBR)
    def test_mpeg_2_and_25_take_the_coefficient_of_mpeg_1_on_purpose(self, read):
        frames, size = xing_fields(read.data)
        bit_rate = size / frames * read.own["Frequency"] / 144000
        self.assertEqual(read.own["BitRate"], int(bit_rate))
        self.assertEqual(read.own["Duration"], round(size / bit_rate * 8) // 1000)

    @for_each(MPEG_2_VBR)
    def test_the_bit_rate_of_mpeg_2_is_half_and_its_duration_twice_that_of_the_peers_on_purpose(self, read):
        # The standard has the coefficient 72 here.
        self.assert_near(2 * read.own["BitRate"], read.mutagen.bitrate / 1000, 0.1)
        self.assert_near(read.own["Duration"], 2 * read.mutagen.length, 0.2)

    def test_vbr_without_a_xing_header_has_the_bit_rate_of_its_first_accepted_frame(self):
        data = audio.lame("-V", "2", "-t")
        path = self.file(data)
        own = Document(path).values("MPEGHeader")
        offset = first_accepted(data)
        self.assertEqual(own["VBR"], "0")
        self.assertEqual(int(own["AudioSize"]), len(data) - offset - 2)


class RefusedHeaders(MpegCase):
    """Valid frames that Corvane steps over on purpose: its search goes on to the next header that it accepts."""

    def assert_stepped_over(self, data, peers_kbps):
        path = self.file(data)
        peers = MP3(path).info
        self.assertEqual((peers.frame_offset, round(peers.bitrate / 1000)), (0, peers_kbps))
        self.assert_found_by_the_rule(path, data)

    def assert_found_by_the_rule(self, path, data):
        self.assertFalse(is_accepted(int.from_bytes(data[:4], "big")))
        own = Document(path).values("MPEGHeader")
        self.assertEqual(int(own["FileSize"]), len(data))
        offset = first_accepted(data)
        if offset is None:
            never_loaded = {"AudioSize": "0", "BitRate": "0", "Duration": "0", "NumFrames": "0", "FrameSize": "0",
                            "Frequency": "32000", "Layer": "Reserved", "Version": "MPEG 2.5", "Emphasis": ""}
            self.assertEqual({name: own[name] for name in never_loaded}, never_loaded)
        else:
            self.assertEqual(int(own["AudioSize"]), len(data) - offset - 2)
        return offset

    def test_mpeg_1_at_320_kbit(self):
        self.assert_stepped_over(audio.lame("-b", "320"), 320)

    def test_mpeg_1_at_40_kbit(self):
        self.assert_stepped_over(audio.lame("-b", "40"), 40)

    def test_mpeg_2_at_16_kbit(self):
        self.assert_stepped_over(audio.lame("-b", "16", "--resample", "22.05"), 16)

    def test_mpeg_1_layer_2_at_384_kbit(self):
        self.assert_stepped_over(audio.ffmpeg("-c:a", "mp2", "-b:a", "384k", "-f", "mp2"), 384)

    def test_free_format_which_mutagen_does_not_find_either(self):
        data = audio.lame("--freeformat", "-b", "160")
        path = self.file(data)
        with self.assertRaises(HeaderNotFoundError):
            MP3(path)
        self.assert_found_by_the_rule(path, data)

    def test_the_next_accepted_frame_counts(self):
        refused = audio.lame("-b", "320", "-t")[:4] + bytes(1040)
        accepted = audio.lame("-b", "128", "-t")
        data = refused + accepted
        path = self.file(data)
        self.assertEqual(self.assert_found_by_the_rule(path, data), len(refused))
        self.assertEqual(Document(path).values("MPEGHeader")["BitRate"], "128")


class AudioBehindATag(MpegCase):
    def behind_tag(self, version, padding):
        path = self.file(audio.lame("-b", "128", "-m", "j"))
        tags = ID3()
        tags.add(TIT2(encoding=1, text="in front"))
        # Bytes that look like frames must not be searched: they stand inside the tag.
        tags.add(APIC(encoding=0, mime="image/png", type=3, desc="", data=b"\xff\xfb\x90\x44" * 700))
        tags.save(path, v1=0, v2_version=version, padding=lambda info: padding)
        return path

    def test_the_search_begins_where_the_tag_ends_as_mutagen_says(self):
        plain = reading("lame joint 128").own
        for version, padding in [(3, 0), (3, 1000), (4, 0), (4, 20000)]:
            with self.subTest(version=version, padding=padding):
                path = self.behind_tag(version, padding)
                peers, own = MP3(path), Document(path).values("MPEGHeader")
                self.assertGreater(peers.info.frame_offset, 2800 + padding)
                self.assertEqual(int(own["FileSize"]) - int(own["AudioSize"]) - 2, peers.info.frame_offset)
                same = ["AudioSize", "BitRate", "Duration", "Frequency", "Mode", "NumFrames", "FrameSize"]
                self.assertEqual({name: own[name] for name in same}, {name: str(plain[name]) for name in same})

    def test_the_search_begins_behind_the_tags_of_ffmpeg_and_lame(self):
        for name, data in {"ffmpeg": audio.ffmpeg("-b:a", "128k", "-id3v2_version", "4"),
                           "lame": audio.lame("-b", "128", "--add-id3v2", "--pad-id3v2-size", "5000", "--tt", "x")
                           }.items():
            with self.subTest(name):
                path = self.file(data)
                own = Document(path).values("MPEGHeader")
                self.assertEqual(int(own["FileSize"]) - int(own["AudioSize"]) - 2, MP3(path).info.frame_offset)


if __name__ == "__main__":
    unittest.main()

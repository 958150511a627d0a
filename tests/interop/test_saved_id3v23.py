#!/usr/bin/python3
"""ID3v2.3 tags that the library has saved are valid and read right in mutagen, TagLib and ffprobe."""
import itertools
import json
import unittest

from mutagen.id3 import ID3, TXXX

import audio
import pictures
from editor import WAYS, answers, job, save
from support import TAGLIB_PEER, InteropCase, run
from tags import TagCase, tag_bytes
from validity import check_tag, raw_frames, tag_size

SAMPLES = {"latin-1": "Ærøskøbing & 'ÿ¡£' <b>", "japanese": "日本語", "russian": "Привет", "euro": "€ – „“",
           "emoji": "emoji 😀 🎵"}

# Property: key in mutagen, key in ffprobe.
TEXTS = {"Title": ("TIT2", "title"), "Artist": ("TPE1", "artist"), "Album": ("TALB", "album"),
         "Track": ("TRCK", "track"), "Composer": ("TCOM", "composer"), "OriginalArtist": ("TOPE", "TOPE"),
         "Copyright": ("TCOP", "copyright"), "EncodedBy": ("TENC", "encoded_by"), "Genre": ("TCON", "genre"),
         "UserText": ("TXXX:", None), "Comments": ("COMM::eng", "comment"),
         "LyricsUnsynced": ("USLT::eng", "lyrics-eng"), "Tempo": ("COMM:MusicMatch_Tempo:eng", "MusicMatch_Tempo"),
         "Mood": ("COMM:MusicMatch_Mood:eng", "MusicMatch_Mood"),
         "Situation": ("COMM:MusicMatch_Situation:eng", "MusicMatch_Situation"),
         "Preference": ("COMM:MusicMatch_Preference:eng", "MusicMatch_Preference")}
FACADE_NAMES = {name: name for name in ["Title", "Artist", "Album", "Track", "Composer", "OriginalArtist", "Copyright",
                                        "EncodedBy", "Genre", "LyricsUnsynced"]} | {"Comments": "Comment"}
URLS = {"ArtistURL": "WOAR:{0}", "UserURL": "WXXX:"}
LYRICS = "[00:01.0] {0}\n[00:02.5] second\n[01:23.4] third {0}"
TIMES = [1000, 2500, 83400]


def texts_for(sample):
    """A text for each property, all different."""
    return {name: f"{sample} {name}" for name in TEXTS}


def taglib_frames(path):
    return json.loads(run(TAGLIB_PEER, "frames", path))


def taglib_frame(path, name, description=None):
    found = [frame for frame in taglib_frames(path) if frame["id"] == name and
             (description is None or frame.get("description") == description)]
    if len(found) != 1:
        raise AssertionError(f"{len(found)} frames {name} with description {description!r} in TagLib")
    return found[0]


def probed(path):
    """Texts and pictures as ffprobe sees them."""
    answer = json.loads(run("ffprobe", "-v", "error", "-of", "json", "-show_format", "-show_streams", path))
    return answer["format"].get("tags", {}), [each for each in answer["streams"] if each["codec_type"] == "video"]


class SavedCase(TagCase):
    def saved(self, values, way=None, **more):
        """A file without a tag into which the values were saved. The tag is valid, the audio what it was."""
        path = self.file(audio.plain())
        save(path, values, way, **more)
        self.assert_valid(path)
        return path

    def assert_valid(self, path):
        data = path.read_bytes()
        frames = check_tag(data[:tag_size(data)])
        self.assertEqual(data[tag_size(data):], audio.plain())
        return frames

    def picture(self, data, name):
        path = self.folder / name
        path.write_bytes(data)
        return str(path)


class Texts(SavedCase):
    def assert_texts(self, path, texts):
        peer = ID3(path, translate=False)
        self.assertEqual(peer.version, (2, 3, 0))
        self.assertEqual({name: str(peer[TEXTS[name][0]]) for name in texts}, texts)
        shown, _ = probed(path)
        self.assertEqual({name: shown.get(TEXTS[name][1]) for name in texts if TEXTS[name][1]},
                         {name: text for name, text in texts.items() if TEXTS[name][1]})
        for name, text in texts.items():
            self.assertEqual(self.text_in_taglib(path, TEXTS[name][0]), text, name)

    @staticmethod
    def text_in_taglib(path, key):
        name, description = key.split(":")[0], key.split(":")[1] if ":" in key else None
        frame = taglib_frame(path, name, None if name == "TXXX" else description)
        return frame["text"] or frame["description"]

    def test_taglib_takes_a_text_for_the_description_that_is_empty(self):
        # In ISO-8859-1 only, and whoever wrote it: why the others look into both places.
        path = self.tagged(tag_bytes(3, TXXX(encoding=0, desc="", text="text")))
        self.assertEqual((taglib_frame(path, "TXXX")["description"], taglib_frame(path, "TXXX")["text"]), ("text", ""))

    def test_texts_of_every_property_in_every_script(self):
        for name, sample in SAMPLES.items():
            with self.subTest(name):
                self.assert_texts(self.saved(texts_for(sample)), texts_for(sample))

    def test_texts_of_a_created_tag(self):
        for name, sample in SAMPLES.items():
            with self.subTest(name):
                self.assert_texts(self.saved(texts_for(sample), {"by": "create"}), texts_for(sample))

    def test_texts_that_take_the_place_of_others(self):
        for way, (name, sample) in itertools.product(WAYS, SAMPLES.items()):
            with self.subTest(name, way=way):
                path = self.saved(dict.fromkeys(TEXTS, "before"))
                texts = texts_for(sample)
                if way["by"] == "facade":
                    texts = {name: text for name, text in texts.items() if name in FACADE_NAMES}
                    save(path, {FACADE_NAMES[name]: text for name, text in texts.items()}, way)
                else:
                    save(path, texts, way)
                self.assertEqual(len(self.assert_valid(path)), len(TEXTS))
                self.assert_texts(path, texts)

    def test_references_of_a_genre_stand_as_they_are(self):
        for genre in ["(17)", "(17)Rock", "(4)日本"]:
            with self.subTest(genre):
                path = self.saved({"Genre": genre})
                self.assertEqual(ID3(path, translate=False)["TCON"].text, [genre])

    def test_song_is_another_name_of_the_title(self):
        self.assertEqual(str(ID3(self.saved({"Song": "日本語"}))["TIT2"]), "日本語")

    def test_lines_of_a_text_stay_apart(self):
        for lines in ["one\r\ntwo\nthree\tfour", "日本\r\n\n語"]:
            with self.subTest(lines):
                path = self.saved({"Comments": lines, "LyricsUnsynced": lines})
                peer = ID3(path)
                self.assertEqual((str(peer["COMM::eng"]), str(peer["USLT::eng"])), (lines, lines))
                self.assertEqual(taglib_frame(path, "USLT")["text"], lines)

    def test_a_text_as_long_as_a_book(self):
        for text in ["abc and more, " * 20000, "Ω and more, " * 20000]:
            path = self.saved({"Title": text, "LyricsUnsynced": text})
            self.assertEqual((str(ID3(path)["TIT2"]), str(ID3(path)["USLT::eng"])), (text, text))

    def test_double_quotes_are_written_as_apostrophes(self):
        self.assertEqual(str(ID3(self.saved({"Title": "the \"best\" of"}))["TIT2"]), "the 'best' of")

    def test_an_empty_text_takes_the_frame_out(self):
        path = self.saved({"Title": "日本語", "Comments": "c", "Mood": "calm"})
        save(path, {"Title": "", "Mood": ""})
        self.assertEqual(list(ID3(path)), ["COMM::eng"])
        self.assert_valid(path)

    def test_a_tag_without_frames_is_no_tag(self):
        path = self.saved({"Title": "t"})
        save(path, {"Title": ""})
        self.assertEqual(path.read_bytes(), audio.plain())


class Numbers(SavedCase):
    def test_the_year(self):
        for year in [0, 5, 1999, 2026, 9999, 32767]:
            with self.subTest(year):
                path = self.saved({"Year": year})
                self.assertEqual(str(ID3(path, translate=False)["TYER"]), str(year))
                self.assertEqual(taglib_frame(path, "TDRC")["text"], str(year))  # its name for TYER
                if 999 < year < 10000:  # what ffprobe takes for a year
                    self.assertEqual(probed(path)[0]["date"], str(year))

    def test_the_year_of_the_facade(self):
        path = self.saved({"Title": "t"})
        save(path, {"Year": "2001"}, {"by": "facade"})
        self.assertEqual(str(ID3(path, translate=False)["TYER"]), "2001")
        self.assert_valid(path)

    def test_the_total_of_tracks_is_appended(self):
        for track, expected in [("7", "7/15"), ("3/12", "3/12/15"), ("", "/15")]:
            with self.subTest(track):
                path = self.saved({"Track": track, "TotalTracks": 15})
                self.assertEqual(str(ID3(path)["TRCK"]), expected)
                self.assertEqual(probed(path)[0]["track"], expected)


class Addresses(SavedCase):
    def test_addresses_in_latin_1_stand_as_they_are(self):
        for url in ["https://example.org/a?b=c&d=%20", "http://example.org/Größe"]:
            with self.subTest(url):
                path = self.saved(dict.fromkeys(URLS, url))
                self.assertEqual([ID3(path)[key.format(url)].url for key in URLS.values()], [url, url])
                self.assertEqual([taglib_frame(path, name)["url"] for name in ("WOAR", "WXXX")], [url, url])

    def test_other_characters_of_addresses_are_escaped(self):
        path = self.saved(dict.fromkeys(URLS, "http://example.org/日本/€"))
        escaped = "http://example.org/%E6%97%A5%E6%9C%AC/%E2%82%AC"
        self.assertEqual([ID3(path)[key.format(escaped)].url for key in URLS.values()], [escaped, escaped])
        self.assertEqual(taglib_frame(path, "WXXX", "")["url"], escaped)


class Identifiers(SavedCase):
    def test_an_identifier_is_spread_with_blanks(self):
        for key, spread in [("key-7", b"k e y - 7 "), ("ä", b"\xe4 "), ("日本", "日 本 ".encode())]:
            with self.subTest(key):
                path = self.saved({"UniqueKey": key})
                frame = ID3(path)["UFID:"]
                self.assertEqual((frame.owner, frame.data), ("", spread))
                self.assertEqual(taglib_frame(path, "UFID")["data"], spread.hex())


class SyncedLyrics(SavedCase):
    def test_times_and_lines(self):
        for name, sample in SAMPLES.items():
            with self.subTest(name):
                path = self.saved({"LyricsSynced": LYRICS.format(sample)})
                frame = ID3(path)["SYLT::eng"]
                lines = [sample, "second", f"third {sample}"]
                self.assertEqual((frame.format, frame.type, frame.text), (2, 1, list(zip(lines, TIMES))))
                seen = taglib_frame(path, "SYLT", "")
                self.assertEqual((seen["format"], seen["type"], seen["language"]), (2, 1, "eng"))
                self.assertEqual(seen["lines"], [list(pair) for pair in zip(TIMES, lines)])

    def test_a_text_without_times_is_one_entry(self):
        path = self.saved({"LyricsSynced": "日本 without a time"})
        self.assertEqual(ID3(path)["SYLT::eng"].text, [("日本 without a time", 0)])

    def test_lyrics_of_the_facade(self):
        path = self.saved({"Title": "t"})
        save(path, {"LyricsSynced": LYRICS.format("日本語")}, {"by": "facade"})
        self.assertEqual([time for _, time in ID3(path)["SYLT::eng"].text], TIMES)
        self.assert_valid(path)

    def test_lyrics_that_cannot_be_read_back_are_refused(self):
        path = self.saved({"Title": "t"})
        before = path.read_bytes()
        answer = answers([job(path, {"Title": "new", "LyricsSynced": "[soon] line"})])[0]
        self.assertFalse(answer["saved"])
        self.assertIn("time", answer["reason"])
        self.assertEqual(path.read_bytes(), before)


class Pictures(SavedCase):
    def assert_picture(self, path, data, mime):
        frame = ID3(path)["APIC:"]
        self.assertEqual((frame.mime, int(frame.type), frame.desc, frame.data), (mime, 3, "", data))
        seen = taglib_frame(path, "APIC", "")
        self.assertEqual((seen["mimeType"], seen["type"], bytes.fromhex(seen["data"])), (mime, 3, data))
        shown = probed(path)[1]
        self.assertEqual([(each["disposition"]["attached_pic"], each["tags"]["comment"], each["width"])
                          for each in shown], [(1, "Cover (front)", 24)])

    def test_pictures_of_every_way_of_saving(self):
        for mime, data in [("image/png", pictures.png()), ("image/jpeg", pictures.jpeg()),
                           ("image/gif", pictures.made_by_ffmpeg("gif"))]:
            for way in [*WAYS, {"by": "create"}]:
                with self.subTest(mime=mime, way=way):
                    picture = self.picture(data, "cover")
                    if way["by"] == "facade":
                        path = self.saved({"Title": "日本語"})
                        save(path, {}, way, picture=picture)
                    else:
                        path = self.saved({"Title": "日本語"}, way, picture=picture)
                    self.assert_valid(path)
                    self.assert_picture(path, data, mime)

    def test_a_picture_of_a_megabyte_among_texts_in_utf_16(self):
        data = pictures.jpeg() * 1200
        path = self.saved({"Comments": "日本"}, picture=self.picture(data, "large"))
        self.assertEqual(ID3(path)["APIC:"].data, data)

    def test_a_picture_takes_the_place_of_another_and_goes(self):
        path = self.saved({"Title": "t"}, picture=self.picture(pictures.png(), "one"))
        save(path, {}, picture=self.picture(pictures.jpeg(), "two"))
        self.assert_picture(path, pictures.jpeg(), "image/jpeg")
        self.assertEqual([name for name, _, _ in self.assert_valid(path)], ["TIT2", "APIC"])
        save(path, {}, picture=None)
        self.assertEqual([name for name, _, _ in self.assert_valid(path)], ["TIT2"])


class Validity(InteropCase):
    """The check that all the others rely on refuses what is not valid."""

    @staticmethod
    def tag(*frames, padding=b"", size=None):
        body = b"".join(name + len(data).to_bytes(4, "big") + b"\0\0" + data for name, data in frames) + padding
        size = len(body) if size is None else size
        return b"ID3\3\0\0" + bytes([size >> 21, size >> 14 & 127, size >> 7 & 127, size & 127]) + body

    def test_right_tags_are_taken(self):
        frames = [(b"TIT2", b"\0t"), (b"TPE1", b"\1\xff\xfeA\0"), (b"COMM", b"\1eng\xff\xfe\0\0\xff\xfeA\0"),
                  (b"APIC", b"\0image/png\0\3\0x"), (b"UFID", b"\0k "), (b"WOAR", b"http://a"),
                  (b"SYLT", b"\0eng\2\1\0a\0\0\0\0\1")]
        self.assertEqual(len(check_tag(self.tag(*frames, padding=bytes(7)))), len(frames))

    def test_wrong_tags_are_refused(self):
        good = (b"TIT2", b"\0t")
        for why, tag in {
                "empty frame": self.tag((b"TIT2", b"")), "empty text": self.tag((b"TIT2", b"\0")),
                "no mark": self.tag((b"TIT2", b"\1A\0")), "odd": self.tag((b"TIT2", b"\1\xff\xfeA")),
                "encoding": self.tag((b"TIT2", b"\3t")), "C1": self.tag((b"TIT2", b"\0\x80")),
                "padding": self.tag(good, padding=b"\0\0\1"), "size": self.tag(good, size=13),
                "language": self.tag((b"COMM", b"\0\0\0\0\0c")), "ID": self.tag((b"TI 2", b"\0t")),
                "twice": self.tag(good, good), "no frames": self.tag(padding=bytes(20)),
                "description": self.tag((b"COMM", b"\1eng\0\0\xff\xfeA\0")),
                "picture": self.tag((b"APIC", b"\0image/png\0\3\0")), "mime": self.tag((b"APIC", b"\0\0\3\0x")),
                "times": self.tag((b"SYLT", b"\0eng\2\1\0a\0\0\0\0")), "flags": self.tag(good)[:18] + b"\1\0\0t",
                "runs over": self.tag(good, (b"TPE1", b"\0t"))[:-1]}.items():
            with self.subTest(why), self.assertRaises(Exception):
                check_tag(tag)

    def test_frames_are_read_as_they_stand(self):
        self.assertEqual(raw_frames(self.tag((b"XYZW", b"\1\2"))), [("XYZW", b"\0\0", b"\1\2")])


if __name__ == "__main__":
    unittest.main()

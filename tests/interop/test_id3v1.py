#!/usr/bin/python3
"""ID3v1 records of mutagen, TagLib, lame, sox and ffmpeg read right in Corvane, and Corvane's in mutagen and TagLib."""
import unittest

from mutagen.id3 import COMM, ID3, TALB, TCON, TDRC, TIT2, TPE1, TRCK, MakeID3v1, ParseID3v1

import audio
from support import RECORD_SIZE, UNDEFINED_GENRE, Document, InteropCase, corvane, digest_without_record, ffprobe, run, \
    scan, taglib, taglib_writes

# 30, 30, 30, 4 and 28 characters: every byte of every field is used.
FULL = {"Title": "Überlänge für dreißig Zeichen.", "Artist": "Ñandú, Ægir & Þór × ÿ¡¢£¤¥¦§¨©",
        "Album": "123456789 123456789 123456789x", "Year": "1999", "Comment": "äöüÄÖÜß comment to the end.."}
SHORT = {"Title": "Song", "Artist": "Band", "Album": "Disc", "Year": "2004", "Comment": "heard"}

# Names that Corvane spells otherwise than the others do, on purpose: documents and lists of hosts hold them.
OWN_GENRE_NAMES = {
    25: "Euro -Techno", 27: "Trip -Hop", 29: "Jazz Funk", 40: "Alternative Rock", 51: "Techno -Industrial",
    53: "Pop -Folk", 59: "Gangsta", 64: "Native US", 67: "Psychadelic", 71: "Lo -Fi", 81: "Folk -Rock",
    84: "Fast Fusion", 85: "Bebob", 99: "Accoustic", 107: "BootyBass", 118: "Rhytmic Soul", 123: "Acapella",
    133: "Negerpunk", 144: "Trash Metal", 146: "Jpop"}
LAST_OWN_GENRE = 147


def mutagen_record(texts, track=None, genre=None):
    frames = {"TIT2": TIT2(text=texts["Title"]), "TPE1": TPE1(text=texts["Artist"]), "TALB": TALB(text=texts["Album"]),
              "TDRC": TDRC(text=texts["Year"]), "COMM": COMM(text=texts["Comment"])}
    if track is not None:
        frames["TRCK"] = TRCK(text=str(track))
    if genre is not None:
        frames["TCON"] = TCON(text=str(genre))
    return MakeID3v1(frames)


def mutagen_reads(path):
    """{name: text} of a file's record, with "Track" and "Genre" as decimal texts; "" stands for none."""
    record = path.read_bytes()[-RECORD_SIZE:]
    frames = ParseID3v1(record, v2_version=3) or {}
    names = {"Title": "TIT2", "Artist": "TPE1", "Album": "TALB", "Year": "TYER", "Comment": "COMM", "Track": "TRCK"}
    texts = {name: str(frames[frame].text[0]) if frame in frames else "" for name, frame in names.items()}
    return texts | {"Genre": str(record[-1]) if "TCON" in frames else ""}


def taglib_reads(path):
    """As mutagen_reads()."""
    tag = taglib(path)["id3v1"]
    numbers = {name: str(tag[key]) if tag[key] else "" for name, key in [("Year", "year"), ("Track", "track")]}
    genre = "" if tag["genreNumber"] == UNDEFINED_GENRE else str(tag["genreNumber"])
    return {"Title": tag["title"], "Artist": tag["artist"], "Album": tag["album"], "Comment": tag["comment"],
            "Genre": genre} | numbers


def set_record(path, texts, **others):
    options = [word for name, value in (texts | others).items() for word in (f"--{name.lower()}", str(value))]
    corvane("set", path, "--tag", "v1", "--quiet", *options)


class RecordCase(InteropCase):
    def assert_read(self, path, texts, track="", genre="255"):
        """What Corvane reads: in the document, and as values in the list."""
        document = Document(path)
        self.assert_values(document, "ID3V1Tag", texts | {"Track": track})
        self.assertEqual(document.identifiers("ID3V1Tag"), {"Genre": genre})
        listed = scan(path)[0]
        self.assertEqual({name: listed[name.lower()] for name in texts}, texts)
        self.assertEqual(listed["track"], track)

    def assert_kind(self, path, kind):
        self.assertEqual(scan(path)[0]["tags"], [kind])


class RecordsOfPeers(RecordCase):
    def test_full_fields_of_mutagen_are_read_to_the_last_byte(self):
        path = self.file(audio.plain() + mutagen_record(FULL, track=200, genre=17))
        self.assertEqual(mutagen_reads(path), FULL | {"Track": "200", "Genre": "17"})
        self.assert_read(path, FULL, track="200", genre="17")
        self.assert_kind(path, "ID3v1.1")

    def test_full_fields_of_taglib_are_read_to_the_last_byte(self):
        path = self.file(audio.plain())
        taglib_writes(path, FULL, track=200, genre=17)
        self.assertEqual(taglib_reads(path), FULL | {"Track": "200", "Genre": "17"})
        self.assert_read(path, FULL, track="200", genre="17")
        self.assert_kind(path, "ID3v1.1")

    def test_a_record_that_mutagen_saves_into_a_file_is_read(self):
        path = self.file(audio.plain())
        tags = ID3()
        for frame in [TIT2(text="Saved"), TRCK(text="3/12"), TCON(text="Rock")]:
            tags.add(frame)
        tags.save(path, v1=2)
        ID3(path).delete(path, delete_v1=False)
        self.assertEqual(path.read_bytes()[:-RECORD_SIZE], audio.plain())
        self.assert_read(path, dict.fromkeys(SHORT, "") | {"Title": "Saved"}, track="3", genre="17")

    def test_fields_of_lame_are_read_whatever_it_pads_them_with(self):
        for padding in ["--id3v1-only", "--space-id3v1"]:
            with self.subTest(padding=padding):
                path = self.file(audio.lame(
                    "-b", "128", "--id3v1-only", padding, "--tt", SHORT["Title"], "--ta", SHORT["Artist"], "--tl",
                    SHORT["Album"], "--ty", SHORT["Year"], "--tc", SHORT["Comment"], "--tn", "7", "--tg", "17"))
                self.assert_read(path, SHORT, track="7", genre="17")
                self.assert_kind(path, "ID3v1.1")

    def test_fields_of_sox_are_read(self):
        comments = [f"{name}={SHORT[name]}" for name in ["Title", "Artist", "Album", "Year", "Comment"]]
        words = [word for text in comments + ["Tracknumber=7", "Genre=Rock"] for word in ("--add-comment", text)]
        document = Document(self.file(audio.sox(*words)))
        self.assert_values(document, "ID3V1Tag", SHORT | {"Track": "7"})
        self.assertEqual(document.identifiers("ID3V1Tag"), {"Genre": "17"})

    def test_the_utf8_bytes_that_ffmpeg_writes_are_read_in_the_code_page(self):
        path = self.file(audio.ffmpeg("-id3v2_version", "3", "-write_id3v1", "1", "-metadata", "title=Ångström"))
        self.assertIn("Ångström".encode("utf-8"), path.read_bytes()[-RECORD_SIZE:])
        self.assert_values(Document(path), "ID3V1Tag", dict.fromkeys(SHORT, "") | {"Title": "Ã…ngstrÃ¶m"})

    def test_an_empty_record_of_mutagen_is_a_record(self):
        path = self.file(audio.plain() + mutagen_record(dict.fromkeys(SHORT, "")))
        self.assert_read(path, dict.fromkeys(SHORT, ""))
        self.assert_kind(path, "ID3v1")

    def test_a_record_without_track_is_plain_id3v1_on_purpose(self):
        # Peers write byte 125 as 0 and call it ID3v1.1 also without a track; here the track decides.
        path = self.file(audio.plain() + mutagen_record(SHORT, track=0))
        self.assertEqual(path.read_bytes()[-3:-1], b"\0\0")
        self.assert_read(path, SHORT)
        self.assert_kind(path, "ID3v1")

    def test_a_comment_of_30_characters_is_read_whole_as_taglib_reads_it(self):
        comment = "a comment that needs 30 bytes."
        path = self.file(audio.plain() + mutagen_record(SHORT)[:97] + comment.encode("latin-1") + b"\x11")
        self.assertEqual(taglib_reads(path)["Comment"], comment)
        self.assert_read(path, SHORT | {"Comment": comment}, genre="17")

    def test_bytes_from_0x80_to_0x9f_are_read_as_windows_1252_on_purpose(self):
        # mutagen and TagLib see C1 controls there; the record has no encoding of its own.
        record = mutagen_record(SHORT).replace(b"Song", b"\x80\x96\x9f\x81")
        path = self.file(audio.plain() + record)
        self.assertEqual(mutagen_reads(path)["Title"], "\x80\x96\x9f\x81")
        self.assert_read(path, SHORT | {"Title": "€–Ÿ\x81"})

    def test_genre_names_are_those_of_the_peers_but_for_the_ones_spelled_otherwise_on_purpose(self):
        for number in range(256):
            self.file(audio.plain()[:4000] + mutagen_record(SHORT)[:-1] + bytes([number]), f"{number:03}.mp3")
        for number, listed in enumerate(scan(self.folder)):
            known = number <= LAST_OWN_GENRE
            of_peers = TCON.GENRES[number] if known else ""
            with self.subTest(number=number, of_peers=of_peers):
                self.assertEqual(listed["genre"], OWN_GENRE_NAMES.get(number, of_peers))
                self.assertFalse(number in OWN_GENRE_NAMES and listed["genre"] == of_peers)

    def test_a_genre_that_only_the_peers_know_keeps_its_number(self):
        path = self.file(audio.plain())
        taglib_writes(path, SHORT, genre=148)
        self.assertEqual(taglib(path)["id3v1"]["genre"], TCON.GENRES[148])
        self.assert_read(path, SHORT, genre="148")
        self.assertEqual(Document(path).values("ID3V1Tag")["Genre"], "<Undefined (148)>")


class RecordsForPeers(RecordCase):
    def setUp(self):
        super().setUp()
        self.path = self.file(audio.plain())

    def assert_peers_read(self, expected):
        self.assertEqual(mutagen_reads(self.path), expected)
        self.assertEqual(taglib_reads(self.path), expected)

    def test_full_fields_are_read_to_the_last_byte(self):
        set_record(self.path, FULL, track=200, genre=17)
        self.assert_peers_read(FULL | {"Track": "200", "Genre": "17"})

    def test_the_record_is_the_one_that_mutagen_makes_of_the_same_values(self):
        for texts in [FULL, SHORT]:
            with self.subTest(title=texts["Title"]):
                set_record(self.path, texts, track=7, genre=80)
                self.assertEqual(self.path.read_bytes(), audio.plain() + mutagen_record(texts, track=7, genre=80))

    def test_the_record_is_the_one_that_taglib_makes_of_the_same_values(self):
        peers = self.file(audio.plain(), "peers.mp3")
        taglib_writes(peers, FULL, track=7, genre=80)
        set_record(self.path, FULL, track=7, genre=80)
        self.assertEqual(self.path.read_bytes(), peers.read_bytes())

    def test_ffprobe_reads_the_texts(self):
        set_record(self.path, SHORT, track=7, genre=17)
        expected = {"title": "Song", "artist": "Band", "album": "Disc", "date": "2004", "comment": "heard",
                    "track": "7", "genre": "Rock"}
        texts = ffprobe(self.path)["texts"]
        self.assertEqual({name: texts.get(name) for name in expected}, expected)

    def test_every_genre_number_reaches_the_peers(self):
        for number in range(0, 256, 15):
            with self.subTest(number=number):
                set_record(self.path, SHORT, genre=number)
                genre = "" if number == UNDEFINED_GENRE else str(number)
                self.assert_peers_read(SHORT | {"Track": "", "Genre": genre})

    def test_a_record_without_values_is_empty_for_mutagen_and_no_tag_for_taglib(self):
        set_record(self.path, SHORT, track=7, genre=17)
        set_record(self.path, dict.fromkeys(SHORT, ""), track="", genre="")
        empty = dict.fromkeys(SHORT, "")
        self.assertEqual(self.path.read_bytes(), audio.plain() + mutagen_record(empty))
        self.assertEqual(mutagen_reads(self.path), empty | {"Track": "", "Genre": ""})

    def test_one_changed_field_leaves_what_a_peer_wrote_in_the_others(self):
        taglib_writes(self.path, FULL, track=200, genre=17)
        set_record(self.path, {"Album": "Other"})
        self.assert_peers_read(FULL | {"Album": "Other", "Track": "200", "Genre": "17"})

    def test_a_comment_of_30_characters_survives_a_change_of_another_field(self):
        comment = "a comment that needs 30 bytes."
        self.file(audio.plain() + mutagen_record(SHORT)[:97] + comment.encode("latin-1") + b"\x11")
        set_record(self.path, {"Title": "Other"})
        self.assertEqual(taglib_reads(self.path)["Comment"], comment)
        self.assertEqual(taglib_reads(self.path)["Title"], "Other")

    def test_a_character_of_windows_1252_is_written_as_its_byte(self):
        set_record(self.path, SHORT | {"Title": "€–Ÿ"})
        self.assertEqual(self.path.read_bytes()[-RECORD_SIZE:][3:7], b"\x80\x96\x9f\0")


class AudioBesideTheRecord(RecordCase):
    def setUp(self):
        super().setUp()
        self.path = self.file(audio.lame("-V", "2", "--add-id3v2", "--tt", "Title of the ID3v2 tag"))
        self.path.write_bytes(self.path.read_bytes()[:-RECORD_SIZE])
        self.before = self.path.read_bytes()

    def test_a_new_record_is_128_bytes_behind_the_unchanged_rest(self):
        set_record(self.path, SHORT, track=7)
        self.assertEqual(self.path.read_bytes()[:-RECORD_SIZE], self.before)

    def test_a_record_of_a_peer_is_replaced_where_it_stands(self):
        taglib_writes(self.path, FULL)
        expected = digest_without_record(self.path)
        set_record(self.path, SHORT, track=7)
        self.assertEqual(digest_without_record(self.path), expected)
        self.assertEqual(self.path.stat().st_size, len(self.before) + RECORD_SIZE)

    def test_a_peer_replaces_our_record_where_it_stands(self):
        set_record(self.path, FULL, track=7)
        taglib_writes(self.path, SHORT, track=8)
        self.assertEqual(self.path.read_bytes()[:-RECORD_SIZE], self.before)
        self.assert_values(Document(self.path), "ID3V1Tag", SHORT | {"Track": "8"})

    def test_removing_a_peers_record_leaves_exactly_what_was_there_before_it(self):
        taglib_writes(self.path, FULL)
        corvane("remove", self.path, "--tag", "v1", "--quiet")
        self.assertEqual(self.path.read_bytes(), self.before)
        self.assertIsNone(taglib(self.path)["id3v1"])

    def test_a_peer_hears_the_same_audio_with_and_without_our_record(self):
        words = ["ffmpeg", "-v", "error", "-i", self.path, "-map", "0:a", "-c", "copy", "-f", "md5", "-"]
        before = run(*words)
        set_record(self.path, FULL, track=7)
        self.assertEqual(run(*words), before)


if __name__ == "__main__":
    unittest.main()

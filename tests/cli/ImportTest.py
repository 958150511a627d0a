#!/usr/bin/python3
"""corvane import: the ID3v1 tag of a file out of a document."""
import os

import sys
import unittest

import mp3
from harness import CliTest, hash_of

AUDIO = mp3.audio()


def tag_document(track="7", genre="17", title="T", names=("Title", "Artist", "Album", "Year", "Comment")):
    """A document that holds nothing but a tag."""
    properties = "".join(f'<Property Name="{name}" Value="{title if name == "Title" else ""}"/>' for name in names)
    return (f'<ID3V1Tag><Properties>{properties}<Property Name="Genre" ID="{genre}" Value="?"/>'
            f'<Property Name="Track" Value="{track}"/></Properties></ID3V1Tag>').encode()


class Import(CliTest):
    def setUp(self):
        super().setUp()
        self.song = self.write("a.mp3", AUDIO)

    def import_document(self, document, **options):
        return self.run_command("import", self.song, self.write("document.xml", document), **options)

    def refused(self, document, reason, named=None):
        before = hash_of(self.song)
        path = self.write("document.xml", document)
        self.assertEqual(self.error("import", self.song, path), f"corvane: {named or path}: {reason}")
        self.assertEqual(hash_of(self.song), before)

    def check_record(self, record):
        with open(self.song, "rb") as file:
            self.assertEqual(file.read(), AUDIO + record)

    def test_document_of_a_file_is_imported_byte_for_byte(self):
        for record in (mp3.id3v1(b"T", b"A", b"B", b"1999", b"C", 7, 17), mp3.id3v1(b"caf\xe9 \x80\x96", comment=b"c" * 30, genre=200),
                       mp3.id3v1(b"<&\">'", b"a  b", track=255, genre=255)):
            source = self.write("source.mp3", AUDIO + record)
            self.write("a.mp3", AUDIO)
            document = self.run_command("xml", source).stdout
            self.assertEqual(self.import_document(document).stderr, b"")
            self.check_record(record)

    def test_document_of_a_tag_alone_is_imported(self):
        self.import_document(tag_document())
        self.check_record(mp3.id3v1(b"T", track=7, genre=17))

    def test_document_without_a_track_makes_a_plain_record(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"old", track=9))
        self.import_document(tag_document(track=""))
        self.check_record(mp3.id3v1(b"T", genre=17))

    def test_empty_tag_is_written_where_there_is_none(self):
        self.import_document(tag_document(title="", track="", genre="255"))
        self.check_record(mp3.id3v1())

    def test_document_may_come_from_standard_input(self):
        self.run_command("import", self.song, "-", input=tag_document())
        self.check_record(mp3.id3v1(b"T", track=7, genre=17))

    def test_document_may_come_from_a_process(self):
        reader, writer = os.pipe()
        os.write(writer, tag_document())
        os.close(writer)
        self.run_command("import", self.song, f"/dev/fd/{reader}", pass_fds=[reader])
        os.close(reader)
        self.check_record(mp3.id3v1(b"T", track=7, genre=17))

    def test_same_tag_is_no_change(self):
        self.write("a.mp3", AUDIO + mp3.id3v1(b"T", track=7, genre=17))
        os.utime(self.song, ns=(1, 1))
        self.assertEqual(self.import_document(tag_document()).stdout.decode(), f"{self.song}: unchanged\n")
        self.assertEqual(os.stat(self.song).st_mtime_ns, 1)

    def test_dry_run_tells_and_changes_nothing(self):
        done = self.run_command("import", "--dry-run", self.song, self.write("document.xml", tag_document()))
        self.assertIn(b'v1 title "" -> "T"', done.stdout)
        self.check_record(b"")

    def test_encoding_of_the_document_is_that_of_its_declaration(self):
        declaration = "<?xml version='1.0' encoding='{}'?>"
        for encoding, declared in (("latin-1", "iso-8859-1"), ("utf-8", "utf-8"), ("utf-16", "utf-16")):
            self.write("a.mp3", AUDIO)
            self.import_document((declaration.format(declared) + tag_document(title="caf\u00e9").decode()).encode(encoding))
            self.check_record(mp3.id3v1("caf\u00e9".encode("latin-1"), track=7, genre=17))

    def test_encoding_that_only_the_system_knows_is_decoded(self):
        for encoding in ("windows-1252", "ISO-8859-15"):
            self.write("a.mp3", AUDIO)
            document = f"<?xml version='1.0' encoding='{encoding}'?>" + tag_document(title="\u20ac caf\u00e9").decode()
            self.assertEqual(self.import_document(document.encode(encoding)).stderr, b"")
            self.check_record(mp3.id3v1(b"\x80 caf\xe9", track=7, genre=17))

    def test_encoding_that_nobody_knows_is_refused(self):
        self.refused(b"<?xml version='1.0' encoding='x-klingon'?>" + tag_document(),
                     'The document\'s encoding "x-klingon" is not known')
        self.refused(b"<?xml version='1.0' encoding='windows-1252'?>" + tag_document().replace(b'"T"', b'"\x81"'),
                     "The document holds bytes that are no text in its encoding, windows-1252")

    def test_document_that_is_not_well_formed_is_refused(self):
        for document, reason in ((tag_document() + b"<b/>", "junk after document element"),
                                 (b"x" + tag_document(), "invalid token"),
                                 (tag_document(title="R & B"), "invalid token"),
                                 (tag_document(title="a < b"), "invalid token"),
                                 (tag_document(title='T" Value="U'), "duplicate attribute"),
                                 (tag_document(title="caf\u00e9").decode().encode("latin-1"), "invalid token"),
                                 (tag_document(title="&who;"), "undefined entity")):
            self.refused(document, f"The document is not well-formed: line 1: {reason}")

    def test_document_type_entities_comments_and_foreign_elements_are_understood(self):
        document = tag_document(title="&who;").decode().replace("<Properties>", "<!-- c --><other>x</other><Properties>")
        document = document.replace("<Property Name=\"Artist\"", "<?pi?><Note/><Property Name=\"Artist\"")
        self.import_document(f"<!DOCTYPE ID3V1Tag [<!ENTITY who 'Me &#38;amp; you'>]><!-- c -->{document}<!-- c -->".encode())
        self.check_record(mp3.id3v1(b"Me & you", track=7, genre=17))

    def test_entity_of_the_outside_is_refused(self):
        secret = self.write("secret", b"top")
        for doctype in (f"<!DOCTYPE a [<!ENTITY who SYSTEM 'file://{secret}'>]>", f"<!DOCTYPE a SYSTEM '{secret}'>",
                        f"<!DOCTYPE a [<!ENTITY % p SYSTEM '{secret}'>%p;]>"):
            path = self.write("document.xml", doctype.encode() + tag_document(title="&who;"))
            self.assertTrue(self.error("import", self.song, path).startswith(f"corvane: {path}: The document "), doctype)
            self.check_record(b"")

    def test_properties_in_a_namespace_are_not_those_of_the_tag(self):
        document = tag_document().replace(b"<ID3V1Tag>", b"<ID3V1Tag xmlns='urn:x'>")
        self.refused(document, 'The document has no "Value" of the property "Artist".')

    def test_text_that_does_not_fit_is_warned_of(self):
        done = self.import_document(tag_document(title="x" * 31))
        self.assertEqual(done.stderr.decode(), f'corvane: {self.song}: warning: title: cut to "{"x" * 30}"\n')

    def test_track_that_no_record_can_hold_is_refused(self):
        for track in ("-1", "256"):
            self.refused(tag_document(track=track), "The document's track number lies outside 0 to 255")

    def test_number_that_is_none_or_does_not_fit_is_named(self):
        self.refused(tag_document(genre="300"), "The document's genre number lies outside 0 to 255")
        self.refused(tag_document(genre=""), "The document's genre number is no whole number")
        self.refused(tag_document(track="seven"), "The document's track number is no whole number")

    def test_document_without_a_tag_is_refused(self):
        self.refused(b"<ImportData/>", "The document holds no ID3V1Tag element")

    def test_document_that_is_no_xml_is_refused(self):
        path = self.write("document.xml", b"<ID3V1Tag>")
        self.assertTrue(self.error("import", self.song, path).startswith(f"corvane: {path}: "))
        self.write("document.xml", b"")
        self.assertTrue(self.error("import", self.song, path).startswith(f"corvane: {path}: "))
        self.check_record(b"")

    def test_incomplete_or_wrong_values_are_refused_and_change_nothing(self):
        for document in (tag_document(names=("Title",)), tag_document(track="seven"), tag_document(genre="300"),
                         tag_document(genre="")):
            self.write("document.xml", document)
            self.error("import", self.song, str(self.folder / "document.xml"))
            self.check_record(b"")

    def test_documents_that_cannot_be_read_end_at_once(self):
        os.mkfifo(self.folder / "pipe")
        for name in ("missing", "pipe", "."):
            path = str(self.folder / name)
            self.assertTrue(self.error("import", self.song, path, timeout=5).startswith(f"corvane: {path}: "))
        self.check_record(b"")

    def test_file_that_cannot_be_read_is_named(self):
        document = self.write("document.xml", tag_document())
        os.mkfifo(self.folder / "pipe.mp3")
        for name, reason in (("missing.mp3", "No such file or directory"), ("pipe.mp3", "Not a regular file")):
            path = str(self.folder / name)
            self.assertEqual(self.error("import", path, document, timeout=5), f"corvane: {path}: {reason}")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"])

#include "corvane/id3v1/ID3V1Tag.h"

#include "python/Binding.h"
#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

namespace {

void bindTexts(Class<ID3V1Tag>& tag) {
    using Tag = ID3V1Tag;
    text(tag, "Title", &Tag::Title, &Tag::Title, "Title. A record takes 30 characters.");
    text(tag, "Artist", &Tag::Artist, &Tag::Artist, "Artist. A record takes 30 characters.");
    text(tag, "Album", &Tag::Album, &Tag::Album, "Album. A record takes 30 characters.");
    text(tag, "Year", &Tag::Year, &Tag::Year, "Year. A record takes 4 characters.");
    text(tag, "Comment", &Tag::Comment, &Tag::Comment, "Comment. A record takes 30 characters, in ID3v1.1 28.");
    text(tag, "TagIdentifier", &Tag::TagIdentifier, "What the record begins with: \"TAG\".");
    text(tag, "TagTerminator", &Tag::TagTerminator,
         "The decimal text of the byte that ends a text in the record: \"0\".");
}

void bindNumbers(Class<ID3V1Tag>& tag) {
    using Tag = ID3V1Tag;
    number<Tag, std::int16_t>(tag, "Track", &Tag::Track, &Tag::Track,
                              "Track number; only ID3v1.1 stores it. Any of 16 bits can be kept here (else Error 6), "
                              "but a record takes 0 to 255 only.");
    number<Tag, std::uint8_t>(tag, "Genre", &Tag::Genre, &Tag::Genre,
                              "Genre number, see GenreList; 255 means no genre. Raises Error (6) outside 0 to 255.");
    tag.def_property_readonly("TagLength", &Tag::TagLength, "Length of the record in bytes: 128.");
    tag.def_property(
        "TagType", [](const Tag& object) { return object.TagType(); },
        [](Tag& object, EID3TagConstants type) { object.TagType(type); },
        "Which record this is, and which one writing makes (EID3TagConstants); ID3Unknown in a new object.");
}

} // namespace

void bindID3V1Tag(py::module_& corvane) {
    Class<ID3V1Tag> tag(corvane, "ID3V1Tag",
                        "The fields of one ID3v1 or ID3v1.1 record. FileHandler reads and writes it. Texts are kept as "
                        "given; writing the record cuts them and writes a character that Windows-1252 lacks as \"?\".");
    tag.def(py::init<>());
    bindTexts(tag);
    bindNumbers(tag);
    tag.def_property_readonly("GenreList", &ID3V1Tag::GenreList,
                              "The tag's own list of genres (Genres), the same object at every call.");
    tag.def_property("Tag", nullptr, py::cpp_function([](ID3V1Tag& object, const XmlNode& node) { object.Tag(node); }),
                     "Write only. Fills the tag from an xml.etree.ElementTree.Element as xml_element() gives it. "
                     "Raises Error: -2147221504 for an element of another name or with characters that no document can "
                     "hold (nothing is changed), 91 for a missing "
                     "property, 13 for a number that is none, 6 for one that does not fit; what was read before the "
                     "failure (artist, album, comment, title, year, track, genre) stays.");
    xml(tag, "The tag as an XML document.");
}

} // namespace corvane::python

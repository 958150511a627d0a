#include "corvane/lyrics/LyricsTag.h"

#include "python/Binding.h"
#include "python/Bindings.h"
#include "python/Enumeration.h"

namespace corvane::python {

namespace {

void bindTexts(Class<LyricsTag>& tag) {
    text(tag, "Lyrics", &LyricsTag::Lyrics, "The lyrics: the text of the field \"LYR\", in v1.00 the whole body.");
    text(tag, "Author", &LyricsTag::Author, "Text of the field \"AUT\", or \"\".");
    text(tag, "Album", &LyricsTag::Album, "Text of the field \"EAL\", or \"\".");
    text(tag, "Artist", &LyricsTag::Artist, "Text of the field \"EAR\", or \"\".");
    text(tag, "Title", &LyricsTag::Title, "Text of the field \"ETT\", or \"\".");
}

void bindFields(Class<LyricsTag>& tag) {
    tag.def_property_readonly("FieldCount", &LyricsTag::FieldCount, "Number of fields; v1.00 has none.")
        .def(
            "getFieldByID", [](const LyricsTag& object, const Key& id) { return object.getFieldByID(id.bytes); },
            "FieldID"_a, "The field of an ID (upper and lower case differ), or None.")
        .def(
            "getFieldByIndex",
            [](const LyricsTag& object, Position index) { return object.getFieldByIndex(index.value); }, "Index"_a,
            "The field at a position from 1 to FieldCount, or None.");
}

} // namespace

void bindLyricsTag(py::module_& corvane) {
    Class<LyricsTag> tag(corvane, "LyricsTag",
                         "The Lyrics3 tag of a file, version 1.00 or 2.00. FileHandler loads it; it can also be filled "
                         "from XML. It is not written.");
    tag.def(py::init<>());
    tag.def_property_readonly("Version", &LyricsTag::Version,
                              "The version found (ELyricsVersionConstants); lvcUnknown without a tag. An imported tag "
                              "has the number that its document tells.");
    tag.def_property_readonly("Size", &LyricsTag::Size,
                              "Bytes of the tag's body: what a v2.00 tag tells, always 5100 in v1.00; 0 without a tag "
                              "and after an import.");
    bindTexts(tag);
    bindFields(tag);
    lastError(tag);
    tag.def(
        "CreateFromTag", &LyricsTag::CreateFromTag, "theLyricsTag"_a,
        "Fills the tag from an xml.etree.ElementTree.Element as xml_element() gives it. False, with LastError, for "
        "an element of another name: the version is unknown then and the fields stay. Raises Error (-2147221504) for "
        "characters that no document can hold.");
    xml(tag, "The version and the fields as an XML document.");
}

} // namespace corvane::python

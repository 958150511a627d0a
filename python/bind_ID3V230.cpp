#include "corvane/id3v230/ID3V230.h"

#include "python/Binding.h"
#include "python/Bindings.h"
#include "python/Enumeration.h"
#include "python/FrameValue.h"

namespace corvane::python {

namespace {

using Tag = ID3V230;

// What the properties of texts are about.
struct TextProperty {
    const char* name;
    ReadText<Tag> read;
    WriteTextView<Tag> write;
    const char* doc;
};

constexpr TextProperty kTexts[] = {
    {"Title", &Tag::Title, &Tag::Title, "TIT2."},
    {"Song", &Tag::Song, &Tag::Song, "Another name of Title."},
    {"Artist", &Tag::Artist, &Tag::Artist, "TPE1."},
    {"ArtistURL", &Tag::ArtistURL, &Tag::ArtistURL, "WOAR."},
    {"UserURL", &Tag::UserURL, &Tag::UserURL, "WXXX without a description."},
    {"Album", &Tag::Album, &Tag::Album, "TALB."},
    {"Track", &Tag::Track, &Tag::Track, "TRCK, such as \"3/12\"."},
    {"Composer", &Tag::Composer, &Tag::Composer, "TCOM."},
    {"OriginalArtist", &Tag::OriginalArtist, &Tag::OriginalArtist, "TOPE."},
    {"Copyright", &Tag::Copyright, &Tag::Copyright, "TCOP."},
    {"EncodedBy", &Tag::EncodedBy, &Tag::EncodedBy, "TENC."},
    {"Comments", &Tag::Comments, &Tag::Comments, "COMM without a description."},
    {"UniqueKey", &Tag::UniqueKey, &Tag::UniqueKey, "UFID."},
    {"Genre", &Tag::Genre, &Tag::Genre, "TCON without blanks at both ends, such as \"(17)Rock\"."},
    {"UserText", &Tag::UserText, &Tag::UserText, "TXXX without a description."},
    {"LyricsUnsynced", &Tag::LyricsUnsynced, &Tag::LyricsUnsynced, "USLT without a description."},
    {"LyricsSynced", &Tag::LyricsSynced, &Tag::LyricsSynced,
     "SYLT without a description: lines \"[mm:ss.f] text\" with the time at which each begins."},
    {"Tempo", &Tag::Tempo, &Tag::Tempo, "COMM \"MusicMatch_Tempo\"."},
    {"Mood", &Tag::Mood, &Tag::Mood, "COMM \"MusicMatch_Mood\"."},
    {"Situation", &Tag::Situation, &Tag::Situation, "COMM \"MusicMatch_Situation\"."},
    {"Preference", &Tag::Preference, &Tag::Preference, "COMM \"MusicMatch_Preference\"."},
};

void bindState(Class<Tag>& tag) {
    tag.def_property(
        "HadError", [](const Tag& object) { return object.HadError(); },
        [](Tag& object, bool value) { object.HadError(value); }, "For hosts; the library never sets it.");
    text(tag, "ErrorDescription", &Tag::ErrorDescription, &Tag::ErrorDescription,
         "For hosts; the library never sets it.");
    tag.def_property(
        "UseTempCopy", [](const Tag& object) { return object.UseTempCopy(); },
        [](Tag& object, bool value) { object.UseTempCopy(value); },
        "Whether a save by this object gives the file its new content in one step (True, as it is from the start), or "
        "may write a tag that fits in place. What a host sets has no effect on files: ID3V23Tag and createID3V2Tag "
        "save through objects of their own, which keep True.");
    tag.def_property_readonly("FramesSize", &Tag::FramesSize,
                              "Bytes of the tag that was read, with its header and padding; 0 without one.");
    tag.def_property_readonly("FrameCount", &Tag::FrameCount,
                              "Number of frames of the tag when it was read. Raises Error (6) above 32,767.");
    tag.def_property_readonly("Frames", &Tag::Frames, "The live collection of records (ID3V230Frames), not a copy.");
}

void bindNumbers(Class<Tag>& tag) {
    number<Tag, std::int16_t>(tag, "TotalTracks", &Tag::TotalTracks, &Tag::TotalTracks,
                              "The number behind the first \"/\" of TRCK, 0 without one; raises Error (6) when it does "
                              "not fit 16 bits. Writing appends \"/\" and the number to the text of TRCK, whatever "
                              "stands there: set Track first for a clean text.");
    number<Tag, std::int16_t>(tag, "Year", &Tag::Year, &Tag::Year,
                              "The number that TYER begins with, 0 without one. 0 is a year too and deletes nothing. "
                              "Raises Error (6) when it does not fit 16 bits.");
}

} // namespace

void bindID3V230(py::module_& corvane) {
    Class<Tag> tag(corvane, "ID3V230",
                   "An ID3v2.3 tag that can be changed: frame records in memory. One that a host makes holds values "
                   "for FileHandler.createID3V2Tag. A text that is set to \"\" deletes its frame at the next save.");
    tag.def(py::init<>());
    bindState(tag);
    for (const TextProperty& property : kTexts) {
        fileText(tag, property.name, property.read, property.write, property.doc);
    }
    bindNumbers(tag);
    tag.def_property(
        "Picture", py::cpp_function([](const Tag& object) { return object.Picture(); }, FileWork()),
        [](Tag& object, std::shared_ptr<Picture> value) { object.Picture(std::move(value)); },
        "APIC without a description (Picture). None takes it out of the file at the next save, but not an image that "
        "is no "
        "JPEG, PNG, GIF or BMP.");
    tag.def(
        "FrameValue",
        [](const Tag& object, ID3_FrameID frame, const Key& descriptor) {
            return objectOf(object.FrameValue(frame, descriptor.bytes));
        },
        "eFrameID"_a, "Descriptor"_a = Text{},
        "The value of the first record with this frame number and exactly this description: None, int, str or "
        "Picture; None without one.");
}

} // namespace corvane::python

#include "corvane/id3v1/ID3V1Tag.h"

#include "corvane/id3v1/ID3V1TagInternals.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <optional>
#include <string>

namespace corvane::id3v1tag_test {
namespace {

using enum EID3TagConstants;

constexpr auto kTypeMismatch = static_cast<std::int32_t>(FailureNumber::TypeMismatch);
constexpr auto kOverflow = static_cast<std::int32_t>(FailureNumber::Overflow);
constexpr auto kObjectNotSet = static_cast<std::int32_t>(FailureNumber::ObjectNotSet);

// A new tag

TEST(ID3V1Tag, ANewOneIsEmptyAndOfUnknownType) {
    const ID3V1Tag tag;
    EXPECT_EQ(tag.Title(), "");
    EXPECT_EQ(tag.Artist(), "");
    EXPECT_EQ(tag.Album(), "");
    EXPECT_EQ(tag.Year(), "");
    EXPECT_EQ(tag.Comment(), "");
    EXPECT_EQ(tag.Track(), 0);
    EXPECT_EQ(tag.Genre(), 255);
    EXPECT_EQ(tag.TagType(), ID3Unknown);
}

TEST(ID3V1Tag, TextsOfAnyLengthAreKeptAsGiven) {
    const std::string text = " " + std::string(1000, 'x') + "ß ";
    ID3V1Tag tag;
    tag.Title(text + "t");
    tag.Artist(text + "a");
    tag.Album(text + "l");
    tag.Year(text + "y");
    tag.Comment(text + "c");
    EXPECT_EQ(tag.Title(), text + "t");
    EXPECT_EQ(tag.Artist(), text + "a");
    EXPECT_EQ(tag.Album(), text + "l");
    EXPECT_EQ(tag.Year(), text + "y");
    EXPECT_EQ(tag.Comment(), text + "c");
}

TEST(ID3V1Tag, NumbersOfTheWholeWidthAreKept) {
    ID3V1Tag tag;
    tag.Track(std::numeric_limits<std::int16_t>::min());
    tag.Genre(0);
    EXPECT_EQ(tag.Track(), -32768);
    EXPECT_EQ(tag.Genre(), 0);
    tag.Track(std::numeric_limits<std::int16_t>::max());
    EXPECT_EQ(tag.Track(), 32767);
}

TEST(ID3V1Tag, TagTypeIsIndependentOfTheTrack) {
    ID3V1Tag tag;
    tag.TagType(ID3v1);
    tag.Track(5);
    EXPECT_EQ(tag.TagType(), ID3v1);
}

TEST(ID3V1Tag, ConstantsDescribeTheRecord) {
    EXPECT_EQ(ID3V1Tag().TagLength(), 128);
    EXPECT_EQ(ID3V1Tag().TagIdentifier(), "TAG");
}

// Differs from the byte in the record on purpose: hosts take the numeric value of this text.
TEST(ID3V1Tag, TheTerminatorIsTheOneCharacterTextZero) { EXPECT_EQ(ID3V1Tag().TagTerminator(), std::string("0")); }

TEST(ID3V1Tag, TheGenreListIsTheTagsOwn) {
    const ID3V1Tag tag, other;
    EXPECT_EQ(tag.GenreList()->Count(), 149);
    EXPECT_EQ(tag.GenreList(), tag.GenreList());
    EXPECT_NE(tag.GenreList(), other.GenreList());
}

// The document

TEST(ID3V1TagXml, HoldsTheFieldsInTheirOrder) {
    ID3V1Tag tag;
    tag.Title("T");
    tag.Artist("A & B");
    tag.Album("L");
    tag.Year("1999");
    tag.Genre(8);
    tag.Track(5);
    tag.Comment("C");
    EXPECT_EQ(tag.xml(), "<?xml version = '1.0' encoding = 'iso-8859-1'?><!--ID3V1Tag--><ID3V1Tag><Properties>"
                         "<Property Name=\"Title\" Value=\"T\"/>"
                         "<Property Name=\"Artist\" Value=\"A &amp; B\"/>"
                         "<Property Name=\"Album\" Value=\"L\"/>"
                         "<Property Name=\"Year\" Value=\"1999\"/>"
                         "<Property Name=\"Genre\" ID=\"8\" Value=\"Jazz\"/>"
                         "<Property Name=\"Track\" Value=\"5\"/>"
                         "<Property Name=\"Comment\" Value=\"C\"/>"
                         "</Properties></ID3V1Tag>");
}

std::string propertyOf(const ID3V1Tag& tag, const std::string& name, const std::string& attribute = "Value") {
    XmlNode root;
    tag.xml(&root);
    return root.selectSingleNode("./Properties/Property[@Name = '" + name + "']").attribute(attribute).value();
}

TEST(ID3V1TagXml, ANewTagHasTheUndefinedGenreAndAnEmptyTrack) {
    const ID3V1Tag tag;
    EXPECT_EQ(propertyOf(tag, "Genre"), "<Undefined>");
    EXPECT_EQ(propertyOf(tag, "Genre", "ID"), "255");
    EXPECT_EQ(propertyOf(tag, "Track"), "");
}

TEST(ID3V1TagXml, AGenreWithoutANameIsToldByItsNumber) {
    ID3V1Tag tag;
    tag.Genre(200);
    EXPECT_EQ(propertyOf(tag, "Genre"), "<Undefined (200)>");
    EXPECT_EQ(propertyOf(tag, "Genre", "ID"), "200");
}

TEST(ID3V1TagXml, EveryGenreIsTheDescriptionThatTheGenreListHas) {
    ID3V1Tag tag;
    for (unsigned number = 0; number <= 255; ++number) {
        tag.Genre(static_cast<std::uint8_t>(number));
        const auto entry = tag.GenreList()->getGenreByID(std::to_string(number));
        EXPECT_EQ(propertyOf(tag, "Genre"),
                  entry ? entry->Description() : "<Undefined (" + std::to_string(number) + ")>");
    }
}

TEST(ID3V1TagXml, ANegativeTrackIsWrittenAsItIs) {
    ID3V1Tag tag;
    tag.Track(-3);
    EXPECT_EQ(propertyOf(tag, "Track"), "-3");
}

TEST(ID3V1TagXml, TheBaseNodeBecomesTheElementOfTheNewDocument) {
    XmlNode node = XmlNode::fromText("<Other/>");
    const std::string text = ID3V1Tag().xml(&node);
    EXPECT_EQ(node.baseName(), "ID3V1Tag");
    EXPECT_TRUE(text.ends_with(node.xml()));
}

TEST(ID3V1TagXml, TheElementCanBeAppendedToABiggerDocument) {
    pugi::xml_document document;
    Internals<ID3V1Tag>::appendXml(ID3V1Tag(), document.append_child("Outer"));
    EXPECT_TRUE(document.child("Outer").child("ID3V1Tag").child("Properties").child("Property"));
}

// Import

using Attributes = std::map<std::string, std::string>; // property name -> its attributes as XML text

Attributes wholeDocument() {
    return {{"Artist", "Value='a'"}, {"Album", "Value='l'"}, {"Comment", "Value='c'"},         {"Title", "Value='t'"},
            {"Year", "Value='y'"},   {"Track", "Value='5'"}, {"Genre", "ID='17' Value='Jazz'"}};
}

XmlNode documentOf(const Attributes& properties) {
    std::string text = "<ID3V1Tag><Properties>";
    for (const auto& [name, attributes] : properties) text += "<Property Name='" + name + "' " + attributes + "/>";
    return XmlNode::fromText(text + "</Properties></ID3V1Tag>");
}

XmlNode documentWith(const std::string& name, const std::string& attributes) {
    Attributes properties = wholeDocument();
    properties[name] = attributes;
    return documentOf(properties);
}

// The failure that an import ends with.
std::optional<RuntimeFailure> failureOf(ID3V1Tag& tag, const XmlNode& node) {
    try {
        tag.Tag(node);
    } catch (const RuntimeFailure& failure) {
        return failure;
    }
    return std::nullopt;
}

TEST(ID3V1TagImport, ReadsEveryField) {
    ID3V1Tag tag;
    tag.Tag(documentOf(wholeDocument()));
    EXPECT_EQ(tag.Artist(), "a");
    EXPECT_EQ(tag.Album(), "l");
    EXPECT_EQ(tag.Comment(), "c");
    EXPECT_EQ(tag.Title(), "t");
    EXPECT_EQ(tag.Year(), "y");
    EXPECT_EQ(tag.Track(), 5);
    EXPECT_EQ(tag.TagType(), ID3V11);
}

TEST(ID3V1TagImport, TheGenreIsItsNumberAndNotItsName) {
    ID3V1Tag tag;
    tag.Tag(documentWith("Genre", "ID='17' Value='Jazz'"));
    EXPECT_EQ(tag.Genre(), 17);
}

TEST(ID3V1TagImport, AnEmptyTrackIsNoTrackAndGivesPlainId3v1) {
    ID3V1Tag tag;
    tag.Track(9);
    tag.Tag(documentWith("Track", "Value=''"));
    EXPECT_EQ(tag.Track(), 0);
    EXPECT_EQ(tag.TagType(), ID3v1);
}

struct TrackCase {
    const char* name;
    const char* text;
    std::int16_t track;
    EID3TagConstants tagType;
};
class ID3V1TagImportTrack : public testing::TestWithParam<TrackCase> {};
TEST_P(ID3V1TagImportTrack, GivesTheTagType) {
    ID3V1Tag tag;
    tag.Tag(documentWith("Track", "Value='" + std::string(GetParam().text) + "'"));
    EXPECT_EQ(tag.Track(), GetParam().track);
    EXPECT_EQ(tag.TagType(), GetParam().tagType);
}
INSTANTIATE_TEST_SUITE_P(Texts, ID3V1TagImportTrack,
                         testing::Values(TrackCase{"Zero", "0", 0, ID3v1}, TrackCase{"Five", "5", 5, ID3V11},
                                         TrackCase{"Largest", "32767", 32767, ID3V11},
                                         TrackCase{"Negative", "-1", -1, ID3Unknown},
                                         TrackCase{"Smallest", "-32768", -32768, ID3Unknown},
                                         TrackCase{"SignAndBlanks", " +05 ", 5, ID3V11}),
                         [](const auto& tested) { return tested.param.name; });

TEST(ID3V1TagImport, AnElementOfAnotherNameFailsAndChangesNothing) {
    ID3V1Tag tag;
    tag.Title("kept");
    for (const XmlNode& node : {XmlNode::fromText("<LyricsTag/>"), XmlNode::fromText("<id3v1tag/>"), XmlNode()}) {
        const auto failure = failureOf(tag, node);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->number(), static_cast<std::int32_t>(0x80040000));
        EXPECT_EQ(failure->source(), "ID3V1Tag::Tag");
        EXPECT_EQ(failure->description(), "No valid ID3V1Tag-Node passed.");
    }
    EXPECT_EQ(tag.Title(), "kept");
    EXPECT_EQ(tag.TagType(), ID3Unknown);
}

TEST(ID3V1TagImport, APrefixedElementIsToldByItsBaseName) {
    ID3V1Tag tag;
    const auto failure = failureOf(tag, XmlNode::fromText("<t:ID3V1Tag xmlns:t='urn:t'/>"));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), kObjectNotSet); // it got as far as the first missing property
}

struct FailureCase {
    const char* name;
    const char* property;
    const char* attributes;
    std::int32_t number;
};
class ID3V1TagImportFailure : public testing::TestWithParam<FailureCase> {};
TEST_P(ID3V1TagImportFailure, EndsTheImportAndReachesTheCaller) {
    ID3V1Tag tag;
    const auto failure = failureOf(tag, documentWith(GetParam().property, GetParam().attributes));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), GetParam().number);
    EXPECT_EQ(failure->source(), "ID3V1Tag::Tag");
    EXPECT_EQ(tag.TagType(), ID3Unknown);
}
INSTANTIATE_TEST_SUITE_P(
    Properties, ID3V1TagImportFailure,
    testing::Values(FailureCase{"TrackIsNoNumber", "Track", "Value='five'", kTypeMismatch},
                    FailureCase{"TrackIsBlank", "Track", "Value=' '", kTypeMismatch},
                    FailureCase{"TrackIsFractional", "Track", "Value='5.5'", kTypeMismatch},
                    FailureCase{"TrackIsTooLarge", "Track", "Value='32768'", kOverflow},
                    FailureCase{"TrackIsTooSmall", "Track", "Value='-32769'", kOverflow},
                    FailureCase{"TrackIsHuge", "Track", "Value='99999999999999999999999'", kOverflow},
                    FailureCase{"GenreIdIsNoNumber", "Genre", "ID='Jazz' Value='8'", kTypeMismatch},
                    FailureCase{"GenreIdIsEmpty", "Genre", "ID=''", kTypeMismatch},
                    FailureCase{"GenreIdIsNegative", "Genre", "ID='-1'", kOverflow},
                    FailureCase{"GenreIdIsTooLarge", "Genre", "ID='256'", kOverflow},
                    FailureCase{"GenreIdIsMissing", "Genre", "Value='8'", kObjectNotSet},
                    FailureCase{"TitleHasNoValue", "Title", "", kObjectNotSet}),
    [](const auto& tested) { return tested.param.name; });

struct DescriptionCase {
    const char* name;
    const char* property;
    const char* attributes;
    const char* description;
};
class ID3V1TagImportDescription : public testing::TestWithParam<DescriptionCase> {};
TEST_P(ID3V1TagImportDescription, SaysWhatIsWrongWithWhichNumber) {
    ID3V1Tag tag;
    const auto failure = failureOf(tag, documentWith(GetParam().property, GetParam().attributes));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->description(), GetParam().description);
}
INSTANTIATE_TEST_SUITE_P(Numbers, ID3V1TagImportDescription,
                         testing::Values(DescriptionCase{"NoTrack", "Track", "Value='five'",
                                                         "The document's track number is no whole number"},
                                         DescriptionCase{"TrackTooLarge", "Track", "Value='32768'",
                                                         "The document's track number lies outside -32768 to 32767"},
                                         DescriptionCase{"TrackHuge", "Track", "Value='99999999999999999999999'",
                                                         "The document's track number lies outside -32768 to 32767"},
                                         DescriptionCase{"NoGenre", "Genre", "ID=''",
                                                         "The document's genre number is no whole number"},
                                         DescriptionCase{"GenreTooLarge", "Genre", "ID='300'",
                                                         "The document's genre number lies outside 0 to 255"}),
                         [](const auto& tested) { return tested.param.name; });

class ID3V1TagImportMissing : public testing::TestWithParam<const char*> {};
TEST_P(ID3V1TagImportMissing, PropertyIsAnObjectThatIsNotSet) {
    Attributes properties = wholeDocument();
    properties.erase(GetParam());
    ID3V1Tag tag;
    const auto failure = failureOf(tag, documentOf(properties));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), kObjectNotSet);
    EXPECT_EQ(failure->source(), "ID3V1Tag::Tag");
}
INSTANTIATE_TEST_SUITE_P(Properties, ID3V1TagImportMissing,
                         testing::Values("Artist", "Album", "Comment", "Title", "Year", "Track", "Genre"),
                         [](const auto& tested) { return tested.param; });

TEST(ID3V1TagImport, WhatWasReadBeforeAFailureStays) {
    Attributes properties = wholeDocument();
    properties.erase("Title");
    ID3V1Tag tag;
    tag.Title("old");
    tag.Year("old");
    tag.Genre(1);
    ASSERT_TRUE(failureOf(tag, documentOf(properties)));
    EXPECT_EQ(tag.Artist(), "a");
    EXPECT_EQ(tag.Album(), "l");
    EXPECT_EQ(tag.Comment(), "c");
    EXPECT_EQ(tag.Title(), "old");
    EXPECT_EQ(tag.Year(), "old");
    EXPECT_EQ(tag.Genre(), 1);
}

TEST(ID3V1TagImport, AGenreThatFailsLeavesTheTrackReadAndTheTypeAsItWas) {
    ID3V1Tag tag;
    tag.TagType(ID3v1);
    ASSERT_TRUE(failureOf(tag, documentWith("Genre", "ID='256'")));
    EXPECT_EQ(tag.Track(), 5);
    EXPECT_EQ(tag.Genre(), 255);
    EXPECT_EQ(tag.TagType(), ID3v1);
}

TEST(ID3V1TagImport, WhatXmlWritesReadsBack) {
    ID3V1Tag written;
    written.Title("  \"Ä\" <&> 'ж'\t\r\n ");
    written.Artist("\n");
    written.Album(std::string(100, ' '));
    written.Year("1999");
    written.Comment("€");
    written.Track(300);
    written.Genre(200);
    XmlNode node;
    written.xml(&node);
    for (const XmlNode& source : {node, XmlNode::fromText(written.xml())}) {
        ID3V1Tag read;
        read.Tag(source);
        EXPECT_EQ(read.Title(), written.Title());
        EXPECT_EQ(read.Artist(), written.Artist());
        EXPECT_EQ(read.Album(), written.Album());
        EXPECT_EQ(read.Year(), written.Year());
        EXPECT_EQ(read.Comment(), written.Comment());
        EXPECT_EQ(read.Track(), 300);
        EXPECT_EQ(read.Genre(), 200);
        EXPECT_EQ(read.TagType(), ID3V11);
    }
}

} // namespace
} // namespace corvane::id3v1tag_test

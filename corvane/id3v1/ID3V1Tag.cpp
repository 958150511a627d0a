#include "corvane/id3v1/ID3V1Tag.h"

#include "corvane/id3v1/GenreTable.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/platform/Numbers.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlImport.h"
#include "corvane/xml/XmlLayout.h"

#include <concepts>
#include <limits>

namespace corvane {

namespace {

constexpr const char* kRoot = "ID3V1Tag";
constexpr const char* kImport = "ID3V1Tag::Tag"; // the source of import failures

// Hosts cannot change names or keys of the tag's own list, so the table answers for it.
std::string genreText(std::uint8_t genre) {
    const std::string_view name = genreName(genre);
    return name.empty() ? "<Undefined (" + std::to_string(genre) + ")>" : std::string(name);
}

EID3TagConstants tagTypeOf(std::int16_t track) {
    if (track == 0) return EID3TagConstants::ID3v1;
    return track < 0 ? EID3TagConstants::ID3Unknown : EID3TagConstants::ID3V11;
}

// A failure names the number, for the people who have to correct the document.
template <std::integral Number>
Number importedNumber(const char* name, const std::string& text) {
    const auto failure = [name](FailureNumber number, const std::string& problem) {
        return RuntimeFailure(number, kImport, std::string("The document's ") + name + " number " + problem);
    };
    try {
        return narrowed<Number>(wholeNumber(text, kImport), kImport);
    } catch (const RuntimeFailure& caught) {
        if (caught.number() != static_cast<std::int32_t>(FailureNumber::Overflow))
            throw failure(FailureNumber::TypeMismatch, "is no whole number");
        using Limits = std::numeric_limits<Number>;
        throw failure(FailureNumber::Overflow,
                      "lies outside " + std::to_string(Limits::min()) + " to " + std::to_string(Limits::max()));
    }
}

std::int16_t importedTrack(const std::string& text) {
    return text.empty() ? std::int16_t{0} : importedNumber<std::int16_t>("track", text);
}

} // namespace

ID3V1Tag::ID3V1Tag() = default;

ID3V1Tag::~ID3V1Tag() = default;

std::int16_t ID3V1Tag::TagLength() const { return kId3v1RecordSize; }

std::string ID3V1Tag::TagIdentifier() const { return std::string(kId3v1Marker); }

std::string ID3V1Tag::TagTerminator() const { return "0"; }

std::shared_ptr<Genres> ID3V1Tag::GenreList() const {
    if (!genreList_) genreList_ = std::make_shared<Genres>();
    return genreList_;
}

std::string ID3V1Tag::xml(XmlNode* BaseNode) const {
    return renderDocument(kRoot, BaseNode, [this](pugi::xml_node parent) { appendXml(parent); });
}

void ID3V1Tag::appendXml(pugi::xml_node parent) const {
    const pugi::xml_node properties = appendElementWithProperties(parent, kRoot);
    appendProperty(properties, "Title", title_);
    appendProperty(properties, "Artist", artist_);
    appendProperty(properties, "Album", album_);
    appendProperty(properties, "Year", year_);
    appendProperty(properties, "Genre", genreText(genre_), std::to_string(genre_));
    appendProperty(properties, "Track", track_ == 0 ? std::string() : std::to_string(track_));
    appendProperty(properties, "Comment", comment_);
}

void ID3V1Tag::Tag(const XmlNode& node) {
    if (node.baseName() != kRoot) {
        throw RuntimeFailure(FailureNumber::ObjectDefined, kImport, "No valid ID3V1Tag-Node passed.");
    }
    artist_ = propertyAttribute(node, "Artist", "Value", kImport);
    album_ = propertyAttribute(node, "Album", "Value", kImport);
    comment_ = propertyAttribute(node, "Comment", "Value", kImport);
    title_ = propertyAttribute(node, "Title", "Value", kImport);
    year_ = propertyAttribute(node, "Year", "Value", kImport);
    track_ = importedTrack(propertyAttribute(node, "Track", "Value", kImport));
    genre_ = importedNumber<std::uint8_t>("genre", propertyAttribute(node, "Genre", "ID", kImport));
    tagType_ = tagTypeOf(track_);
}

} // namespace corvane

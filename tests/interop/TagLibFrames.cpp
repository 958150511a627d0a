#include "tests/interop/TagLibFrames.h"

#include <taglib/attachedpictureframe.h>
#include <taglib/commentsframe.h>
#include <taglib/popularimeterframe.h>
#include <taglib/privateframe.h>
#include <taglib/synchronizedlyricsframe.h>
#include <taglib/textidentificationframe.h>
#include <taglib/uniquefileidentifierframe.h>
#include <taglib/unsynchronizedlyricsframe.h>
#include <taglib/urllinkframe.h>

namespace {

using namespace TagLib::ID3v2;
using Json = nlohmann::ordered_json;

std::string utf8(const TagLib::String& text) { return text.to8Bit(true); }

std::string hexadecimal(const TagLib::ByteVector& bytes) {
    const TagLib::ByteVector digits = bytes.toHex();
    return {digits.data(), digits.size()};
}

std::string letters(const TagLib::ByteVector& bytes) { return {bytes.data(), bytes.size()}; }

Json linesOf(const SynchronizedLyricsFrame& frame) {
    Json lines = Json::array();
    for (const auto& line : frame.synchedText()) lines.push_back({line.time, utf8(line.text)});
    return lines;
}

template <class Kind>
bool add(Json& json, const Frame& frame, void (*fill)(Json&, const Kind&)) {
    const auto* kind = dynamic_cast<const Kind*>(&frame);
    if (kind != nullptr) fill(json, *kind);
    return kind != nullptr;
}

void fillPicture(Json& json, const AttachedPictureFrame& frame) {
    json["mimeType"] = utf8(frame.mimeType());
    json["type"] = static_cast<int>(frame.type());
    json["description"] = utf8(frame.description());
    json["data"] = hexadecimal(frame.picture());
}

void fillIdentifier(Json& json, const UniqueFileIdentifierFrame& frame) {
    json["owner"] = utf8(frame.owner());
    json["data"] = hexadecimal(frame.identifier());
}

void fillLyrics(Json& json, const SynchronizedLyricsFrame& frame) {
    json["language"] = letters(frame.language());
    json["description"] = utf8(frame.description());
    json["format"] = static_cast<int>(frame.timestampFormat());
    json["type"] = static_cast<int>(frame.type());
    json["lines"] = linesOf(frame);
}

template <class Kind>
void fillComment(Json& json, const Kind& frame) {
    json["language"] = letters(frame.language());
    json["description"] = utf8(frame.description());
    json["text"] = utf8(frame.text());
}

void fillUserUrl(Json& json, const UserUrlLinkFrame& frame) {
    json["description"] = utf8(frame.description());
    json["url"] = utf8(frame.url());
}

void fillUrl(Json& json, const UrlLinkFrame& frame) { json["url"] = utf8(frame.url()); }

void fillUserText(Json& json, const UserTextIdentificationFrame& frame) {
    json["description"] = utf8(frame.description());
    json["text"] = utf8(frame.fieldList().back());
}

void fillText(Json& json, const TextIdentificationFrame& frame) { json["text"] = utf8(frame.toString()); }

Json jsonOf(const Frame& frame) {
    Json json{{"id", letters(frame.frameID())}};
    static_cast<void>(add(json, frame, fillPicture) || add(json, frame, fillIdentifier) ||
                      add(json, frame, fillLyrics) || add<CommentsFrame>(json, frame, fillComment) ||
                      add<UnsynchronizedLyricsFrame>(json, frame, fillComment) || add(json, frame, fillUserUrl) ||
                      add(json, frame, fillUrl) || add(json, frame, fillUserText) || add(json, frame, fillText));
    return json;
}

template <class Kind>
void addComment(Tag& tag, const TagLib::String& description, const TagLib::String& text) {
    auto* frame = new Kind(TagLib::String::UTF16);
    frame->setLanguage("deu");
    frame->setDescription(description);
    frame->setText(text);
    tag.addFrame(frame);
}

} // namespace

Json framesOf(const Tag& tag) {
    Json frames = Json::array();
    for (const Frame* frame : tag.frameList()) frames.push_back(jsonOf(*frame));
    return frames;
}

void addFrames(Tag& tag, const TagLib::String& text, const TagLib::ByteVector& picture) {
    for (const char* id : {"TIT2", "TPE1", "TALB", "TCOM", "TPE2"}) {
        auto* frame = new TextIdentificationFrame(id, TagLib::String::UTF16);
        frame->setText(text);
        tag.addFrame(frame);
    }
    tag.setYear(1999);
    tag.setTrack(7);
    addComment<CommentsFrame>(tag, "", text);
    addComment<CommentsFrame>(tag, "about", text);
    addComment<UnsynchronizedLyricsFrame>(tag, "", text);
    auto* user = new UserTextIdentificationFrame(TagLib::String::UTF16);
    user->setDescription("mood");
    user->setText(text);
    tag.addFrame(user);
    tag.addFrame(new UniqueFileIdentifierFrame("http://id.example", "\1\2\3"));
    auto* cover = new AttachedPictureFrame();
    cover->setMimeType("image/png");
    cover->setType(AttachedPictureFrame::FrontCover);
    cover->setPicture(picture);
    tag.addFrame(cover);
    auto* opinion = new PopularimeterFrame();
    opinion->setEmail("someone@example.org");
    opinion->setRating(200);
    tag.addFrame(opinion);
    auto* own = new PrivateFrame();
    own->setOwner("someone");
    own->setData(TagLib::ByteVector("\xFF\xE0\0\xFF", 4));
    tag.addFrame(own);
}

// What TagLib reads from an MP3 file, and what it writes as its ID3v1 record and as its ID3v2.3 tag, for tests that
// compare it with Corvane.
//
//     taglib-peer read FILE                           one JSON object on standard output
//     taglib-peer frames FILE                         the same for the frames of the ID3v2 tag: an array
//     taglib-peer write FILE TITLE ARTIST ALBUM YEAR TRACK GENRE COMMENT
//     taglib-peer tag FILE TEXT PICTURE               every kind of ID3v2.3 frame, all with the same text
//
// Texts are UTF-8, numbers decimal; genre 255 is none.
#include "tests/interop/TagLibFrames.h"

#include <nlohmann/json.hpp>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/mpegproperties.h>
#include <taglib/tfilestream.h>

#include <iostream>
#include <span>
#include <stdexcept>
#include <string>

namespace {

using Json = nlohmann::ordered_json;
using MpegFile = TagLib::MPEG::File;

std::string toUtf8(const TagLib::String& text) { return text.to8Bit(true); }

TagLib::String fromUtf8(const char* text) { return {text, TagLib::String::UTF8}; }

Json textsOf(const TagLib::Tag& tag) {
    return {{"title", toUtf8(tag.title())},
            {"artist", toUtf8(tag.artist())},
            {"album", toUtf8(tag.album())},
            {"year", tag.year()},
            {"track", tag.track()},
            {"genre", toUtf8(tag.genre())},
            {"comment", toUtf8(tag.comment())}};
}

Json id3v1Of(MpegFile& file) {
    if (!file.hasID3v1Tag()) return nullptr;
    Json texts = textsOf(*file.ID3v1Tag());
    texts["genreNumber"] = file.ID3v1Tag()->genreNumber();
    return texts;
}

Json id3v2Of(MpegFile& file) { return file.hasID3v2Tag() ? textsOf(*file.ID3v2Tag()) : Json(nullptr); }

Json audioOf(const MpegFile& file) {
    const TagLib::MPEG::Properties* audio = file.audioProperties();
    if (audio == nullptr) return nullptr;
    return {{"lengthMilliseconds", audio->lengthInMilliseconds()},
            {"bitRateKbps", audio->bitrate()},
            {"frequencyHz", audio->sampleRate()},
            {"channels", audio->channels()},
            {"layer", audio->layer()},
            {"channelMode", static_cast<int>(audio->channelMode())},
            {"hasCrc", audio->protectionEnabled()},
            {"isCopyrighted", audio->isCopyrighted()},
            {"isOriginal", audio->isOriginal()}};
}

void read(const char* path) {
    MpegFile file(path);
    if (!file.isValid()) throw std::runtime_error("not readable");
    std::cout << Json{{"id3v1", id3v1Of(file)}, {"id3v2", id3v2Of(file)}, {"audio", audioOf(file)}}.dump() << '\n';
}

void readFrames(const char* path) {
    MpegFile file(path);
    if (!file.hasID3v2Tag()) throw std::runtime_error("no ID3v2 tag");
    std::cout << framesOf(*file.ID3v2Tag()).dump() << '\n';
}

void writeFrames(const char* path, const char* text, const char* picture) {
    TagLib::FileStream stream(picture, true);
    MpegFile file(path, false);
    addFrames(*file.ID3v2Tag(true), fromUtf8(text), stream.readBlock(static_cast<unsigned long>(stream.length())));
    const bool isSaved = file.save(MpegFile::ID3v2, MpegFile::StripNone, TagLib::ID3v2::v3, MpegFile::DoNotDuplicate);
    if (!isSaved) throw std::runtime_error("not saved");
}

unsigned numberOf(const char* text) { return static_cast<unsigned>(std::stoul(text)); }

void write(const char* path, std::span<char* const> values) {
    MpegFile file(path, false);
    TagLib::ID3v1::Tag& tag = *file.ID3v1Tag(true);
    tag.setTitle(fromUtf8(values[0]));
    tag.setArtist(fromUtf8(values[1]));
    tag.setAlbum(fromUtf8(values[2]));
    tag.setYear(numberOf(values[3]));
    tag.setTrack(numberOf(values[4]));
    tag.setGenreNumber(numberOf(values[5]));
    tag.setComment(fromUtf8(values[6]));
    const bool isSaved = file.save(MpegFile::ID3v1, MpegFile::StripNone, TagLib::ID3v2::v4, MpegFile::DoNotDuplicate);
    if (!isSaved) throw std::runtime_error("not saved");
}

} // namespace

int main(int argumentCount, char** arguments) {
    const std::span<char* const> words(arguments, static_cast<std::size_t>(argumentCount));
    try {
        if (words.size() == 3 && std::string(words[1]) == "read") {
            read(words[2]);
        } else if (words.size() == 3 && std::string(words[1]) == "frames") {
            readFrames(words[2]);
        } else if (words.size() == 5 && std::string(words[1]) == "tag") {
            writeFrames(words[2], words[3], words[4]);
        } else if (words.size() == 10 && std::string(words[1]) == "write") {
            write(words[2], words.subspan(3));
        } else {
            throw std::invalid_argument("wrong use");
        }
    } catch (const std::exception& failure) {
        std::cerr << "taglib-peer: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}

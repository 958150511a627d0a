// `make-seeds FOLDER` writes small valid and nearly valid inputs for each fuzz target into FOLDER/TARGET, so that a run
// of a few seconds starts behind the first checks.
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/xml/XmlLayout.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/MusicMatchBuilder.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane::test {
namespace {

using Seeds = std::vector<ByteArray>;

Seeds texts() {
    return {
        bytesOf("plain"),
        bytesOf("<&>\"' ]]> \t\r\n"),
        bytesOf("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8E\xB5"),
        bytesOf("caf\xE9 \x80\x9F"),
        ByteBuilder().byte(0).byte(1).byte(0x1F).byte(0x7F).done(),
        ByteBuilder().text("\xEF\xBF\xBE").text("\xED\xA0\x80").text("\xF4\x90\x80\x80").done(),
    };
}

LyricsBuilder lyricsFields() {
    return LyricsBuilder()
        .field("IND", "00")
        .field("ETT", "Title")
        .field("EAR", "Artist")
        .field("EAL", "Album")
        .field("AUT", "Author")
        .field("LYR", "One line\r\n[00:01]another line");
}

Seeds lyricsBodies() {
    return {
        lyricsFields().body(),
        lyricsFields().done(),
        LyricsBuilder().field("LYR", "a").field("LYR", "b").done(),
        LyricsBuilder().field("LYR", "99999", "short").done(),
        LyricsBuilder().field("LYR", "000 5", "blank").done(),
        lyricsV100("The lyrics of the old version"),
    };
}

Seeds documents() {
    ID3V1Tag record;
    record.Title("Title");
    record.Track(5);
    record.Genre(17);
    return {
        bytesOf(record.xml()),
        bytesOf(LyricsTag().xml()),
        bytesOf("<LyricsTag><Properties><Property Name=\"Version\" Value=\"2\"/>"
                "<Property Name=\"Lyrics\" Value=\"a&#10;b\"/></Properties></LyricsTag>"),
        bytesOf("17\n5\n2\nlyrics\ntitle\nartist\nalbum\n1999\ncomment"),
        bytesOf("<?xml version='1.0' encoding='iso-8859-1'?><!DOCTYPE x [<!ENTITY y \"z\">]><x>&y;</x>"),
    };
}

Seeds frames() {
    const MpegFrame frame;
    const XingFields xing{.flags = 3, .frames = 100, .bytes = 41'700};
    return {
        ByteBuilder().bigEndian(0, 2).bytes(mpegStream(frame, 2)).done(),
        ByteBuilder().bigEndian(0, 2).bytes(xingFrame(frame, xing)).bytes(mpegFrame(frame)).done(),
        ByteBuilder().bigEndian(100, 2).repeat(0xFF, 400).bytes(mpegFrame(frame)).done(),
        ByteBuilder().bigEndian(1, 2).bytes(mpegFrame({.version = 2, .layer = 1, .mode = 3})).repeat(0, 8).done(),
        ByteBuilder().bigEndian(0, 2).bytes(mpegFrame({.bitRateIndex = 14})).repeat(0, 8).done(),
    };
}

Id3v2Builder usualTag(unsigned version) {
    Id3v2Builder tag(version);
    if (version == 2)
        return tag.text("TT2", "Title").text("TCO", "(17)Rock").frame("PIC", pictureFrameOfVersion22(pngImage(2, 2)));
    return tag.text("TIT2", "Title")
        .text("TPE1", "\xC3\x84rtist", Encoding::Utf16)
        .text("TALB", "Album", Encoding::Utf8)
        .text("TCON", "(17)Rock")
        .frame("COMM", commentFrame("about", "text", Encoding::Utf16))
        .frame("USLT", commentFrame("", "lyrics"))
        .frame("SYLT", syncedLyricsFrame("", {"one", "two"}))
        .frame("WXXX", userUrlFrame("about", "https://example.org"))
        .frame("APIC", pictureFrame(pngImage(2, 2)));
}

Seeds id3v2Tags() {
    Seeds tags;
    for (const unsigned version : {2U, 3U, 4U}) {
        tags.push_back(usualTag(version).done());
        tags.push_back(usualTag(version).padding(100).done());
        tags.push_back(
            usualTag(version).frame(version == 2 ? "XXX" : "PRIV", bytesOf("\xFF\xE0")).unsynchronise().done());
        tags.push_back(usualTag(version).claimedSize(1 << 20).done());
        if (version == 2) continue;
        tags.push_back(Id3v2Builder(version).compressedFrame("TIT2", textFrame("Compressed")).done());
        tags.push_back(
            Id3v2Builder(version).flags(0x20).raw(ByteBuilder().bigEndian(0, 4).done()).text("TIT2", "T").done());
    }
    tags.push_back(usualTag(4).footer().done());
    return tags;
}

// Double quotes wherever a tag can have them: each save makes apostrophes of those that it can.
Id3v2Builder quotedTag() {
    return Id3v2Builder(3)
        .text("TIT2", "a \"b\"")
        .text("TPE1", "\"\xC3\x84\"", Encoding::Utf16)
        .frame("TXXX", userTextFrame("\"c\"", ""))
        .frame("COMM", commentFrame("\"d\"", "e", Encoding::CodePage, std::string_view("de\0", 3)))
        .frame("SYLT", syncedLyricsFrame("\"f\"", {"\n\"one\"", "two\n"}))
        .frame("LINK", bytesOf(std::string_view("TIT2a\0\"g\"", 9)))
        .frame("WXXX", userUrlFrame("", "http://\"h\""))
        .frame("APIC", pictureFrame(pngImage(2, 2), "image/png", "\"i\""));
}

// A save of every property into every kind of tag, by turns: property, options, length of the value, value, tag.
Seeds saves() {
    const std::vector<std::string> values{"new", "", "\xE6\x97\xA5\xE6\x9C\xAC", "[00:01.0] one\n[00:02.5] two"};
    constexpr unsigned kChoices = 18;
    Seeds seeds;
    unsigned number = 0;
    Seeds tags = id3v2Tags();
    tags.push_back(quotedTag().done());
    for (const auto& tag : tags) {
        for (unsigned choice = 0; choice < kChoices; ++choice) {
            const std::string& value = values[number++ % values.size()];
            const unsigned options = number * 5 % 128;
            const auto length = static_cast<unsigned>(value.size());
            seeds.push_back(ByteBuilder().byte(choice).byte(options).byte(length).text(value).bytes(tag).done());
        }
    }
    return seeds;
}

Seeds pictures() { return {jpegImage(40, 30), pngImage(3, 2), gifImage(5, 7), bmpImage(4, 3), bmpImage(4, 3, true)}; }

Seeds wholeFiles() {
    Seeds files;
    const auto audio = mpegStream({}, 3);
    const auto record = Id3v1Builder().title("Title").track(5).genre(17).done();
    for (const auto& tag : id3v2Tags()) files.push_back(joined({tag, audio, lyricsFields().done(), record}));
    files.push_back(joined({audio, lyricsV100(std::string(6000, 'l')), record}));
    files.push_back(joined({xingFrame({}, {.flags = 3, .frames = 3, .bytes = 1251}), audio}));
    files.push_back(record);
    files.push_back(bytesOf("PK\x03\x04 and more"));
    return files;
}

// Kinds of tags, and a file with all that there are.
Seeds strips() {
    Seeds files = wholeFiles();
    const auto record = Id3v1Builder().title("Title").done();
    for (const bool hasHeader : {false, true}) {
        const auto musicMatch = test::musicMatch({.hasHeader = hasHeader, .imageSize = 30});
        files.push_back(joined({usualTag(3).done(), mpegFrame({}), musicMatch, lyricsFields().done(), record}));
        files.push_back(joined({mpegFrame({}), lyricsV100("la la"), musicMatch, record}));
    }
    const auto talk = Id3v2Builder().frame("USLT", commentFrame("", "LYRICSBEGIN, it said")).done();
    files.push_back(joined({talk, mpegFrame({}), bytesOf("LYRICSEND"), record}));
    Seeds seeds;
    for (const auto& file : files) {
        for (const unsigned kinds : {1U, 2U, 4U, 8U, 16U, 31U}) {
            seeds.push_back(ByteBuilder().byte(kinds).bytes(file).done());
        }
    }
    return seeds;
}

void write(const std::filesystem::path& folder, const Seeds& seeds) {
    std::filesystem::create_directories(folder);
    for (std::size_t number = 0; number < seeds.size(); ++number) {
        const auto path = folder / std::to_string(number);
        std::ofstream stream(path, std::ios::binary | std::ios::trunc);
        stream.write(reinterpret_cast<const char*>(seeds[number].data()),
                     static_cast<std::streamsize>(seeds[number].size()));
        stream.close();
        if (!stream) throw std::runtime_error("cannot write " + path.string());
    }
}

void makeSeeds(const std::filesystem::path& folder) {
    write(folder / "TextFuzz", texts());
    write(folder / "LyricsFuzz", lyricsBodies());
    write(folder / "XmlImportFuzz", documents());
    write(folder / "MpegSearchFuzz", frames());
    write(folder / "Id3v2Fuzz", id3v2Tags());
    write(folder / "PictureFuzz", pictures());
    write(folder / "SaveFuzz", saves());
    write(folder / "StripFuzz", strips());
    write(folder / "WholeFileFuzz", wholeFiles());
}

} // namespace
} // namespace corvane::test

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::cerr << "usage: make-seeds FOLDER\n";
        return 2;
    }
    try {
        corvane::test::makeSeeds(arguments[1]);
    } catch (const std::exception& failure) {
        std::cerr << "make-seeds: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}

// `make-tour AUDIO.mp3 TOUR.mp3 COVER.png` puts a tag of every kind around audio that has none, and paints a picture
// that the tour can be given.
#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <exception>
#include <fstream>
#include <iostream>

namespace corvane::test {
namespace {

constexpr const char* kTitle = "A Chord to Look Around In";
constexpr const char* kArtist = "The Corvane Tone Generator";
constexpr const char* kAlbum = "Guided Tours";
constexpr const char* kYear = "2026";
constexpr const char* kLyrics =
    "One tag stands in front,\r\nand two behind the sound.\r\nWhat each of them remembers\r\n"
    "is what you see around.";

ByteArray id3v2Tag() {
    const auto picture = pngImage(48, 48);
    return Id3v2Builder(3)
        .text("TIT2", kTitle)
        .text("TPE1", kArtist)
        .text("TALB", kAlbum)
        .text("TCON", "(32)Classical")
        .text("TRCK", "3/7")
        .text("TYER", kYear)
        .text("TCOM", "C. E. G. Major")
        .text("TENC", "lame")
        .frame("COMM", commentFrame("", "Everything in this file was made by its build."))
        .frame("USLT", commentFrame("", kLyrics))
        .frame("WXXX", userUrlFrame("", "https://example.org/corvane"))
        .frame("APIC", pictureFrame(picture))
        .padding(512)
        .done();
}

ByteArray lyrics3Tag() {
    return LyricsBuilder()
        .field("IND", "00")
        .field("ETT", kTitle)
        .field("EAR", kArtist)
        .field("EAL", kAlbum)
        .field("AUT", "C. E. G. Major")
        .field("LYR", kLyrics)
        .done();
}

ByteArray id3v1Record() {
    return Id3v1Builder()
        .title(kTitle)
        .artist(kArtist)
        .album(kAlbum)
        .year(kYear)
        .comment("Made by its build")
        .track(3)
        .genre(32)
        .done();
}

void writeFile(const std::string& path, const ByteArray& content) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + path);
}

void makeTour(const std::string& audio, const std::string& tour, const std::string& cover) {
    writeFile(tour, joined({id3v2Tag(), contentOf(audio), lyrics3Tag(), id3v1Record()}));
    writeFile(cover, pngImage(96, 96));
}

} // namespace
} // namespace corvane::test

int main(int argumentCount, char** arguments) {
    if (argumentCount != 4) {
        std::cerr << "usage: make-tour AUDIO.mp3 TOUR.mp3 COVER.png\n";
        return 2;
    }
    try {
        corvane::test::makeTour(arguments[1], arguments[2], arguments[3]);
    } catch (const std::exception& failure) {
        std::cerr << "make-tour: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}

// `make-tree FOLDER COUNT [PICTURE_BYTES]` writes files with tags of every kind below a new folder, 100 in each
// subfolder: every mix of ID3v2 version, text encoding, picture, Lyrics3 and ID3v1 tag, constant and variable bit rate.
// With a number of picture bytes every file has an ID3v2.3 tag with a picture of that size instead.
#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/MpegBuilder.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane::test {
namespace {

constexpr std::size_t kFramesOfAudio = 60;
constexpr int kFilesInAFolder = 100;

// What a file is made of. Each choice has a period of its own, prime to the others, so that all mixes appear.
struct Mix {
    unsigned id3v2Version = 3; // 2, 3, 4, or 0 for none
    std::size_t pictureBytes = 0;
    Encoding encoding = Encoding::CodePage;
    bool vbr = false;
    bool id3v1 = true;
    bool lyrics3 = false;
    bool manyFrames = false;
};

Mix mixOf(std::size_t number) {
    constexpr std::array<unsigned, 7> kVersions{3, 4, 3, 0, 2, 3, 4};
    constexpr std::array<std::size_t, 5> kPictures{0, 30'000, 0, 4'000, 120'000};
    return {
        .id3v2Version = kVersions[number % kVersions.size()],
        .pictureBytes = kPictures[number % kPictures.size()],
        .encoding = number % 2 == 0 ? Encoding::CodePage : Encoding::Utf16,
        .vbr = number % 3 == 0,
        .id3v1 = number % 11 != 0,
        .lyrics3 = number % 13 == 0,
        .manyFrames = number % 17 == 0,
    };
}

// An image followed by as many bytes as its size wants.
ByteArray pictureOf(std::size_t size) { return ByteBuilder().bytes(pngImage(16, 16)).padTo(size, 0x5A).done(); }

ByteArray id3v2Tag(const Mix& mix, const std::string& title) {
    if (mix.id3v2Version == 0) return {};
    const bool shortNames = mix.id3v2Version == 2;
    Id3v2Builder tag(mix.id3v2Version);
    tag.text(shortNames ? "TT2" : "TIT2", title, mix.encoding)
        .text(shortNames ? "TP1" : "TPE1", "An Artist of the Tree", mix.encoding)
        .text(shortNames ? "TAL" : "TALB", "An Album of the Tree", mix.encoding)
        .text(shortNames ? "TRK" : "TRCK", "7/12")
        .text(shortNames ? "TCO" : "TCON", "(17)Rock")
        .text(shortNames ? "TYE" : "TYER", "1999");
    if (mix.manyFrames && !shortNames) {
        for (const char* id : {"TBPM", "TCOM", "TCOP", "TENC", "TEXT", "TIT1", "TIT3", "TKEY", "TLAN", "TMED", "TOAL",
                               "TOPE", "TPE2", "TPE3", "TPE4", "TPOS", "TPUB", "TSRC"})
            tag.text(id, "One more text of this tag", mix.encoding);
        tag.frame("USLT", commentFrame("", std::string(3000, 'l')));
    }
    tag.frame(shortNames ? "COM" : "COMM", commentFrame("", "A comment of the tree"));
    if (mix.pictureBytes > 0) {
        const auto picture = pictureOf(mix.pictureBytes);
        tag.frame(shortNames ? "PIC" : "APIC", shortNames ? pictureFrameOfVersion22(picture) : pictureFrame(picture));
    }
    return tag.padding(1000).done();
}

ByteArray audio(bool vbr) {
    const MpegFrame frame;
    const auto stream = mpegStream(frame, kFramesOfAudio);
    if (!vbr) return stream;
    const auto bytes = static_cast<std::uint32_t>(stream.size());
    return joined({xingFrame(frame, {.flags = 3, .frames = kFramesOfAudio, .bytes = bytes}), stream});
}

ByteArray file(const Mix& mix, const std::string& title) {
    ByteBuilder whole;
    whole.bytes(id3v2Tag(mix, title)).bytes(audio(mix.vbr));
    if (mix.lyrics3) whole.bytes(LyricsBuilder().field("ETT", title).field("LYR", std::string(800, 'l')).done());
    if (mix.id3v1) whole.bytes(Id3v1Builder().title(title).artist("An Artist of the Tree").track(7).genre(17).done());
    return whole.done();
}

void write(const std::filesystem::path& path, const ByteArray& bytes) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + path.string());
}

void makeTree(const std::filesystem::path& root, int count, std::size_t pictureBytes) {
    for (int number = 0; number < count; ++number) {
        const auto folder = root / std::to_string(number / kFilesInAFolder);
        std::filesystem::create_directories(folder);
        Mix mix = mixOf(static_cast<std::size_t>(number));
        if (pictureBytes > 0) mix = Mix{.pictureBytes = pictureBytes};
        write(folder / (std::to_string(number) + ".mp3"), file(mix, "Title " + std::to_string(number)));
    }
}

} // namespace
} // namespace corvane::test

int main(int argumentCount, char** arguments) {
    if (argumentCount < 3) {
        std::cerr << "usage: make-tree FOLDER COUNT [PICTURE_BYTES]\n";
        return 2;
    }
    const auto pictureBytes = argumentCount > 3 ? std::strtoul(arguments[3], nullptr, 10) : 0;
    corvane::test::makeTree(arguments[1], std::atoi(arguments[2]), pictureBytes);
}

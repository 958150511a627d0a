// Whether a file may be given its first tag.
#include "corvane/core/FirstTag.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/MpegBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace corvane::firsttag_test {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr const char* kNoAudio = "The file holds no MPEG audio frame";

ByteArray bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

ByteArray operator+(ByteArray first, const ByteArray& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

ByteArray audio() { return test::mpegStream({}, 4); }

// An ID3v2 header with a body of zeros.
ByteArray id3v2(std::uint8_t version, std::uint8_t bodySize, std::uint8_t flags = 0) {
    ByteArray tag = bytesOf("ID3");
    tag.insert(tag.end(), {version, 0, flags, 0, 0, 0, bodySize});
    tag.resize(10 + std::size_t{bodySize});
    return tag;
}

ByteArray apeHeader(std::uint8_t bodySize) {
    ByteArray tag = bytesOf("APETAGEX"s + "\xD0\x07\0\0"s);
    tag.push_back(bodySize);
    tag.resize(32 + std::size_t{bodySize});
    return tag;
}

class FirstTag : public testing::Test {
protected:
    std::string obstacle(const ByteArray& content) { return obstacleToFirstTag(folder_.write("file", content)); }

private:
    test::ScratchFolder folder_;
};

TEST_F(FirstTag, fileWithMpegAudioMayHaveOne) {
    ByteArray record(128);
    std::ranges::copy("TAG"sv, record.begin());
    for (const ByteArray& content :
         {audio(), ByteArray(300) + audio(), bytesOf("junk") + audio(), id3v2(3, 40) + audio(), id3v2(2, 40) + audio(),
          id3v2(4, 40, 0x10) + ByteArray(10) + audio(), id3v2(3, 9) + id3v2(4, 7) + audio(), apeHeader(20) + audio(),
          id3v2(3, 40) + apeHeader(20) + audio(), audio() + record, test::mpegStream({.bitRateIndex = 14}, 4)}) {
        EXPECT_EQ(obstacle(content), "");
    }
}

TEST_F(FirstTag, tagIsNotTakenForAudio) {
    // A picture in a tag may hold whole frames.
    ByteArray tag = id3v2(3, 100);
    tag[7] = 0;
    tag[8] = 32; // 4,096 + 100 bytes
    EXPECT_EQ(obstacle(tag + audio()), kNoAudio);
}

TEST_F(FirstTag, fileWithoutMpegAudioGetsNone) {
    EXPECT_EQ(obstacle({}), "The file is empty");
    for (const ByteArray& content :
         {ByteArray(5000), ByteArray(3000, 0x9C), id3v2(3, 90), id3v2(4, 5) + ByteArray(2000),
          test::mpegFrame({}) + bytesOf("and something else"), bytesOf("\xFF\xFB\x90\x64"sv)}) {
        EXPECT_EQ(obstacle(content), kNoAudio);
    }
}

struct Foreign {
    std::string_view name, head;
};

// Beginnings as the formats' own descriptions have them.
const Foreign kForeign[]{
    {"a JPEG image", "\xFF\xD8\xFF\xE0\0\x10JFIF\0"sv},
    {"a JPEG image", "\xFF\xD8\xFF\xE1\0\x10"
                     "Exif\0"sv},
    {"a PNG image", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"sv},
    {"a GIF image", "GIF89a\1\0\1\0"sv},
    {"a BMP image", "BM\x46\0\0\0\0\0\0\0\x36\0\0\0"sv},
    {"a TIFF image", "II*\0\x08\0\0\0"sv},
    {"a WebP image", "RIFF\x24\0\0\0WEBPVP8 "sv},
    {"a WAV file", "RIFF\x24\0\0\0WAVEfmt \x12\0\0\0\x01\0"sv},
    {"a WAV file", "RIFF\x24\0\0\0WAVEfmt \x1E\0\0\0\x55\0"sv}, // MPEG layer 3 inside: not bare MPEG audio all the same
    {"an AVI video", "RIFF\x24\0\0\0AVI LIST"sv},
    {"an AIFF file", "FORM\0\0\0\x24"
                     "AIFFCOMM"sv},
    {"an Ogg file", "OggS\0\2\0\0\0\0\0\0\0\0"sv},
    {"a FLAC file", "fLaC\0\0\0\x22"sv},
    {"an MP4 file", "\0\0\0\x20"
                    "ftypM4A \0\0\0\0"sv},
    {"an ASF or WMA file", "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\0\xAA\0\x62\xCE\x6C"sv},
    {"a Matroska file", "\x1A\x45\xDF\xA3\x9F\x42\x86\x81\1"sv},
    {"a MIDI file", "MThd\0\0\0\6\0\1"sv},
    {"a Monkey's Audio file", "MAC \x96\x0F\0\0"sv},
    {"a Musepack file", "MP+\7\0\0\0\0"sv},
    {"a Musepack file", "MPCKSH"sv},
    {"a WavPack file", "wvpk\x24\0\0\0"sv},
    {"a True Audio file", "TTA1\1\0\2\0"sv},
    {"a DSF file", "DSD \x1C\0\0\0"sv},
    {"an AAC file", "\xFF\xF1\x50\x80"sv},
    {"an MPEG video", "\0\0\1\xBA\x44\0"sv},
    {"a PDF document", "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n"sv},
    {"a ZIP archive", "PK\3\4\x14\0"sv},
    {"a RAR archive", "Rar!\x1A\7\0\xCF"sv},
    {"a RAR archive", "Rar!\x1A\7\1\0"sv},
    {"a 7z archive", "7z\xBC\xAF\x27\x1C\0\4"sv},
    {"a gzip file", "\x1F\x8B\x08\0\0"sv},
    {"an ELF program", "\x7F"
                       "ELF\2\1\1\0"sv},
};

TEST_F(FirstTag, otherFormatIsNamedEvenWhenMpegAudioFollows) {
    for (const Foreign& foreign : kForeign) {
        const std::string expected = "This is " + std::string(foreign.name) + ", not an MPEG audio file";
        EXPECT_EQ(obstacle(bytesOf(foreign.head) + ByteArray(64) + audio()), expected);
        EXPECT_EQ(obstacle(bytesOf(foreign.head)), expected);
        EXPECT_EQ(obstacle(id3v2(3, 40) + bytesOf(foreign.head) + audio()), expected) << "after a tag";
    }
}

TEST_F(FirstTag, textIsNamed) {
    const auto named = [this](const std::string& text) { return obstacle(bytesOf(text)); };
    EXPECT_EQ(named("A note.\r\n"), "This is a text file, not an MPEG audio file");
    EXPECT_EQ(named("TAG and more"), "This is a text file, not an MPEG audio file");
    EXPECT_EQ(named("gr\xC3\xBC\xC3\x9F\n"), "This is a text file, not an MPEG audio file");
    EXPECT_EQ(named(" <!DOCTYPE html>\n"), "This is an HTML page, not an MPEG audio file");
    EXPECT_EQ(named("\xEF\xBB\xBF<?xml version=\"1.0\"?><a/>"), "This is an XML document, not an MPEG audio file");
    EXPECT_EQ(named(std::string(4095, 'x') + "\xC3\xBC" + std::string(9000, 'x')),
              "This is a text file, not an MPEG audio file")
        << "a character across the end of what is looked at";
    EXPECT_EQ(obstacle(bytesOf("HTTP/1.0 200 OK\r\n\r\n") + audio()), "") << "text of a stream before its audio";
}

TEST_F(FirstTag, archiveThatStoresAudioIsRefused) {
    ByteArray archive(512);
    std::ranges::copy("song.mp3"sv, archive.begin());
    std::ranges::copy("ustar"sv, archive.begin() + 257);
    EXPECT_EQ(obstacle(archive + audio()), "This is a tar archive, not an MPEG audio file");
}

TEST_F(FirstTag, mpegTransportStreamIsRefused) {
    ByteArray stream;
    for (int packet = 0; packet < 5; ++packet) {
        ByteArray bytes(188, 0x80);
        bytes.front() = 0x47;
        stream = stream + bytes;
    }
    EXPECT_EQ(obstacle(stream), "This is an MPEG video, not an MPEG audio file");
}

TEST_F(FirstTag, fileThatCannotBeReadIsAFailure) {
    EXPECT_THROW(obstacleToFirstTag(std::string("/nonexistent/file.mp3")), RuntimeFailure);
}

} // namespace
} // namespace corvane::firsttag_test

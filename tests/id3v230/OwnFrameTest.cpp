#include "corvane/id3v230/OwnFrame.h"

#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/LibraryFrames.h"
#include "corvane/platform/Picture.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::ownframe_test {
namespace {

using namespace test;

FrameToWrite frameOf(ID3_FrameID frame, const std::string& text, const std::string& description = {}) {
    FrameToWrite toWrite;
    toWrite.frame = frame;
    toWrite.value = text;
    toWrite.description = description;
    return toWrite;
}

ByteArray ownPayload(const WantedFrame& wanted) {
    OwnFrame fields(wanted.frame, wanted.encoding);
    writeFields(fields, wanted);
    return fields.payload();
}

// Behind the headers of the frames.
std::vector<ByteArray> libraryPayloads(const std::vector<WantedFrame>& wanted) {
    std::vector<ByteArray> payloads = libraryFrames(wanted);
    for (ByteArray& frame : payloads) frame.erase(frame.begin(), frame.begin() + 10);
    return payloads;
}

void expectSame(const std::vector<FrameToWrite>& frames) {
    std::vector<WantedFrame> wanted;
    for (const FrameToWrite& frame : frames) wanted.push_back(wantedFrame(frame));
    const std::vector<ByteArray> expected = libraryPayloads(wanted);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(ownPayload(wanted[i]), expected[i]) << wanted[i].letters << " " << wanted[i].text;
    }
}

TEST(OwnFrame, OfAllTextsOfOneByteIsThatOfId3lib) {
    std::vector<FrameToWrite> frames;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte >= 0x80 && byte < 0xA0) continue; // these are written as UTF-16
        std::string text = "a";
        text.append(byte < 0x80
                        ? std::string(1, static_cast<char>(byte))
                        : std::string{static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))});
        frames.push_back(frameOf(ID3_FrameID::ID3FID_TITLE, text));
        frames.push_back(frameOf(ID3_FrameID::ID3FID_TITLE, text.substr(1)));
    }
    expectSame(frames);
}

TEST(OwnFrame, OfEveryTextFrameIsThatOfId3lib) {
    std::vector<FrameToWrite> frames;
    for (int number = static_cast<int>(ID3_FrameID::ID3FID_ALBUM); number <= 62; ++number) {
        const auto frame = static_cast<ID3_FrameID>(number);
        if (frame == ID3_FrameID::ID3FID_USERTEXT) continue; // has a description too, see below
        frames.push_back(frameOf(frame, "text"));
        frames.push_back(frameOf(frame, "caf\u00E9 \u65E5\u672C\u8A9E \U0001F600"));
    }
    expectSame(frames);
}

TEST(OwnFrame, HasAMarkWhereId3libForgetsIt) {
    const WantedFrame wanted = wantedFrame(frameOf(ID3_FrameID::ID3FID_COMMENT, "\u20AC"));
    EXPECT_EQ(ownPayload(wanted), (ByteArray{1, 'e', 'n', 'g', 0xFF, 0xFE, 0, 0, 0xFF, 0xFE, 0xAC, 0x20}));
    EXPECT_EQ(libraryPayloads({wanted}).at(0), (ByteArray{1, 'e', 'n', 'g', 0, 0, 0xFF, 0xFE, 0xAC, 0x20}));
}

TEST(OwnFrame, OfEveryOtherKindIsThatOfId3lib) {
    std::vector<FrameToWrite> frames;
    using enum ID3_FrameID;
    for (const std::string description : {"", "d", "\u65E5"}) {
        for (const std::string text : {"[00:01.0] text", "[00:01.0] \u20AC"}) {
            if (description.empty() && text.ends_with("\u20AC")) continue; // the one difference
            for (const ID3_FrameID frame :
                 {ID3FID_COMMENT, ID3FID_UNSYNCEDLYRICS, ID3FID_USERTEXT, ID3FID_WWWUSER, ID3FID_SYNCEDLYRICS}) {
                frames.push_back(frameOf(frame, text, description));
            }
        }
        FrameToWrite picture = frameOf(ID3FID_PICTURE, "", description);
        picture.picture = Picture::fromBytes(jpegImage(8, 8));
        frames.push_back(picture);
    }
    for (const ID3_FrameID frame : {ID3FID_TERMSOFUSE, ID3FID_UNIQUEFILEID, ID3FID_WWWARTIST}) {
        frames.push_back(frameOf(frame, "text"));
    }
    frames.push_back(frameOf(ID3FID_PLAYCOUNTER, "258"));
    expectSame(frames);
}

} // namespace
} // namespace corvane::ownframe_test

#include "corvane/id3v230/OwnFrame.h"

#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/LibraryFrames.h"
#include "corvane/platform/Picture.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane {
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

// Behind the header of the frame.
ByteArray libraryPayload(const WantedFrame& wanted) {
    const ByteArray frame = libraryFrames(std::span(&wanted, 1)).at(0);
    return {frame.begin() + 10, frame.end()};
}

void expectSame(const FrameToWrite& frame) {
    const WantedFrame wanted = wantedFrame(frame);
    EXPECT_EQ(ownPayload(wanted), libraryPayload(wanted)) << wanted.letters;
}

TEST(OwnFrame, OfAllTextsOfOneByteIsThatOfId3lib) {
    for (int byte = 1; byte < 256; ++byte) {
        if (byte >= 0x80 && byte < 0xA0) continue; // these are written as UTF-16
        std::string text = "a";
        text.append(byte < 0x80
                        ? std::string(1, static_cast<char>(byte))
                        : std::string{static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))});
        expectSame(frameOf(ID3_FrameID::ID3FID_TITLE, text));
        expectSame(frameOf(ID3_FrameID::ID3FID_TITLE, text.substr(1)));
    }
}

TEST(OwnFrame, OfEveryTextFrameIsThatOfId3lib) {
    for (int number = static_cast<int>(ID3_FrameID::ID3FID_ALBUM); number <= 62; ++number) {
        const auto frame = static_cast<ID3_FrameID>(number);
        if (frame == ID3_FrameID::ID3FID_USERTEXT) continue; // has a description too, see below
        expectSame(frameOf(frame, "text"));
        expectSame(frameOf(frame, "caf\u00E9 \u65E5\u672C\u8A9E \U0001F600"));
    }
}

TEST(OwnFrame, HasAMarkWhereId3libForgetsIt) {
    const WantedFrame wanted = wantedFrame(frameOf(ID3_FrameID::ID3FID_COMMENT, "\u20AC"));
    EXPECT_EQ(ownPayload(wanted), (ByteArray{1, 'e', 'n', 'g', 0xFF, 0xFE, 0, 0, 0xFF, 0xFE, 0xAC, 0x20}));
    EXPECT_EQ(libraryPayload(wanted), (ByteArray{1, 'e', 'n', 'g', 0, 0, 0xFF, 0xFE, 0xAC, 0x20}));
}

TEST(OwnFrame, OfEveryOtherKindIsThatOfId3lib) {
    using enum ID3_FrameID;
    for (const std::string description : {"", "d", "\u65E5"}) {
        for (const std::string text : {"[00:01.0] text", "[00:01.0] \u20AC"}) {
            if (description.empty() && text.ends_with("\u20AC")) continue; // the one difference
            for (const ID3_FrameID frame :
                 {ID3FID_COMMENT, ID3FID_UNSYNCEDLYRICS, ID3FID_USERTEXT, ID3FID_WWWUSER, ID3FID_SYNCEDLYRICS}) {
                expectSame(frameOf(frame, text, description));
            }
        }
        FrameToWrite picture = frameOf(ID3FID_PICTURE, "", description);
        picture.picture = Picture::fromBytes(jpegImage(8, 8));
        expectSame(picture);
    }
    for (const ID3_FrameID frame : {ID3FID_TERMSOFUSE, ID3FID_UNIQUEFILEID, ID3FID_WWWARTIST})
        expectSame(frameOf(frame, "text"));
    expectSame(frameOf(ID3FID_PLAYCOUNTER, "258"));
}

} // namespace
} // namespace corvane

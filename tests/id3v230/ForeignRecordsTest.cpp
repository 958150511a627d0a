// Records of frames that the library cannot make of a text: what a host changes in them is written, or the save fails.
#include "corvane/id3v230/FrameNames.h"
#include "corvane/id3v230/ID3V230.h"

#include "tests/id3v230/TagOnFile.h"
#include "tests/support/ByteBuilder.h"
#include "tests/support/HostMessageBox.h"
#include "tests/support/ImageBuilder.h"

#include <gtest/gtest.h>

namespace corvane::foreignrecords_test {
namespace {

using namespace test;
using namespace std::string_view_literals;
using Updatable = Internals<ID3V230>;

std::int16_t numberOf(const char* letters) { return static_cast<std::int16_t>(frameNumberOf(letters)); }

ByteArray tagOf(const char* id, Bytes data, std::string_view title = "x") {
    return Id3v2Builder(3).frame(id, data).text("TIT2", title).padding(200).done();
}

struct Renamed {
    const char* name;
    const char* id;
    ByteArray before;
    std::string description;
    ByteArray after;
};

TEST(ForeignRecord, IsWrittenWithANewDescription) {
    const ByteArray webp = bytesOf("RIFF....WEBP");
    const Renamed frames[] = {
        {"WebP", "APIC", pictureFrame(webp, "image/webp", "old"), "new", pictureFrame(webp, "image/webp", "new")},
        {"linked", "APIC", pictureFrame(bytesOf("http://a"), "-->"), "new",
         pictureFrame(bytesOf("http://a"), "-->", "new")},
        {"no image", "APIC", pictureFrame({}, "image/png", "old"), "", pictureFrame({}, "image/png")},
        {"wide", "APIC", pictureFrame(webp, "image/webp", "old"), "\u65E5",
         pictureFrame(webp, "image/webp", "\u65E5", Encoding::Utf16)},
        {"wide before", "APIC", pictureFrame(webp, "image/webp", "\u65E5", Encoding::Utf16), "new",
         pictureFrame(webp, "image/webp", "new", Encoding::Utf16)},
        {"UTF-8 before", "APIC", bytesOf("\3image/webp\0\3old\0WEBP"sv), "new",
         pictureFrame(bytesOf("WEBP"), "image/webp", "new", Encoding::Utf16)},
        {"odd MIME type", "APIC", pictureFrame(pngImage(3, 2), "PNG", "old"), "new",
         pictureFrame(pngImage(3, 2), "PNG", "new")},
        {"object", "GEOB", bytesOf("\0a/b\0file\0old\0data"sv), "new", bytesOf("\0a/b\0file\0new\0data"sv)},
        {"object, wide", "GEOB", bytesOf("\0a/b\0f\xE9\0old\0data"sv), "\u65E5",
         bytesOf("\1a/b\0\xFF\xFE\x66\0\xE9\0\0\0\xFF\xFE\xE5\x65\0\0data"sv)},
        {"object, wide before", "GEOB", bytesOf("\1a/b\0\xFE\xFF\0\x66\0\0\xFE\xFF\0\x6F\0\0data"sv), "n",
         bytesOf("\1a/b\0\xFE\xFF\0\x66\0\0\xFF\xFE\x6E\0\0\0data"sv)},
    };
    for (const Renamed& frame : frames) {
        TagOnFile song(tagOf(frame.id, frame.before));
        song.record(1).sDescription(frame.description);
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << frame.name << Updatable::lastFailure(song.tag)->description;
        EXPECT_EQ(contentOf(song.path()).size(), tagOf(frame.id, frame.before).size()) << frame.name;
        song.read();
        const auto& image = *Updatable::image(song.tag);
        EXPECT_EQ(image.data(image.frames()[0]), frame.after) << frame.name;
        EXPECT_EQ(song.record(1).sDescription(), frame.description) << frame.name;
        EXPECT_EQ(song.tag.Title(), "x") << frame.name;
    }
}

struct Refused {
    const char* name;
    const char* id;
    ByteArray data;
    unsigned formatFlags;
    std::function<void(ID3V230Frame&)> change;
};

// Better no save than one that leaves out a part of what was asked for.
TEST(ForeignRecord, IsRefusedWithAChangeThatItsFrameCannotHold) {
    const auto describe = [](ID3V230Frame& record) { record.sDescription("new"); };
    const auto speak = [](ID3V230Frame& record) { record.vLanguage("deu"); };
    const auto become = [](const char* id) { return [id](ID3V230Frame& record) { record.eType(numberOf(id)); }; };
    const ByteArray webp = pictureFrame(bytesOf("RIFF....WEBP"), "image/webp");
    const ByteArray object = bytesOf("\0a/b\0file\0old\0data"sv);
    const Refused refused[] = {
        {"an encrypted comment's description", "COMM", countedBytes(30), 0x40, describe},
        {"an encrypted comment's language", "COMM", countedBytes(30), 0x40, speak},
        {"an encrypted comment's kind", "COMM", countedBytes(30), 0x40, become("USLT")},
        {"an encrypted picture's description", "APIC", countedBytes(30), 0x40, describe},
        {"an encrypted object's description", "GEOB", countedBytes(30), 0x40, describe},
        {"a cut picture's description", "APIC", bytesOf("\0image/png\0\3abc"sv), 0, describe},
        {"a cut object's description", "GEOB", bytesOf("\0a/b\0file"sv), 0, describe},
        {"an object's kind", "GEOB", object, 0, become("APIC")},
        {"an object's kind, a text", "GEOB", object, 0, become("TIT2")},
        {"a private frame's kind", "PRIV", bytesOf("o\0data"sv), 0, become("TIT3")},
        {"an unknown picture's kind", "APIC", webp, 0, become("GEOB")},
        {"an unknown frame's kind", "XYZW", countedBytes(30), 0, become("TIT3")},
        {"a text's kind, a picture", "TIT3", textFrame("text"), 0, become("APIC")},
        {"a text's kind, a private frame", "TIT3", textFrame("text"), 0, become("PRIV")},
        {"a text's kind, none", "TIT3", textFrame("text"), 0, [](ID3V230Frame& record) { record.eType(99); }},
        {"an empty user text's description", "TXXX", userTextFrame("old", ""), 0, describe},
        {"an empty comment's description", "COMM", commentFrame("old", ""), 0, describe},
        {"an empty comment's language", "COMM", commentFrame("old", ""), 0, speak},
        {"lyrics that have no whole entry", "SYLT", bytesOf("\0eng\2\1\0one\0\0"sv), 0, describe},
    };
    const HostMessageBox host;
    for (const Refused& tested : refused) {
        TagOnFile song(Id3v2Builder(3).frame(tested.id, tested.data, tested.formatFlags).text("TIT2", "x"));
        const ByteArray before = contentOf(song.path());
        tested.change(song.record(1));
        song.tag.Title("another");
        EXPECT_FALSE(Updatable::SaveTag(song.tag)) << tested.name;
        EXPECT_EQ(contentOf(song.path()), before) << tested.name;
        ASSERT_TRUE(Updatable::lastFailure(song.tag)) << tested.name;
        const auto& failure = *Updatable::lastFailure(song.tag);
        EXPECT_TRUE(failure.number == 3 || failure.number == 6 || failure.number == 7) << failure.number;
        EXPECT_FALSE(failure.description.empty()) << tested.name;
    }
}

struct Skipped {
    const char* name;
    const char* id;
    ByteArray data;
    std::function<void(ID3V230Frame&)> change;
    std::vector<std::string> messages;
    unsigned formatFlags = 0;
};

std::string messageOf(const char* field, const char* data) {
    return std::string("Unable to write data to field.\r\nID3V230::id3SetField()\r\nField '") + field +
           "' doesn't exist.\r\nData: " + data;
}

TEST(ForeignRecord, StaysWhereTheFrameHasNoFieldForAValueAndTheRestIsWritten) {
    const auto set = [](FrameVariant value) { return [value](ID3V230Frame& record) { record.vValue(value); }; };
    const auto describe = [](ID3V230Frame& record) {
        record.sDescription("d");
        record.vLanguage("deu");
    };
    const Skipped skipped[] = {
        {"private", "PRIV", bytesOf("o\0data"sv), set("val"), {messageOf("2", "val")}},
        {"object", "GEOB", bytesOf("\0a/b\0file\0old\0data"sv), set("val"), {messageOf("2", "val")}},
        {"popularimeter", "POPM", bytesOf("a@b\0\1\0\0\0\1"sv), set(std::int32_t{5}), {messageOf("2", "5")}},
        {"disc identifier", "MCDI", countedBytes(40), set("val"), {messageOf("2", "val")}},
        {"unknown frame", "XYZW", countedBytes(40), set("val"), {messageOf("2", "val")}},
        {"encrypted", "PRIV", countedBytes(40), set("val"), {messageOf("2", "val")}, 0x40},
        {"description of a private frame",
         "PRIV",
         bytesOf("o\0data"sv),
         describe,
         {messageOf("5", "d"), messageOf("10", "deu")}},
        {"description of an identifier",
         "UFID",
         bytesOf("o\0\x80\xFF"sv),
         describe,
         {messageOf("5", "d"), messageOf("10", "deu")}},
        {"description of an odd text",
         "TIT3",
         bytesOf("\2\0\x61"sv),
         describe,
         {messageOf("5", "d"), messageOf("10", "deu")}},
    };
    for (const Skipped& tested : skipped) {
        const auto builder = [&](std::string_view title) {
            return Id3v2Builder(3).frame(tested.id, tested.data, tested.formatFlags).text("TIT2", title).padding(100);
        };
        TagOnFile song(builder("x"));
        tested.change(song.record(1));
        song.tag.Title("y");
        const HostMessageBox host;
        ASSERT_TRUE(Updatable::SaveTag(song.tag)) << tested.name << Updatable::lastFailure(song.tag)->description;
        EXPECT_EQ(contentOf(song.path()), builder("y").done()) << tested.name;
        std::vector<std::string> messages;
        for (const auto& request : host.shown) messages.push_back(request.text);
        EXPECT_EQ(messages, tested.messages) << tested.name;
    }
}

} // namespace
} // namespace corvane::foreignrecords_test

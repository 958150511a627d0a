#include "corvane/lyrics/LyricsTag.h"

#include "corvane/lyrics/LyricsTagInternals.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>

namespace corvane::lyricstag_test {
namespace {

using test::ByteBuilder;
using test::bytesOf;
using test::Id3v1Builder;
using test::joined;
using test::LyricsBuilder;
using test::lyricsV100;

using enum ELyricsVersionConstants;

constexpr auto kTypeMismatch = static_cast<std::int32_t>(FailureNumber::TypeMismatch);
constexpr auto kBadRecordNumber = static_cast<std::int32_t>(FailureNumber::BadRecordNumber);
constexpr auto kDuplicateKey = static_cast<std::int32_t>(FailureNumber::DuplicateKey);

class LyricsTagLoad : public testing::Test {
protected:
    // Loads a file of these bytes and gives the failure, if that is how it ends.
    std::optional<RuntimeFailure> load(const ByteArray& file, bool hasId3v1 = false) {
        return loadPath(folder_.write("a.mp3", file), hasId3v1);
    }
    std::optional<RuntimeFailure> loadPath(const std::string& path, bool hasId3v1 = false) {
        try {
            Internals<LyricsTag>::Load(tag_, path, hasId3v1);
        } catch (const RuntimeFailure& failure) {
            return failure;
        }
        return std::nullopt;
    }
    void expectNoTag() const {
        EXPECT_EQ(tag_.Version(), lvcUnknown);
        EXPECT_EQ(tag_.Size(), 0);
        EXPECT_EQ(tag_.FieldCount(), 0);
        EXPECT_EQ(tag_.Lyrics(), "");
    }

    test::ScratchFolder folder_;
    LyricsTag tag_;
};

LyricsBuilder everyField() {
    return LyricsBuilder()
        .field("EAL", "Album")
        .field("EAR", "Artist")
        .field("ETT", "Title")
        .field("AUT", "Author")
        .field("LYR", "[00:01]la\r\n");
}

// A new tag

TEST_F(LyricsTagLoad, ANewTagIsEmpty) {
    expectNoTag();
    EXPECT_EQ(tag_.Author(), "");
    EXPECT_EQ(tag_.Album(), "");
    EXPECT_EQ(tag_.Artist(), "");
    EXPECT_EQ(tag_.Title(), "");
    EXPECT_EQ(tag_.LastError()->Stream(), "0, , ");
    EXPECT_FALSE(Internals<LyricsTag>::HasID3v1Tag(tag_));
}

// Version 2.00

TEST_F(LyricsTagLoad, ReadsEveryFieldOfVersionTwo) {
    ASSERT_FALSE(load(everyField().done()));
    EXPECT_EQ(tag_.Version(), lvcV200);
    EXPECT_EQ(tag_.Size(), static_cast<std::int32_t>(everyField().body().size()));
    EXPECT_EQ(tag_.FieldCount(), 5);
    EXPECT_EQ(tag_.Album(), "Album");
    EXPECT_EQ(tag_.Artist(), "Artist");
    EXPECT_EQ(tag_.Title(), "Title");
    EXPECT_EQ(tag_.Author(), "Author");
    EXPECT_EQ(tag_.Lyrics(), "[00:01]la\r\n");
}

TEST_F(LyricsTagLoad, TheTagStandsBeforeTheId3v1Record) {
    const ByteArray file = joined({bytesOf("audio"), everyField().done(), Id3v1Builder().done()});
    ASSERT_FALSE(load(file, true));
    EXPECT_EQ(tag_.Title(), "Title");
    EXPECT_TRUE(Internals<LyricsTag>::HasID3v1Tag(tag_));
}

TEST_F(LyricsTagLoad, WhetherThereIsAnId3v1RecordIsForTheCallerToKnow) {
    const ByteArray record = Id3v1Builder().done();
    ASSERT_FALSE(load(joined({bytesOf("audio"), everyField().done(), record}), false));
    expectNoTag();
    ASSERT_FALSE(load(joined({bytesOf("audio"), record, everyField().done()}), true));
    expectNoTag();
}

TEST_F(LyricsTagLoad, AnUnknownFieldIsKeptBesideTheLyrics) {
    ASSERT_FALSE(load(LyricsBuilder().field("INF", "info").field("LYR", "la la").done()));
    EXPECT_EQ(tag_.FieldCount(), 2);
    EXPECT_EQ(tag_.Lyrics(), "la la");
    XmlNode root;
    tag_.xml(&root);
    EXPECT_EQ(root.selectSingleNode("./Properties/Property[@Name = 'INF']").attribute("Value"), "info");
}

TEST_F(LyricsTagLoad, FieldsKeepTheOrderOfTheFile) {
    ASSERT_FALSE(load(LyricsBuilder().field("ZZZ", "1").field("LYR", "2").field("AAA", "3").done()));
    EXPECT_EQ(tag_.getFieldByIndex(1)->ID(), "ZZZ");
    EXPECT_EQ(tag_.getFieldByIndex(2)->ID(), "LYR");
    EXPECT_EQ(tag_.getFieldByIndex(3)->ID(), "AAA");
}

TEST_F(LyricsTagLoad, AnIdIsLookedUpExactly) {
    ASSERT_FALSE(load(LyricsBuilder().field("LYR", "la").done()));
    EXPECT_EQ(tag_.getFieldByID("LYR")->TextData(), "la");
    for (const char* id : {"lyr", "LYr", "LY", "LYR ", "", "EAL"}) EXPECT_EQ(tag_.getFieldByID(id), nullptr) << id;
}

TEST_F(LyricsTagLoad, AnIndexOutOfRangeGivesNothing) {
    ASSERT_FALSE(load(LyricsBuilder().field("LYR", "la").done()));
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t index : {Limits::min(), -1, 0, 2, Limits::max()}) {
        EXPECT_EQ(tag_.getFieldByIndex(index), nullptr) << index;
    }
    EXPECT_NE(tag_.getFieldByIndex(1), nullptr);
}

TEST_F(LyricsTagLoad, LyricsWithoutAFieldAreEmpty) {
    ASSERT_FALSE(load(LyricsBuilder().field("ETT", "Title").done()));
    EXPECT_EQ(tag_.Lyrics(), "");
    EXPECT_EQ(tag_.Album(), "");
}

TEST_F(LyricsTagLoad, TextsAreWindows1252AndLengthsCountItsBytes) {
    ASSERT_FALSE(load(LyricsBuilder().field("\xC4\x80Z", "\xDF\x85").field("ETT", "00001", "\xFC").done()));
    const auto field = tag_.getFieldByID("Ä€Z");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->TextData(), "ß…");
    EXPECT_EQ(field->Size(), 2);
    EXPECT_EQ(tag_.Title(), "ü");
}

TEST_F(LyricsTagLoad, TheFirstElevenBytesOfTheBodyAreNotLookedAt) {
    ByteArray file = LyricsBuilder().field("ETT", "Title").done();
    for (std::size_t offset = 0; offset < 11; ++offset) file[offset] = 'x';
    ASSERT_FALSE(load(file));
    EXPECT_EQ(tag_.Title(), "Title");
}

TEST_F(LyricsTagLoad, ALengthPastTheEndGivesWhatIsThere) {
    ASSERT_FALSE(load(LyricsBuilder().field("LYR", "99999", "la la").done()));
    EXPECT_EQ(tag_.Lyrics(), "la la");
    EXPECT_EQ(tag_.getFieldByID("LYR")->Size(), 99999);
}

TEST_F(LyricsTagLoad, ABodyWithoutRoomForAFieldHasNone) {
    for (const char* size : {"000000", "000001", "000010", "000011"}) {
        ASSERT_FALSE(load(LyricsBuilder().done(size))) << size;
        EXPECT_EQ(tag_.Version(), lvcV200) << size;
        EXPECT_EQ(tag_.Size(), std::stoi(size)) << size;
        EXPECT_EQ(tag_.FieldCount(), 0) << size;
    }
}

// Version 1.00

TEST_F(LyricsTagLoad, VersionOneAlwaysHasFiveThousandOneHundredCharacters) {
    const std::string lyrics(6000, 'y');
    for (const std::size_t length : {std::size_t{0}, std::size_t{6}, std::size_t{100}, lyrics.size()}) {
        const ByteArray audio = ByteBuilder().repeat('x', 6000).done();
        ASSERT_FALSE(load(joined({audio, lyricsV100(lyrics.substr(0, length))}))) << length;
        EXPECT_EQ(tag_.Version(), lvcV100);
        EXPECT_EQ(tag_.Size(), 5100) << length;
        EXPECT_EQ(tag_.Lyrics().size(), 5100U) << length;
        EXPECT_EQ(tag_.FieldCount(), 0);
    }
}

// Differs from the format on purpose: hosts rely on the fixed length.
TEST_F(LyricsTagLoad, VersionOneReadsTheBytesInFrontOfTheTrailerWhateverTheyAre) {
    const ByteArray file = ByteBuilder().text("x").text("[").repeat('.', 5098).text("]").text("lyricsLYRICSEND").done();
    ASSERT_FALSE(load(file));
    EXPECT_EQ(tag_.Lyrics(), "[" + std::string(5098, '.') + "]");
    ASSERT_FALSE(load(joined({file, Id3v1Builder().done()}), true));
    EXPECT_EQ(tag_.Lyrics(), "[" + std::string(5098, '.') + "]");
}

TEST_F(LyricsTagLoad, VersionOneCharactersAreWindows1252) {
    ASSERT_FALSE(load(ByteBuilder().repeat(0x80, 5100).text("123456LYRICSEND").done()));
    EXPECT_EQ(tag_.Lyrics().size(), 3 * 5100U);
    EXPECT_TRUE(tag_.Lyrics().starts_with("€€"));
}

TEST_F(LyricsTagLoad, VersionOneInAFileWithoutRoomForItsLyricsIsAFailure) {
    ASSERT_FALSE(load(ByteBuilder().repeat('x', 5100).text("123456LYRICSEND").done()));
    const auto failure = load(ByteBuilder().repeat('x', 5099).text("123456LYRICSEND").done());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), kBadRecordNumber);
    EXPECT_EQ(tag_.Version(), lvcV100);
    EXPECT_EQ(tag_.Size(), 5100);
    EXPECT_EQ(tag_.Lyrics(), "");
}

// No tag

TEST_F(LyricsTagLoad, AFileWithoutATrailerHasNoTagAndThatIsNoFailure) {
    ASSERT_FALSE(load(ByteBuilder().repeat('x', 6000).done()));
    expectNoTag();
    EXPECT_EQ(tag_.LastError()->Stream(), "0, , ");
}

TEST_F(LyricsTagLoad, AFileShorterThanATrailerHasNoTag) {
    const ByteArray trailer = bytesOf("000000LYRICS200");
    const ByteArray withRecord = joined({trailer, Id3v1Builder().done()});
    for (std::size_t size = 0; size < 15; ++size) {
        ASSERT_FALSE(load({trailer.end() - static_cast<std::ptrdiff_t>(size), trailer.end()})) << size;
        expectNoTag();
    }
    for (std::size_t size = 0; size < 143; ++size) {
        ASSERT_FALSE(load({withRecord.end() - static_cast<std::ptrdiff_t>(size), withRecord.end()}, true)) << size;
        expectNoTag();
    }
    ASSERT_FALSE(load(trailer));
    EXPECT_EQ(tag_.Version(), lvcV200);
    ASSERT_FALSE(load(withRecord, true));
    EXPECT_EQ(tag_.Version(), lvcV200);
}

// Failures

TEST_F(LyricsTagLoad, ASizeThatIsNoNumberIsATypeMismatch) {
    for (const char* size : {"00O011", "    11", "+00011", "-00011", "0x000B", "11.000"}) {
        const auto failure = load(LyricsBuilder().done(size));
        ASSERT_TRUE(failure) << size;
        EXPECT_EQ(failure->number(), kTypeMismatch) << size;
        EXPECT_EQ(tag_.Version(), lvcV200) << size;
        EXPECT_EQ(tag_.Size(), 0) << size;
        EXPECT_EQ(tag_.FieldCount(), 0) << size;
    }
}

TEST_F(LyricsTagLoad, ASizeLargerThanTheFileIsAFailure) {
    const LyricsBuilder tag = LyricsBuilder().field("ETT", "Title"); // a body of 24 bytes
    ASSERT_EQ(tag.body().size(), 24U);
    ASSERT_FALSE(load(tag.done("000024")));
    for (const char* size : {"000025", "000039", "000167", "999999"}) {
        for (const bool hasId3v1 : {false, true}) {
            const ByteArray record = hasId3v1 ? Id3v1Builder().done() : ByteArray();
            const auto failure = load(joined({tag.done(size), record}), hasId3v1);
            ASSERT_TRUE(failure) << size;
            EXPECT_EQ(failure->number(), kBadRecordNumber) << size;
            EXPECT_EQ(failure->description(), "The Lyrics3 tag is larger than the file.");
            EXPECT_EQ(tag_.Version(), lvcV200) << size;
            EXPECT_EQ(tag_.Size(), std::stoi(size));
            EXPECT_EQ(tag_.FieldCount(), 0) << size;
        }
    }
}

TEST_F(LyricsTagLoad, TwoFieldsOfOneIdAreADuplicateKey) {
    const auto failure =
        load(LyricsBuilder().field("ETT", "first").field("LYR", "la").field("ETT", "second").field("EAL", "x").done());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), kDuplicateKey);
    EXPECT_EQ(failure->description(), "This key is already associated with an element of this collection");
    EXPECT_EQ(tag_.FieldCount(), 2);
    EXPECT_EQ(tag_.Title(), "first");
}

TEST_F(LyricsTagLoad, ALengthThatIsNoNumberIsATypeMismatchAndTheFieldsBeforeStay) {
    const auto failure = load(LyricsBuilder().field("ETT", "Title").field("LYR", " 0002", "la").done());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), kTypeMismatch);
    EXPECT_EQ(tag_.FieldCount(), 1);
    EXPECT_EQ(tag_.Title(), "Title");
}

TEST_F(LyricsTagLoad, ABodyThatEndsInsideAFieldsLengthGivesTheFieldWithoutText) {
    for (const char* rest : {"LYR1", "LYR12", "LYR123", "LYR1234"}) {
        ASSERT_FALSE(load(LyricsBuilder().field("ETT", "Title").raw(rest).done())) << rest;
        ASSERT_EQ(tag_.FieldCount(), 2) << rest;
        EXPECT_EQ(tag_.getFieldByIndex(2)->ID(), "LYR");
        EXPECT_EQ(tag_.getFieldByIndex(2)->Size(), std::stoi(rest + 3));
        EXPECT_EQ(tag_.getFieldByIndex(2)->TextData(), "");
    }
}

TEST_F(LyricsTagLoad, ABodyThatEndsBeforeAFieldsLengthIsATypeMismatchAndTheFieldsBeforeStay) {
    for (const char* rest : {"L", "LY", "LYR", "LYRx", "LYR0 "}) {
        const auto failure = load(LyricsBuilder().field("ETT", "Title").raw(rest).done());
        ASSERT_TRUE(failure) << rest;
        EXPECT_EQ(failure->number(), kTypeMismatch) << rest;
        EXPECT_EQ(tag_.FieldCount(), 1) << rest;
    }
}

TEST_F(LyricsTagLoad, AFileThatIsNotThereIsASystemFailureAndTheOldTagIsForgotten) {
    ASSERT_FALSE(load(everyField().done()));
    const auto failure = loadPath(folder_.path("missing.mp3"), true);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), ENOENT);
    expectNoTag();
    EXPECT_EQ(Internals<LyricsTag>::FileName(tag_), folder_.path("missing.mp3"));
    EXPECT_TRUE(Internals<LyricsTag>::HasID3v1Tag(tag_));
}

TEST_F(LyricsTagLoad, FailuresAreNotRecorded) {
    ASSERT_TRUE(load(LyricsBuilder().done("xxxxxx")));
    EXPECT_EQ(tag_.LastError()->Stream(), "0, , ");
}

// Loading again, and damaged files

TEST_F(LyricsTagLoad, LoadingAgainForgetsWhatWasThere) {
    ASSERT_FALSE(load(everyField().done()));
    ASSERT_FALSE(load(LyricsBuilder().field("LYR", "other").done()));
    EXPECT_EQ(tag_.FieldCount(), 1);
    EXPECT_EQ(tag_.Title(), "");
    ASSERT_FALSE(load(bytesOf("no tag")));
    expectNoTag();
}

TEST_F(LyricsTagLoad, AnOpenFileIsReadAsOneWithAName) {
    FileReader file(folder_.write("a.mp3", joined({everyField().done(), Id3v1Builder().done()})));
    Internals<LyricsTag>::Load(tag_, file, true);
    EXPECT_EQ(tag_.Title(), "Title");
    EXPECT_TRUE(Internals<LyricsTag>::HasID3v1Tag(tag_));
}

TEST_F(LyricsTagLoad, TheId3v1FlagCanBeSetByItself) {
    Internals<LyricsTag>::HasID3v1Tag(tag_, true);
    EXPECT_TRUE(Internals<LyricsTag>::HasID3v1Tag(tag_));
}

TEST_F(LyricsTagLoad, AFieldOutlivesItsTag) {
    auto tag = std::make_unique<LyricsTag>();
    Internals<LyricsTag>::Load(*tag, folder_.write("a.mp3", everyField().done()), false);
    const auto field = tag->getFieldByIndex(1);
    tag.reset();
    EXPECT_EQ(field->TextData(), "Album");
}

std::ptrdiff_t openFileCount() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

TEST_F(LyricsTagLoad, NoFileStaysOpen) {
    const auto before = openFileCount();
    ASSERT_FALSE(load(everyField().done()));
    ASSERT_TRUE(load(everyField().done("999999")));
    EXPECT_EQ(openFileCount(), before);
}

TEST_F(LyricsTagLoad, EveryShorterPrefixIsNoTagAndEveryShorterSuffixIsRefused) {
    const ByteArray file = everyField().done();
    const Bytes whole(file);
    for (std::size_t size = 0; size < file.size(); ++size) {
        const Bytes prefix = whole.first(size);
        ASSERT_FALSE(load({prefix.begin(), prefix.end()})) << size;
        expectNoTag();
        const Bytes suffix = whole.last(size);
        const auto failure = load({suffix.begin(), suffix.end()});
        EXPECT_EQ(failure.has_value(), size >= 15) << size; // shorter ones have no trailer
    }
}

TEST_F(LyricsTagLoad, AWrongByteGivesNoTagOrAKnownFailureOrTheFieldsThatAreThere) {
    const ByteArray file = LyricsBuilder().field("ETT", "T").field("LYR", "la").done();
    const std::size_t markerOffset = file.size() - 9;
    for (std::size_t offset = 0; offset < file.size(); ++offset) {
        for (const unsigned wrong : {0U, unsigned{'9'}, unsigned{'x'}, 255U}) {
            ByteArray damaged = file;
            damaged[offset] = static_cast<std::uint8_t>(wrong);
            const auto failure = load(damaged);
            EXPECT_EQ(tag_.Version(), offset < markerOffset ? lvcV200 : lvcUnknown) << offset;
            EXPECT_LE(tag_.FieldCount(), 2) << offset;
            const auto number = failure ? failure->number() : 0;
            EXPECT_TRUE(number == 0 || number == kTypeMismatch || number == kBadRecordNumber) << offset;
        }
    }
}

TEST_F(LyricsTagLoad, ATagOfManyFieldsIsRead) {
    LyricsBuilder tag;
    std::int32_t count = 0;
    for (char first = 'A'; first <= 'Z'; ++first) {
        for (char second = 'A'; second <= 'Z'; ++second) {
            for (char third = 'A'; third <= 'Z'; ++third, ++count) {
                tag.field(std::string{first, second, third}, "");
            }
        }
    }
    ASSERT_EQ(count, 26 * 26 * 26);
    tag.field("lyr", std::string(99'999, 'x'));
    ASSERT_FALSE(load(tag.done()));
    EXPECT_EQ(tag_.FieldCount(), count + 1);
    EXPECT_EQ(tag_.getFieldByIndex(count)->ID(), "ZZZ");
    EXPECT_EQ(tag_.getFieldByID("lyr")->TextData().size(), 99'999U);
}

} // namespace
} // namespace corvane::lyricstag_test

// Random tags and random changes: what was written reads back, what was not touched is carried over byte for byte.
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/ID3V230Internals.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

namespace corvane::randomtags_test {
namespace {

using namespace test;
using Updatable = Internals<ID3V230>;

constexpr unsigned kTags = 400;

class Chance {
public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    unsigned below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(engine_); }
    bool oneIn(unsigned count) { return below(count) == 0; }
    template <class Table>
    const auto& of(const Table& table) {
        return table[below(static_cast<unsigned>(std::size(table)))];
    }
    // No double quotes among them, which are not carried over where they are text.
    ByteArray bytes(unsigned most) {
        ByteArray bytes(below(most + 1));
        for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(below(256));
        std::replace(bytes.begin(), bytes.end(), std::uint8_t{'"'}, std::uint8_t{'#'});
        return bytes;
    }

private:
    std::mt19937 engine_;
};

constexpr std::array<const char*, 8> kTexts{"a text",
                                            "caf\u00E9 \u00FF\u00E0",
                                            "\u65E5\u672C\u8A9E",
                                            "\u041F\u0440\u0438\u0432\u0435\u0442",
                                            "\u20AC 5 \u2020",
                                            "\U0001F600",
                                            "two\nlines",
                                            " blanks "};
constexpr std::array<const char*, 6> kIso88591Texts{"a text",     "caf\u00E9 \u00FF\u00E0", "x", " blanks ",
                                                    "two\nlines", "\u00FF\u00FF\u00E5"};
constexpr std::array<const char*, 16> kTextFrames{"TIT1", "TIT2", "TIT3", "TPE1", "TPE2", "TALB", "TRCK", "TYER",
                                                  "TCON", "TCOM", "TOPE", "TCOP", "TENC", "TBPM", "TSRC", "TKEY"};
constexpr std::array<const char*, 12> kOtherFrames{"PRIV", "GEOB", "XYZW", "POPM", "PCNT", "RVAD",
                                                   "MCDI", "ETCO", "IPLS", "LINK", "Z123", "UFID"};
constexpr std::array<const char*, 4> kDescriptions{"", "d", "MusicMatch_Mood", "\u00E4"};
constexpr std::array kEncodings{Encoding::CodePage, Encoding::Utf16, Encoding::Utf16BigEndian, Encoding::Utf8};

// Frame data in an encoding that has all characters of the text.
template <class Make>
ByteArray inSomeEncoding(Chance& chance, Make&& make) {
    const Encoding encoding = chance.of(kEncodings);
    return encoding == Encoding::CodePage ? make(chance.of(kIso88591Texts), encoding)
                                          : make(chance.of(kTexts), encoding);
}

ByteArray commentData(Chance& chance) {
    return inSomeEncoding(chance, [&](const char* text, Encoding encoding) {
        return commentFrame(chance.of(kDescriptions), text, encoding, chance.oneIn(3) ? "deu" : "eng");
    });
}

void addFrame(Id3v2Builder& tag, Chance& chance) {
    const unsigned status = chance.oneIn(5) ? 0xE0U : 0U;
    switch (chance.below(9)) {
    case 0:
        tag.frame(chance.of(kOtherFrames), chance.bytes(400), 0, status);
        break;
    case 1:
        tag.frame(chance.oneIn(2) ? "COMM" : "USLT", commentData(chance), 0, status);
        break;
    case 2:
        tag.compressedFrame(chance.of(kTextFrames), textFrame(chance.of(kIso88591Texts)));
        break;
    case 3: // encrypted, perhaps grouped too
        tag.frame(chance.of(kTextFrames), chance.bytes(60), chance.oneIn(2) ? 0x40 : 0x60, status);
        break;
    case 4:
        tag.frame("APIC", pictureFrame(pngImage(2 + chance.below(9), 3), "image/png", chance.of(kDescriptions)));
        break;
    case 5:
        tag.frame("TXXX", inSomeEncoding(chance, [&](const char* text, Encoding encoding) {
                      return userTextFrame(chance.of(kDescriptions), text, encoding);
                  }));
        break;
    case 6: // damaged: an odd UTF-16 text, data cut short
        tag.frame(chance.oneIn(2) ? "TPE3" : "COMM", joined({ByteArray{1, 0xFF, 0xFE, 'a'}, chance.bytes(3)}));
        break;
    default:
        tag.frame(chance.of(kTextFrames),
                  inSomeEncoding(chance, [](const char* text, Encoding encoding) { return textFrame(text, encoding); }),
                  0, status);
    }
}

ByteArray randomTag(Chance& chance) {
    Id3v2Builder tag(3);
    if (chance.oneIn(4)) tag.unsynchronise();
    for (unsigned count = 1 + chance.below(12); count > 0; --count) addFrame(tag, chance);
    if (chance.oneIn(2)) tag.padding(chance.below(3000));
    return tag.done();
}

struct Property {
    const char* name;
    std::string (ID3V230::*read)() const;
    void (ID3V230::*write)(std::string_view);
    bool takesEveryCharacter;
};
#define PROPERTY(NAME, EVERY)                                                                                          \
    Property { #NAME, &ID3V230::NAME, &ID3V230::NAME, EVERY }
constexpr std::array kProperties{
    PROPERTY(Title, true),          PROPERTY(Artist, true),     PROPERTY(Album, true),
    PROPERTY(Track, true),          PROPERTY(Composer, true),   PROPERTY(OriginalArtist, true),
    PROPERTY(Copyright, true),      PROPERTY(EncodedBy, true),  PROPERTY(Comments, true),
    PROPERTY(UserText, true),       PROPERTY(Mood, true),       PROPERTY(Tempo, true),
    PROPERTY(LyricsUnsynced, true), PROPERTY(ArtistURL, false), PROPERTY(UserURL, false),
    PROPERTY(UniqueKey, false)};
#undef PROPERTY

// Everything that identifies a record, whatever its value.
std::string keyOf(const ID3V230Frame& record) { return record.FrameAbbr() + '/' + record.sDescription(); }

class Trial {
public:
    explicit Trial(unsigned seed) : chance_(seed), file_(folder_, randomTag(chance_)) {}

    void run() {
        ASSERT_TRUE(Updatable::LoadFromFile(tag_, file_.path()));
        ASSERT_FALSE(Updatable::image(tag_)->refusal()) << Updatable::image(tag_)->refusal()->reason;
        tag_.UseTempCopy(!chance_.oneIn(3));
        for (int round = 0; round < 2; ++round) {
            const auto before = framesOf(tag_);
            change();
            ASSERT_TRUE(Updatable::SaveTag(tag_)) << Updatable::lastFailure(tag_)->description;
            ASSERT_TRUE(file_.audioIsUntouched());
            compare(before);
            if (testing::Test::HasFailure()) return;
        }
    }

private:
    struct Frame {
        ByteArray bytes;
        std::shared_ptr<ID3V230Frame> record;
        FrameVariant value;
    };

    static std::vector<Frame> framesOf(const ID3V230& tag) {
        std::vector<Frame> frames;
        const auto& image = *Updatable::image(tag);
        std::size_t index = 0;
        for (const auto& record : *tag.Frames()) {
            const bool isInFile = !record->Deleted() && index < image.frames().size();
            frames.push_back({isInFile ? image.bytes(image.frames()[index++]) : ByteArray(), record, record->vValue()});
        }
        return frames;
    }

    void change() {
        for (unsigned count = chance_.below(6); count > 0; --count) {
            const Property& property = chance_.of(kProperties);
            std::string value = property.takesEveryCharacter ? chance_.of(kTexts) : "http://a/b";
            if (chance_.oneIn(4)) value = "";
            (tag_.*property.write)(value);
            written_[property.name] = {&property, value};
        }
        if (chance_.oneIn(3)) {
            year_ = static_cast<std::int16_t>(chance_.below(3000));
            tag_.Year(*year_);
        }
    }

    void compare(const std::vector<Frame>& before) {
        ID3V230 again;
        ASSERT_TRUE(Updatable::LoadFromFile(again, file_.path()));
        for (const auto& [name, written] : written_) {
            // Behind a frame that was deleted another one of the same key may come to light.
            if (written.value.empty() && hasDuplicates()) continue;
            EXPECT_EQ((again.*written.property->read)(), written.value) << name;
        }
        if (year_) {
            EXPECT_EQ(again.Year(), *year_);
        }
        // The frames of the file now, in order, against the records that have not been touched.
        const auto& image = *Updatable::image(again);
        std::size_t place = 0;
        for (const auto& record : *tag_.Frames()) {
            if (record->Deleted()) continue;
            ASSERT_LT(place, image.frames().size()) << "the frame of " << keyOf(*record) << " is missing";
            for (const Frame& old : before) {
                if (old.record == record && old.value == record->vValue() && !old.bytes.empty()) {
                    EXPECT_EQ(image.bytes(image.frames()[place]), old.bytes) << keyOf(*record) << " was not touched";
                }
            }
            ++place;
        }
        EXPECT_EQ(place, image.frames().size()) << "more frames than records";
    }

    bool hasDuplicates() const {
        return std::any_of(tag_.Frames()->begin(), tag_.Frames()->end(),
                           [](const auto& record) { return record->bDupe(); });
    }

    struct Written {
        const Property* property;
        std::string value;
    };

    Chance chance_;
    ScratchFolder folder_;
    Mp3File file_;
    ID3V230 tag_;
    std::map<std::string, Written> written_;
    std::optional<std::int16_t> year_;
};

TEST(RandomTags, KeepWhatWasNotTouchedAndReadBackWhatWasWritten) {
    for (unsigned seed = 1; seed <= kTags; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Trial(seed).run();
        if (HasFailure()) return;
    }
}

} // namespace
} // namespace corvane::randomtags_test

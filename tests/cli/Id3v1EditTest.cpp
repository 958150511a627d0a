#include "apps/cli/Id3v1Edit.h"

#include <gtest/gtest.h>

namespace corvane::cli::id3v1edit_test {
namespace {

using Warnings = std::vector<std::string>;

struct NumberCase {
    const char* name;
    std::string_view text;
    std::optional<std::uint8_t> number;
};
const auto kNameOfCase = [](const auto& tested) { return std::string(tested.param.name); };

class TrackText : public testing::TestWithParam<NumberCase> {};
TEST_P(TrackText, IsReadAsListed) { EXPECT_EQ(parseTrack(GetParam().text), GetParam().number); }
INSTANTIATE_TEST_SUITE_P(
    Texts, TrackText,
    testing::Values(NumberCase{"Empty", "", 0}, NumberCase{"Zero", "0", 0}, NumberCase{"Plain", "5", 5},
                    NumberCase{"WithTotal", "5/12", 5}, NumberCase{"LeadingZero", "07", 7},
                    NumberCase{"Most", "255", 255}, NumberCase{"TooLarge", "256", std::nullopt},
                    NumberCase{"Negative", "-1", std::nullopt}, NumberCase{"NoTotalBehindTheSlash", "5/", std::nullopt},
                    NumberCase{"NoTrackInFrontOfTheSlash", "/5", std::nullopt},
                    NumberCase{"Word", "five", std::nullopt}, NumberCase{"Blank", " 5", std::nullopt}),
    kNameOfCase);

TEST(GenreNames, NumberWithoutANameIsShownAsSuch) {
    EXPECT_EQ(genreText(200), "<Undefined (200)>");
    EXPECT_EQ(genreText(255), "");
}

class Edit : public testing::Test {
protected:
    TagOutcome apply(const Id3v1Values& values) {
        const Id3v1Fields before = fieldsOf(tag_);
        applyValues(tag_, values);
        return outcomeOf(before, tag_);
    }
    // The names of what changes.
    static std::string names(const TagOutcome& outcome) {
        std::string joined;
        for (const FieldChange& change : outcome.changes)
            joined += change.name + ":" + change.before + ">" + change.after + ";";
        return joined;
    }
    void havePlainRecord() {
        Id3v1Fields fields;
        fields.title = "Old";
        fields.comment = "a comment of thirty characters";
        fields.genre = 17;
        fields.tagType = EID3TagConstants::ID3v1;
        assignFields(tag_, fields);
    }

    ID3V1Tag tag_;
};

TEST_F(Edit, ValuesThatAreNotGivenStay) {
    havePlainRecord();
    Id3v1Values values;
    values.artist = "New";
    EXPECT_EQ(names(apply(values)), "artist:>New;");
    EXPECT_EQ(tag_.Title(), "Old");
    EXPECT_EQ(tag_.TagType(), EID3TagConstants::ID3v1);
}

TEST_F(Edit, NewRecordIsId3v11) {
    Id3v1Values values;
    values.title = "T";
    apply(values);
    EXPECT_EQ(tag_.TagType(), EID3TagConstants::ID3V11);
}

TEST_F(Edit, EmptyValuesDelete) {
    havePlainRecord();
    Id3v1Values values;
    values.title = "";
    values.comment = "";
    values.track = 0;
    values.genre = 255;
    EXPECT_EQ(names(apply(values)), "title:Old>;comment:a comment of thirty characters>;genre:Rock>;");
    EXPECT_EQ(tag_.TagType(), EID3TagConstants::ID3v1);
}

TEST_F(Edit, SameValueIsNoChange) {
    havePlainRecord();
    Id3v1Values values;
    values.title = "Old";
    values.genre = 17;
    EXPECT_EQ(names(apply(values)), "");
}

TEST_F(Edit, TrackNumberMakesAPlainRecordId3v11AndTheCommentShorter) {
    havePlainRecord();
    Id3v1Values values;
    values.track = 7;
    const TagOutcome outcome = apply(values);
    EXPECT_EQ(tag_.TagType(), EID3TagConstants::ID3V11);
    EXPECT_EQ(names(outcome), "comment:a comment of thirty characters>a comment of thirty characte;track:>7;");
    EXPECT_EQ(outcome.warnings, Warnings{"comment: cut to \"a comment of thirty characte\""});
}

TEST_F(Edit, TextThatIsTooLongIsCutWithAWarning) {
    Id3v1Values values;
    values.title = "0123456789012345678901234567890";
    values.year = "1999!";
    const TagOutcome outcome = apply(values);
    EXPECT_EQ(names(outcome), "title:>012345678901234567890123456789;year:>1999;");
    EXPECT_EQ(outcome.warnings,
              (Warnings{"title: cut to \"012345678901234567890123456789\"", "year: cut to \"1999\""}));
}

TEST_F(Edit, CharacterThatTheRecordLacksIsReplacedWithAWarning) {
    Id3v1Values values;
    values.artist = "\u65e5\u672c \u20ac";
    const TagOutcome outcome = apply(values);
    EXPECT_EQ(names(outcome), "artist:>?? \u20ac;");
    EXPECT_EQ(outcome.warnings, Warnings{"artist: 2 of its characters cannot be stored in ID3v1 and became \"?\""});
}

TEST_F(Edit, TextThatIsStoredTheSameIsNoChangeButWarnedOf) {
    havePlainRecord();
    tag_.Title("?");
    Id3v1Values values;
    values.title = "\u65e5";
    const TagOutcome outcome = apply(values);
    EXPECT_EQ(names(outcome), "");
    EXPECT_EQ(outcome.warnings.size(), 1u);
}

TEST_F(Edit, TrackOfATagThatDoesNotFitARecordIsAFailure) {
    tag_.Track(300);
    EXPECT_THROW(fieldsOf(tag_), std::exception);
}

} // namespace
} // namespace corvane::cli::id3v1edit_test

#include "apps/cli/Options.h"

#include "apps/cli/WrongUse.h"

#include <gtest/gtest.h>

namespace corvane::cli::options_test {
namespace {

using Words = std::vector<std::string>;

class SaidOptions : public testing::Test {
protected:
    enum class Colour { Red, Blue };

    SaidOptions() {
        options_.addText("-t,--title", "TEXT", title_, "The title");
        options_.addFlag("-n,--dry-run", dryRun_, "Do nothing");
        options_.addNumber("--jobs", jobs_, 1, 16, "How many");
        options_.addChoice<Colour>("--color", colour_, "Which", {{"red", Colour::Red}, {"blue", Colour::Blue}});
    }
    Words operands(const Words& words) { return options_.take(words).operands; }
    std::string wrongUse(const Words& words) {
        try {
            options_.take(words);
        } catch (const WrongUse& wrong) {
            return wrong.what();
        }
        return {};
    }

    Options options_;
    std::string title_ = "none";
    bool dryRun_ = false;
    unsigned jobs_ = 0;
    Colour colour_ = Colour::Red;
};

TEST_F(SaidOptions, MayStandInAnyOrder) {
    EXPECT_EQ(operands({"a", "--title", "T", "b", "--dry-run", "c"}), (Words{"a", "b", "c"}));
    EXPECT_EQ(title_, "T");
    EXPECT_TRUE(dryRun_);
}

TEST_F(SaidOptions, AreOverBehindTwoDashes) {
    EXPECT_EQ(operands({"-n", "--", "--title", "-x", "--", "--help"}), (Words{"--title", "-x", "--", "--help"}));
    EXPECT_EQ(title_, "none");
}

TEST_F(SaidOptions, OneDashIsAnOperand) { EXPECT_EQ(operands({"-"}), Words{"-"}); }

TEST_F(SaidOptions, ValueMayStandBehindAnEqualsSign) {
    operands({"--title=a=b"});
    EXPECT_EQ(title_, "a=b");
}

TEST_F(SaidOptions, EmptyValueBehindAnEqualsSignDoesNotTakeTheNextWord) {
    EXPECT_EQ(operands({"--title=", "file"}), Words{"file"});
    EXPECT_EQ(title_, "");
}

TEST_F(SaidOptions, ValueMayBeAnyText) {
    for (const char* value : {"", "--dry-run", "--", "-", "--help", "[a,b]", "{}", "%%", "-5", "a b", "\xff"}) {
        EXPECT_EQ(operands({"--title", value, "file"}), Words{"file"});
        EXPECT_EQ(title_, value);
        title_ = "none";
        Options fresh;
        fresh.addText("-t,--title", "TEXT", title_, "");
        EXPECT_EQ(fresh.take({"-t", value, "file"}).operands, Words{"file"});
        EXPECT_EQ(title_, value);
    }
    EXPECT_FALSE(dryRun_);
}

TEST_F(SaidOptions, ShortOptionMayHaveItsValueAttached) {
    EXPECT_EQ(operands({"-tT", "file"}), Words{"file"});
    EXPECT_EQ(title_, "T");
}

TEST_F(SaidOptions, OperandsKeepBytesThatMeanSomethingElsewhere) {
    const Words odd{"[a,b]", "{}", "%%", "", " ", "\xff\xfe", "a\nb"};
    EXPECT_EQ(operands(odd), odd);
}

TEST_F(SaidOptions, NumberLiesWithinItsBounds) {
    operands({"--jobs", "16"});
    EXPECT_EQ(jobs_, 16u);
    for (const char* value : {"0", "17", "-1", "x", "", "1.5", "99999999999"}) {
        EXPECT_EQ(wrongUse({"--jobs", value}), "--jobs: \"" + std::string(value) + "\" is not a number from 1 to 16");
    }
}

TEST_F(SaidOptions, ChoiceIsOneOfItsWords) {
    operands({"--color", "blue"});
    EXPECT_EQ(colour_, Colour::Blue);
    EXPECT_EQ(wrongUse({"--color=green"}), "--color: \"green\" is not one of red|blue");
}

TEST_F(SaidOptions, WhatIsNoOptionIsWrongUse) {
    EXPECT_EQ(wrongUse({"--what"}), "There is no option \"--what\"");
    EXPECT_EQ(wrongUse({"-z"}), "There is no option \"-z\"");
    EXPECT_EQ(wrongUse({"--dry-run=yes"}), "--dry-run takes no value");
    EXPECT_NE(wrongUse({"--titl", "x"}), "");
}

TEST_F(SaidOptions, OptionWithoutItsValueOrGivenTwiceIsWrongUse) {
    EXPECT_EQ(wrongUse({"--title"}), "--title needs a value");
    EXPECT_EQ(wrongUse({"--title", "a", "-t"}), "-t needs a value");
    EXPECT_EQ(wrongUse({"--title", "a", "-t", "b"}), "--title may be given only once");
}

TEST_F(SaidOptions, HelpComesBeforeEverythingThatIsWrong) {
    EXPECT_TRUE(options_.take({"--jobs", "0", "--what", "-h"}).wantsHelp);
    EXPECT_TRUE(options_.take({"--help"}).wantsHelp);
    EXPECT_TRUE(options_.take({"--help", "--title"}).wantsHelp);
    EXPECT_FALSE(options_.take({"--", "--help"}).wantsHelp);
}

TEST_F(SaidOptions, HelpTextHasEveryOptionWithItsValueAndItsGroup) {
    options_.startGroup("Others");
    options_.addFlag("--late", dryRun_, "Later");
    const std::string help = options_.help();
    for (const char* part : {"\nOptions:\n", "-t,--title TEXT", "The title", "-n,--dry-run", "--jobs N",
                             "--color red|blue", "-h,--help", "\nOthers:\n  --late"}) {
        EXPECT_NE(help.find(part), std::string::npos) << part << help;
    }
    EXPECT_EQ(help.find("\n\n\n"), std::string::npos);
}

} // namespace
} // namespace corvane::cli::options_test

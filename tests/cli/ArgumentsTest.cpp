#include "apps/cli/Arguments.h"

#include "apps/cli/Cli11.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

using Words = std::vector<std::string>;

class SortedArguments : public testing::Test {
protected:
    SortedArguments() {
        app_.add_option("-t,--title", title_);
        addFlag(app_, "--json", json_, "");
    }
    Arguments sorted(const Words& words) { return sortArguments(app_, words); }

    CLI::App app_;
    std::string title_;
    bool json_ = false;
};

TEST_F(SortedArguments, OptionsAndOperandsMayStandInAnyOrder) {
    const Arguments arguments = sorted({"a", "--title", "T", "b", "--json", "c"});
    EXPECT_EQ(arguments.options, (Words{"--title", "T", "--json"}));
    EXPECT_EQ(arguments.operands, (Words{"a", "b", "c"}));
}

TEST_F(SortedArguments, BehindTwoDashesEverythingIsAnOperand) {
    const Arguments arguments = sorted({"--json", "--", "--title", "-x", "--"});
    EXPECT_EQ(arguments.options, Words{"--json"});
    EXPECT_EQ(arguments.operands, (Words{"--title", "-x", "--"}));
}

TEST_F(SortedArguments, OneDashIsAnOperand) { EXPECT_EQ(sorted({"-"}).operands, Words{"-"}); }

TEST_F(SortedArguments, ValueBehindAnEqualsSignIsAWordOfItsOwn) {
    EXPECT_EQ(sorted({"--title=a=b"}).options, (Words{"--title", "a=b"}));
}

TEST_F(SortedArguments, EmptyValueBehindAnEqualsSignDoesNotTakeTheNextWord) {
    const Arguments arguments = sorted({"--title=", "file"});
    EXPECT_EQ(arguments.options, (Words{"--title", ""}));
    EXPECT_EQ(arguments.operands, Words{"file"});
}

TEST_F(SortedArguments, ValueMayLookLikeAnOption) {
    EXPECT_EQ(sorted({"--title", "--json"}).options, (Words{"--title", "--json"}));
    EXPECT_EQ(sorted({"--title", "--", "f"}).operands, Words{"f"});
}

TEST_F(SortedArguments, FlagTakesNoValue) {
    EXPECT_EQ(sorted({"--json", "file"}).operands, Words{"file"});
    EXPECT_EQ(sorted({"--json=x"}).options, Words{"--json=x"});
}

TEST_F(SortedArguments, UnknownOptionIsHandedOn) {
    EXPECT_EQ(sorted({"--what=1", "-z"}).options, (Words{"--what=1", "-z"}));
}

TEST_F(SortedArguments, LastWordMayBeAnOptionWithoutItsValue) {
    EXPECT_EQ(sorted({"--title"}).options, Words{"--title"});
}

TEST_F(SortedArguments, OperandsKeepBytesThatMeanSomethingElsewhere) {
    const Words odd{"[a,b]", "{}", "%%", "", " ", "\xff\xfe", "a\nb"};
    EXPECT_EQ(sorted(odd).operands, odd);
}

} // namespace
} // namespace corvane::cli

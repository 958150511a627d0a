#include "apps/cli/CsvText.h"

#include <gtest/gtest.h>

namespace corvane::cli::csvtext_test {
namespace {

struct Case {
    const char* name;
    std::string_view text, field;
};
class CsvField : public testing::TestWithParam<Case> {};

TEST_P(CsvField, IsWrittenAsListed) {
    std::string line = "before,";
    appendCsvField(line, GetParam().text);
    EXPECT_EQ(line, std::string("before,").append(GetParam().field));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CsvField,
    testing::Values(Case{"Empty", "", ""}, Case{"Plain", "a;b c", "a;b c"}, Case{"Comma", "a,b", "\"a,b\""},
                    Case{"Quote", "a\"b", "\"a\"\"b\""}, Case{"LineFeed", "a\nb", "\"a\nb\""},
                    Case{"CarriageReturn", "a\rb", "\"a\rb\""}, Case{"BlankInFront", " a", "\" a\""},
                    Case{"BlankBehind", "a ", "\"a \""}, Case{"NulIsReplaced", std::string_view("a\0b", 3), "a\ufffdb"},
                    Case{"MalformedByteIsReplaced", "\xe9", "\ufffd"}, Case{"OtherScripts", "\u65e5,", "\"\u65e5,\""}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::cli::csvtext_test

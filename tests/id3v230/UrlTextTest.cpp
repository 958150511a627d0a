#include "corvane/id3v230/UrlText.h"

#include <gtest/gtest.h>

namespace corvane::urltext_test {
namespace {

TEST(UrlText, EscapesWhatHasNoByteOfItsOwn) {
    EXPECT_EQ(escapedUrl(""), "");
    EXPECT_EQ(escapedUrl("http://x/%20?a=b&c#d"), "http://x/%20?a=b&c#d");
    EXPECT_EQ(escapedUrl("caf\u00E9"), "caf\u00E9");
    EXPECT_EQ(escapedUrl("\u65E5/\u20AC"), "%E6%97%A5/%E2%82%AC");
    EXPECT_EQ(escapedUrl("\u0080"), "%C2%80");
    EXPECT_EQ(escapedUrl("\U0001F600"), "%F0%9F%98%80");
    EXPECT_EQ(escapedUrl("a\xFF"), "a%EF%BF%BD");
}

} // namespace
} // namespace corvane::urltext_test

#include "corvane/xml/XmlImport.h"

#include "corvane/platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace corvane::xmlimport_test {
namespace {

constexpr const char* kSource = "source";

// The number of the failure that `body` ends with, 0 without one.
template <class Body>
std::int32_t failureOf(Body&& body) {
    try {
        body();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.source(), kSource);
        return failure.number();
    }
    return 0;
}

constexpr auto kTypeMismatch = static_cast<std::int32_t>(FailureNumber::TypeMismatch);
constexpr auto kOverflow = static_cast<std::int32_t>(FailureNumber::Overflow);
constexpr auto kObjectNotSet = static_cast<std::int32_t>(FailureNumber::ObjectNotSet);

struct NumberCase {
    const char* name;
    const char* text;
    std::int64_t number;
};
class WholeNumber : public testing::TestWithParam<NumberCase> {};
TEST_P(WholeNumber, IsReadAsAutomationHostsReadIt) {
    EXPECT_EQ(wholeNumber(GetParam().text, kSource), GetParam().number);
}
INSTANTIATE_TEST_SUITE_P(Texts, WholeNumber,
                         testing::Values(NumberCase{"Plain", "42", 42}, NumberCase{"Plus", "+42", 42},
                                         NumberCase{"Minus", "-42", -42}, NumberCase{"BlanksAround", "  42 ", 42},
                                         NumberCase{"BlanksAroundSign", " -42 ", -42},
                                         NumberCase{"LeadingZeros", "00042", 42}, NumberCase{"MinusZero", "-0", 0},
                                         NumberCase{"Largest", "9223372036854775807", INT64_MAX},
                                         NumberCase{"Smallest", "-9223372036854775808", INT64_MIN}),
                         [](const auto& tested) { return tested.param.name; });

TEST(WholeNumberFailures, ATextThatIsNoNumberIsATypeMismatch) {
    for (const char* text : {"", " ", "+", "-", "+-1", "--1", "- 1", "1 2", "1.0", "1,0", "1e2", "0x1F", "&H1F", "1a",
                             "a1", "\t1", "1\n", "\u0661", "\xB2"}) {
        EXPECT_EQ(failureOf([&] { wholeNumber(text, kSource); }), kTypeMismatch) << text;
    }
}

TEST(WholeNumberFailures, ANumberOfMoreThanSixtyFourBitsIsAnOverflow) {
    for (const char* text : {"9223372036854775808", "-9223372036854775809", "+99999999999999999999999999999999"}) {
        EXPECT_EQ(failureOf([&] { wholeNumber(text, kSource); }), kOverflow) << text;
    }
}

XmlNode document() {
    return XmlNode::fromText("<R><Property Name='Outside' Value='o'/><Properties>"
                             "<Property Name='A' ID='7' Value='first'/><Property Name='A' Value='second'/>"
                             "<Property Name='NoValue'/><Property Name='Empty' Value=''/>"
                             "</Properties></R>");
}

TEST(PropertyAttribute, IsThatOfTheFirstPropertyWithTheName) {
    EXPECT_EQ(propertyAttribute(document(), "A", "Value", kSource), "first");
    EXPECT_EQ(propertyAttribute(document(), "A", "ID", kSource), "7");
}

TEST(PropertyAttribute, AnEmptyTextIsAText) { EXPECT_EQ(propertyAttribute(document(), "Empty", "Value", kSource), ""); }

TEST(PropertyAttribute, CanBeLookedForWithoutAFailure) {
    EXPECT_EQ(findPropertyAttribute(document(), "A", "Value"), "first");
    EXPECT_EQ(findPropertyAttribute(document(), "Empty", "Value"), "");
    EXPECT_FALSE(findPropertyAttribute(document(), "NoValue", "Value"));
    EXPECT_FALSE(findPropertyAttribute(document(), "B", "Value"));
    EXPECT_FALSE(findPropertyAttribute(XmlNode(), "A", "Value"));
}

TEST(PropertyAttribute, IsNotFoundInANamespace) {
    for (const char* text :
         {"<R xmlns='urn:r'><Properties><Property Name='A' Value='1'/></Properties></R>",
          "<R><Properties xmlns='urn:r'><Property Name='A' Value='1'/></Properties></R>",
          "<R><Properties><Property xmlns='urn:r' Name='A' Value='1'/></Properties></R>",
          "<t:R xmlns:t='urn:r'><t:Properties><Property Name='A' Value='1'/></t:Properties></t:R>"}) {
        EXPECT_FALSE(findPropertyAttribute(XmlNode::fromText(text), "A", "Value")) << text;
    }
    const XmlNode prefixed = XmlNode::fromText("<t:R xmlns:t='urn:r'><Properties><Property xmlns='urn:r' Name='A' "
                                               "Value='1'/><Property Name='A' Value='2'/></Properties></t:R>");
    EXPECT_EQ(findPropertyAttribute(prefixed, "A", "Value"), "2");
    const XmlNode undone = XmlNode::fromText("<R xmlns='urn:r'><Properties xmlns=''><Property Name='A' Value='1'/>"
                                             "</Properties></R>");
    EXPECT_EQ(findPropertyAttribute(undone, "A", "Value"), "1");
}

TEST(PropertyAttribute, AMissingPropertyOrAttributeIsAnObjectThatIsNotSet) {
    for (const char* name : {"B", "a", "NoValue", "Outside", ""}) {
        EXPECT_EQ(failureOf([&] { propertyAttribute(document(), name, "Value", kSource); }), kObjectNotSet) << name;
    }
    EXPECT_EQ(failureOf([] { propertyAttribute(XmlNode(), "A", "Value", kSource); }), kObjectNotSet);
}

} // namespace
} // namespace corvane::xmlimport_test

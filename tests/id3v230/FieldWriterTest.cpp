#include "corvane/id3v230/FieldWriter.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/HostMessageBox.h"

#include <gtest/gtest.h>

namespace corvane::fieldwriter_test {
namespace {

using namespace test;

// Notes what is stored where.
class NotingWriter : public FieldWriter {
public:
    bool has(ID3_FieldID field) const override { return field != missing; }
    void setNumber(ID3_FieldID field, std::uint32_t number) override {
        note(field, "number " + std::to_string(number));
    }
    void setText(ID3_FieldID field, std::string_view text) override { note(field, "text " + std::string(text)); }
    void setBytes(ID3_FieldID field, Bytes bytes) override { note(field, "bytes " + textOf(bytes)); }

    ID3_FieldID missing = ID3_FieldID::ID3FN_LASTFIELDID;
    std::string noted;

private:
    void note(ID3_FieldID field, const std::string& what) {
        noted.append(std::to_string(static_cast<int>(field))).append(" ").append(what).append(";");
    }
};

struct Case {
    int field;
    FrameVariant value;
    const char* noted;
};
TEST(Id3SetField, StoresByTheNumberOfTheField) {
    const std::vector<Case> cases{{0, "12", "0 number 12;"},
                                  {0, 258, "0 number 258;"},
                                  {2, "text", "2 text text;"},
                                  {2, std::int16_t{1999}, "2 text 1999;"},
                                  {3, "http://x", "3 text http://x;"},
                                  {4, "ab", "4 bytes a b ;"},
                                  {5, "d", "5 text d;"},
                                  {10, "eng", "10 text eng;"},
                                  {14, 7, "14 text 7;"}};
    for (const Case& tested : cases) {
        const HostMessageBox host;
        NotingWriter frame;
        id3SetField(frame, tested.value, static_cast<ID3_FieldID>(tested.field));
        EXPECT_EQ(frame.noted, tested.noted);
        EXPECT_TRUE(host.shown.empty());
    }
}

TEST(Id3SetField, TellsTheUserOfAMissingField) {
    const HostMessageBox host;
    NotingWriter frame;
    frame.missing = ID3_FieldID::ID3FN_LANGUAGE;
    id3SetField(frame, "eng", ID3_FieldID::ID3FN_LANGUAGE);
    EXPECT_EQ(frame.noted, "");
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_EQ(host.shown[0].caption, "the host - Store ID3v2 Field");
    EXPECT_EQ(host.shown[0].icon, MessageBoxIcon::Stop);
    EXPECT_EQ(host.shown[0].text, "Unable to write data to field.\r\n"
                                  "ID3V230::id3SetField()\r\n"
                                  "Field '10' doesn't exist.\r\n"
                                  "Data: eng");
}

} // namespace
} // namespace corvane::fieldwriter_test

#include "corvane/core/TagError.h"

#include "tests/support/HostMessageBox.h"

#include <gtest/gtest.h>

namespace corvane::tagerror_test {
namespace {

TEST(TagError, StreamIsThatOfTheRecord) {
    const auto record = std::make_shared<cError>();
    record->record("Read Tag", "File does not exist.");
    EXPECT_EQ(viewOf(record)->Stream(), "0, Read Tag, File does not exist.");
}

TEST(TagError, ShowShowsTheRecord) {
    test::HostMessageBox host;
    const auto record = std::make_shared<cError>();
    record->record("Read Tag", "File does not exist.");
    viewOf(record)->Show("Reading");
    viewOf(record)->Show();
    ASSERT_EQ(host.shown.size(), 2U);
    EXPECT_EQ(host.shown[0].text, "Read Tag\r\nFile does not exist.");
    EXPECT_EQ(host.shown[0].caption, "a host for tests : Reading");
    EXPECT_EQ(host.shown[0].icon, MessageBoxIcon::Exclamation);
    EXPECT_EQ(host.shown[1].caption, "the host");
}

TEST(TagError, AViewObtainedBeforeASecondFailureShowsTheSecondFailure) {
    const auto record = std::make_shared<cError>();
    record->record("Read Tag", "File does not exist.");
    const auto view = viewOf(record);
    record->record("Write Tag", "Tag unknown.");
    EXPECT_EQ(view->Stream(), "0, Write Tag, Tag unknown.");
    record->Clear();
    EXPECT_EQ(view->Stream(), "0, , ");
}

TEST(TagError, TheRecordLivesAsLongAsAViewOfIt) {
    auto record = std::make_shared<cError>();
    record->record("Read Tag", "File does not exist.");
    const auto view = viewOf(record);
    const std::weak_ptr<cError> watched = record;
    record.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(view->Stream(), "0, Read Tag, File does not exist.");
}

TEST(TagError, EveryViewIsANewObjectOfTheSameRecord) {
    const auto record = std::make_shared<cError>();
    EXPECT_NE(viewOf(record), viewOf(record));
}

TEST(TagError, AViewOfNoRecordIsEmpty) { EXPECT_EQ(TagError().Stream(), "0, , "); }

TEST(TagError, BindingAgainReplacesTheRecord) {
    const auto first = std::make_shared<cError>();
    const auto second = std::make_shared<cError>();
    second->record("second", "record");
    const auto view = viewOf(first);
    Internals<TagError>::SetErrorRecord(*view, second);
    EXPECT_EQ(view->Stream(), "0, second, record");
}

} // namespace
} // namespace corvane::tagerror_test

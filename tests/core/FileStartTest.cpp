#include "corvane/core/FileStart.h"

#include "corvane/platform/FileReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace corvane::filestart_test {
namespace {

using test::ByteBuilder;

struct Case {
    const char* name;
    ByteArray bytes;
    FileKind kind = FileKind::Mp3;
    bool claimsTag = false;
    bool hasTag = false;
    std::int32_t audioPosition = 1;
};

ByteArray textOf(std::string_view characters) { return ByteBuilder().text(characters).done(); }

ByteArray tagHead(unsigned version, std::initializer_list<unsigned> size) {
    ByteBuilder head;
    head.text("ID3").byte(version).byte(0).byte(0);
    for (const unsigned byte : size) head.byte(byte);
    return head.done();
}

class FileStartTest : public testing::TestWithParam<Case> {};

TEST_P(FileStartTest, IsToldByTheFirstTenBytes) {
    const test::ScratchFolder folder;
    FileReader file(folder.write("a.mp3", GetParam().bytes));
    const FileStart start = startOf(file);
    EXPECT_EQ(start.kind, GetParam().kind);
    EXPECT_EQ(start.claimsTag, GetParam().claimsTag);
    EXPECT_EQ(start.tag.has_value(), GetParam().hasTag);
    EXPECT_EQ(start.audioPosition, GetParam().audioPosition);
    EXPECT_EQ(test::failureOf([&] { requireNoArchive(start); }).has_value(), start.kind != FileKind::Mp3);
}

INSTANTIATE_TEST_SUITE_P(
    Files, FileStartTest,
    testing::Values(
        Case{.name = "Empty", .bytes = {}}, Case{.name = "Audio", .bytes = {0xFF, 0xFB, 0x90, 0x64}},
        Case{.name = "Zip", .bytes = textOf("PK\x03\x04"), .kind = FileKind::Zip},
        Case{.name = "RarIsTakenForACandidate", .bytes = {'R', 'a', 'r', '!', 0x1A, 0x07, 0x00}},
        Case{.name = "Tag", .bytes = tagHead(3, {0, 0, 2, 1}), .claimsTag = true, .hasTag = true, .audioPosition = 267},
        Case{.name = "TagOfUnknownVersion",
             .bytes = tagHead(9, {0, 0, 0, 5}),
             .claimsTag = true,
             .hasTag = true,
             .audioPosition = 15},
        Case{.name = "SizeByteAbove7F", .bytes = tagHead(3, {0, 0, 0, 0x80}), .claimsTag = true},
        Case{.name = "VersionFF", .bytes = tagHead(0xFF, {0, 0, 0, 5}), .claimsTag = true},
        // Bytes behind the end of the file count as 0.
        Case{.name = "CutTag", .bytes = textOf("ID3\x03"), .claimsTag = true, .hasTag = true, .audioPosition = 10}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace corvane::filestart_test

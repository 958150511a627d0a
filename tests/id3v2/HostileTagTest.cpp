// Tags of about 1 MB that were made to cost much. Each is loaded, listed, read in every way and rendered within
// seconds.
#include "corvane/id3v2/ReadableTag.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/TagOnDisk.h"
#include "tests/support/ProcessorTime.h"

#include <gtest/gtest.h>

#include <functional>

namespace corvane::hostiletag_test {
namespace {

using namespace test;

constexpr std::size_t kSize = 1'000'000;
constexpr double kLimit = 20; // seconds of the processor, sanitizers included; it takes one at most

ByteArray filledWith(unsigned version, const std::function<void(Id3v2Builder&, std::uint32_t)>& addFrame) {
    Id3v2Builder tag(version);
    for (std::uint32_t i = 0; tag.size() < kSize; ++i) addFrame(tag, i);
    return tag.done();
}

std::string idOf(std::uint32_t number, std::size_t length) {
    std::string id;
    for (std::size_t i = 0; i < length; ++i, number /= 26) id.push_back(static_cast<char>('A' + number % 26));
    return id;
}

void readInEveryWay(Bytes file) {
    const double begin = processorSeconds();
    TagOnDisk tag(file);
    tag.tag.Title();
    tag.tag.Picture();
    if (const auto reader = tag.tag.ID3V23Tag()) {
        EXPECT_FALSE(reader->FrameList().empty());
        for (std::int32_t i = 1; i <= reader->FrameCount(); ++i) reader->GetText(reader->GetFrameByIndex(i)->ID());
    }
    if (const TagFrames* frames = Internals<ID3V2Tag>::frames(tag.tag)) readableTag(*frames);
    tag.tag.xml();
    EXPECT_LT(processorSeconds() - begin, kLimit);
}

TEST(HostileTag, OfSmallestFramesWithDifferentIds) {
    readInEveryWay(filledWith(3, [](auto& tag, auto i) { tag.text(idOf(i, 4), ""); }));
    readInEveryWay(filledWith(4, [](auto& tag, auto i) { tag.text(idOf(i, 4), ""); }));
    readInEveryWay(filledWith(2, [](auto& tag, auto i) { tag.text(idOf(i, 3), ""); }));
}

TEST(HostileTag, OfTheSameFrameAgainAndAgain) {
    readInEveryWay(filledWith(3, [](auto& tag, auto) { tag.text("TIT2", ""); }));
    readInEveryWay(filledWith(4, [](auto& tag, auto) { tag.frame("COMM", commentFrame("iTunNORM", "")); }));
}

TEST(HostileTag, OfFramesWithoutData) {
    readInEveryWay(filledWith(3, [](auto& tag, auto i) { i == 0 ? tag.text("TIT2", "") : tag.frame("TALB", {}); }));
}

TEST(HostileTag, OfPayloadsThatStayInTheFile) {
    readInEveryWay(filledWith(3, [](auto& tag, auto i) { tag.frame(idOf(i, 4), ByteArray(4097)); }));
}

TEST(HostileTag, OfFramesThatInflateAThousandfold) {
    const ByteArray large(200'000'000);
    const double begin = processorSeconds();
    TagOnDisk file(Id3v2Builder(3).compressedFrame("GEOB", large).text("TIT2", "t"));
    EXPECT_EQ(file.tag.Title(), "t");
    EXPECT_LT(processorSeconds() - begin, kLimit);
}

TEST(HostileTag, OfManyClaimsThatAreNotThere) {
    const ByteArray claim = ByteBuilder().bigEndian(0x7FFFFFFF, 4).bytes(deflated(ByteArray(10))).done();
    EXPECT_EQ(TagOnDisk(filledWith(3, [&](auto& tag, auto) { tag.frame("GEOB", claim, 0x80); })).tag.ID3V23Tag(),
              nullptr);
}

TEST(HostileTag, OfOneTextWithAValueInEveryByte) {
    const ByteArray values = ByteBuilder().byte(0).repeat(0, kSize).done();
    readInEveryWay(Id3v2Builder(3).frame("TIT2", values).frame("COMM", values).frame("SYLT", values).done());
    ByteBuilder genres;
    genres.byte(0);
    for (std::size_t i = 0; i < kSize; i += 4) genres.text("(17)");
    readInEveryWay(Id3v2Builder(3).frame("TCON", genres.done()).done());
    ByteBuilder names;
    names.byte(0);
    for (std::size_t i = 0; i < kSize / 8; ++i) names.text(std::to_string(1'000'000 + i)).byte(0);
    readInEveryWay(Id3v2Builder(4).frame("TCON", names.done()).done());
}

} // namespace
} // namespace corvane::hostiletag_test

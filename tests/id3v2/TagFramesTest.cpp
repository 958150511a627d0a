#include "corvane/id3v2/TagFrames.h"

#include "corvane/id3v2/FrameGatherer.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/id3v2/LoadedFrames.h"
#include "tests/support/ProcessorTime.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

namespace corvane::tagframes_test {
namespace {

using namespace test;

// A payload that is not gathered, of bytes that tell their places.
ByteArray large(std::size_t size = 100'000, unsigned seed = 1) {
    ByteArray bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(seed + i * 7 + i / 251);
    return bytes;
}

std::int32_t failureOfReading(const TagFrames& frames, FrameId id) {
    try {
        payloadOf(frames, *frames.find(id));
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

TEST(TagFrames, TheFirstFrameOfAnIdIsKeptAndTheListShowsAll) {
    const auto frames =
        loadedFrames(Id3v2Builder(3).text("COMM", "1").text("TIT2", "t").text("COMM", "2").text("TIT2", "u"));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(frames->list(), "COMM;TIT2;COMM;TIT2;");
    EXPECT_EQ(frames->count(), 2U);
    EXPECT_EQ(frames->all().size(), 4U);
    EXPECT_EQ(frames->at(0), &frames->all()[0]);
    EXPECT_EQ(frames->at(1), &frames->all()[1]);
    EXPECT_EQ(frames->at(2), nullptr);
    EXPECT_EQ(frames->find("COMM"), &frames->all()[0]);
    EXPECT_EQ(frames->find("TALB"), nullptr);
}

// IDs that are all different, in an order that is not theirs.
std::string idOf(std::uint32_t number) {
    const std::uint32_t scattered = number * 2654435761U;
    std::string id;
    for (unsigned shift = 0; shift < 24; shift += 6) id.push_back(static_cast<char>('0' + (scattered >> shift & 63)));
    return id;
}

TEST(TagFrames, ManyFramesAreKeptAsFewAre) {
    for (const std::uint32_t count : {63U, 64U, 65U, 66U, 1000U}) {
        Id3v2Builder tag(3);
        for (std::uint32_t i = 0; i < count; ++i) tag.text(idOf(i), std::to_string(i)).text(idOf(i / 2), "again");
        const auto frames = loadedFrames(tag);
        ASSERT_NE(frames, nullptr);
        ASSERT_EQ(frames->count(), count);
        for (std::uint32_t i = 0; i < count; ++i) {
            const auto* frame = frames->find(*FrameId::named(idOf(i)));
            ASSERT_NE(frame, nullptr);
            EXPECT_EQ(payloadOf(*frames, *frame), textFrame(std::to_string(i)));
            EXPECT_EQ(frames->at(i), frame);
        }
        EXPECT_EQ(frames->find("zzzz"), nullptr);
    }
}

TEST(TagFrames, HundredsOfThousandsOfDifferentIdsTakeNoMinutes) {
    ByteBuilder body;
    constexpr std::uint32_t kCount = 300'000;
    for (std::uint32_t i = 0; i < kCount; ++i) {
        body.bigEndian(0x41000000U + i * 2654435761U % 0x00FFFFFFU, 4).bigEndian(1, 4).bigEndian(0, 2).byte(0);
    }
    const double begin = processorSeconds();
    FrameGatherer gatherer(body.done(), body.size());
    ASSERT_TRUE(gatherer.walk(Layout23{}, 0, body.size()).isComplete);
    const auto frames = gatherer.done();
    std::size_t found = 0;
    for (const auto& frame : frames->all()) found += frames->find(frame.id) != nullptr;
    EXPECT_EQ(found, kCount);
    EXPECT_LT(processorSeconds() - begin, 20);
}

class PayloadInTheFile : public testing::Test {
protected:
    void write(const Id3v2Builder& tag) { path_ = folder_.write("f", tag.done()); }
    void load() {
        frames_ = loadedFrames(path_);
        ASSERT_NE(frames_, nullptr);
    }

    ScratchFolder folder_;
    std::string path_;
    std::shared_ptr<const TagFrames> frames_;
};

TEST_F(PayloadInTheFile, IsReadWhenItIsAskedFor) {
    write(Id3v2Builder(3).frame("APIC", large()).text("TIT2", "t").frame("GEOB", large(5000, 9)));
    load();
    EXPECT_EQ(frames_->find("APIC")->place, FramePlace::File);
    EXPECT_EQ(frames_->find("TIT2")->place, FramePlace::Gathered);
    EXPECT_EQ(payloadOf(*frames_, *frames_->find("APIC")), large());
    EXPECT_EQ(payloadOf(*frames_, *frames_->find("GEOB")), large(5000, 9));
}

TEST_F(PayloadInTheFile, IsWhatWasNotReadAnywayAndTextAbove64KB) {
    write(Id3v2Builder(3)
              .frame("AAAA", large(1000)) // in the file's first block, which is read for the headers
              .frame("BBBB", large(4000))
              .frame("TXXX", large(65536))
              .frame("TYYY", large(65537))
              .frame("USLT", large(65536))
              .frame("COMM", large(65537)));
    load();
    const auto isInFile = [this](FrameId id) { return frames_->find(id)->place == FramePlace::File; };
    EXPECT_FALSE(isInFile("AAAA"));
    EXPECT_TRUE(isInFile("BBBB"));
    EXPECT_FALSE(isInFile("TXXX"));
    EXPECT_TRUE(isInFile("TYYY"));
    EXPECT_FALSE(isInFile("USLT"));
    EXPECT_TRUE(isInFile("COMM"));
}

TEST_F(PayloadInTheFile, IsNotReadFromAFileThatWasReplaced) {
    write(Id3v2Builder(3).frame("APIC", large()).text("TIT2", "t"));
    load();
    const ByteArray same = contentOf(path_);
    std::filesystem::rename(folder_.write("other", same), path_);
    EXPECT_EQ(failureOfReading(*frames_, "APIC"), ESTALE);
    EXPECT_EQ(textOf(*frames_, *frames_->find("TIT2")), "t");
}

TEST_F(PayloadInTheFile, IsNotReadFromAFileThatWasChanged) {
    write(Id3v2Builder(3).frame("APIC", large()));
    load();
    const struct timespec times[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path_.c_str(), times, 0), 0);
    EXPECT_EQ(failureOfReading(*frames_, "APIC"), ESTALE);
}

TEST_F(PayloadInTheFile, IsNotReadFromAFileThatGrewOrShrank) {
    for (const std::size_t size : {50'000, 200'000}) {
        write(Id3v2Builder(3).frame("APIC", large()));
        load();
        std::filesystem::resize_file(path_, size);
        EXPECT_EQ(failureOfReading(*frames_, "APIC"), ESTALE);
    }
}

TEST_F(PayloadInTheFile, IsNotReadFromAFileThatIsGone) {
    write(Id3v2Builder(3).frame("APIC", large()));
    load();
    std::filesystem::remove(path_);
    EXPECT_EQ(failureOfReading(*frames_, "APIC"), ENOENT);
}

TEST_F(PayloadInTheFile, IsSynchronisedWhenItIsRead) {
    const ByteArray data(100'000, 0xFF);
    write(Id3v2Builder(4).frame("APIC", unsynchronised(data), 0x20));
    load();
    EXPECT_EQ(frames_->find("APIC")->place, FramePlace::File);
    EXPECT_EQ(payloadOf(*frames_, *frames_->find("APIC")), data);
}

TEST_F(PayloadInTheFile, IsInflatedAgainWhenItIsRead) {
    const ByteArray data(1'000'000, 7);
    write(Id3v2Builder(3).compressedFrame("APIC", data));
    load();
    EXPECT_EQ(frames_->find("APIC")->place, FramePlace::File);
    EXPECT_EQ(payloadOf(*frames_, *frames_->find("APIC")), data);
}

TEST(PayloadInMemory, OfAnUnsynchronisedTagOutlivesTheFile) {
    auto tag = Id3v2Builder(3).unsynchronise().frame("APIC", large()).compressedFrame("GEOB", ByteArray(100'000, 0xFF));
    const auto frames = loadedFrames(tag.text("TIT2", "t").padding(10));
    ASSERT_NE(frames, nullptr);
    EXPECT_EQ(payloadOf(*frames, *frames->find("APIC")), large());
    EXPECT_EQ(payloadOf(*frames, *frames->find("GEOB")), ByteArray(100'000, 0xFF));
    EXPECT_EQ(textOf(*frames, *frames->find("TIT2")), "t");
}

TEST(PayloadInMemory, OfAGatheredFrameOutlivesTheFile) {
    const auto frames = loadedFrames(Id3v2Builder(3).frame("APIC", large(4000)).text("TIT2", "t"));
    EXPECT_EQ(payloadOf(*frames, *frames->find("APIC")), large(4000));
}

} // namespace
} // namespace corvane::tagframes_test

#include "corvane/selftest/TestFixture.h"

#include "corvane/core/FileHandler.h"
#include "corvane/core/FileHandlerInternals.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/platform/RuntimeFailure.h"

#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kScratchFile = "MP3Tst00.mp3";
constexpr std::string_view kContent = "Test-Test-";
constexpr std::uintmax_t kRecordSize = 128; // bytes

constexpr const char* kTitle = "Title";
constexpr const char* kArtist = "Artist";
constexpr const char* kAlbum = "Album";
constexpr const char* kComment = "Comment";
constexpr const char* kYear = "2001";
constexpr std::int16_t kTrack = 77;
constexpr std::uint8_t kGenre = 18;

bool writeContent() {
    std::FILE* file = std::fopen(kScratchFile, "wb");
    if (file == nullptr) return false;
    const bool written = std::fwrite(kContent.data(), 1, kContent.size(), file) == kContent.size();
    return std::fclose(file) == 0 && written;
}

const char* asText(bool value) { return value ? "True" : "False"; }

} // namespace

void TestFixture::Setup(std::shared_ptr<ITestManager> manager, const std::string& vbpPath) {
    manager_ = std::move(manager);
    projectPath_ = vbpPath;
}

void TestFixture::TearDown() { manager_ = nullptr; }

void TestFixture::RunTest() {
    if (!manager_) throw RuntimeFailure(FailureNumber::ObjectNotSet, "TestFixture", "Object variable not set");
    deleteStep();
    createStep();
    writeStep();
    fileSizeStep();
    compareStep();
    manager_->StartStep("- REWRITE TAG -");
    writeStep();
    fileSizeStep();
    compareStep();
}

void TestFixture::deleteStep() {
    manager_->StartStep("Deleting Test-File");
    if (std::remove(kScratchFile) != 0) check(false, "Couldn't delete the Test-File");
}

void TestFixture::createStep() {
    manager_->StartStep("Create Test-File");
    const auto failed = [this] { check(false, std::string("Couldn't create the Test-File '") + kScratchFile + "'"); };
    if (!writeContent()) return failed();
    manager_->StartStep("Testing file size");
    if (!checkFileSize(kContent.size())) failed();
}

void TestFixture::writeStep() {
    manager_->StartStep("Write Tag");
    FileHandler handler;
    Internals<FileHandler>::setFileName(handler, kScratchFile);
    ID3V1Tag& tag = *handler.ID3v1xTag();
    tag.Title(kTitle);
    tag.Artist(kArtist);
    tag.Album(kAlbum);
    tag.Comment(kComment);
    tag.Track(kTrack);
    tag.Genre(kGenre);
    tag.Year(kYear);
    tag.TagType(EID3TagConstants::ID3V11);
    handler.writeID3v1xTag();
    manager_->StartStep("Check if Tag exists");
    const bool exists = handler.HasTag();
    check(exists, std::string("HasTag incorrect. 'True' expected, found: ") + asText(exists));
}

void TestFixture::fileSizeStep() {
    manager_->StartStep("Testing file size");
    checkFileSize(kContent.size() + kRecordSize);
}

void TestFixture::compareStep() {
    manager_->StartStep("Comparing written Tag");
    FileHandler handler;
    handler.Create(kScratchFile); // reads the record; readTag never does
    handler.readTag();
    const ID3V1Tag& tag = *handler.ID3v1xTag();
    const auto compare = [this](const char* label, const std::string& expected, const std::string& found) {
        check(expected == found, std::string(label) + " incorrect. " + expected + " expected, found : " + found);
    };
    compare("TagType", "2", std::to_string(static_cast<std::int32_t>(tag.TagType())));
    compare("Title", kTitle, tag.Title());
    compare("Track", std::to_string(kTrack), std::to_string(tag.Track()));
    compare("Artist", kArtist, tag.Artist());
    compare("Album", kAlbum, tag.Album());
    compare("Comment", kComment, tag.Comment());
    // Managers look for this text, although it is the genre that it tells of.
    compare("Comment", std::to_string(kGenre), std::to_string(tag.Genre()));
    compare("Year", kYear, tag.Year());
}

void TestFixture::check(bool condition, const std::string& message) { manager_->CheckCondition(condition, message); }

// False when the size cannot be found out.
bool TestFixture::checkFileSize(std::uintmax_t expected) {
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(kScratchFile, failure);
    const std::string found = failure ? failure.message() : std::to_string(size);
    check(!failure && size == expected, "Size incorrect. " + std::to_string(expected) + " expected, found: " + found);
    return !failure;
}

} // namespace corvane
